// What holds before anything is measured. Each says on standard error what does not.
#pragma once

// The floors are the surface's pages byte for byte, replays give the pages again, and the parser sees the texts.
bool pagesAgree(int rows);
// So are the floors of the PostScript documents.
bool documentsAgree(int rows);
// Stamping rewrites the marked field and nothing else; searches find the closing word where it is, and
// nothing where the word is missing.
bool operationsWork(int rows);
// Both surfaces keep a PNG byte for byte, and a bitmap that became a PNG keeps its pixels.
bool imagesSurvive();
// A document holds the samples of the bitmap, the same ones from a PNG, and the floor's digits.
bool samplesSurvive();

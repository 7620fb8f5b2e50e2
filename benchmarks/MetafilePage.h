// A page of N text records as an enhanced metafile, by CSurfaceEMF: what the page operations on metafiles are
// measured on. The last record but one is after a marker and takes the page count; the last one is the only
// that holds the closing word.
#pragma once

#include <string>

void makeMetafilePage(int records, std::string& page);

// One memcpy of the page: the least that gives a page with a hit. False for an empty page.
bool copyPage(std::string& page);

// Whether the page count goes in, and the closing word is found and the missing one not. Says on standard error
// what is not so.
bool metafileWorks(int records);

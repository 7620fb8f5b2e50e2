// The table page and the text page as PostScript documents: PostScriptPage.cpp and TextPage.cpp write them with
// CSurfacePSPrinter, CairoPage.cpp and CairoText.cpp with cairo's PostScript surface, FloorPostScript.cpp and
// FloorPostScriptText.cpp as bare bytes; benchmarks.cpp measures the three side by side.
#pragma once

#include <string>

#include "TablePage.h"

class CSurfacePSPrinter;

// A surface has no size of its own until it is told.
CSurfacePSPrinter makePostScriptSurface(const RECT& millimetres, const RECT& bounds);

// Each makes the whole page and leaves its bytes in `page`, whose room is used again when it has some.
void makePostScriptPage(int rows, std::string& page);
void makePostScriptText(int rows, std::string& page);
void makeCairoPostScript(int rows, std::string& page);
void makeCairoPostScriptText(int rows, std::string& page);
// The bytes of the first two by nothing but appending: literals as they are, numbers by std::to_chars.
void makeFloorPostScript(int rows, std::string& page);
void makeFloorPostScriptText(int rows, std::string& page);

// The table page, the text page and the page of one image as PDF: drawn by CSurfaceHdc on the context of a document, and
// by hand with cairo, which paints that context as well.
#pragma once

#include <string>

#include "CairoWriter.h"

// Each makes a document of one page and leaves its bytes in `document`, whose room is used again when it has some.
void makeDocumentTable(int rows, std::string& document);
void makeDocumentText(int rows, std::string& document);
void makeDocumentImage(std::string& image, int pictureType, std::string& document);
void makeCairoDocumentTable(int rows, std::string& document);
void makeCairoDocumentText(int rows, std::string& document);

// One page's worth, on a context of the caller's.
void drawCairoTable(cairo_t* cairo, int rows);
void drawCairoText(cairo_t* cairo, int rows);

// Documents of many pages, the table and the text by turns.
inline constexpr int RowsOfManyPages = 50;
void makeDocument(int pages, std::string& bytes);
void makeCairoDocument(int pages, std::string& bytes);

// Whether the memory that a document takes grows by no more than a page's entry in its lists: says on standard error when
// it does not.
bool documentsStream();

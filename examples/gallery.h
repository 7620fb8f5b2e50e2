// The demo's gallery: one HTML file that shows the pages themselves, a column for each way they were made.
//
// Called by the run (report.cpp) when all pages are there. The file refers to the pages by their names and to
// nothing outside its folder.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include <windows.h>

struct ReportPage;

// A way to make a page: the heading of its column, what is between page name and extension, and the latter.
struct GalleryColumn {
    const char* title;
    const char* suffix;
    const char*
        extension; // browsers show ".svg" itself and of others the picture; ".png": nothing else is stored
};

struct GalleryFigure {
    const GalleryColumn* column;
    std::size_t bytes;              // of the page; 0: none is stored
    std::vector<std::string> facts; // plain text
};

struct GalleryEntry {
    const ReportPage* page;
    std::vector<GalleryFigure> figures;
    bool agrees;
    std::string verdict;     // in words, plain text
    std::vector<POINT> hits; // of the search, on the page of the first figure
};

std::string fileOf(const ReportPage& page, const GalleryColumn& column, const char* extension);

// False when the file could not be written.
bool writeGallery(const std::filesystem::path& file, const std::vector<GalleryEntry>& entries,
                  const char* wantedWord);

// The demo's gallery: one HTML file that shows the pages themselves, a column for each way they were made.
//
// Called by the run (report.cpp) when all pages are there. The file refers to the pages by their names and to
// nothing outside its folder: stored pages and documents are beside it, pictures and further forms in PictureFolder.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include <windows.h>

struct ReportPage;

// A way to make a page. Its file and its picture have the page's name between the two parts given here.
struct GalleryColumn {
    const char* title;
    const char* folder; // of the file, below that of the gallery; "" or ends with a slash
    const char* ending; // of the file; browsers show .svg itself, of others the picture
    const char* pictureEnding;
    bool isPicture = false; // there is nothing else
};
inline constexpr const char* PictureFolder = "gallery/";

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

std::string fileOf(const ReportPage& page, const GalleryColumn& column);
std::string pictureOf(const ReportPage& page, const GalleryColumn& column);

// False when the file could not be written.
bool writeGallery(const std::filesystem::path& file, const std::vector<GalleryEntry>& entries,
                  const char* wantedWord);

// What is done with a finished page. CMetaFilePlayer replays, searches and stamps it; next to that is what a
// peer does with the same bytes: an XML parse, a scan, copies. Checks.cpp and benchmarks.cpp call these.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <windows.h>

class CSurface;

// Finishes the surface and takes its page.
void takePage(CSurface& surface, std::string& page);

bool playPage(std::string& page, CSurface& surface, RECT destination);

struct Search {
    const char* text;
    bool matchCase;
    bool wholeWord;
};

struct Hit {
    std::size_t element = 0;     // where the text element is in the page
    std::size_t markedBytes = 0; // of the marked page; 0: no hit
};

// The first hit; the marked page is made and freed.
Hit findInPage(std::string& page, const Search& search);

// Whether the bytes of `text` are anywhere in the page: one memmem.
bool scanPage(std::string_view page, std::string_view text);

inline constexpr std::string_view PageCountText = "7 of 12";
bool stampPage(std::string& page);

// One memmem for the mark of a page count, and the page copied to `copy` and back; `copy` is as long as the
// page. False when there is no mark.
bool copyMarkedPage(std::string& page, std::string& copy);

struct XmlCount {
    std::size_t texts = 0;      // text elements
    std::size_t attributes = 0; // bytes of their values, of all elements
    std::size_t characters = 0; // bytes of character data
};

// Parses a page with expat, reads the bytes of each attribute's value and counts the character data that it is
// handed. Throws std::runtime_error when the page is not well-formed.
XmlCount parsePage(std::string_view page);

// Pages with text elements, and the search through the public entry.
#pragma once

#include "metaFilePlayer.h"

#include <string>

// What a page needs to be known as one.
inline const std::string PageHead = "<?xml version='1.0'?>\n<!DOCTYPE svg>\n<svg viewBox='0 0 800 600'>\n";

// A text element, with the width of its text when that is not 0.
inline std::string element(int x, int y, const std::string& text, int width = 0)
{
    const std::string length = width != 0 ? " textLength='" + std::to_string(width) + "'" : "";
    return std::string("<text x='") + std::to_string(x) + "' y='" + std::to_string(y) + "'" + length + ">" +
           text + "</text>\n";
}

struct PageSearch {
    std::string text;
    bool matchCase = false;
    bool wholeWord = false;
    unsigned int position = 0;
    unsigned int textOffset = 0;
    int x = 0;
    int y = 0;

    // The marked page of the next hit; empty when there is none.
    std::string next(std::string page)
    {
        unsigned char* found = nullptr;
        unsigned int length = 1;
        CMetaFilePlayer::searchPageForString(reinterpret_cast<unsigned char*>(page.data()),
                                             static_cast<unsigned int>(page.size()), text.c_str(), matchCase,
                                             wholeWord, position, textOffset, found, length, x, y);
        std::string marked(reinterpret_cast<const char*>(found), length);
        CMetaFilePlayer::freeFoundPage(found);
        return marked;
    }
};

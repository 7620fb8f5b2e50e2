// Searching a page through the public entry, from a buffer of exactly the page's length.
#pragma once

#include "metaFilePlayer.h"

#include <string>
#include <vector>

// What a page needs to be known as one; text elements of the tests stand behind it.
inline const std::string pageHead = "<?xml version='1.0'?>\n<!DOCTYPE svg>\n<svg viewBox='0 0 800 600'>\n";

struct PageSearch {
    std::string text;
    bool matchCase = false;
    bool wholeWord = false;
    unsigned int position = 0;
    unsigned int textOffset = 0;
    int x = 0;
    int y = 0;

    // The marked page of the next hit; empty when there is none.
    std::string next(const std::string& page)
    {
        std::vector<unsigned char> bytes(page.begin(), page.end());
        unsigned char* found = nullptr;
        unsigned int length = 1;
        CMetaFilePlayer::searchPageForString(bytes.data(), static_cast<unsigned int>(bytes.size()),
                                             text.c_str(), matchCase, wholeWord, position, textOffset, found,
                                             length, x, y);
        const std::string marked(reinterpret_cast<const char*>(found), length);
        CMetaFilePlayer::freeFoundPage(found);
        return marked;
    }
};

// A text element, with the width of its text when that is not 0.
inline std::string element(int x, int y, const std::string& text, int width = 0)
{
    const std::string length = width != 0 ? " textLength='" + std::to_string(width) + "'" : "";
    return "<text x='" + std::to_string(x) + "' y='" + std::to_string(y) + "'" + length + ">" + text +
           "</text>\n";
}

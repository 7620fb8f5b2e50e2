// Fonts and pictures of a page, in words and by their parts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace pagetool {

struct PageFont {
    // "Arial" 10 bold italic; "Arial" height -13 in a metafile
    std::string inWords() const;

    std::string face; // as drawn
    float points = 0; // 0: in a metafile, which has
    int height = 0;   // its height in logical units
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikethru = false;
};

struct PagePicture {
    // 3: 100 x 50 pixels, PNG, 1234 bytes; 100 x 50 pixels of 24 bits in a metafile
    std::string inWords() const;

    std::optional<unsigned int> id; // nothing: in a metafile
    std::int64_t width = 0;         // pixels
    std::int64_t height = 0;
    std::string kind;      // PNG; empty in a metafile
    std::size_t bytes = 0; // 0: in a metafile, which has
    unsigned int bits = 0; // so many for a pixel
};

} // namespace pagetool

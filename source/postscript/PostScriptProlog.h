// The procedures that documents define, a text for each family: the files of prolog/ without the comments at
// their heads, embedded at build. Document.cpp puts in what a page calls.
#pragma once

#include <string_view>

namespace postscript {

struct PostScriptProlog {
    // Named as their files are. NOLINTBEGIN(readability-identifier-naming)
    static const std::string_view chord;
    static const std::string_view ellipse;
    static const std::string_view focusrect;
    static const std::string_view framerect;
    static const std::string_view hatch;
    static const std::string_view jshow;
    static const std::string_view middleshow;
    static const std::string_view pie;
    static const std::string_view rightshow;
    static const std::string_view rotatedshow;
    static const std::string_view solidrect;
    static const std::string_view transparentimage;
    // NOLINTEND(readability-identifier-naming)
};

} // namespace postscript

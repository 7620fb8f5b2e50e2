// The fonts of this machine, through fontconfig: which face stands for a description, and which faces there are.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "Typeface.h"

struct _cairo_font_face; // NOLINT(bugprone-reserved-identifier): cairo's own tag
struct _FcPattern;       // NOLINT(bugprone-reserved-identifier): fontconfig's own tag

namespace wingdi {

struct ReleasePattern {
    void operator()(_FcPattern* pattern) const noexcept;
};

// The face that stands for a description.
struct FoundFont {
    std::shared_ptr<const Typeface> typeface;
    std::unique_ptr<_FcPattern, ReleasePattern> pattern; // names file, face and artificial weight, for cairo
    bool emboldened = false;                             // the weight is artificial
    double slant = 0; // of an artificial italic: x grows by this for each y
};

// By face name, weight, italic, character set and family; never fails as long as a font with outlines is installed.
// Names of the Windows fonts lead to the Liberation faces, so that measures are the same everywhere.
std::shared_ptr<const FoundFont> findFont(const LOGFONTW& description);

// Names in UTF-8.
struct InstalledFont {
    std::string family;
    std::string style;
    std::string fullName;
    std::string file;
    int index = 0;
    int weight = FW_NORMAL;
    bool italic = false;
    bool symbol = false;
};

// All faces with outlines, by family and style, each once.
std::vector<InstalledFont> installedFonts();

} // namespace wingdi

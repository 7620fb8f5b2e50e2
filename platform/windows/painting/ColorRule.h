// What becomes of colours between monochrome bitmaps and others.
#pragma once

#include <windows.h>

#include <algorithm>

namespace wingdi {

// Colours as 0x00RRGGBB.
struct ColorRule {
    enum class Kind : unsigned char { None, ToMonochrome, FromMonochrome };

    void apply(DWORD* pixels, int count) const
    {
        constexpr DWORD White = 0xFFFFFF;
        if (kind == Kind::ToMonochrome) {
            std::transform(pixels, pixels + count, pixels,
                           [this](DWORD pixel) { return (pixel & White) == back ? White : 0; });
        } else if (kind == Kind::FromMonochrome) {
            std::transform(pixels, pixels + count, pixels,
                           [this](DWORD pixel) { return pixel != 0 ? back : text; });
        }
    }

    Kind kind = Kind::None;
    DWORD back = 0; // what becomes white, or what white becomes
    DWORD text = 0; // what black becomes
};

} // namespace wingdi

// What becomes of colours between monochrome bitmaps and others.
#pragma once

#include <windows.h>

#include <algorithm>

// Colours as 0x00RRGGBB.
struct ColorRule {
    enum class Kind : unsigned char { none, toMonochrome, fromMonochrome };

    void apply(DWORD* pixels, int count) const
    {
        constexpr DWORD white = 0xFFFFFF;
        if (kind == Kind::toMonochrome) {
            std::transform(pixels, pixels + count, pixels,
                           [this](DWORD pixel) { return (pixel & white) == back ? white : 0; });
        } else if (kind == Kind::fromMonochrome) {
            std::transform(pixels, pixels + count, pixels,
                           [this](DWORD pixel) { return pixel != 0 ? back : text; });
        }
    }

    Kind kind = Kind::none;
    DWORD back = 0; // what becomes white, or what white becomes
    DWORD text = 0; // what black becomes
};

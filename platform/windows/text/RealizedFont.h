// A font at the size of a device: its face, its measures in whole pixels, and what is needed to paint its glyphs.
#pragma once

#include <windows.h>

#include <memory>

class DeviceContext;
struct _cairo_scaled_font; // NOLINT(bugprone-reserved-identifier): cairo's own tag

class RealizedFont {
public:
    virtual ~RealizedFont() = default;

    // The font that is selected into the context, for its device and its present mapping. Never null as long as any
    // font is installed; null otherwise. Shared through a cache that all threads use.
    static std::shared_ptr<const RealizedFont> realize(const DeviceContext& context);

    // Device units, unrotated.
    virtual const TEXTMETRICA& metrics() const = 0;
    // The advance of a character in whole device units.
    virtual int advance(WCHAR character) const = 0;
    virtual int glyphAdvance(unsigned long glyph) const = 0;
    virtual unsigned long glyph(WCHAR character) const = 0;
    // Device units below the base line of the underline's and the strike-out's upper edge, and their thickness.
    virtual int underlinePosition() const = 0;
    virtual int strikeOutPosition() const = 0;
    virtual int lineThickness() const = 0;
    // Unrotated, antialiased; whoever rotates uses the context's transform of cairo.
    virtual _cairo_scaled_font* scaledFont() const = 0;
};

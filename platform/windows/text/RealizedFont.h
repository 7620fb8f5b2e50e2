// A font at the size of a device: its face, its measures in whole pixels, and what is needed to paint its glyphs.
#pragma once

#include <windows.h>

#include <atomic>
#include <memory>
#include <string>

#include "FontCatalogue.h"

struct _cairo_scaled_font; // NOLINT(bugprone-reserved-identifier): cairo's own tag

namespace wingdi {

class DeviceContext;
struct TextFrame;

// Of what is drawn on the context with the font that is selected now.
TextFrame frameOfText(const DeviceContext& context);

// What the size of a font depends on beside its description.
struct FontScale {
    double along = 1;       // device units of a logical unit in the direction of the line
    double across = 1;      // from line to line
    bool stretched = false; // letters follow the ratio of the two, as they do in advanced graphics mode
    int dotsPerInch = 96;

    bool operator==(const FontScale&) const = default;
};

class RealizedFont {
public:
    // No letter gets higher or wider than this, whatever a page asks for. Whoever paints letters that are as large
    // takes their outlines: a mask of one would take 100 megabytes.
    static constexpr int LargestEm = 10000; // pixels

    // The font that is selected into the context, for its device and its present mapping. Never null as long as any
    // font is installed; null otherwise. Shared through a cache that all threads use.
    static std::shared_ptr<const RealizedFont> realize(const DeviceContext& context);
    static std::shared_ptr<const RealizedFont> realize(const DeviceContext& context, const TextFrame& frame);

    RealizedFont(std::shared_ptr<const FoundFont> found, const LOGFONTW& description, const FontScale& scale);
    RealizedFont(const RealizedFont&) = delete;
    RealizedFont& operator=(const RealizedFont&) = delete;
    ~RealizedFont();

    // Device units, unrotated.
    const TEXTMETRICA& metrics() const noexcept { return m_metrics; }
    // The advance of a character in whole device units; that of .notdef for one that the face lacks.
    int advance(WCHAR character) const { return alongPixels(m_found->typeface->glyph(character).advance); }
    int glyphAdvance(unsigned long glyph) const;
    // What was asked for, and the name of the face that stands for it.
    const LOGFONTW& description() const noexcept { return m_description; }
    std::string family() const { return m_found->typeface->family(); }
    // Pixels.
    int emHeight() const noexcept { return m_emHeight; }
    double emWidth() const noexcept { return m_emWidth; }
    // 0 for a glyph that no character has.
    WCHAR characterOf(unsigned long glyph) const { return m_found->typeface->characterOf(glyph); }
    unsigned long glyph(WCHAR character) const { return m_found->typeface->glyph(character).index; }
    // Device units below the base line of the underline's and the strike-out's upper edge, and their thickness.
    int underlinePosition() const noexcept;
    int strikeOutPosition() const noexcept;
    int lineThickness() const noexcept;
    // Unrotated, antialiased; whoever rotates uses the context's transform of cairo. Null when cairo can't make one.
    _cairo_scaled_font* scaledFont() const;

private:
    void measure(const LOGFONTW& description, const FontScale& scale);
    int alongPixels(int units) const noexcept;
    int acrossPixels(int units) const noexcept;

    std::shared_ptr<const FoundFont> m_found;
    LOGFONTW m_description;
    TEXTMETRICA m_metrics{};
    int m_emHeight = 1; // pixels
    double m_emWidth = 1;
    mutable std::atomic<_cairo_scaled_font*> m_scaledFont{nullptr};
};

} // namespace wingdi

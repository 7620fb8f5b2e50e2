// CairoPage: letters, each with its character, so that documents can be searched and copied from.
#include <cairo.h>

#include <string>
#include <vector>

#include "CairoPage.h"
#include "LineOfText.h"
#include "PixelColor.h"
#include "RealizedFont.h"

namespace wingdi {

namespace {

constexpr char32_t NoCharacter = 0xFFFD;

bool isHighHalf(WCHAR unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowHalf(WCHAR unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

// Others can't be in a text; cairo does not take them.
bool isCharacter(char32_t character)
{
    const bool isHalf = character >= 0xD800 && character < 0xE000;
    const bool isNone = (character >= 0xFDD0 && character < 0xFDF0) || (character & 0xFFFE) == 0xFFFE;
    return character >= ' ' && !isHalf && !isNone;
}

int appendUtf8(std::string& text, char32_t character)
{
    const std::size_t before = text.size();
    const auto append = [&text](char32_t bits) {
        text.push_back(static_cast<char>(bits));
    };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | character >> 6);
        append(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        append(0xE0 | character >> 12);
        append(0x80 | (character >> 6 & 0x3F));
        append(0x80 | (character & 0x3F));
    } else {
        append(0xF0 | character >> 18);
        append(0x80 | (character >> 12 & 0x3F));
        append(0x80 | (character >> 6 & 0x3F));
        append(0x80 | (character & 0x3F));
    }
    return static_cast<int>(text.size() - before);
}

// Letters and their characters in step: one glyph for each.
struct Letters {
    // A character outside the first plane is two glyphs, of which the first has all of its bytes.
    void add(const cairo_glyph_t& glyph, WCHAR character, WCHAR next)
    {
        int bytes = 0;
        if (isHighHalf(character) && isLowHalf(next)) {
            const char32_t whole = 0x10000 + ((char32_t{character} - 0xD800) << 10) + (next - 0xDC00U);
            bytes = appendUtf8(text, isCharacter(whole) ? whole : NoCharacter);
            secondHalf = true;
        } else if (!secondHalf) {
            bytes = appendUtf8(text, isCharacter(character) ? char32_t{character} : NoCharacter);
        } else {
            secondHalf = false;
        }
        glyphs.push_back(glyph);
        clusters.push_back({bytes, 1});
    }

    std::string text;
    std::vector<cairo_glyph_t> glyphs;
    std::vector<cairo_text_cluster_t> clusters;
    bool secondHalf = false;
};

Letters lettersOf(const TextOutput& output, const LineSpace& space, const cairo_matrix_t& back)
{
    const bool indices = (output.options & ETO_GLYPH_INDEX) != 0;
    const RealizedFont& font = *output.font;
    Letters letters;
    double along = 0;
    for (std::size_t i = 0; i < output.text.size(); ++i) {
        const DevicePoint point = space.at(along, 0);
        double x = point.x - space.x;
        double y = point.y - space.y;
        cairo_matrix_transform_distance(&back, &x, &y);
        const WCHAR unit = output.text[i];
        const WCHAR next = i + 1 < output.text.size() ? output.text[i + 1] : WCHAR{0};
        if (indices) {
            letters.add({unit, x, y}, font.characterOf(unit), 0);
        } else {
            letters.add({font.glyph(unit), x, y}, unit, next);
        }
        along += i < output.deviceAdvances.size() ? output.deviceAdvances[i] : 0;
    }
    return letters;
}

} // namespace

void CairoPage::text(const TextOutput& output, COLORREF color)
{
    cairo_scaled_font_t* const font = output.font->scaledFont();
    const TextFrame& frame = output.frame;
    const cairo_matrix_t turn{
        frame.glyphRight.x, frame.glyphRight.y, frame.glyphDown.x, frame.glyphDown.y, 0, 0};
    cairo_matrix_t back = turn;
    const LineSpace space = spaceOf(output);
    constexpr double Farthest = 1e6;
    const bool isNear = std::abs(space.x) < Farthest && std::abs(space.y) < Farthest;
    if (font == nullptr || !isNear || cairo_matrix_invert(&back) != CAIRO_STATUS_SUCCESS) {
        return;
    }
    const Letters letters = lettersOf(output, space, back);
    cairo_t* const cairo = m_cairo.get();
    cairo_save(cairo);
    VectorPaint ink;
    ink.color = color;
    setSource(ink);
    cairo_translate(cairo, space.x, space.y);
    cairo_transform(cairo, &turn);
    // Not as a scaled font: that one is for a page without a scale.
    cairo_matrix_t size;
    cairo_scaled_font_get_font_matrix(font, &size);
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_scaled_font_get_font_options(font, options);
    cairo_set_font_face(cairo, cairo_scaled_font_get_font_face(font));
    cairo_set_font_matrix(cairo, &size);
    cairo_set_font_options(cairo, options);
    cairo_font_options_destroy(options);
    cairo_show_text_glyphs(cairo, letters.text.data(), static_cast<int>(letters.text.size()),
                           letters.glyphs.data(), static_cast<int>(letters.glyphs.size()),
                           letters.clusters.data(), static_cast<int>(letters.clusters.size()),
                           cairo_text_cluster_flags_t{});
    cairo_restore(cairo);
    recover();
}

} // namespace wingdi

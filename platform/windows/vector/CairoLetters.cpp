// CairoPage: letters, each with its character, so that documents can be searched and copied from.
#include <cairo.h>

#include <cmath>
#include <string>
#include <vector>

#include "CairoPage.h"
#include "Letters.h"
#include "LineOfText.h"
#include "PixelColor.h"
#include "RealizedFont.h"

namespace wingdi {

namespace {

// Letters and their characters in step: one glyph for each.
struct Letters {
    std::string text;
    std::vector<cairo_glyph_t> glyphs;
    std::vector<cairo_text_cluster_t> clusters;
};

Letters lettersOf(const TextOutput& output)
{
    Letters letters;
    for (const PlacedLetter& letter : placedLetters(output)) {
        const std::size_t before = letters.text.size();
        if (letter.character) {
            appendUtf8(letters.text, *letter.character);
        }
        letters.glyphs.push_back({letter.glyph, letter.x, letter.y});
        letters.clusters.push_back({static_cast<int>(letters.text.size() - before), 1});
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
    const LineSpace space = spaceOf(output);
    constexpr double Farthest = 1e6;
    const bool isNear = std::abs(space.x) < Farthest && std::abs(space.y) < Farthest;
    const Letters letters = isNear ? lettersOf(output) : Letters();
    if (font == nullptr || letters.glyphs.empty()) {
        return;
    }
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
    if (!isDocument() && letterSize(output) * m_scale > LargestKeptLetter) {
        fillOutlines(cairo, letters.glyphs);
        cairo_restore(cairo);
        recover();
        return;
    }
    cairo_show_text_glyphs(cairo, letters.text.data(), static_cast<int>(letters.text.size()),
                           letters.glyphs.data(), static_cast<int>(letters.glyphs.size()),
                           letters.clusters.data(), static_cast<int>(letters.clusters.size()),
                           cairo_text_cluster_flags_t{});
    cairo_restore(cairo);
    recover();
}

} // namespace wingdi

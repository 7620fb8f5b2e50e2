#include "Typeface.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cstdint>
#include <mutex>

namespace wingdi {

// FreeType wants its calls on one library, and on one face, to come one at a time.
class FreeTypeLibrary {
public:
    static std::shared_ptr<FreeTypeLibrary> instance()
    {
        static const std::shared_ptr<FreeTypeLibrary> Library = std::make_shared<FreeTypeLibrary>();
        return Library;
    }

    FreeTypeLibrary()
    {
        if (FT_Init_FreeType(&m_library) != 0) {
            m_library = nullptr;
        }
    }
    FreeTypeLibrary(const FreeTypeLibrary&) = delete;
    FreeTypeLibrary& operator=(const FreeTypeLibrary&) = delete;
    ~FreeTypeLibrary()
    {
        if (m_library != nullptr) {
            FT_Done_FreeType(m_library);
        }
    }

    FT_Library get() const noexcept { return m_library; }
    std::mutex& mutex() noexcept { return m_mutex; }

private:
    FT_Library m_library = nullptr;
    std::mutex m_mutex;
};

namespace {

constexpr int DefaultWeight = 400;
constexpr int BoldWeight = 700;
constexpr FT_ULong SymbolBase = 0xF000; // where symbol fonts keep their 8-bit characters ([OpenType] cmap)

// Kinds of serif of a Latin text face, in the second number of its PANOSE classification.
constexpr int PanoseLatinText = 2;
constexpr int PanoseFirstSerif = 2;
constexpr int PanoseLastSerif = 10;

BYTE familyOf(const TT_OS2* os2, bool fixedPitch)
{
    if (fixedPitch) {
        return FF_MODERN;
    }
    const bool roman = os2 != nullptr && os2->panose[0] == PanoseLatinText &&
                       os2->panose[1] >= PanoseFirstSerif && os2->panose[1] <= PanoseLastSerif;
    return roman ? FF_ROMAN : FF_SWISS;
}

int advanceOf(FT_Face face, unsigned int glyph)
{
    FT_Fixed advance = 0;
    const bool found =
        FT_Get_Advance(face, glyph, FT_LOAD_NO_SCALE | FT_LOAD_IGNORE_TRANSFORM, &advance) == 0;
    // No true advance is far wider than the em; the limit keeps sums of broken ones in bounds.
    const FT_Fixed limit = 64L * face->units_per_EM;
    return found ? static_cast<int>(std::clamp(advance, -limit, limit)) : 0;
}

FaceGlyph glyphOf(FT_Face face, unsigned int character)
{
    unsigned int index = FT_Get_Char_Index(face, character);
    if (index == 0 && character <= 0xFF && face->charmap != nullptr &&
        face->charmap->encoding == FT_ENCODING_MS_SYMBOL) {
        index = FT_Get_Char_Index(face, SymbolBase | character);
    }
    return {index, advanceOf(face, index)};
}

// How often each letter occurs in a thousand of a Latin text: a to z, then the blank. What xAvgCharWidth of a font
// means in the first versions of the table ([OpenType] OS/2); later fonts average all their glyphs there, which makes
// letters look half as wide again as they are.
constexpr int LetterWeights[] = {64, 14, 27, 35, 100, 20, 14, 42, 63, 3, 6,  35, 20, 56,
                                 56, 17, 4,  49, 56,  71, 31, 10, 18, 3, 18, 2,  166};

int averageWidthOf(FT_Face face, int otherwise)
{
    std::int64_t sum = 0; // of the widest glyphs that advanceOf() lets through, more than 32 bits
    unsigned int letter = 'a';
    for (const int weight : LetterWeights) {
        const FaceGlyph glyph = glyphOf(face, letter > 'z' ? ' ' : letter);
        if (glyph.index == 0) {
            return otherwise;
        }
        sum += std::int64_t{weight} * glyph.advance;
        ++letter;
    }
    return static_cast<int>(sum / 1000);
}

FaceMeasures measuresOf(FT_Face face)
{
    FaceMeasures measures{};
    measures.unitsPerEm = face->units_per_EM;
    measures.ascent = face->ascender;
    measures.descent = -face->descender;
    measures.maximumWidth = face->max_advance_width;
    measures.lineThickness = face->underline_thickness;
    // FreeType gives the middle of the underline.
    measures.underlineTop = face->underline_position + face->underline_thickness / 2;
    measures.italic = (face->style_flags & FT_STYLE_FLAG_ITALIC) != 0;
    measures.weight = (face->style_flags & FT_STYLE_FLAG_BOLD) != 0 ? BoldWeight : DefaultWeight;
    measures.fixedPitch = FT_IS_FIXED_WIDTH(face);
    int lineGap = face->height - (face->ascender - face->descender);

    const auto* const os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    const bool hasCell = os2 != nullptr && os2->version != 0xFFFF && os2->usWinAscent + os2->usWinDescent > 0;
    if (hasCell) {
        measures.ascent = os2->usWinAscent;
        measures.descent = os2->usWinDescent;
        measures.strikeOutTop = os2->yStrikeoutPosition;
        measures.weight = os2->usWeightClass;
        // What the line needs beyond the cell; the cell is often higher than the typographic one.
        lineGap -= measures.ascent + measures.descent - (face->ascender - face->descender);
    } else {
        measures.strikeOutTop = measures.ascent / 3;
    }
    measures.averageWidth = averageWidthOf(face, hasCell ? os2->xAvgCharWidth : face->max_advance_width / 2);
    measures.externalLeading = std::max(0, lineGap);
    measures.family = familyOf(hasCell ? os2 : nullptr, measures.fixedPitch);
    if (measures.ascent + measures.descent <= 0) {
        measures.ascent = measures.unitsPerEm;
        measures.descent = 0;
    }
    return measures;
}

} // namespace

std::shared_ptr<const Typeface> Typeface::open(const std::string& file, int index, bool symbol)
{
    auto typeface = std::make_shared<Typeface>(FreeTypeLibrary::instance());
    return typeface->load(file, index, symbol) ? typeface : nullptr;
}

Typeface::Typeface(std::shared_ptr<FreeTypeLibrary> library) : m_library(std::move(library)) {}

Typeface::~Typeface()
{
    const std::lock_guard lock(m_library->mutex());
    if (m_face != nullptr) {
        FT_Done_Face(m_face);
    }
}

bool Typeface::load(const std::string& file, int index, bool symbol)
{
    const std::lock_guard lock(m_library->mutex());
    if (m_library->get() == nullptr || FT_New_Face(m_library->get(), file.c_str(), index, &m_face) != 0) {
        m_face = nullptr;
        return false;
    }
    if (!FT_IS_SCALABLE(m_face) || m_face->units_per_EM == 0) {
        return false;
    }
    if (symbol || m_face->charmap == nullptr) {
        // The font's own code for 8-bit characters, if it has one; without one Unicode stays selected.
        if (FT_Select_Charmap(m_face, FT_ENCODING_MS_SYMBOL) != 0) {
            FT_Select_Charmap(m_face, FT_ENCODING_ADOBE_CUSTOM);
        }
    }
    m_measures = measuresOf(m_face);
    return true;
}

int Typeface::glyphAdvance(unsigned long glyph) const
{
    const std::lock_guard lock(m_library->mutex());
    const bool exists = glyph < static_cast<unsigned long>(m_face->num_glyphs);
    return advanceOf(m_face, exists ? static_cast<unsigned int>(glyph) : 0);
}

std::string Typeface::family() const
{
    return m_face->family_name != nullptr ? m_face->family_name : "";
}

WCHAR Typeface::characterOf(unsigned long glyph) const
{
    constexpr FT_ULong LastOfPlane = 0xFFFF;
    const std::lock_guard lock(m_library->mutex());
    if (m_characters.empty()) {
        m_characters.resize(static_cast<std::size_t>(m_face->num_glyphs));
        FT_UInt index = 0;
        for (FT_ULong code = FT_Get_First_Char(m_face, &index); index != 0 && code <= LastOfPlane;
             code = FT_Get_Next_Char(m_face, code, &index)) {
            if (index < m_characters.size() && m_characters[index] == 0) {
                m_characters[index] = static_cast<WCHAR>(code);
            }
        }
    }
    return glyph < m_characters.size() ? m_characters[glyph] : WCHAR{0};
}

const Typeface::GlyphPage& Typeface::loadPage(unsigned int number) const
{
    const std::lock_guard lock(m_library->mutex());
    if (const GlyphPage* page = m_pages[number].load(std::memory_order_relaxed)) {
        return *page;
    }
    auto page = std::make_unique<GlyphPage>();
    for (unsigned int index = 0; index < page->size(); ++index) {
        (*page)[index] = glyphOf(m_face, number << 8 | index);
    }
    m_ownedPages.push_back(std::move(page));
    m_pages[number].store(m_ownedPages.back().get(), std::memory_order_release);
    return *m_ownedPages.back();
}

} // namespace wingdi

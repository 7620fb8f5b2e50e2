// One face of a font file, with its measures in font units. Shared by all sizes of the font and by all threads.
#pragma once

#include <windows.h>

#include <array>
#include <atomic>
#include <memory>
#include <string>
#include <vector>

struct FT_FaceRec_; // NOLINT(bugprone-reserved-identifier): FreeType's own tag

namespace wingdi {

class FreeTypeLibrary;

// Font units, of which `unitsPerEm` make the em; heights grow upward from the base line.
struct FaceMeasures {
    int unitsPerEm;
    int ascent;  // OS/2 usWinAscent and usWinDescent: the cell as Windows sees it
    int descent; // below the base line, above 0
    int externalLeading;
    int averageWidth;
    int maximumWidth;
    int underlineTop;
    int strikeOutTop;
    int lineThickness;
    int weight; // OS/2 usWeightClass
    bool italic;
    bool fixedPitch;
    BYTE family; // FF_ROMAN, FF_SWISS or FF_MODERN
};

struct FaceGlyph {
    unsigned int index; // 0: the face lacks the character
    int advance;        // of .notdef then
};

class Typeface {
public:
    // Null for a file that can't be read or holds no outlines.
    static std::shared_ptr<const Typeface> open(const std::string& file, int index, bool symbol);
    explicit Typeface(std::shared_ptr<FreeTypeLibrary> library);
    Typeface(const Typeface&) = delete;
    Typeface& operator=(const Typeface&) = delete;
    ~Typeface();

    const FaceMeasures& measures() const noexcept { return m_measures; }
    // As the file names it; empty when it does not.
    std::string family() const;
    FaceGlyph glyph(WCHAR character) const
    {
        const GlyphPage* page = m_pages[character >> 8].load(std::memory_order_acquire);
        return (page != nullptr ? *page : loadPage(character >> 8))[character & 0xFF];
    }
    int glyphAdvance(unsigned long glyph) const;
    // The first character that has the glyph; 0 for none.
    WCHAR characterOf(unsigned long glyph) const;

private:
    using GlyphPage = std::array<FaceGlyph, 256>;

    bool load(const std::string& file, int index, bool symbol);
    const GlyphPage& loadPage(unsigned int number) const;

    std::shared_ptr<FreeTypeLibrary> m_library;
    FT_FaceRec_* m_face = nullptr;
    FaceMeasures m_measures{};
    // 256 characters are read together, once, under the library's lock; from then on readers need none.
    mutable std::array<std::atomic<const GlyphPage*>, 256> m_pages{};
    mutable std::vector<std::unique_ptr<GlyphPage>> m_ownedPages;
    mutable std::vector<WCHAR> m_characters; // by glyph, once somebody asked; under the library's lock
};

} // namespace wingdi

#include "RealizedFont.h"

#include <cairo-ft.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <mutex>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "DeviceContext.h"
#include "TextFrame.h"

namespace wingdi {

namespace {

// The cell of a font without a height, as the system font's at 96 dots per inch.
constexpr int DefaultCell = 16;
constexpr int DefaultResolution = 96;
constexpr double NarrowestEm = 0.1;

// Numbers of TEXTMETRICA as they are for fonts with the Latin letters.
constexpr BYTE FirstCharacter = 30;
constexpr BYTE LastCharacter = 255;
constexpr BYTE DefaultCharacter = 31;
constexpr BYTE BreakCharacter = 32;
constexpr BYTE VariablePitchBit = 0x01; // TMPF_FIXED_PITCH, whose name says the opposite of what it means
constexpr BYTE OutlineBits = 0x06;      // TMPF_VECTOR and TMPF_TRUETYPE

struct CacheKey {
    LOGFONTW description;
    FontScale scale;

    bool operator==(const CacheKey& other) const noexcept
    {
        return std::memcmp(&description, &other.description, sizeof description) == 0 && scale == other.scale;
    }
};

struct CacheHash {
    std::size_t operator()(const CacheKey& key) const noexcept
    {
        const std::string_view bytes(reinterpret_cast<const char*>(&key.description), sizeof key.description);
        return std::hash<std::string_view>()(bytes) ^ (std::hash<double>()(key.scale.along) << 1U) ^
               (std::hash<double>()(key.scale.across) << 2U);
    }
};

using SharedFont = std::shared_ptr<const RealizedFont>;

class FontCache {
public:
    static FontCache& instance()
    {
        static FontCache cache;
        return cache;
    }

    SharedFont find(const CacheKey& key)
    {
        {
            const std::lock_guard lock(m_mutex);
            // Most calls ask for the font of the call before.
            if (m_latest != nullptr && m_latest->first == key) {
                return m_latest->second;
            }
            if (const auto known = m_fonts.find(key); known != m_fonts.end()) {
                m_latest = &*known;
                return known->second;
            }
        }
        const std::shared_ptr<const FoundFont> found = findFont(key.description);
        if (!found) {
            return nullptr;
        }
        auto font = std::make_shared<const RealizedFont>(found, key.description, key.scale);
        const std::lock_guard lock(m_mutex);
        if (m_fonts.size() >= MostFonts) {
            m_latest = nullptr;
            m_fonts.clear(); // those in use are held by their users
        }
        m_fonts.emplace(key, font);
        return font;
    }

private:
    static constexpr std::size_t MostFonts = 128;

    std::mutex m_mutex;
    std::unordered_map<CacheKey, SharedFont, CacheHash> m_fonts;
    const std::pair<const CacheKey, SharedFont>* m_latest = nullptr; // in m_fonts
};

int rounded(double value) noexcept
{
    return static_cast<int>(std::floor(value + 0.5));
}

} // namespace

SharedFont RealizedFont::realize(const DeviceContext& context)
{
    return realize(context, frameOfText(context));
}

SharedFont RealizedFont::realize(const DeviceContext& context, const TextFrame& frame)
{
    CacheKey key{};
    if (context.state.font) {
        key.description = context.state.font->description;
    }
    // The angles are in the frame; fonts of all angles share one size.
    key.description.lfEscapement = 0;
    key.description.lfOrientation = 0;
    key.scale.along = frame.along;
    key.scale.across = frame.across;
    key.scale.stretched = context.state.graphicsMode == GM_ADVANCED;
    key.scale.dotsPerInch = context.device().capability(LOGPIXELSY);

    // Nothing is kept for a thread: objects that end with their thread would hold the module until then.
    return FontCache::instance().find(key);
}

RealizedFont::RealizedFont(std::shared_ptr<const FoundFont> found, const LOGFONTW& description,
                           const FontScale& scale)
    : m_found(std::move(found)), m_description(description)
{
    measure(description, scale);
}

RealizedFont::~RealizedFont()
{
    if (cairo_scaled_font_t* const font = m_scaledFont.load()) {
        cairo_scaled_font_destroy(font);
    }
}

void RealizedFont::measure(const LOGFONTW& description, const FontScale& scale)
{
    const FaceMeasures& face = m_found->typeface->measures();
    const int cellUnits = face.ascent + face.descent;
    const double unitsPerEm = face.unitsPerEm;

    // A height above 0 is that of the cell, one below 0 that of the em.
    const double wanted = description.lfHeight == 0
                              ? std::max(1.0, double{DefaultCell} * scale.dotsPerInch / DefaultResolution)
                              : std::abs(static_cast<double>(description.lfHeight)) * scale.across;
    const double em = description.lfHeight < 0 ? wanted : wanted * unitsPerEm / cellUnits;
    m_emHeight = rounded(std::clamp(em, 1.0, double{LargestEm}));
    m_emWidth = m_emHeight;
    if (description.lfWidth != 0) {
        const double average = std::max(1, face.averageWidth) / unitsPerEm;
        m_emWidth = std::abs(static_cast<double>(description.lfWidth)) * scale.along / average;
    } else if (scale.stretched) {
        m_emWidth = m_emHeight * scale.along / scale.across;
    }
    m_emWidth = std::clamp(m_emWidth, NarrowestEm, double{LargestEm});

    TEXTMETRICA& metrics = m_metrics;
    metrics.tmAscent = acrossPixels(face.ascent);
    metrics.tmHeight = metrics.tmAscent + acrossPixels(face.descent);
    if (description.lfHeight >= 0 && em >= 1 && em <= LargestEm) {
        metrics.tmHeight =
            std::max(metrics.tmAscent, LONG{rounded(wanted)}); // to the pixel what was asked for
    }
    metrics.tmDescent = metrics.tmHeight - metrics.tmAscent;
    metrics.tmInternalLeading = std::max(0, metrics.tmHeight - m_emHeight);
    metrics.tmExternalLeading = acrossPixels(face.externalLeading);
    metrics.tmAveCharWidth = std::max(1, alongPixels(face.averageWidth));
    metrics.tmMaxCharWidth = std::max(1, alongPixels(face.maximumWidth));
    metrics.tmWeight = m_found->emboldened ? FW_BOLD : face.weight;
    metrics.tmDigitizedAspectX = scale.dotsPerInch;
    metrics.tmDigitizedAspectY = scale.dotsPerInch;
    metrics.tmFirstChar = FirstCharacter;
    metrics.tmLastChar = LastCharacter;
    metrics.tmDefaultChar = DefaultCharacter;
    metrics.tmBreakChar = BreakCharacter;
    metrics.tmItalic = face.italic || m_found->slant != 0 ? 1 : 0;
    metrics.tmUnderlined = description.lfUnderline != 0 ? 1 : 0;
    metrics.tmStruckOut = description.lfStrikeOut != 0 ? 1 : 0;
    metrics.tmPitchAndFamily =
        static_cast<BYTE>(face.family | OutlineBits | (face.fixedPitch ? 0 : VariablePitchBit));
    metrics.tmCharSet = description.lfCharSet == DEFAULT_CHARSET ? ANSI_CHARSET : description.lfCharSet;
}

int RealizedFont::alongPixels(int units) const noexcept
{
    return rounded(units * m_emWidth / m_found->typeface->measures().unitsPerEm);
}

int RealizedFont::acrossPixels(int units) const noexcept
{
    return rounded(static_cast<double>(units) * m_emHeight / m_found->typeface->measures().unitsPerEm);
}

int RealizedFont::glyphAdvance(unsigned long glyph) const
{
    return alongPixels(m_found->typeface->glyphAdvance(glyph));
}

int RealizedFont::underlinePosition() const noexcept
{
    return std::max(1, -acrossPixels(m_found->typeface->measures().underlineTop));
}

int RealizedFont::strikeOutPosition() const noexcept
{
    return -acrossPixels(m_found->typeface->measures().strikeOutTop);
}

int RealizedFont::lineThickness() const noexcept
{
    return std::max(1, acrossPixels(m_found->typeface->measures().lineThickness));
}

cairo_scaled_font_t* RealizedFont::scaledFont() const
{
    if (cairo_scaled_font_t* const known = m_scaledFont.load(std::memory_order_acquire)) {
        return known;
    }
    cairo_matrix_t size;
    cairo_matrix_init(&size, m_emWidth, 0, -m_found->slant * m_emWidth, m_emHeight, 0, 0);
    cairo_matrix_t identity;
    cairo_matrix_init_identity(&identity);
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_face_t* const face = cairo_ft_font_face_create_for_pattern(m_found->pattern.get());
    cairo_scaled_font_t* font = cairo_scaled_font_create(face, &size, &identity, options);
    cairo_font_face_destroy(face);
    cairo_font_options_destroy(options);
    if (cairo_scaled_font_status(font) != CAIRO_STATUS_SUCCESS) {
        cairo_scaled_font_destroy(font);
        return nullptr;
    }
    cairo_scaled_font_t* first = nullptr;
    if (!m_scaledFont.compare_exchange_strong(first, font)) {
        cairo_scaled_font_destroy(font); // another thread was quicker
        font = first;
    }
    return font;
}

} // namespace wingdi

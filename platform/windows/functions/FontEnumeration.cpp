// EnumFontFamiliesExA: lists the installed fonts, each with its measures at the default height.
#include <windows.h>

#include <algorithm>
#include <string>

#include "CodePageText.h"
#include "DeviceContext.h"
#include "RealizedFont.h"
#include "failWith.h"

using namespace wingdi;

namespace {

constexpr BYTE StrokePrecision = 3;  // OUT_STROKE_PRECIS, which outline fonts report
constexpr BYTE StackedPrecision = 2; // CLIP_STROKE_PRECIS
constexpr const char* Script = "Western";
constexpr const char* SymbolScript = "Symbol";

// Cut to the field, with a zero byte after it.
template <class Character, std::size_t size>
void setText(Character (&field)[size], const std::string& text)
{
    const std::size_t length = std::min(text.size(), size - 1);
    std::copy_n(text.begin(), length, field);
    field[length] = 0;
}

// What a caller asks for: one family in all its styles, or each family once.
class FontFilter {
public:
    explicit FontFilter(const LOGFONTA* wanted)
    {
        if (wanted == nullptr) {
            return;
        }
        m_family.assign(wanted->lfFaceName,
                        std::find(wanted->lfFaceName, std::end(wanted->lfFaceName), '\0'));
        m_onePerFamily = m_family.empty();
        m_symbolsOnly = wanted->lfCharSet == SYMBOL_CHARSET;
        m_lettersOnly = wanted->lfCharSet == ANSI_CHARSET;
    }

    bool accepts(const InstalledFont& font, const std::string& family)
    {
        if ((m_symbolsOnly && !font.symbol) || (m_lettersOnly && font.symbol)) {
            return false;
        }
        if (m_onePerFamily) {
            const bool isNew = family != m_latestFamily;
            m_latestFamily = family;
            return isNew;
        }
        return m_family.empty() || lowered(family) == lowered(m_family);
    }

private:
    static std::string lowered(std::string name)
    {
        CharLowerA(name.data());
        return name;
    }

    std::string m_family;
    std::string m_latestFamily;
    bool m_onePerFamily = false;
    bool m_symbolsOnly = false;
    bool m_lettersOnly = false;
};

struct EnumeratedFont {
    ENUMLOGFONTEXA names;
    TEXTMETRICA metrics;
};

bool describe(const InstalledFont& font, const std::string& family, int dotsPerInch, EnumeratedFont& result)
{
    auto found = std::make_shared<FoundFont>();
    found->typeface = Typeface::open(font.file, font.index, font.symbol);
    if (!found->typeface) {
        return false;
    }
    LOGFONTW plain{};
    plain.lfCharSet = font.symbol ? SYMBOL_CHARSET : ANSI_CHARSET;
    result.metrics = RealizedFont(std::move(found), plain, {1, 1, false, dotsPerInch}).metrics();

    const TEXTMETRICA& metrics = result.metrics;
    const bool fixedPitch = (metrics.tmPitchAndFamily & 1) == 0;
    result.names = {};
    LOGFONTA& description = result.names.elfLogFont;
    description.lfHeight = metrics.tmHeight;
    description.lfWidth = metrics.tmAveCharWidth;
    description.lfWeight = font.weight;
    description.lfItalic = font.italic ? 1 : 0;
    description.lfCharSet = metrics.tmCharSet;
    description.lfOutPrecision = StrokePrecision;
    description.lfClipPrecision = StackedPrecision;
    description.lfPitchAndFamily =
        static_cast<BYTE>((metrics.tmPitchAndFamily & 0xF0) | (fixedPitch ? FIXED_PITCH : VARIABLE_PITCH));
    setText(description.lfFaceName, family);
    setText(result.names.elfFullName, codePageText(font.fullName.empty() ? font.family : font.fullName));
    setText(result.names.elfStyle, codePageText(font.style));
    setText(result.names.elfScript, font.symbol ? SymbolScript : Script);
    return true;
}

} // namespace

int WINAPI EnumFontFamiliesExA(HDC context, LOGFONTA* font, FONTENUMPROCA callback, LPARAM data,
                               DWORD /*flags*/)
{
    return onContext(context, "EnumFontFamiliesExA", 0, [&](DeviceContext& found) {
        if (callback == nullptr) {
            return failWith(ERROR_INVALID_PARAMETER, 0);
        }
        const int dotsPerInch = found.device().capability(LOGPIXELSY);
        FontFilter filter(font);
        int result = 1;
        for (const InstalledFont& installed : installedFonts()) {
            const std::string family = codePageText(installed.family);
            EnumeratedFont told;
            if (!filter.accepts(installed, family) || !describe(installed, family, dotsPerInch, told)) {
                continue;
            }
            result = callback(&told.names.elfLogFont, &told.metrics, TRUETYPE_FONTTYPE, data);
            if (result == 0) {
                break;
            }
        }
        return result;
    });
}

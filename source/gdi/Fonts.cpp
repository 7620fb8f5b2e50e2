// The list of the device's fonts, and how it is handed out.
#include <algorithm>
#include <cstring>

#include "moduleObjects.h"
#include "surfaceGDI.h"

using namespace drawing;

namespace {

struct FontList {
    TovoTextString text;
    bool outOfMemory = false; // an exception must not cross the enumeration
};

struct FontType {
    DWORD number;
    const char* letter;
};
constexpr FontType FontTypes[] = {{RASTER_FONTTYPE, "R"}, {DEVICE_FONTTYPE, "D"}, {TRUETYPE_FONTTYPE, "T"}};

const char* letterOf(DWORD type)
{
    for (const FontType& row : FontTypes) {
        if (row.number == type) {
            return row.letter;
        }
    }
    return "";
}

// A field of text that need not be terminated.
void appendField(TovoTextString& list, const void* text, std::size_t room)
{
    const char* const begin = static_cast<const char*>(text);
    const char* const end = std::find(begin, begin + room, '\0');
    list.append(begin, static_cast<unsigned int>(end - begin));
    list.append(";", 1);
}

void appendFlag(TovoTextString& list, BYTE flag)
{
    list.append(flag != 0 ? "1;" : "0;", 2);
}

void appendFont(TovoTextString& list, const LOGFONTA& font, DWORD type)
{
    const auto& extended = reinterpret_cast<const ENUMLOGFONTEXA&>(font);
    char weight[16];
    intlSprintf(weight, "%d", static_cast<int>(font.lfWeight));
    appendField(list, font.lfFaceName, sizeof(font.lfFaceName));
    appendField(list, extended.elfStyle, sizeof(extended.elfStyle));
    appendField(list, extended.elfScript, sizeof(extended.elfScript));
    appendField(list, letterOf(type), std::strlen(letterOf(type)));
    appendField(list, weight, std::strlen(weight));
    appendFlag(list, font.lfItalic);
    appendFlag(list, font.lfStrikeOut);
    appendFlag(list, font.lfUnderline);
}

int CALLBACK fontEnumProc(const LOGFONTA* font, const TEXTMETRICA* /*metrics*/, DWORD type, LPARAM data)
{
    // The interface hands pointers through numbers. NOLINTNEXTLINE(performance-no-int-to-ptr)
    FontList& list = *reinterpret_cast<FontList*>(data);
    try {
        appendFont(list.text, *font, type);
    } catch (const KrnException&) {
        list.outOfMemory = true;
        return 0;
    }
    return 1;
}

// `kept` is where a text stays that the record only points to.
int setDskParamString(DskParam* param, const char* text, unsigned int length, BYTE flag, TovoTextString& kept)
{
    constexpr unsigned int Longest = 65535;
    const unsigned int whole = length != 0 ? length : static_cast<unsigned int>(lstrlenA(text));
    switch (param->kind) {
    case DskParam::function:
    case DskParam::otherFunction: {
        const char* answer = text;
        unsigned int answerLength = whole;
        return param->answer != nullptr ? param->answer(18, param->value, &answer, &answerLength) : -1;
    }
    case DskParam::buffer:
    case DskParam::countedBuffer:
        if (param->text != nullptr) {
            const unsigned int fitting = std::min(whole, Longest);
            std::memcpy(param->text, text, fitting);
            param->text[fitting] = '\0';
            if (param->kind == DskParam::countedBuffer) {
                param->value = fitting;
            }
            return 0;
        }
        break;
    default:
        break;
    }
    kept.assign(text, whole);
    param->kind = DskParam::buffer;
    param->flag = flag;
    param->text = kept.text();
    return 0;
}

} // namespace

int CSurfaceGDI::loadFonts(DskParam* param)
{
    if (param == nullptr) {
        return -1;
    }
    FontList list;
    EnumFontFamiliesExA(m_hdc, nullptr, fontEnumProc, reinterpret_cast<LPARAM>(&list), 0);
    if (list.outOfMemory) {
        krnOutOfMemory();
    }
    return setDskParamString(param, list.text.text(), 0, 0, m_fontList);
}

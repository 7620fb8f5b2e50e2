#include "MetafileContents.h"

#include <algorithm>
#include <cstdint>

#include "quotedText.h"
#include "utf8Text.h"

namespace pagetool {

namespace {

// Zeros are blanks.
std::string wideText(const metafile::Record& record, std::size_t offset, std::size_t count)
{
    std::u16string text;
    for (std::size_t i = 0; i < count; ++i) {
        const auto character = record.field<char16_t>(offset + 2 * i).value_or(0);
        text.push_back(character != 0 ? character : u' ');
    }
    return utf8Of(text);
}

void addText(const metafile::Record& record, POINTL place, std::uint64_t offset, std::uint64_t count,
             unsigned int characterSize, std::vector<PlacedText>& texts)
{
    if (count == 0 || offset + count * characterSize > record.bytes.size()) {
        return;
    }
    const auto start = static_cast<std::size_t>(offset);
    const auto length = static_cast<std::size_t>(count);
    if (characterSize == 2) {
        texts.push_back({place, wideText(record, start, length)});
        return;
    }
    const auto piece = record.bytes.subspan(start, length);
    texts.push_back({place, utf8Of(std::string(piece.begin(), piece.end()))});
}

// Windows does not name this record. Its rectangle may follow, and then its characters ([MS-EMF] 2.3.5.37).
constexpr DWORD SmallTextType = 108;
struct SmallText {
    EMR emr;
    POINTL ptlReference;
    DWORD nChars;
    DWORD fuOptions;
    DWORD iGraphicsMode;
    FLOAT exScale;
    FLOAT eyScale;
};
static_assert(sizeof(SmallText) == 36);

void addSmallText(const metafile::Record& record, std::vector<PlacedText>& texts)
{
    constexpr DWORD WithoutRectangle = 0x100; // ETO_NO_RECT, [MS-EMF] 2.1.11
    constexpr DWORD SmallCharacters = 0x200;  // ETO_SMALL_CHARS
    if (const auto fields = record.field<SmallText>(0)) {
        const std::size_t rectangle = (fields->fuOptions & WithoutRectangle) != 0 ? 0 : sizeof(RECTL);
        const unsigned int size = (fields->fuOptions & SmallCharacters) != 0 ? 1 : 2;
        addText(record, fields->ptlReference, sizeof(SmallText) + rectangle, fields->nChars, size, texts);
    }
}

void addPolyText(const metafile::Record& record, std::vector<PlacedText>& texts)
{
    const unsigned int size = record.type == EMR_POLYTEXTOUTW ? 2 : 1;
    std::size_t offset = offsetof(EMRPOLYTEXTOUTW, aemrtext);
    DWORD left = record.field<DWORD>(offsetof(EMRPOLYTEXTOUTW, cStrings)).value_or(0);
    for (; left > 0; --left, offset += sizeof(EMRTEXT)) {
        const auto text = record.field<EMRTEXT>(offset);
        if (!text) {
            return;
        }
        addText(record, text->ptlReference, text->offString, text->nChars, size, texts);
    }
}

// Where the offset of a picture's head is in the records that may have one.
struct PictureField {
    DWORD type;
    std::size_t offset;
};

constexpr std::size_t InPolygon = 96; // [MS-EMF] 2.3.1.4
constexpr PictureField PictureFields[] = {
    {EMR_BITBLT, offsetof(EMRBITBLT, offBmiSrc)},
    {EMR_STRETCHBLT, offsetof(EMRBITBLT, offBmiSrc)},
    {EMR_MASKBLT, offsetof(EMRBITBLT, offBmiSrc)},
    {EMR_ALPHABLEND, offsetof(EMRBITBLT, offBmiSrc)},
    {EMR_TRANSPARENTBLT, offsetof(EMRBITBLT, offBmiSrc)},
    {EMR_PLGBLT, InPolygon},
    {EMR_SETDIBITSTODEVICE, offsetof(EMRSETDIBITSTODEVICE, offBmiSrc)},
    {EMR_STRETCHDIBITS, offsetof(EMRSTRETCHDIBITS, offBmiSrc)},
    {EMR_CREATEMONOBRUSH, offsetof(EMRCREATEMONOBRUSH, offBmi)},
    {EMR_CREATEDIBPATTERNBRUSHPT, offsetof(EMRCREATEDIBPATTERNBRUSHPT, offBmi)},
};

// The bounds of a text record are in units of the page's device, whatever mapping and turn were in force.
void placeByBounds(const metafile::Record& record, std::vector<PlacedText>& texts)
{
    const auto bounds = record.field<RECTL>(sizeof(EMR));
    if (record.type == SmallTextType || texts.size() != 1 || !bounds || bounds->left > bounds->right ||
        bounds->top > bounds->bottom) {
        return;
    }
    texts.front().start = {bounds->left, bounds->top};
}

} // namespace

std::vector<PlacedText> textsOf(const metafile::Record& record)
{
    std::vector<PlacedText> texts;
    switch (record.type) {
    case EMR_EXTTEXTOUTA:
    case EMR_EXTTEXTOUTW:
        if (const auto fields = record.field<EMREXTTEXTOUTW>(0)) {
            const EMRTEXT& text = fields->emrtext;
            addText(record, text.ptlReference, text.offString, text.nChars,
                    record.type == EMR_EXTTEXTOUTW ? 2 : 1, texts);
        }
        break;
    case SmallTextType:
        addSmallText(record, texts);
        break;
    case EMR_POLYTEXTOUTA:
    case EMR_POLYTEXTOUTW:
        addPolyText(record, texts);
        break;
    default:
        break;
    }
    placeByBounds(record, texts);
    return texts;
}

std::optional<std::string> fontOf(const metafile::Record& record)
{
    constexpr LONG Bold = 700;
    if (record.type != EMR_EXTCREATEFONTINDIRECTW) {
        return std::nullopt;
    }
    constexpr std::size_t Offset = offsetof(EMREXTCREATEFONTINDIRECTW, elfw);
    const auto font = record.field<LOGFONTW>(Offset);
    if (!font) {
        return std::nullopt;
    }
    const WCHAR* const end = std::find(font->lfFaceName, std::end(font->lfFaceName), 0);
    const auto length = static_cast<std::size_t>(end - font->lfFaceName);
    std::string text = quotedText(wideText(record, Offset + offsetof(LOGFONTW, lfFaceName), length));
    text.append(" height ").append(std::to_string(font->lfHeight));
    text.append(font->lfWeight >= Bold ? " bold" : "").append(font->lfItalic != 0 ? " italic" : "");
    text.append(font->lfUnderline != 0 ? " underline" : "");
    return text.append(font->lfStrikeOut != 0 ? " strikethru" : "");
}

std::optional<std::string> pictureOf(const metafile::Record& record)
{
    for (const PictureField& field : PictureFields) {
        if (field.type != record.type) {
            continue;
        }
        const DWORD offset = record.field<DWORD>(field.offset).value_or(0);
        const auto head = record.field<BITMAPINFOHEADER>(offset);
        if (offset == 0 || !head || head->biSize < sizeof(BITMAPINFOHEADER)) {
            return std::nullopt;
        }
        return std::to_string(head->biWidth)
            .append(" x ")
            .append(std::to_string(std::abs(std::int64_t{head->biHeight})))
            .append(" pixels of ")
            .append(std::to_string(head->biBitCount))
            .append(" bits");
    }
    return std::nullopt;
}

} // namespace pagetool

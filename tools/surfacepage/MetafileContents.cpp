#include "MetafileContents.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

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

// Where the offset of a picture's head is in the records that may have one; its length, and those of the bits, follow.
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

// Null for records that have no picture.
const PictureField* pictureFieldOf(const metafile::Record& record)
{
    const auto* const field =
        std::find_if(std::begin(PictureFields), std::end(PictureFields),
                     [&](const PictureField& known) { return known.type == record.type; });
    return field != std::end(PictureFields) ? field : nullptr;
}

std::optional<BITMAPINFOHEADER> headAt(const metafile::Record& record, const PictureField& place)
{
    const DWORD offset = record.field<DWORD>(place.offset).value_or(0);
    const auto head = record.field<BITMAPINFOHEADER>(offset);
    return offset != 0 && head && head->biSize >= sizeof(BITMAPINFOHEADER) ? head : std::nullopt;
}

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

std::optional<PageFont> fontOf(const metafile::Record& record)
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
    return PageFont{wideText(record, Offset + offsetof(LOGFONTW, lfFaceName), length),
                    0,
                    font->lfHeight,
                    font->lfWeight >= Bold,
                    font->lfItalic != 0,
                    font->lfUnderline != 0,
                    font->lfStrikeOut != 0};
}

std::optional<PagePicture> pictureOf(const metafile::Record& record)
{
    const PictureField* const place = pictureFieldOf(record);
    const auto head = place != nullptr ? headAt(record, *place) : std::nullopt;
    if (!head) {
        return std::nullopt;
    }
    PagePicture picture;
    picture.width = head->biWidth;
    picture.height = std::abs(std::int64_t{head->biHeight});
    picture.bits = head->biBitCount;
    return picture;
}

std::optional<std::vector<unsigned char>> pictureFileOf(const metafile::Record& record)
{
    const PictureField* const place = pictureFieldOf(record);
    const auto head = place != nullptr ? headAt(record, *place) : std::nullopt;
    if (!head) {
        return std::nullopt;
    }
    // The places of the head and of the bits, and their lengths, are four words in a row.
    const auto word = [&](std::size_t number) {
        return record.field<DWORD>(place->offset + number * sizeof(DWORD)).value_or(0);
    };
    const auto heading = record.piece(word(0), word(1));
    const auto bits = record.piece(word(2), word(3));
    if (!heading || !bits || bits->empty()) {
        return std::nullopt;
    }
    std::vector<unsigned char> file;
    if (head->biCompression != BI_JPEG && head->biCompression != BI_PNG) {
        constexpr std::size_t FileHead = 14; // "BM", the length, a zero, the place of the bits
        const std::size_t start = FileHead + heading->size();
        file = {'B', 'M'};
        for (const std::size_t field : {start + bits->size(), std::size_t{0}, start}) {
            for (unsigned int shift = 0; shift < 32; shift += 8) {
                file.push_back(static_cast<unsigned char>(field >> shift));
            }
        }
        file.insert(file.end(), heading->begin(), heading->end());
    }
    file.insert(file.end(), bits->begin(), bits->end());
    return file;
}

} // namespace pagetool

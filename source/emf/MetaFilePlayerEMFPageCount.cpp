// The page count that is stamped into the text behind a marker, in place.
//
// The marker is a comment record that CSurfaceEMF::printerNofMMarker leaves. The text keeps its record, of which
// characters, advances and place are written anew.
#include "metaFilePlayerEMF.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "emf/MetafileRecords.h"
#include "surface/pageCountWord.h"
#include "surface/wrappingInt.h"

namespace {

// Two numbers, the word, two blanks and a terminator at most.
constexpr unsigned int StampRoom = 2 * 11 + PageCountWord::Room + 2;

struct Stamp {
    char text[StampRoom];
    unsigned int length;
};

// The band of the page that the text stands in, as the marker tells it.
struct Band {
    LONG left;
    LONG right;
};

constexpr DWORD FontCount = 100; // objects above are not followed

// What a walk over the page remembers. A font is remembered as its record, a null one is none.
struct Walk {
    const unsigned char* fonts[FontCount]{};
    const unsigned char* currentFont = nullptr;
    std::optional<Band> marker;
    bool found = false;
};

constexpr std::size_t IndexOffset = sizeof(EMR);
constexpr std::size_t FontOffset = offsetof(EMREXTCREATEFONTINDIRECTW, elfw);

std::optional<Band> markerOf(const MetafileRecord& record)
{
    constexpr std::size_t SizeOffset = 8;
    constexpr std::size_t DataOffset = 12;
    constexpr std::string_view Letters = "TPC";
    constexpr DWORD Size = Letters.size() + sizeof(Band);
    constexpr std::size_t RecordSize = 24;
    if (record.bytes.size() < RecordSize || record.field<DWORD>(SizeOffset) != Size ||
        std::memcmp(record.bytes.data() + DataOffset, Letters.data(), Letters.size()) != 0) {
        return std::nullopt;
    }
    return record.field<Band>(DataOffset + Letters.size());
}

void followFont(Walk& walk, const MetafileRecord& record)
{
    const std::optional<DWORD> index = record.field<DWORD>(IndexOffset);
    const unsigned char** const entry = index && *index < FontCount ? &walk.fonts[*index] : nullptr;
    if (record.type == EMR_EXTCREATEFONTINDIRECTW) {
        if (record.field<LOGFONTW>(FontOffset)) {
            walk.currentFont = record.bytes.data();
            if (entry != nullptr) {
                *entry = walk.currentFont;
            }
        }
    } else if (record.type == EMR_SELECTOBJECT) {
        if (entry != nullptr && *entry != nullptr) {
            walk.currentFont = *entry;
        }
    } else if (entry != nullptr) {
        *entry = nullptr; // deleted; the current font stays, even if it was this one
    }
}

// A text that begins with a blank has room for the total alone.
Stamp makeStamp(bool totalOnly, int pageNumber, int pageCount)
{
    Stamp stamp;
    stamp.length = static_cast<unsigned int>(
        totalOnly ? intlSprintf(stamp.text, "%d", pageCount)
                  : intlSprintf(stamp.text, "%d %s %d", pageNumber, PageCountWord().text(), pageCount));
    return stamp;
}

bool beginsWithBlank(const MetafileRecord& record, const MetafileText& text)
{
    if (text.fields.emrtext.nChars == 0) {
        return false;
    }
    return text.characterSize == 1 ? record.field<char>(text.offsetOf(0)) == ' '
                                   : record.field<WCHAR>(text.offsetOf(0)) == u' ';
}

void writeCharacters(unsigned char* target, unsigned int characterSize, const Stamp& stamp)
{
    if (characterSize == 1) {
        std::memcpy(target, stamp.text, stamp.length);
        return;
    }
    // The conversion ends its text, the record's has no end of its own.
    unsigned short wide[StampRoom];
    intlCStringToUnicode(stamp.text, wide, static_cast<int>(stamp.length) + 1);
    std::memcpy(target, wide, std::size_t{stamp.length} * sizeof(wide[0]));
}

// Measures the stamp in a font of the page, on the screen. `extents` receives, for as many characters as fit, the
// extents from the start of the text; gives the width of all of it.
LONG measure(const Stamp& stamp, const LOGFONTW& description, INT* extents)
{
    constexpr int Maximum = 400;
    const HDC screen = GetDC(nullptr);
    const HFONT font = CreateFontIndirectW(&description);
    const HGDIOBJ before = SelectObject(screen, font);
    INT fit = 0;
    SIZE size{0, 0};
    GetTextExtentExPointA(screen, stamp.text, static_cast<int>(stamp.length), Maximum, &fit, extents, &size);
    SelectObject(screen, before);
    DeleteObject(font);
    ReleaseDC(nullptr, screen);
    return size.cx;
}

// Where a text goes whose width has changed. One that didn't begin where its band begins was centred, or ended
// with the band; others stay.
void align(EMREXTTEXTOUT& fields, const Band& band, LONG width)
{
    RECTL& bounds = fields.rclBounds;
    if (band.left >= bounds.left) {
        return;
    }
    if (wrapSubtract(band.right, 1) > bounds.right) {
        bounds.left = wrapAdd(wrapSubtract(wrapSubtract(band.right, band.left), width) / 2, band.left);
        bounds.right = band.right;
    } else {
        bounds.left = wrapSubtract(bounds.right, width);
    }
    fields.emrtext.ptlReference.x = bounds.left;
}

// Spacing and place of the stamp. A record without room for the advances of the new text gets none.
void space(unsigned char* record, std::size_t size, EMREXTTEXTOUT& fields, const Stamp& stamp,
           const LOGFONTW& font, const Band& band)
{
    const std::size_t offset = fields.emrtext.offDx;
    const std::size_t length = stamp.length * sizeof(INT);
    const bool hasAdvances = offset >= sizeof(EMREXTTEXTOUT) && offset + length <= size;
    INT advances[StampRoom]{};
    if (hasAdvances) {
        std::memcpy(advances, record + offset, length);
    }
    const LONG width = measure(stamp, font, advances);
    for (unsigned int i = stamp.length - 1; i > 0; --i) {
        advances[i] = wrapSubtract(advances[i], advances[i - 1]);
    }
    if (hasAdvances) {
        std::memcpy(record + offset, advances, length);
    }
    align(fields, band, width);
}

// Writes the stamp over the text of a record of the page, where it has room.
void stampText(unsigned char* page, const MetafileRecord& record, const MetafileText& text,
               const Stamp& stamp, Walk& walk)
{
    if (text.fields.emrtext.nChars < stamp.length) {
        return; // for the next text record
    }
    unsigned char* const target = page + record.position;
    EMREXTTEXTOUT fields = text.fields;
    fields.emrtext.nChars = stamp.length;
    fields.emrtext.fOptions = 0;
    writeCharacters(target + text.offsetOf(0), text.characterSize, stamp);
    if (walk.currentFont != nullptr) {
        LOGFONTW font;
        std::memcpy(&font, walk.currentFont + FontOffset, sizeof(font));
        space(target, record.bytes.size(), fields, stamp, font, *walk.marker);
    }
    std::memcpy(target, &fields, sizeof(fields));
    walk.marker.reset();
}

} // namespace

bool CMetaFilePlayerEMF::insertPageCount(unsigned char* page, int length, int pageNumber, int pageCount)
{
    Walk walk;
    for (const MetafileRecord& record : MetafileRecords(metafilePage(page, length))) {
        switch (record.type) {
        case EMR_EXTCREATEFONTINDIRECTW:
        case EMR_SELECTOBJECT:
        case EMR_DELETEOBJECT:
            followFont(walk, record);
            break;
        case EMR_GDICOMMENT:
            if (const std::optional<Band> marker = markerOf(record)) {
                walk.marker = marker;
            }
            break;
        case EMR_EXTTEXTOUTA:
        case EMR_EXTTEXTOUTW:
            if (const std::optional<MetafileText> text = textOf(record); text && walk.marker) {
                walk.found = true;
                stampText(page, record, *text,
                          makeStamp(beginsWithBlank(record, *text), pageNumber, pageCount), walk);
            }
            break;
        default:
            break;
        }
    }
    return walk.found;
}

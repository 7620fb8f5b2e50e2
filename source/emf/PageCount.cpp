// The page count that is stamped into the text after a marker, in place.
//
// The marker is a comment record that CSurfaceEMF::printerNofMMarker leaves. The text keeps its record, of which
// characters, advances and place are written anew.
#include "metaFilePlayerEMF.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <string_view>

#include "MetafileText.h"
#include "PageCountMarker.h"
#include "pageCountText.h"
#include "wrappingInt.h"

using namespace drawing;
using namespace metafile;

namespace {

constexpr DWORD FontCount = 100; // objects above are not followed

// What a walk over the page remembers. A font is remembered as its record, a null one is none.
struct Walk {
    const unsigned char* fonts[FontCount]{};
    const unsigned char* currentFont = nullptr;
    std::optional<PageCountMarker> marker;
    bool found = false;
};

constexpr std::size_t IndexOffset = sizeof(EMR);
constexpr std::size_t FontOffset = offsetof(EMREXTCREATEFONTINDIRECTW, elfw);

// A comment's count of bytes, and what follows it.
std::optional<PageCountMarker> markerOf(const metafile::Record& record)
{
    constexpr std::size_t DataOffset = sizeof(EMR) + sizeof(DWORD);
    const std::optional<DWORD> size = record.field<DWORD>(sizeof(EMR));
    if (!size || *size > record.bytes.size() - DataOffset) {
        return std::nullopt;
    }
    return PageCountMarker::of(record.bytes.subspan(DataOffset, *size));
}

void followFont(Walk& walk, const metafile::Record& record)
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
PageCountText makeStamp(bool totalOnly, int pageNumber, int pageCount)
{
    return totalOnly ? PageCountText(pageCount) : PageCountText(pageNumber, pageCount);
}

bool beginsWithBlank(const metafile::Record& record, const MetafileText& text)
{
    if (text.fields.emrtext.nChars == 0) {
        return false;
    }
    return text.characterSize == 1 ? record.field<char>(text.offsetOf(0)) == ' '
                                   : record.field<WCHAR>(text.offsetOf(0)) == u' ';
}

void writeCharacters(unsigned char* target, unsigned int characterSize, const PageCountText& stamp)
{
    if (characterSize == 1) {
        std::memcpy(target, stamp.text(), stamp.length());
        return;
    }
    // The conversion ends its text, the record's has no end of its own.
    unsigned short wide[PageCountText::Room];
    intlCStringToUnicode(stamp.text(), wide, static_cast<int>(stamp.length()) + 1);
    std::memcpy(target, wide, std::size_t{stamp.length()} * sizeof(wide[0]));
}

// What the screen says of the stamp in a font of the page.
struct Measured {
    INT extents[PageCountText::Room]; // from the start of the text, for as many characters as fit
    LONG width;                       // of all of it
};

// Changes nothing and gives false where the screen cannot measure. Throws KrnException without memory for it.
bool measure(const PageCountText& stamp, const LOGFONTW& description, Measured& measured)
{
    constexpr int Maximum = 400;
    SetLastError(ERROR_SUCCESS);
    const HDC screen = GetDC(nullptr);
    const HFONT font = CreateFontIndirectW(&description);
    const HGDIOBJ before = SelectObject(screen, font);
    INT fit = 0;
    SIZE size{0, 0};
    const bool done = GetTextExtentExPointA(screen, stamp.text(), static_cast<int>(stamp.length()), Maximum,
                                            &fit, measured.extents, &size) != FALSE;
    const bool noMemory =
        screen == nullptr || font == nullptr || (!done && GetLastError() == ERROR_NOT_ENOUGH_MEMORY);
    SelectObject(screen, before);
    DeleteObject(font);
    ReleaseDC(nullptr, screen);
    if (noMemory) {
        krnOutOfMemory();
    }
    measured.width = size.cx;
    return done;
}

// Where a text goes whose width has changed. One that didn't begin where its band begins was centred, or ended
// with the band; others stay.
void align(EMREXTTEXTOUTW& fields, const PageCountMarker& band, LONG width)
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

// A text of the page that receives its stamp: nothing is written before it has been measured.
struct Patch {
    metafile::Record record;
    MetafileText text;
    PageCountText stamp;
    PageCountMarker band;
    bool isMeasured; // else spacing and place stay
    Measured measured;
};

// A record without room for the advances of the new text gets none.
bool hasAdvances(const Patch& patch)
{
    const std::size_t offset = patch.text.fields.emrtext.offDx;
    return offset >= sizeof(EMREXTTEXTOUTW) &&
           offset + patch.stamp.length() * sizeof(INT) <= patch.record.bytes.size();
}

void measure(Patch& patch, const unsigned char* fontRecord)
{
    patch.isMeasured = false;
    if (fontRecord == nullptr) {
        return;
    }
    // Advances that the screen doesn't give are made from those of the record.
    std::fill(std::begin(patch.measured.extents), std::end(patch.measured.extents), 0);
    if (hasAdvances(patch)) {
        std::memcpy(patch.measured.extents, patch.record.bytes.data() + patch.text.fields.emrtext.offDx,
                    patch.stamp.length() * sizeof(INT));
    }
    LOGFONTW font;
    std::memcpy(&font, fontRecord + FontOffset, sizeof(font));
    patch.isMeasured = measure(patch.stamp, font, patch.measured);
}

// Writes the stamp over the text of its record, with its spacing and place.
void write(unsigned char* page, const Patch& patch)
{
    unsigned char* const target = page + patch.record.position;
    const PageCountText& stamp = patch.stamp;
    EMREXTTEXTOUTW fields = patch.text.fields;
    fields.emrtext.nChars = stamp.length();
    fields.emrtext.fOptions = 0;
    writeCharacters(target + patch.text.offsetOf(0), patch.text.characterSize, stamp);
    if (patch.isMeasured) {
        INT advances[PageCountText::Room];
        std::adjacent_difference(patch.measured.extents, patch.measured.extents + stamp.length(), advances,
                                 [](INT extent, INT before) { return wrapSubtract(extent, before); });
        if (hasAdvances(patch)) {
            std::memcpy(target + fields.emrtext.offDx, advances, stamp.length() * sizeof(INT));
        }
        align(fields, patch.band, patch.measured.width);
    }
    std::memcpy(target, &fields, sizeof(fields));
}

// The patches that wait until all are measured, so that a page is stamped wholly or, without memory for measuring,
// not at all. They need no memory themselves; a page with more stamps than there is room for gets them in groups.
class Patches {
public:
    explicit Patches(unsigned char* page) : m_page(page) {}

    void add(const Patch& patch)
    {
        if (m_count == Room) {
            writeAll();
        }
        m_patches[m_count++] = patch;
    }
    void writeAll()
    {
        std::for_each_n(m_patches.begin(), m_count, [this](const Patch& patch) { write(m_page, patch); });
        m_count = 0;
    }

private:
    static constexpr unsigned int Room = 8;

    unsigned char* m_page;
    unsigned int m_count = 0;
    std::array<Patch, Room> m_patches;
};

// A text record after a marker receives the stamp, where it has room; else the next one does.
void stampText(const metafile::Record& record, const MetafileText& text, const PageCountText& stamp,
               Walk& walk, Patches& patches)
{
    if (text.fields.emrtext.nChars < stamp.length()) {
        return;
    }
    Patch patch{record, text, stamp, *walk.marker, false, {}};
    measure(patch, walk.currentFont);
    patches.add(patch);
    walk.marker.reset();
}

} // namespace

bool CMetaFilePlayerEMF::insertPageCount(unsigned char* page, int length, int pageNumber, int pageCount)
{
    Walk walk;
    Patches patches(page);
    for (const metafile::Record& record : metafile::Records(metafile::pageOf(page, length))) {
        switch (record.type) {
        case EMR_EXTCREATEFONTINDIRECTW:
        case EMR_SELECTOBJECT:
        case EMR_DELETEOBJECT:
            followFont(walk, record);
            break;
        case EMR_GDICOMMENT:
            if (const std::optional<PageCountMarker> marker = markerOf(record)) {
                walk.marker = marker;
            }
            break;
        case EMR_EXTTEXTOUTA:
        case EMR_EXTTEXTOUTW:
            if (const std::optional<MetafileText> text = textOf(record); text && walk.marker) {
                walk.found = true;
                stampText(record, *text, makeStamp(beginsWithBlank(record, *text), pageNumber, pageCount),
                          walk, patches);
            }
            break;
        default:
            break;
        }
    }
    patches.writeAll();
    return walk.found;
}

#include "markMetafile.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "moduleObjects.h"

namespace metafile {

using namespace drawing;

namespace {

using Entries = std::span<const MatchEntry>;

constexpr COLORREF Red = 0x0000FF;

// The entries of the first one's record, which follow each other.
Entries ofOneRecord(Entries entries)
{
    std::size_t count = 0;
    while (count < entries.size() && entries[count].position == entries[0].position) {
        ++count;
    }
    return entries.first(count);
}

// What the entries add to the page.
struct Growth {
    std::uint64_t bytes = 0;
    unsigned int records = 0;
};

Growth growthBy(Entries entries, metafile::Page page)
{
    Growth growth;
    while (!entries.empty()) {
        growth.bytes +=
            metafile::recordAt(page, entries[0].position)->bytes.size() + 2 * sizeof(EMRSETTEXTCOLOR);
        growth.records += 3;
        entries = entries.subspan(ofOneRecord(entries).size());
    }
    return growth;
}

unsigned char* put(unsigned char* at, metafile::Page bytes)
{
    std::memcpy(at, bytes.data(), bytes.size());
    return at + bytes.size();
}

unsigned char* putTextColor(unsigned char* at, COLORREF color)
{
    const EMRSETTEXTCOLOR record{{EMR_SETTEXTCOLOR, sizeof(EMRSETTEXTCOLOR)}, color};
    std::memcpy(at, &record, sizeof(record));
    return at + sizeof(record);
}

void blankOut(unsigned char* record, const MetafileText& text, unsigned int first, unsigned int after)
{
    constexpr WCHAR WideBlank = u' ';
    for (unsigned int i = first; i < after; ++i) {
        std::memcpy(record + text.offsetOf(i), &WideBlank,
                    text.characterSize); // its low byte is the 8-bit one
    }
}

// The record without the characters of the entries, and in red with these alone. Gives the place after.
unsigned char* putTwice(unsigned char* at, const metafile::Record& record, Entries entries, COLORREF color)
{
    const MetafileText text = *textOf(record);
    const unsigned int count = text.fields.emrtext.nChars;
    unsigned char* const rest = at;
    unsigned char* const hit = putTextColor(put(rest, record.bytes), Red);
    unsigned char* const end = putTextColor(put(hit, record.bytes), color);
    blankOut(hit, text, 0, count);
    for (const MatchEntry& entry : entries) {
        const unsigned int first = std::min(entry.first, count);
        const unsigned int after = entry.last < count ? entry.last + 1 : count;
        if (first < after) {
            std::memcpy(hit + text.offsetOf(first), record.bytes.data() + text.offsetOf(first),
                        text.offsetOf(after) - text.offsetOf(first));
            blankOut(rest, text, first, after);
        }
    }
    return end;
}

void putMarkedPage(unsigned char* at, metafile::Page page, Entries entries)
{
    COLORREF color = 0;
    std::size_t copied = 0;
    for (const metafile::Record& record : metafile::Records(page)) {
        if (record.type == EMR_SETTEXTCOLOR) {
            color = record.field<COLORREF>(offsetof(EMRSETTEXTCOLOR, crColor)).value_or(color);
        }
        if (!entries.empty() && record.position == entries[0].position) {
            const Entries ofRecord = ofOneRecord(entries);
            at = putTwice(put(at, page.subspan(copied, record.position - copied)), record, ofRecord, color);
            copied = record.position + record.bytes.size();
            entries = entries.subspan(ofRecord.size());
        }
        if (entries.empty()) {
            break;
        }
    }
    put(at, page.subspan(copied));
}

// The counts of the header: a page with a text record has room for them, even if they are no header's.
void correctHeader(unsigned char* marked, unsigned int length, unsigned int addedRecords)
{
    DWORD records = 0;
    std::memcpy(&records, marked + offsetof(ENHMETAHEADER, nRecords), sizeof(records));
    records += addedRecords;
    std::memcpy(marked + offsetof(ENHMETAHEADER, nRecords), &records, sizeof(records));
    std::memcpy(marked + offsetof(ENHMETAHEADER, nBytes), &length, sizeof(length));
}

} // namespace

unsigned char* markMetafile(metafile::Page page, const MatchEntries& found, unsigned int& length)
{
    // In the order of the page; which record a hit begins in no longer matters.
    MatchEntries entries(found);
    std::sort(&entries[0], &entries[0] + entries.size(),
              [](const MatchEntry& a, const MatchEntry& b) { return a.position < b.position; });
    const Entries inOrder(&entries[0], entries.size());
    const Growth growth = growthBy(inOrder, page);
    const std::uint64_t needed = page.size() + growth.bytes;
    if (needed > std::numeric_limits<unsigned int>::max()) {
        return nullptr;
    }
    auto* const marked =
        static_cast<unsigned char*>(allocateFromModuleHeap(static_cast<std::size_t>(needed)));
    if (marked != nullptr) {
        length = static_cast<unsigned int>(needed);
        putMarkedPage(marked, page, inOrder);
        correctHeader(marked, length, growth.records);
    }
    return marked;
}

} // namespace metafile

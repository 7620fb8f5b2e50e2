// The marked page: the page with the found range on its runs.
#include "PageTextSearch.h"

#include <algorithm>

#include "SvgDialect.h"
#include "pageText.h"

using namespace drawing;
using namespace svg;

namespace {

// The place after the next `text` from `from` on; the page's end when it is not there.
std::size_t placeAfter(std::string_view page, std::string_view text, std::size_t from)
{
    const std::size_t found = page.find(text, from);
    return found != std::string_view::npos ? found + text.size() : page.size();
}

std::string_view between(std::string_view page, std::size_t from, std::size_t end)
{
    return page.substr(from, end - from);
}

// The <tspan> of the run with the character after it, the line end. One with a broken end tag ends at `limit`,
// where the next run begins or the element ends: a page of such runs must not be copied over and over.
std::string_view spanAt(std::string_view page, const TextRun& run, int limit)
{
    const auto start = static_cast<std::size_t>(run.m_offset);
    const std::string_view limited = page.substr(0, static_cast<std::size_t>(limit));
    const std::size_t tag = limited.find(SpanEndTag, start);
    return between(page, start, tag != std::string_view::npos ? tag + sizeof(SpanEndTag) : limited.size());
}

void appendMark(TovoTextString& marked, const TextRun& run)
{
    appendPieces(marked, " ", FindKey, "'", run.m_findStart, ",", run.m_findLength, "'>");
}

std::string_view viewOf(const TovoTextString& text)
{
    return {text.text(), text.length()};
}

} // namespace

// Lays the range out over the runs of the record and, where it is longer, of those after it.
void PageTextSearch::markRange(unsigned int recordIndex, unsigned int start, unsigned int length)
{
    for (; length != 0 && recordIndex < m_records.size(); ++recordIndex) {
        const TextRecord& record = *m_records[recordIndex];
        for (unsigned int i = 0; length != 0 && i < record.m_runs.size(); ++i) {
            TextRun& run = *record.m_runs[i];
            const unsigned int available = run.m_text.length() - std::min(start, run.m_text.length());
            if (available == 0) {
                start -= run.m_text.length();
                continue;
            }
            const unsigned int found = std::min(length, available);
            run.m_findStart = static_cast<int>(start);
            run.m_findLength = static_cast<int>(found);
            length -= found;
            start = 0;
        }
    }
}

void PageTextSearch::writeMarkedPage(std::string_view page, TovoTextString& marked) const
{
    constexpr unsigned int RoomForMarks = 200;
    marked.reserve(static_cast<unsigned int>(page.size()) + RoomForMarks);
    Array<TextRecord, 100> records;
    for (unsigned int i = 0; i < m_records.size(); ++i) {
        records.add(m_records[i]);
    }
    std::sort(&records[0], &records[0] + records.size(),
              [](const TextRecord* a, const TextRecord* b) { return a->m_offset < b->m_offset; });
    std::size_t copied = 0;
    for (unsigned int i = 0; i < records.size(); ++i) {
        const auto offset = static_cast<std::size_t>(records[i]->m_offset);
        // A record inside what was replaced already ends at the same tag as the one before.
        if (offset >= copied) {
            appendPieces(marked, between(page, copied, offset));
            copied = placeAfter(page, TextEndTag, offset);
        }
        writeRecord(page, *records[i], marked);
    }
    appendPieces(marked, page.substr(copied));
}

// Writes the element with a mark on its text. An element of runs keeps its head and its runs, of which only the
// found ones are written anew, and nothing else.
void PageTextSearch::writeRecord(std::string_view page, const TextRecord& record, TovoTextString& marked)
{
    const auto offset = static_cast<std::size_t>(record.m_offset);
    appendPieces(marked, between(page, offset, placeAfter(page, ">", offset)));
    const Array<TextRun, 10>& runs = record.m_runs;
    if (runs.size() == 1) {
        appendPieces(marked, SpanTag);
        appendMark(marked, *runs[0]);
        appendPieces(marked, viewOf(record.m_text), SpanEndTag);
    }
    for (unsigned int i = 1; i < runs.size(); ++i) {
        const TextRun& run = *runs[i];
        const auto start = static_cast<std::size_t>(run.m_offset);
        if (run.m_findLength != 0) {
            appendPieces(marked, between(page, start, page.find('>', start)));
            appendMark(marked, run);
            appendPieces(marked, viewOf(run.m_text), SpanEndTag, "\n");
            continue;
        }
        appendPieces(marked, spanAt(page, run, i + 1 < runs.size() ? runs[i + 1]->m_offset : record.m_end));
    }
    appendPieces(marked, TextEndTag, "\n");
}

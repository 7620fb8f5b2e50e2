#include <memory>
#include <span>

#include "OutputFile.h"
#include "PageFile.h"
#include "PageWholeness.h"
#include "commands.h"
#include "metaFilePlayer.h"

namespace pagetool {

namespace {

struct FreeFoundPage {
    void operator()(unsigned char* page) const { CMetaFilePlayer::freeFoundPage(page); }
};
using FoundPage = std::unique_ptr<unsigned char, FreeFoundPage>;

// The hits of a page, one after the other.
class Hits {
public:
    Hits(StoredPage& page, const FindOptions& options) : m_page(page), m_options(options) {}

    // False after the last one, and when the search failed.
    bool next()
    {
        unsigned char* found = nullptr;
        unsigned int length = 0;
        x = y = 0;
        failed = CMetaFilePlayer::searchPageForString(m_page.data(), m_page.size(), m_options.text.c_str(),
                                                      m_options.matchCase, m_options.wholeWord, m_position,
                                                      m_textOffset, found, length, x, y) != 0;
        m_found.reset(found);
        marked = {found, length};
        return !failed && found != nullptr && length > 0;
    }

    int x = 0; // of the text in which the hit begins, in logical units
    int y = 0;
    std::span<const unsigned char> marked; // the page with the hit marked, until the next call
    bool failed = false;

private:
    StoredPage& m_page;
    const FindOptions& m_options;
    unsigned int m_position = 0; // the search's own cursor
    unsigned int m_textOffset = 0;
    FoundPage m_found;
};

std::string numbered(const char* before, std::size_t number, const char* after)
{
    return std::string(before).append(std::to_string(number)).append(after);
}

} // namespace

Outcome findCommand(FileJob& job, const FindOptions& options)
{
    std::optional<StoredPage> page = readPage(job);
    if (!page) {
        return Outcome::Failed;
    }
    const bool marks = !options.markedPages.empty();
    Outcome outcome = Outcome::Nothing;
    std::size_t count = 0;
    Hits hits(*page, options);
    while (hits.next()) {
        ++count;
        outcome = outcome == Outcome::Nothing ? Outcome::Done : outcome;
        std::string line = numbered("hit ", count, " at (");
        line.append(std::to_string(hits.x)).append(", ").append(std::to_string(hits.y)).append(")");
        job.printLine(line);
        job.progress(numbered("", count, " hits"));
        if (marks && count == options.markedHit) {
            outcome =
                OutputFile(job, options.markedPages[job.number()], *options.overwriting).write(hits.marked);
        }
    }
    if (hits.failed) {
        return job.fail("can't be searched to its end: there is not enough memory");
    }
    if (const std::string damage = damageOf(*page); !damage.empty()) {
        return job.fail(damage);
    }
    if (count == 0) {
        job.printLine("no hit");
    } else if (marks && count < options.markedHit) {
        return job.fail(numbered("has no hit ", options.markedHit, " to mark"));
    }
    return outcome;
}

} // namespace pagetool

#include <algorithm>
#include <string_view>

#include "MetafileContents.h"
#include "PageFields.h"
#include "PageFile.h"
#include "PageInventory.h"
#include "PageWholeness.h"
#include "RecordWalk.h"
#include "commands.h"
#include "metaFilePlayer.h"

namespace pagetool {

namespace {

// What a stamp leaves in a field: all of it, or what follows a number that the page has already.
struct Stamp {
    bool is(std::string_view text) const { return text == whole || text == std::to_string(count); }

    int count;
    std::string whole;
};

// Whether a metafile has a mark that no text got a stamp for: each was too short.
bool lacksRoom(const StoredPage& page, const Stamp& stamp)
{
    bool waits = false;
    bool lacks = false;
    walkRecords(page.bytes, [&](const metafile::Record& record) {
        if (isPageCountMark(record)) {
            lacks = lacks || waits;
            waits = true;
        }
        for (const PlacedText& text : textsOf(record)) {
            waits = waits && !stamp.is(text.text);
        }
    });
    return lacks || waits;
}

} // namespace

Outcome stampCommand(FileJob& job, const StampOptions& options)
{
    std::optional<StoredPage> page = readPage(job);
    if (!page) {
        return Outcome::Failed;
    }
    if (const std::string damage = damageOf(*page); !damage.empty()) {
        return job.fail(std::string(damage).append(", so nothing was stamped"));
    }
    const int number = options.firstNumber + static_cast<int>(job.number());
    const Stamp stamp{options.pageCount,
                      std::to_string(number).append(" of ").append(std::to_string(options.pageCount))};
    const std::vector<unsigned char> before = page->bytes;
    const bool hasFields = CMetaFilePlayer::insertPageCount(page->data(), static_cast<int>(page->size()),
                                                            number, options.pageCount);
    // The library asserts that a text of an SVG page has room.
    const bool noRoom =
        !job.takeAssertion().empty() || (hasFields && page->isMetafile() && lacksRoom(*page, stamp));
    if (!hasFields && !noRoom) {
        job.complain("shows no page count, so nothing was stamped");
        return Outcome::Nothing;
    }
    const std::vector<PageField> fields = changedFields(*page, before);
    if (!options.dryRun && !fields.empty()) {
        if (const std::string problem = writeFields(job.file(), page->bytes, fields); !problem.empty()) {
            return job.fail(problem);
        }
    }
    if (noRoom) {
        return job.fail(std::string("has too little room for \"").append(stamp.whole).append("\""));
    }
    job.print(std::string(job.file()).append(": ").append(stamp.whole).append("\n"));
    return Outcome::Done;
}

} // namespace pagetool

#include <string>

#include "JsonLine.h"
#include "OutputFile.h"
#include "PageFile.h"
#include "PageWholeness.h"
#include "commands.h"
#include "surfacePages.h"
#include "utf8Text.h"

namespace pagetool {

namespace {

constexpr const char* OutOfMemory = "can't be searched to its end: there is not enough memory";

// Writes the page with the hit marked.
Outcome writeMarked(FileJob& job, StoredPage& page, const pages::Hits& hits, const PageHit& hit,
                    const FindOptions& options)
{
    const pages::FoundPage marked = hits.marked(hit);
    if (marked.empty()) {
        return job.fail(OutOfMemory);
    }
    OutputFile file(job, options.markedPages[job.number()], *options.overwriting);
    return options.shown ? file.write(pages::highlighted({page.data(), page.size()}, marked.bytes()))
                         : file.write(marked.bytes());
}

std::string numbered(const char* before, std::size_t number, const char* after)
{
    return std::string(before).append(std::to_string(number)).append(after);
}

void show(FileJob& job, const PageHit& hit, std::size_t count, const FindOptions& options)
{
    job.progress(numbered("", count, " hits"));
    if (options.countOnly) {
        return;
    }
    if (options.json) {
        Json found = jsonOf(job);
        found["hit"] = count;
        found["x"] = hit.x;
        found["y"] = hit.y;
        found["text"] = excerpt({hit.text, hit.textLength}, hit.start);
        printJson(job, found);
        return;
    }
    std::string line = numbered("hit ", count, " at (");
    line.append(std::to_string(hit.x)).append(", ").append(std::to_string(hit.y)).append("): ");
    job.printLine(line + excerpt({hit.text, hit.textLength}, hit.start));
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
    try {
        for (const std::string& text : spellingsOf(options.text)) {
            pages::Hits hits({page->data(), page->size()}, text, {options.matchCase, options.wholeWord});
            for (const PageHit& hit : hits) {
                ++count;
                outcome = outcome == Outcome::Nothing ? Outcome::Done : outcome;
                show(job, hit, count, options);
                if (marks && count == options.markedHit) {
                    outcome = writeMarked(job, *page, hits, hit, options);
                }
            }
        }
    } catch (const KrnException&) {
        return job.fail(OutOfMemory);
    }
    if (options.countOnly && options.json) {
        Json counted = jsonOf(job);
        counted["hits"] = count;
        printJson(job, counted);
    } else if (options.countOnly) {
        job.printLine(numbered("", count, count == 1 ? " hit" : " hits"));
    }
    if (const std::string damage = damageOf(*page); !damage.empty()) {
        return job.fail(damage);
    }
    if (marks && count != 0 && count < options.markedHit) {
        return job.fail(numbered("has no hit ", options.markedHit, " to mark"));
    }
    if (count == 0 && !options.countOnly && !options.json) {
        job.printLine("no hit");
    }
    return outcome;
}

} // namespace pagetool

#include <algorithm>

#include "JsonLine.h"
#include "PageInventory.h"
#include "commands.h"
#include "utf8Text.h"

namespace pagetool {

namespace {

// From the top, and from the left within a line.
bool isReadBefore(const PlacedText& first, const PlacedText& second)
{
    return first.start.y != second.start.y ? first.start.y < second.start.y : first.start.x < second.start.x;
}

} // namespace

Outcome textCommand(FileJob& job, bool json)
{
    std::optional<StoredPage> page = readPage(job);
    if (!page) {
        return Outcome::Failed;
    }
    PageInventory inventory = inventoryOf(*page);
    std::stable_sort(inventory.texts.begin(), inventory.texts.end(), isReadBefore);
    if (json) {
        Json object = jsonOf(job);
        object["texts"] = jsonOf(inventory.texts);
        printJson(job, object);
    } else {
        for (const PlacedText& text : inventory.texts) {
            job.printLine(utf8Line(text.text));
        }
    }
    return inventory.damage.empty() ? Outcome::Done : job.fail(inventory.damage);
}

} // namespace pagetool

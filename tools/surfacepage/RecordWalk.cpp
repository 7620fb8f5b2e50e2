#include "RecordWalk.h"

#include <algorithm>
#include <string_view>

namespace pagetool {

namespace {

struct RecordName {
    DWORD type;
    std::string_view name;
};

constexpr RecordName RecordNames[] = {
#include "recordNames.inc"
};

std::string about(std::string_view what, std::size_t position)
{
    return std::string(what).append(" at byte ").append(std::to_string(position));
}

// What is wrong at a place where no record is.
std::string damageAt(const metafile::Found& found, unsigned int position)
{
    switch (found.fault) {
    case metafile::Fault::CutInHead:
        return about("ends inside the head of the record", position);
    case metafile::Fault::Size:
        return about("damaged: the record", position)
            .append(" can't have a size of ")
            .append(std::to_string(found.size));
    default:
        return about("ends inside the record", position);
    }
}

} // namespace

std::string walkRecords(metafile::Page page, const std::function<void(const metafile::Record&)>& visit)
{
    for (unsigned int position = 0; position < page.size();) {
        const metafile::Found found = metafile::findRecord(page, position);
        if (!found.record) {
            return damageAt(found, position);
        }
        visit(*found.record);
        if (found.record->type == EMR_EOF) {
            return {};
        }
        position += found.size;
    }
    return "ends without the record that ends a metafile";
}

std::string recordName(DWORD type)
{
    const auto* const named = std::find_if(std::begin(RecordNames), std::end(RecordNames),
                                           [type](const RecordName& known) { return known.type == type; });
    return named != std::end(RecordNames) ? std::string(named->name)
                                          : std::string("record ").append(std::to_string(type));
}

} // namespace pagetool

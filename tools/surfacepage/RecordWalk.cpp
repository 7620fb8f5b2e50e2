#include "RecordWalk.h"

#include <algorithm>
#include <string_view>

namespace {

struct RecordName {
    DWORD type;
    std::string_view name;
};

constexpr RecordName recordNames[] = {
#include "recordNames.inc"
};

std::string about(std::string_view what, std::size_t position)
{
    return std::string(what).append(" at byte ").append(std::to_string(position));
}

} // namespace

std::string walkRecords(std::span<const unsigned char> page,
                        const std::function<void(const FileRecord&)>& visit)
{
    for (std::size_t position = 0; position < page.size();) {
        const FileRecord rest{0, position, page.subspan(position)};
        const std::optional<EMR> head = rest.at<EMR>(0);
        if (!head) {
            return about("ends inside the head of the record", position);
        }
        if (head->nSize < sizeof(EMR) || head->nSize % 4 != 0) {
            return about("damaged: the record", position)
                .append(" can't have a size of ")
                .append(std::to_string(head->nSize));
        }
        if (head->nSize > rest.bytes.size()) {
            return about("ends inside the record", position);
        }
        visit({head->iType, position, rest.bytes.first(head->nSize)});
        if (head->iType == EMR_EOF) {
            return {};
        }
        position += head->nSize;
    }
    return "ends without the record that ends a metafile";
}

std::string recordName(DWORD type)
{
    const auto* const named = std::find_if(std::begin(recordNames), std::end(recordNames),
                                           [type](const RecordName& known) { return known.type == type; });
    return named != std::end(recordNames) ? std::string(named->name)
                                          : std::string("record ").append(std::to_string(type));
}

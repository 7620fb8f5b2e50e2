#include "JsonLine.h"

#include "utf8Text.h"

namespace pagetool {

Json jsonOf(const FileJob& job)
{
    return {{"file", jsonText(job.file())}};
}

Json jsonText(std::string_view bytes)
{
    return utf8Of(bytes);
}

Json jsonOf(const std::vector<PlacedText>& texts)
{
    Json list = Json::array();
    for (const PlacedText& text : texts) {
        list.push_back({{"x", text.place.x}, {"y", text.place.y}, {"text", jsonText(text.text)}});
    }
    return list;
}

void printJson(FileJob& job, const Json& object)
{
    job.print(object.dump(-1, ' ', false, Json::error_handler_t::replace).append("\n"));
}

} // namespace pagetool

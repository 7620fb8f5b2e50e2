// Output for other programs: objects of JSON, one a line.
#pragma once

#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "FileJobs.h"
#include "PlacedText.h"

namespace pagetool {

using Json = nlohmann::ordered_json; // members stay in the order they are set in

// With the name of the file, "file".
Json jsonOf(const FileJob& job);
// Bytes of a page or a file's name as a string, which holds characters only.
Json jsonText(std::string_view bytes);
// Each with its place, in the page's logical units.
Json jsonOf(const std::vector<PlacedText>& texts);
void printJson(FileJob& job, const Json& object);

} // namespace pagetool

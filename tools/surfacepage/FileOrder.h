// The order of files whose names hold numbers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pagetool {

// By text, but runs of digits by their value: page-2 comes before page-10.
bool comesBefore(std::string_view first, std::string_view second);

// Two neighbours whose names differ in a number only, the larger one first, as "page-10.svg comes before page-2.svg";
// empty when there are none.
std::string disorderOf(const std::vector<std::string>& files);

} // namespace pagetool

// The names of output files: one name, or a pattern in which {} stands for the input's name without folder and ending.
#pragma once

#include <string>
#include <vector>

namespace pagetool {

// The output of each file, in their order. Empty, with `problem` set, when two files would share one.
std::vector<std::string> outputNames(const std::string& pattern, const std::vector<std::string>& files,
                                     std::string& problem);

} // namespace pagetool

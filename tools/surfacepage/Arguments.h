// What the parser of command lines leaves to us.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace pagetool {

// What is wrong with the arguments; CLI11 reports it.
[[noreturn]] void refuse(const std::string& option, const std::string& problem);

// Says of a text that it is no number before a range is asked for.
std::string objectionToNumber(const std::string& text);

// Several files come before other arguments, which the parser can't tell from them: it takes all as files. Where a list
// names the files there may be none.
std::string takeLast(std::vector<std::string>& arguments, const char* name, bool afterFiles);
int takeLastNumber(std::vector<std::string>& arguments, const char* name, bool afterFiles);

// Shows every argument without brackets, those that takeLast takes too.
class UsageOfArguments : public CLI::Formatter {
public:
    std::string make_option_usage(const CLI::Option* option) const override;
};

} // namespace pagetool

#include "Arguments.h"

#include <charconv>
#include <utility>

namespace pagetool {

void refuse(const std::string& option, const std::string& problem)
{
    throw CLI::ValidationError(option, problem);
}

std::string objectionToNumber(const std::string& text)
{
    const bool isNumber = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? std::string() : std::string(text).append(" is no number");
}

std::string takeLast(std::vector<std::string>& arguments, const char* name, bool afterFiles)
{
    if (arguments.size() < (afterFiles ? 2U : 1U)) {
        throw CLI::RequiredError(name);
    }
    std::string last = std::move(arguments.back());
    arguments.pop_back();
    return last;
}

int takeLastNumber(std::vector<std::string>& arguments, const char* name, bool afterFiles)
{
    const std::string text = takeLast(arguments, name, afterFiles);
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || number < 0) {
        refuse(name, std::string(text).append(" is no page number"));
    }
    return number;
}

std::string UsageOfArguments::make_option_usage(const CLI::Option* option) const
{
    return option->get_name(true) + (option->get_expected_max() > 1 ? "..." : "");
}

} // namespace pagetool

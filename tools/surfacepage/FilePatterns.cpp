#include "FilePatterns.h"

#include <filesystem>
#include <map>
#include <string_view>

namespace pagetool {

std::vector<std::string> outputNames(const std::string& pattern, const std::vector<std::string>& files,
                                     std::string& problem)
{
    constexpr std::string_view Placeholder = "{}";
    std::vector<std::string> names;
    std::map<std::string, std::string> inputs;
    for (const std::string& file : files) {
        std::string name = pattern;
        if (const std::size_t place = name.find(Placeholder); place != std::string::npos) {
            name.replace(place, Placeholder.size(), std::filesystem::path(file).stem().string());
        }
        const auto [taken, isNew] = inputs.emplace(name, file);
        if (!isNew) {
            problem =
                std::string(taken->second).append(" and ").append(file).append(" would both be written to ");
            problem.append(name).append("; {} in the name stands for the name of the input");
            return {};
        }
        names.push_back(std::move(name));
    }
    return names;
}

} // namespace pagetool

// Which file a name means, whatever way leads there: links, hard links, other spellings.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace pagetool {

// The volume and the number of the file on it.
using FileIdentity = std::pair<std::uint64_t, std::uint64_t>;

// Nothing for a name that leads to no file.
std::optional<FileIdentity> identityOf(const std::string& file);

class FileSet {
public:
    explicit FileSet(const std::vector<std::string>& files);

    bool contains(const std::string& file) const;
    // Two of the names that mean one file; both empty when there are none.
    const std::pair<std::string, std::string>& twice() const { return m_twice; }

private:
    std::map<FileIdentity, std::string> m_names;
    std::pair<std::string, std::string> m_twice;
};

} // namespace pagetool

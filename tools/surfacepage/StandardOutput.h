// An output that goes to standard output once it is whole.
#pragma once

#include <string>

namespace pagetool {

class StandardOutput {
public:
    StandardOutput() = default;
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;
    // What was not sent is lost.
    ~StandardOutput();

    // A name, with this ending, in a folder of its own for the file to be made under; empty when there is no place for it.
    const std::string& begin(const std::string& ending);
    bool isBegun() const { return !m_folder.empty(); }
    // Sends the file, if there is one. Empty, or what went wrong.
    std::string send() const;

private:
    std::string m_folder;
    std::string m_file;
};

} // namespace pagetool

// A file that is there whole or not at all: written under a temporary name beside its place, renamed at the end.
#pragma once

#include <span>
#include <string>

#include "FileJobs.h"
#include "OverwriteRule.h"

namespace pagetool {

class OutputFile {
public:
    // Complaints go to the job. The rule lives as long.
    OutputFile(FileJob& job, const std::string& path, const OverwriteRule& rule);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    // Without commit nothing stays.
    ~OutputFile();

    // Makes the temporary file; empty when that can't be, after saying so. The place may be a link, which stays one,
    // but no device or folder, and nothing that the rule protects. A file that is there keeps its permissions.
    const std::string& create();
    // Gives the file its place.
    Outcome commit();
    // All three steps.
    Outcome write(std::span<const unsigned char> bytes);

private:
    Outcome failOfSystem(int error);

    FileJob& m_job;
    const OverwriteRule& m_rule;
    const std::string m_path; // as the user knows it
    std::string m_place;      // behind links
    std::string m_temporary;  // empty: there is none
};

} // namespace pagetool

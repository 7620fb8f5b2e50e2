// What an output may take the place of: no input, however it is named, and a stored page only when the user says so.
#pragma once

#include <string>

#include "FileIdentity.h"

namespace pagetool {

struct OverwriteRule {
    // Why a file must not be written; empty when it may.
    std::string objectionTo(const std::string& output) const;

    FileSet inputs;
    bool force = false;
};

} // namespace pagetool

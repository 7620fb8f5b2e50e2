// A stored page as a file: how the commands get its bytes.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "FileJobs.h"

namespace pagetool {

struct StoredPage {
    unsigned char* data() { return bytes.data(); }
    unsigned int size() const { return static_cast<unsigned int>(bytes.size()); }
    std::string_view text() const { return {reinterpret_cast<const char*>(bytes.data()), bytes.size()}; }
    bool isMetafile() const { return format == 1; }

    std::vector<unsigned char> bytes;
    int format; // of CMetaFilePlayer::getMetaFileFormat, never 0
};

// Nothing for a file that can't be read, is longer than a page can be, or is no page; it has been said then.
std::optional<StoredPage> readPage(FileJob& job);

} // namespace pagetool

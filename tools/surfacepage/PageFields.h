// The places of a page that a stamp has changed, and their way into the file.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "PageFile.h"

namespace pagetool {

struct PageField {
    std::size_t begin;
    std::size_t end;
};

// From the first to the last byte that differs, within each text of an SVG page and within each record of a metafile.
// Both are of one length.
std::vector<PageField> changedFields(const StoredPage& page, std::span<const unsigned char> before);

// Writes the fields, and nothing else, into the file itself, each with one call: owner, permissions and hard links
// stay, and a run that is interrupted leaves each field as it was or stamped. Gives what is wrong; empty: nothing.
std::string writeFields(const std::string& file, std::span<const unsigned char> bytes,
                        std::span<const PageField> fields);

} // namespace pagetool

// Whether a page was cut short.
#pragma once

#include <optional>
#include <string>

#include "PageFile.h"

namespace pagetool {

// What is wrong with the page as a whole, as a sentence without its subject: an SVG page whose elements do not all end,
// a metafile whose chain of records breaks. Empty: nothing.
std::string damageOf(const StoredPage& page);

// A damaged metafile up to its damage, as a metafile that is whole; nothing when its header is damaged or nothing follows it.
std::optional<StoredPage> wholePart(const StoredPage& page);

} // namespace pagetool

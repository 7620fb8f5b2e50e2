// What a record of a metafile holds that a reader of pages asks for: text, a font, a picture.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "PlacedText.h"
#include "RecordWalk.h"

namespace pagetool {

// The texts that a text record draws; none for other records and where they leave the record.
std::vector<PlacedText> textsOf(const metafile::Record& record);

// "Arial" height -13 bold italic
std::optional<std::string> fontOf(const metafile::Record& record);

// 100 x 50 pixels of 24 bits
std::optional<std::string> pictureOf(const metafile::Record& record);

} // namespace pagetool

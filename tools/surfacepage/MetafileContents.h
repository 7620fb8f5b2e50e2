// What a record of a metafile holds that a reader of pages asks for: text, a font, a picture.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "PageParts.h"
#include "PlacedText.h"
#include "RecordWalk.h"

namespace pagetool {

// The texts that a text record draws; none for other records and where they leave the record.
std::vector<PlacedText> textsOf(const metafile::Record& record);

std::optional<PageFont> fontOf(const metafile::Record& record);
std::optional<PagePicture> pictureOf(const metafile::Record& record);
// The picture as a file: of the kind that it is stored as, or a bitmap. Nothing for records without one and where it leaves
// the record.
std::optional<std::vector<unsigned char>> pictureFileOf(const metafile::Record& record);

} // namespace pagetool

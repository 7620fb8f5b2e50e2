// The hits on an SVG page, read once for all of them.
#pragma once

#include <string_view>

#include "PageHitWalk.h"

namespace svg {

// Goes back by destroyInModuleHeap; null without memory. Throws KrnException when it ends later on.
PageHitWalk* makeSvgHits(std::string_view page, const char* text, bool matchCase, bool wholeWord);

} // namespace svg

// The hits on a metafile page, read once for all of them.
#pragma once

#include "PageHitWalk.h"
#include "sys/recordReader.h"

namespace metafile {

// Goes back by destroyInModuleHeap; null without memory. Throws KrnException when it ends later on.
PageHitWalk* makeMetafileHits(Page page, const char* text, bool matchCase, bool wholeWord);

} // namespace metafile

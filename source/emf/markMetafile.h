// The page with a hit of a search in red.
#pragma once

#include "MetafileSearch.h"

namespace metafile {

// A copy of the page in which each record that the entries name occurs twice: first without the characters of the
// hit, then in red with these alone. At least one entry, each of a field of the page. From the module's heap; null,
// and `length` unchanged, without memory for it or beyond 4 GiB.
unsigned char* markMetafile(metafile::Page page, const MatchEntries& found, unsigned int& length);

} // namespace metafile

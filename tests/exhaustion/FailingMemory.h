// Memory that ends when a test says so, for what the module's own code asks for: string storage, heaps, containers of
// the standard library. The libraries that it calls have theirs as always.
#pragma once

#include "sys/surfaceExport.h"

// From now on `served` requests are served; then one fails, or with `lasting` every one until this is called
// again. Below 0: none fails.
SURFACE_API void failMemoryAfter(long served, bool lasting);

// How many requests have failed since then.
SURFACE_API long failedRequests();

// A page of the report as an enhanced metafile: how the demo records one.
//
// Used by the run (report.cpp) and by tests. The stored bytes are stamped, searched, sized and played like any page.
#pragma once

#include <functional>

#include "storedPage.h"

// A drawing on a CSurfaceEMF of this size, in logical units; empty when nothing was recorded.
Page recorded(SIZE millimetres, SIZE logical, const std::function<void(CSurface&)>& draw);
// The page, A4.
Page recorded(const ReportPage& page);

// A page of the report as an enhanced metafile: how the demo records one.
//
// Used by the run (report.cpp) and by tests. The stored bytes are stamped, searched, sized and played like any page.
#pragma once

#include "storedPage.h"

// The page drawn on a CSurfaceEMF whose frame is A4; empty when nothing was recorded.
Page recorded(const ReportPage& page);

// The report as documents: one PDF of all pages, and smooth pictures of single ones.
//
// Used by the run (report.cpp). Pages are played on a device of their own units, 96 to the inch.
#pragma once

#include <filesystem>
#include <vector>

#include "storedPage.h"

// One page of PDF for each stored page, with its title in the outline; false when it could not be written.
bool writeReport(std::vector<Page>& pages, const std::filesystem::path& file);
// The page as SVG for browsers and other viewers, which is no stored page; empty when it could not be made.
Page forViewers(Page& page);
// Whether there is a picture now, a PNG file.
bool paintSmoothly(Page& page, const std::filesystem::path& png, int dotsPerInch);

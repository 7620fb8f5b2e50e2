// A stored page as pixels: played on a device and saved as a picture.
//
// Used by the run (report.cpp) and by tests.
#pragma once

#include <filesystem>

#include "storedPage.h"

// A white A4 page of a raster device, the caller's to end with DeleteDC; null when there is no memory for it.
HDC makeDevice(int dotsPerInch);
// Plays a page of either format over the whole device; false when it could not be played.
bool playOnDevice(HDC device, Page& page, int dotsPerInch);
// Whether there is a picture now, a PNG file; without FreeImage there is none.
bool paintPixels(Page& page, const std::filesystem::path& png, int dotsPerInch);

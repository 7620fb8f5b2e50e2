// Small drawings of one idea each, which two drawing interfaces paint from the same calls.
#pragma once

#include <windows.h>

#include <span>

constexpr int DrawingWidth = 64; // pixels
constexpr int DrawingHeight = 48;

struct SideBySideDrawing {
    const char* name;
    void (*draw)(HDC device);
    bool isText = false;     // the places of letters are compared, not their pixels
    bool isRecorded = false; // kept as a metafile too
};

std::span<const SideBySideDrawing> sideBySideDrawings();

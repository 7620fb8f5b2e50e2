// Formatted text for the tests: runs held by value, handed to a surface as the array of pointers it takes.
#pragma once

#include "surface.h"

#include <vector>

using Runs = std::vector<CSurfaceTextChunk>;

// One run; `position` means nothing when it follows the run before.
inline CSurfaceTextChunk run(const char* text, POINT position, bool follows = false, int length = -1,
                             bool underline = false)
{
    TovoTextString content(text);
    CSurfaceTextChunk chunk;
    chunk.create(&content, false, position, follows, length, underline);
    return chunk;
}

// The pointers to the runs, which must outlive them.
inline Array<CSurfaceTextChunk, 2> pointersTo(Runs& runs)
{
    Array<CSurfaceTextChunk, 2> pointers;
    for (CSurfaceTextChunk& chunk : runs) {
        pointers.add(&chunk);
    }
    return pointers;
}

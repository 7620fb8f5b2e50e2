// Small drawings of what back ends do otherwise, a table of them: the same calls on each surface, and what to look at.
//
// Used by the run (report.cpp), which paints each on four back ends; docs/drawing.md says more of each. A drawing has a sheet of
// TrapWide by TrapHigh logical units of 1/96 inch.
#pragma once

#include <span>

class CSurface;

inline constexpr int TrapMillimetresWide = 100;
inline constexpr int TrapMillimetresHigh = 40;
inline constexpr int TrapWide = 378;
inline constexpr int TrapHigh = 151;

struct Trap {
    const char* name; // of its picture
    const char* title;
    const char* caption;
    void (*draw)(CSurface& surface);
};

std::span<const Trap> traps();

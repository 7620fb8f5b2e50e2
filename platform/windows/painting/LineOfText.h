// A laid-out line of text as a space of its own: along its base line, and down from it.
#pragma once

#include <cairo.h>
#include <windows.h>

#include <span>

#include "Device.h"
#include "Outline.h"
#include "Region.h"

namespace wingdi {

// A point of the line: so far along its base line, so far below it.
struct LineSpace {
    double x;
    double y;
    double rightX;
    double rightY;
    double downX;
    double downY;

    DevicePoint at(double along, double below) const
    {
        return {x + along * rightX + below * downX, y + along * rightY + below * downY};
    }
    bool isUpright() const { return rightX == 1 && downY == 1; }
};

LineSpace spaceOf(const TextOutput& output);
// The part of the line from `left` to `right` along it, from `top` to `bottom` below its base line.
Outline barOf(const LineSpace& space, double left, double top, double right, double bottom);
// What a logical rectangle lets text be seen in, in device units.
Region textClip(const DeviceContext& context, const RECT& rect);
double lengthOf(std::span<const double> advances);

// Letters of more device units than this are painted as outlines: cairo keeps the pixels of up to 16,384 letters of all fonts,
// a byte each, which is 256 MiB at most then.
constexpr double LargestKeptLetter = 128;

// The height of a letter's cell with its font's turn and stretch, in device units.
double letterSize(const TextOutput& output);

// Fills the outlines of the letters, one by one, with the context's source.
void fillOutlines(cairo_t* cairo, std::span<const cairo_glyph_t> glyphs);

} // namespace wingdi

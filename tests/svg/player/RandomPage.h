// Pages of random calls, for the test of what survives the way through a stored page. A call is data: it can
// be drawn on any surface, and rewritten before it is.
#pragma once

#include "support/Runs.h"

#include <array>
#include <string>
#include <string_view>

// One call of the drawing interface. An operation takes of the fields those that it has arguments for; what
// is drawn with pen, brush and text style finds them in the surface.
struct Call {
    // As the interface names it. The two drawString forms of runs are drawRuns and, with five arguments,
    // drawStraightRuns. Without a name it is no call.
    std::string_view operation;
    RECT rect{};
    bool nullRect = false; // for the operations to which null says something
    int numbers[4]{};      // coordinates, or the angles of a rotation
    POINT point{};
    unsigned int cornerWidth = 0; // of a rounded rectangle
    unsigned int cornerHeight = 0;
    unsigned int flags = 0; // or options
    int length = -1;
    unsigned long color = 0;
    std::string text; // or face name
    std::vector<POINT> points;
    Runs runs;
    std::array<float, 6> matrix{}; // or in the first the size of a font
    bool looks[4]{};               // bold, italic, strikethru, underline
    CSurfacePen pen;
    CSurfaceBrush brush;
    CTextStyle style;

    bool is(std::string_view name) const { return operation == name; }
};
using Calls = std::vector<Call>;

// The logical size of the pages.
constexpr int PageWidth = 1000;
constexpr int PageHeight = 800;

// The calls that make the page of a seed. Groups come in the usual order: font, clip inside it, transform
// innermost. Half of the pages have no clips.
Calls randomPage(unsigned int seed);

// The stored page that the calls make.
std::string pageOf(const Calls& calls);

// The calls as a recording surface shows them that is played on from such a page.
using Lines = std::vector<std::string>;
Lines recorded(const Calls& calls);

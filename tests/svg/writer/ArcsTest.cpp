// Arcs, chords and pies: from two directions to a path on the ellipse, with the caller's numbers beside it.
#include "support/SvgPage.h"

#include <climits>

namespace {

// `path` is the path's data. The brush is solid, and an arc has no fill all the same.
DrawnCase arc(const char* name, RECT rect, POINT from, POINT to, const std::string& path)
{
    std::string numbers;
    for (const int number : {rect.left, rect.top, rect.right, rect.bottom, from.x, from.y, to.x, to.y}) {
        numbers.append(std::to_string(number)).append(" ");
    }
    numbers.pop_back();
    const auto draw = [=](CSurfaceSVG& s) {
        RECT r = rect;
        s.setBrush(0, 0);
        s.drawArc(&r, from.x, from.y, to.x, to.y);
    };
    return {name, draw, "<path d='" + path + "' fill='none' " + FreshPen + "tovo:arc='" + numbers + "' />\n"};
}

// Where an ellipse crosses an axis, the truncation may take a unit off the coordinate along the other one. So
// directions along an axis are tested on an ellipse that is flat across it.
constexpr RECT Circle{0, 0, 100, 100};
constexpr RECT Upright{50, 0, 50, 100};
constexpr RECT Level{0, 50, 100, 50};

const DrawnCase Cases[] = {
    arc("UpToUpperLeft", Upright, {50, 49}, {10, 10}, "M50 0A0 50 0 0 0 50 14"),
    arc("CentreCountsAsUp", Upright, {50, 50}, {10, 90}, "M50 0A0 50 0 0 0 50 85"),
    arc("DownToUpperRight", Upright, {50, 51}, {90, 10}, "M50 100A0 50 0 0 0 50 14"),
    arc("LeftToLowerLeft", Level, {49, 50}, {10, 90}, "M0 50A50 0 0 0 0 14 50"),
    // Half of the ellipse is not yet the large part.
    arc("RightToLeft", Level, {51, 50}, {0, 50}, "M100 50A50 0 0 0 0 0 50"),
    arc("LeftToRight", Level, {0, 50}, {51, 50}, "M0 50A50 0 0 0 0 100 50"),
    arc("AllButTheTop", Circle, {10, 10}, {90, 10}, "M14 14A50 50 0 1 0 85 14"),
    arc("AcrossTheRightAxis", Circle, {90, 90}, {90, 10}, "M85 85A50 50 0 0 0 85 14"),
    // A direction's angle serves as the parameter of the ellipse, unstretched.
    arc("OddEllipse", {0, 0, 201, 101}, {150, 0}, {50, 0}, "M170 14A100 50 0 0 0 29 14"),
    arc("Reversed", {50, 50, -51, -51}, {40, -40}, {-40, -40}, "M-35 35A-50 -50 0 0 0 35 35"),
    arc("CutTowardsZero", {-100, -100, 0, 0}, {-10, -90}, {-90, -90}, "M-14 -85A50 50 0 0 0 -85 -85"),
    // The size wraps to a negative one, and one end lies a unit outside of 32 bits.
    arc("Extreme", {INT_MIN, 7, 0, 7}, {0, 7}, {INT_MAX, 7}, "M2147483647 7A-1073741824 0 0 0 0 0 7"),
    {"Chord",
     [](CSurfaceSVG& s) {
         s.setBrush(0xFF, 0), s.drawChord(in({0, 0, 100, 100}), 90, 10, 10, 10);
     },
     "<path d='M85 14A50 50 0 0 0 14 14 z' " + FreshPen +
         " fill='rgb(255,0,0)' tovo:chord='0 0 100 100 90 10 10 10' />\n"},
    {"Pie",
     [](CSurfaceSVG& s) {
         s.setPen(0, 5, 1), s.drawPie(in({50, 50, -51, -51}), 40, -40, -40, -40);
     },
     "<path d='M0 0L-35 35A-50 -50 0 0 0 35 35 z'  tovo:penStyle='5'  stroke='none'  fill='none' "
     "tovo:pie='50 50 -51 -51 40 -40 -40 -40' />\n"},
};

INSTANTIATE_TEST_SUITE_P(Arcs, SvgPage, testing::ValuesIn(Cases), nameOf);

} // namespace

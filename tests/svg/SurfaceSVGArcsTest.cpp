// Arcs, chords and pies: from two directions to a path on the ellipse, with the caller's numbers beside it.
#include "SvgPage.h"

#include <climits>
#include <sstream>

namespace {

std::string joined(std::initializer_list<int> numbers)
{
    std::ostringstream out;
    for (const char* blank = ""; const int number : numbers) {
        out << blank << number;
        blank = " ";
    }
    return out.str();
}

// The circle of most cases has the centre (50, 50) and the radius 50; a half diagonal is 35.36. A point on an
// axis of the ellipse may lie one unit below its place, where 50 comes out as 49.9999 and is cut: then
// `slack` is 1.
struct ArcCase {
    const char* name;
    RECT rect;
    POINT from;
    POINT to;
    POINT radii;
    POINT start;
    POINT end;
    int large;
    int slack;
};

void PrintTo(const ArcCase& arc, std::ostream* out)
{
    *out << arc.name;
}

class SvgArc : public testing::TestWithParam<ArcCase> {};

TEST_P(SvgArc, LiesOnTheEllipse)
{
    const ArcCase& arc = GetParam();
    RECT r = arc.rect;
    const std::string page = drawnPage([&](CSurfaceSVG& s) {
        s.setBrush(0, 0);
        s.drawArc(&r, arc.from.x, arc.from.y, arc.to.x, arc.to.y);
    });
    int n[8] = {};
    ASSERT_EQ(8, intlSscanNumeric(page.c_str(), "<path d='M%d %dA%d %d 0 %d %d %d %d", &n[0], &n[1], &n[2],
                                  &n[3], &n[4], &n[5], &n[6], &n[7]))
        << page;
    const int exact[] = {arc.start.x, arc.start.y, arc.end.x, arc.end.y};
    const int drawn[] = {n[0], n[1], n[6], n[7]};
    for (int index = 0; index < 4; ++index) {
        EXPECT_LE(drawn[index], exact[index]) << page;
        EXPECT_GE(drawn[index], exact[index] - arc.slack) << page;
    }
    EXPECT_EQ("<path d='M" + joined({n[0], n[1]}) + "A" +
                  joined({arc.radii.x, arc.radii.y, 0, arc.large, 0, n[6], n[7]}) + "' fill='none' " +
                  freshPen + "tovo:arc='" +
                  joined({r.left, r.top, r.right, r.bottom, arc.from.x, arc.from.y, arc.to.x, arc.to.y}) +
                  "' />\n",
              page);
}

const ArcCase arcs[] = {
    {"UpToLeft", {0, 0, 100, 100}, {50, 0}, {0, 50}, {50, 50}, {50, 0}, {0, 50}, 0, 1},
    {"LeftToUp", {0, 0, 100, 100}, {0, 50}, {50, 0}, {50, 50}, {0, 50}, {50, 0}, 1, 1},
    {"LeftToDown", {0, 0, 100, 100}, {0, 50}, {50, 51}, {50, 50}, {0, 50}, {50, 100}, 0, 1},
    {"DownToRight", {0, 0, 100, 100}, {50, 51}, {51, 50}, {50, 50}, {50, 100}, {100, 50}, 0, 1},
    // Half of the ellipse is not yet the large part.
    {"RightToLeft", {0, 0, 100, 100}, {99, 50}, {0, 50}, {50, 50}, {100, 50}, {0, 50}, 0, 1},
    {"LeftToRight", {0, 0, 100, 100}, {0, 50}, {99, 50}, {50, 50}, {0, 50}, {100, 50}, 0, 1},
    {"OneDirection", {0, 0, 100, 100}, {90, 10}, {70, 30}, {50, 50}, {85, 14}, {85, 14}, 0, 0},
    {"CentreCountsAsUp", {0, 0, 100, 100}, {50, 50}, {10, 90}, {50, 50}, {50, 0}, {14, 85}, 0, 1},
    {"UpperHalf", {0, 0, 100, 100}, {90, 10}, {10, 10}, {50, 50}, {85, 14}, {14, 14}, 0, 0},
    {"AllButTheUpperHalf", {0, 0, 100, 100}, {10, 10}, {90, 10}, {50, 50}, {14, 14}, {85, 14}, 1, 0},
    {"LowerHalf", {0, 0, 100, 100}, {10, 90}, {90, 90}, {50, 50}, {14, 85}, {85, 85}, 0, 0},
    {"AcrossTheRightAxis", {0, 0, 100, 100}, {90, 90}, {90, 10}, {50, 50}, {85, 85}, {85, 14}, 0, 0},
    // A direction's angle serves as the parameter of the ellipse, unstretched.
    {"Ellipse", {0, 0, 200, 100}, {150, 0}, {50, 0}, {100, 50}, {170, 14}, {29, 14}, 0, 0},
    {"OddSize", {0, 0, 101, 101}, {90, 10}, {10, 10}, {50, 50}, {85, 14}, {14, 14}, 0, 0},
    {"Reversed", {50, 50, -51, -51}, {40, -40}, {-40, -40}, {-50, -50}, {-35, 35}, {35, 35}, 0, 0},
    {"NegativeCoordinates",
     {-100, -100, 0, 0},
     {-10, -90},
     {-90, -90},
     {50, 50},
     {-14, -85},
     {-85, -85},
     0,
     0},
    // The size wraps to a negative one, and the left end lies one unit outside of 32 bits.
    {"BeyondInt",
     {INT_MIN, INT_MIN, 0, 0},
     {0, 1 << 30},
     {INT_MAX, 1 << 30},
     {-(1 << 30), -(1 << 30)},
     {INT_MAX, 1 << 30},
     {0, 1 << 30},
     0,
     1},
    {"Point", {5, 6, 5, 6}, {5, 6}, {4, 7}, {0, 0}, {5, 6}, {5, 6}, 0, 0},
};

INSTANTIATE_TEST_SUITE_P(Arcs, SvgArc, testing::ValuesIn(arcs),
                         [](const testing::TestParamInfo<ArcCase>& info) { return info.param.name; });

const std::vector<DrawnCase> cases = {
    {"Chord",
     [](CSurfaceSVG& s) {
         s.setBrush(0xFF, 0);
         s.drawChord(in({0, 0, 100, 100}), 90, 10, 10, 10);
     },
     "<path d='M85 14A50 50 0 0 0 14 14 z' " + freshPen +
         " fill='rgb(255,0,0)' tovo:chord='0 0 100 100 90 10 10 10' />\n"},
    {"Pie",
     [](CSurfaceSVG& s) {
         s.setPen(0, 5, 1);
         s.drawPie(in({50, 50, -51, -51}), 40, -40, -40, -40);
     },
     "<path d='M0 0L-35 35A-50 -50 0 0 0 35 35 z'  tovo:penStyle='5'  stroke='none' " + hollow +
         "tovo:pie='50 50 -51 -51 40 -40 -40 -40' />\n"},
};

INSTANTIATE_TEST_SUITE_P(Arcs, SvgPage, testing::ValuesIn(cases), nameOf);

} // namespace

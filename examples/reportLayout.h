// Places that the figures and the words of a page share.
//
// Read by the figures (reportPages.cpp, reportGroupPages.cpp) and the words (reportWords.cpp).
#pragma once

#include "chartParts.h"
#include "energyFigures.h"

inline constexpr Plot useBars = {{84, 556, 722, 996}, useCount, 1400};
inline constexpr Plot dayLoad = {{84, 112, 718, 436}, hourCount - 1, 700};
inline constexpr Plot dayDetail = {{78, 472, 720, 1030}, hourCount - 1, 700};

struct MonthTable {
    RECT frame;
    int rowHeight;
    int firstColumn; // width
    int columnWidth;
};

inline constexpr MonthTable monthTable = {{48, 196, 746, 508}, 24, 62, 91};

inline constexpr POINT sharePie = {222, 264};
inline constexpr POINT shareRing = {572, 264};
inline constexpr POINT monthDial = {217, 254};

// Four gauges above four tanks, from left to right.
constexpr int instrumentX(int index)
{
    return 136 + index * 174;
}
inline constexpr int gaugePercents[] = {38, 62, 84, 97};

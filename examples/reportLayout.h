// Places that the figures and the words of a page share.
//
// Read by the figures (reportPages.cpp, reportGroupPages.cpp) and the words (reportWords.cpp).
#pragma once

#include "chartParts.h"
#include "energyFigures.h"

inline constexpr Plot UseBars = {{84, 556, 722, 996}, UseCount, 1400};
inline constexpr Plot DayLoad = {{84, 112, 718, 436}, HourCount - 1, 700};
inline constexpr Plot DayDetail = {{78, 472, 720, 1030}, HourCount - 1, 700};

struct MonthTable {
    RECT frame;
    int rowHeight;
    int firstColumn; // width
    int columnWidth;
};

inline constexpr MonthTable MonthTable = {{48, 196, 746, 508}, 24, 62, 91};

inline constexpr POINT SharePie = {222, 264};
inline constexpr POINT ShareRing = {572, 264};
inline constexpr POINT MonthDial = {217, 254};

// Four gauges above four tanks, from left to right.
constexpr int instrumentX(int index)
{
    return 136 + index * 174;
}
inline constexpr int GaugePercents[] = {38, 62, 84, 97};

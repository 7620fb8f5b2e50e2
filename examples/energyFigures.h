// The figures that the energy report shows: one year of a site with offices and laboratories.
//
// Read by the page drawings only. Energy is in MWh, load in kW.
#pragma once

#include <numeric>

inline constexpr int MonthCount = 12;
inline constexpr int UseCount = 6;
inline constexpr int HourCount = 24;

inline constexpr const char* MonthNames[MonthCount] = {"January",   "February", "March",    "April",
                                                       "May",       "June",     "July",     "August",
                                                       "September", "October",  "November", "December"};

struct EnergyUse {
    const char* name;
    int month[MonthCount]; // MWh
    int yearBefore;        // MWh in the whole year
    int target;            // MWh in the whole year
    unsigned long colour;
    int hatch; // brush style
};

inline constexpr EnergyUse EnergyUses[UseCount] = {
    {"Heating", {212, 188, 151, 92, 41, 12, 8, 9, 34, 88, 147, 198}, 1296, 1100, 0x3A48B5, 4},
    {"Hot water", {31, 29, 30, 27, 24, 21, 19, 19, 22, 26, 28, 32}, 310, 280, 0x3F8CD9, 2},
    {"Cooling", {4, 5, 9, 18, 42, 78, 104, 98, 55, 21, 7, 4}, 398, 400, 0xA87E3B, 3},
    {"Ventilation", {46, 43, 45, 42, 44, 48, 52, 51, 45, 43, 44, 46}, 562, 520, 0x8C9A4A, 6},
    {"Lighting", {58, 49, 44, 36, 31, 27, 27, 32, 38, 46, 54, 61}, 548, 480, 0x3FB4D9, 5},
    {"Laboratories", {83, 79, 86, 81, 84, 80, 72, 68, 82, 87, 84, 70}, 931, 900, 0x9A5875, 7},
};

// Load of one working day, hour by hour.
inline constexpr int WinterDay[HourCount] = {210, 205, 202, 204, 218, 262, 348, 452, 538, 571, 580, 584,
                                             562, 570, 576, 568, 547, 512, 446, 372, 318, 276, 243, 222};
inline constexpr int SummerDay[HourCount] = {232, 226, 221, 220, 228, 251, 309, 392, 471, 522, 556, 584,
                                             603, 621, 628, 617, 588, 531, 452, 388, 341, 302, 270, 247};
inline constexpr int ContractedLoad = 600;

constexpr int yearOf(const EnergyUse& use)
{
    return std::accumulate(std::begin(use.month), std::end(use.month), 0);
}

constexpr int siteIn(int month)
{
    int sum = 0;
    for (const EnergyUse& use : EnergyUses) {
        sum += use.month[month];
    }
    return sum;
}

constexpr int siteYear()
{
    int sum = 0;
    for (const EnergyUse& use : EnergyUses) {
        sum += yearOf(use);
    }
    return sum;
}

// Rounded to the nearest whole per cent.
constexpr int percentOf(int part, int whole)
{
    const int half = (part < 0 ? -whole : whole) / 2;
    return (part * 100 + half) / whole;
}

// The programs that paint stored pages as PNG pictures: librsvg's rsvg-convert, and Ghostscript.
//
// Called by the demo (report.cpp) and by the tests that compare pictures. Both programs are given the same faces:
// what fontconfig finds for the report's face names. Files are named in full.
#pragma once

#include <filesystem>

// Whether there is a picture now; false when the program can't be run or fails.
bool paintSvg(const std::filesystem::path& svg, const std::filesystem::path& png, double dotsPerInch);
// The paper is A4 in whole points as the document counts them, so that both pictures begin at the same edge.
struct Paper {
    int pointsWide = 595;
    int pointsHigh = 841;
};
bool paintPostScript(const std::filesystem::path& document, const std::filesystem::path& png,
                     double dotsPerInch, const std::filesystem::path& fontMap, Paper paper = {});

// Writes the table that says to Ghostscript where the faces' files are; false when fontconfig's fc-match could not be
// asked. Ghostscript then takes faces of its own.
bool writeFontMap(const std::filesystem::path& fontMap);

// Playing a page as the tests of this folder do: a page goes in, the exact list of calls comes out.
#pragma once

#include "RecordingSurface.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// Log lines and failed assertions of its lifetime, caught before they reach standard error.
class CaughtReports {
public:
    CaughtReports();
    CaughtReports(const CaughtReports&) = delete;
    CaughtReports& operator=(const CaughtReports&) = delete;
    ~CaughtReports();

    std::vector<std::string> log;
    std::vector<std::string> assertions;
};

struct PlayedPage {
    std::string calls; // one after the other, "; " between them
    std::vector<std::string> log;
    std::vector<std::string> assertions;
};

// Plays in the rectangle (5, 6, 50, 60), from a buffer of exactly the page's length, so that a sanitizer sees
// every read beyond it. Gives the result of `play`.
int playOn(CSurface& surface, const std::string& page);
// The same on a recording surface; the page must count as played.
PlayedPage playPage(const std::string& page);

// The content as a page of 210 by 297 millimetres and 100 by 200 units, the call that begins its replay, and
// the one that ends a clip.
std::string framed(const std::string& content);
inline const std::string Prepared = "prepareSurface 100x200 210x297 50x60; ";
inline const std::string Unclipped = "setClippingRegion (0, 0, 100, 200)";

// The attributes that a shape has when its element gives none.
inline const std::string PlainPen = "setPen rgb(0,0,0) style 0 width 1; ";
inline const std::string Plain = "setBrush rgb(0,0,0) style 1 picture 0; " + PlainPen;

// A small element that needs nothing around it; it gives drawFocusRect (number, 0, number, 0).
std::string mark(int number);

// A page as it stands, or the content of a framed one: then `calls` are those after prepareSurface. Elements
// that the walk does not take are counted by the assertions that report them.
struct PageCase {
    const char* name;
    std::string page;
    std::string calls;
    std::size_t assertions = 0;
};

inline std::string nameOf(const testing::TestParamInfo<PageCase>& info)
{
    return info.param.name;
}

// Else a failure would print the bytes of the case, pointers among them.
inline void PrintTo(const PageCase& pageCase, std::ostream* out)
{
    *out << pageCase.name;
}

// Declared by each table's file with INSTANTIATE_TEST_SUITE_P.
class WholePage : public testing::TestWithParam<PageCase> {};
class PageContent : public testing::TestWithParam<PageCase> {};

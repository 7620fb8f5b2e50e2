// What happens when a page is played, and the two parameterised tests that the tables of this folder feed: a
// page or a piece of one goes in, and the whole list of calls must come out.
#pragma once

#include "support/RecordingSurface.h"

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
    int result;
    std::vector<std::string> calls;
    std::vector<std::string> log;
    std::vector<std::string> assertions;
};

// Plays on a recording surface in the rectangle (5, 6, 50, 60). The player gets a buffer of exactly the
// page's length, so that a sanitizer sees every read beyond it.
PlayedPage playPage(const std::string& page);
// The same on any surface; gives the result of `play`.
int playOn(CSurface& surface, const std::string& page);

// The content as a page of 210 by 297 millimetres and 100 by 200 units, and the call that begins its replay.
std::string framed(const std::string& content);
inline constexpr const char* framePrepared = "prepareSurface 100x200 210x297 50x60";
inline constexpr const char* frameClip = "setClippingRegion (0, 0, 100, 200)";

// An element that draws whatever stands around it, and its call: tells how far a walk came.
std::string mark(int number);
std::string marked(int number);

// The attributes that a shape has before its own are read.
inline constexpr const char* plainBrush = "setBrush rgb(0,0,0) style 1 picture 0";
inline constexpr const char* plainPen = "setPen rgb(0,0,0) style 0 width 1";

struct PageCase {
    const char* name;
    std::string page;
    std::vector<std::string> calls;
    std::size_t assertions = 0;
};
void PrintTo(const PageCase& pageCase, std::ostream* out);
std::string nameOf(const testing::TestParamInfo<PageCase>& info);

// The page as it stands.
class WholePage : public testing::TestWithParam<PageCase> {};
// The page is the content of `framed`; the calls are those behind prepareSurface.
class PageContent : public testing::TestWithParam<PageCase> {};

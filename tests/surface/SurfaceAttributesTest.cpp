// The values a caller sets on a surface: defaults, what setters cut, and when two values are equal.
#include "surfaceAttributes.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

namespace {

constexpr unsigned long allBits = ~0UL;
constexpr unsigned long low32Bits = 0xFFFFFFFFUL;

CSurfaceFont font(std::string face, float size, bool bold = false, bool italic = false,
                  bool strikethru = false, bool underline = false)
{
    return CSurfaceFont(face.data(), size, bold, italic, strikethru, underline);
}

TEST(SurfaceAttributes, Defaults)
{
    EXPECT_EQ(font("", 0), CSurfaceFont());
    EXPECT_EQ(CSurfacePen(0, 0, 1), CSurfacePen());
    EXPECT_EQ(CSurfaceBrush(0, 1), CSurfaceBrush());
    EXPECT_EQ(CTextStyle(255, 0, 0, 0), CTextStyle());
}

// The buffer has room for 31 characters, whichever way a name comes in.
TEST(SurfaceFont, CutsEveryLongName)
{
    std::string longName = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMN";
    CSurfaceFont bySet;
    bySet.set(longName.data(), 1, false, false, false, false);
    CSurfaceFont byName;
    byName.setFaceName(longName.data());
    CSurfaceFont assigned;
    assigned = font(longName, 1);
    for (CSurfaceFont cut : {font(longName, 1), bySet, byName, assigned}) {
        EXPECT_STREQ("abcdefghijklmnopqrstuvwxyzABCDE", cut.getFaceName());
    }
    byName = font("Arial", 1);
    EXPECT_STREQ("Arial", byName.getFaceName());
    byName.setFaceName(nullptr);
    EXPECT_STREQ("", byName.getFaceName());
}

// Strikethru and underline change places between argument lists and fields.
TEST(SurfaceFont, FlagsKeepTheirMeaning)
{
    CSurfaceFont constructed = font("Arial", 10, true, false, true, false);
    CSurfaceFont set;
    set.set(constructed.getFaceName(), 10, true, false, true, false);
    CSurfaceFont single = font("Arial", 10);
    single.setBold(true);
    single.setStrikethru(true);
    EXPECT_TRUE(set == constructed && single == constructed);
    EXPECT_TRUE(set.getBold() && set.getStrikethru());
    EXPECT_FALSE(set.getItalic() || set.getUnderline());
}

TEST(SurfaceFont, DiffersByEachField)
{
    const CSurfaceFont base = font("Arial", 10);
    EXPECT_TRUE(base == CSurfaceFont(base));
    for (const CSurfaceFont& other : {font("arial", 10), font("Arial", 10.000001F), font("Arial", 10, true),
                                      font("Arial", 10, false, true), font("Arial", 10, false, false, true),
                                      font("Arial", 10, false, false, false, true)}) {
        EXPECT_TRUE(base != other && !(base == other));
    }
    const CSurfaceFont sizeless = font("Arial", std::nanf(""));
    EXPECT_TRUE(sizeless != sizeless);
}

TEST(SurfaceAttributes, DifferByEachField)
{
    for (const CSurfacePen& pen : {CSurfacePen(2, 2, 3), CSurfacePen(1, 3, 3), CSurfacePen(1, 2, 4)}) {
        EXPECT_TRUE(pen != CSurfacePen(1, 2, 3) && !(pen == CSurfacePen(1, 2, 3)));
    }
    for (const CSurfaceBrush& brush : {CSurfaceBrush(2, 2), CSurfaceBrush(1, 3)}) {
        EXPECT_TRUE(brush != CSurfaceBrush(1, 2) && !(brush == CSurfaceBrush(1, 2)));
    }
    for (const CTextStyle& style :
         {CTextStyle(0, 2, 3, 4), CTextStyle(1, 0, 3, 4), CTextStyle(1, 2, 0, 4), CTextStyle(1, 2, 3, 0)}) {
        EXPECT_TRUE(style != CTextStyle(1, 2, 3, 4) && !(style == CTextStyle(1, 2, 3, 4)));
    }
}

TEST(SurfaceBrush, KeepsItsPictureNumber)
{
    CSurfaceBrush brush(7, 0);
    brush.setPicture(4);
    EXPECT_EQ(99, brush.getStyle());
    brush.set(7, 0);
    EXPECT_EQ(4, brush.getPicture());
    EXPECT_NE(CSurfaceBrush(7, 0), brush);
    EXPECT_EQ(brush, CSurfaceBrush(brush));
}

// A colour has 32 bits, also where unsigned long has more: equal colours must compare equal.
TEST(SurfaceAttributes, ColoursAreCutTo32Bits)
{
    CSurfacePen pens[] = {CSurfacePen(allBits), CSurfacePen(), CSurfacePen()};
    pens[1].set(allBits, 0, 1);
    pens[2].setColor(allBits);
    for (const CSurfacePen& pen : pens) {
        EXPECT_EQ(low32Bits, pen.getColor());
    }
    CSurfaceBrush brushes[] = {CSurfaceBrush(allBits), CSurfaceBrush(), CSurfaceBrush()};
    brushes[1].set(allBits, 1);
    brushes[2].setColor(allBits);
    for (const CSurfaceBrush& brush : brushes) {
        EXPECT_EQ(low32Bits, brush.getColor());
    }
    EXPECT_EQ(low32Bits, CTextStyle(allBits, 0, 0, 0).getColor());
}

} // namespace

// The values a caller sets on a surface: what setters cut, and when two values are equal.
#include "surfaceAttributes.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

namespace {

CSurfaceFont font(std::string face, float size, bool bold = false, bool italic = false,
                  bool strikethru = false, bool underline = false)
{
    return CSurfaceFont(face.data(), size, bold, italic, strikethru, underline);
}

// The buffer has room for 31 characters, whichever way a name comes in.
TEST(SurfaceFont, CutsEveryLongName)
{
    std::string name = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMN";
    CSurfaceFont fonts[] = {font(name, 1, true, false, true), CSurfaceFont(), font("", 1, true, false, true)};
    fonts[1].set(name.data(), 1, true, false, true, false);
    fonts[2].setFaceName(name.data());
    for (CSurfaceFont& cut : fonts) {
        EXPECT_EQ(font("abcdefghijklmnopqrstuvwxyzABCDE", 1, true, false, true), cut);
        cut = font("Arial", 1);
        EXPECT_EQ(font("Arial", 1), cut);
        cut.setFaceName(nullptr);
        EXPECT_STREQ("", cut.getFaceName());
    }
}

template <typename Value>
void expectUnequal(const Value& base, std::initializer_list<Value> others)
{
    EXPECT_TRUE(base == Value(base) && !(base != Value(base)));
    for (const Value& other : others) {
        EXPECT_TRUE(other != base && !(other == base));
    }
}

TEST(SurfaceAttributes, DifferByEachField)
{
    expectUnequal(font("Arial", 10),
                  {font("arial", 10), font("Arial", 10.000001F), font("Arial", 10, true),
                   font("Arial", 10, false, true), font("Arial", 10, false, false, true),
                   font("Arial", 10, false, false, false, true), font("Arial", std::nanf(""))});
    expectUnequal(CSurfacePen(1, 2, 3), {CSurfacePen(2, 2, 3), CSurfacePen(1, 3, 3), CSurfacePen(1, 2, 4)});
    CSurfaceBrush picture(1, 2);
    picture.setPicture(4);
    EXPECT_EQ(99, picture.getStyle());
    picture.set(1, 2);
    expectUnequal(CSurfaceBrush(1, 2), {CSurfaceBrush(2, 2), CSurfaceBrush(1, 3), picture});
    expectUnequal(CTextStyle(1, 2, 3, 4), {CTextStyle(0, 2, 3, 4), CTextStyle(1, 0, 3, 4),
                                           CTextStyle(1, 2, 0, 4), CTextStyle(1, 2, 3, 0)});
    const CSurfaceFont sizeless = font("Arial", std::nanf(""));
    EXPECT_TRUE(sizeless != sizeless);
}

TEST(SurfaceAttributes, SettersReachTheirField)
{
    CSurfaceFont set = font("Arial", 10);
    set.setBold(true);
    EXPECT_EQ(set, font("Arial", 10, true));
    set.setItalic(true);
    EXPECT_EQ(set, font("Arial", 10, true, true));
    set.setStrikethru(true);
    EXPECT_EQ(set, font("Arial", 10, true, true, true));
    set.setStrikethru(false);
    set.setUnderline(true);
    EXPECT_EQ(set, font("Arial", 10, true, true, false, true));
    CSurfaceBrush brush(1, 2);
    brush.setStyle(3);
    EXPECT_EQ(brush, CSurfaceBrush(1, 3));
}

// A colour has 32 bits, also where unsigned long has more.
TEST(SurfaceAttributes, ColoursAreCut)
{
    CSurfacePen pen;
    CSurfaceBrush brush;
    pen.setColor(~0UL);
    brush.setColor(~0UL);
    EXPECT_EQ(CSurfacePen(0xFFFFFFFFUL), pen);
    EXPECT_EQ(CSurfaceBrush(0xFFFFFFFFUL), brush);
    EXPECT_EQ(CTextStyle(0xFFFFFFFFUL, 0, 0, 0), CTextStyle(~0UL, 0, 0, 0));
}

} // namespace

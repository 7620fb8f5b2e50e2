// Kinds of pieces for appendPieces that only PostScript text has: points, rectangles, colours, matrix elements.
//
// y points down for callers and up in the text, so whatever holds a y turns its sign here.
#pragma once

#include <cmath>

#include "pageText.h"
#include "rectangle.h"

namespace postscript {

using namespace drawing;
using drawing::maximumLength;
using drawing::putPiece;

// Sizes of pages are in millimetres; an interpreter starts with points.
inline constexpr double PointsPerMillimetre = 2.83465;

// "x y " with y negated.
struct PsPoint {
    int x, y;
};

// "left top width height " as the rectangle operators take them, top and height negated.
struct PsRectangle {
    const RECT& rect;
};

// "red green blue", each from 0.000 to 1.000.
struct PsColor {
    unsigned long color;
};

constexpr std::size_t maximumLength(const PsPoint& /*point*/)
{
    return 2 * (IntegerRoom + 1);
}

constexpr std::size_t maximumLength(const PsRectangle& /*rect*/)
{
    return 4 * (IntegerRoom + 1);
}

constexpr std::size_t maximumLength(const PsColor& /*color*/)
{
    return std::string_view("1.000 1.000 1.000").size();
}

inline char* putPiece(char* at, const PsPoint& point)
{
    at = putPiece(at, point.x);
    *at++ = ' ';
    at = putPiece(at, wrapSubtract(0, point.y));
    *at++ = ' ';
    return at;
}

inline char* putPiece(char* at, const PsRectangle& rectangle)
{
    const RECT& rect = rectangle.rect;
    at = putPiece(at, PsPoint{rect.left, rect.top});
    return putPiece(at, PsPoint{widthOf(rect), heightOf(rect)});
}

// The nearest thousandth. No channel lies halfway between two of them, so a float is rounded to the same.
inline char* putChannel(char* at, int channel)
{
    const int thousandths = (channel * 1000 + 127) / 255;
    *at++ = static_cast<char>('0' + thousandths / 1000);
    *at++ = '.';
    *at++ = static_cast<char>('0' + thousandths / 100 % 10);
    *at++ = static_cast<char>('0' + thousandths / 10 % 10);
    *at++ = static_cast<char>('0' + thousandths % 10);
    return at;
}

inline char* putPiece(char* at, const PsColor& piece)
{
    at = putChannel(at, redOf(piece.color));
    *at++ = ' ';
    at = putChannel(at, greenOf(piece.color));
    *at++ = ' ';
    return putChannel(at, blueOf(piece.color));
}

// Whether its text is "0.00", with so many digits as it has.
inline bool isWrittenAsZero(FixedNumber number)
{
    return std::fabs(number.value) * std::pow(10.0, number.decimals) <= 0.5;
}

// A number that a division made: 0 when it is infinite or none. Interpreters know no such numbers.
inline FixedNumber finiteNumber(double value, int decimals)
{
    constexpr int Room = 49; // holds every float
    return FixedNumber{std::isfinite(value) ? saturateToFloat(value) : 0.0F, decimals, Room};
}

} // namespace postscript

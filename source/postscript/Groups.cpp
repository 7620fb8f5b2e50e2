// Clip and transform. Each is a graphics state that stays open: the clip's outside, the transform's inside,
// whichever was set first.
#include "surfacePSPrinter.h"

#include <cmath>

#include "PostScriptChange.h"
#include "PostScriptDetail.h"
#include "PostScriptPieces.h"

using namespace postscript;

namespace {

// Of the numbers as an interpreter reads them.
bool leavesNoArea(FixedNumber m11, FixedNumber m12, FixedNumber m21, FixedNumber m22)
{
    const auto written = [](FixedNumber number) {
        return std::nearbyint(number.value * std::pow(10.0, number.decimals));
    };
    return written(m11) * written(m22) == written(m12) * written(m21);
}

} // namespace

void CSurfacePSPrinter::setClippingRegion(RECT* rect)
{
    Detail::Change change(*this);
    const bool transformed = m_hasTransform;
    if (transformed) {
        clearTransform();
    }
    TovoTextString text(TextRoom{100});
    if (m_clipActive || rect == nullptr) {
        appendPieces(text, "grestore\n");
    }
    if (rect != nullptr) {
        appendPieces(text, "gsave newpath ");
        appendPath(text, rect);
        appendPieces(text, " clip newpath\n");
    }
    m_body.append(text);
    if (m_clipActive || rect == nullptr) {
        Detail(*this).endState();
    }
    if (rect != nullptr) {
        Detail(*this).beginState();
    }
    m_clipActive = rect != nullptr;
    if (transformed) {
        setTransform(m_transform[0], m_transform[1], m_transform[2], m_transform[3], m_transform[4],
                     m_transform[5]);
    }
    change.keep();
}

// The signs turn the matrix from a space whose y points down into that of the page text.
void CSurfacePSPrinter::setTransform(float m11, float m12, float m21, float m22, float dx, float dy)
{
    constexpr int Decimals = 2;
    const auto number = [](float value) {
        return finiteNumber(value, Decimals);
    };
    TovoTextString text(TextRoom{100});
    appendPieces(text, "gsave [", number(m11), " ", number(-m12), " ", number(-m21), " ", number(m22), " ",
                 number(dx), " ", number(-dy), "] concat\n");
    m_body.append(text);
    Detail(*this).beginState();
    CSurface::setTransform(m11, m12, m21, m22, dx, dy);
    if (leavesNoArea(number(m11), number(m12), number(m21), number(m22))) {
        Detail(*this).tellOfTrap(Detail::Trap::FlatTransform);
    }
}

void CSurfacePSPrinter::clearTransform()
{
    m_body.append("grestore\n");
    Detail(*this).endState();
    CSurface::clearTransform();
}

// The document around a page's text: head, procedures, definitions of patterns, end.
#include "surfacePSPrinter.h"

#include "PostScriptChange.h"
#include "PostScriptDetail.h"
#include "PostScriptPieces.h"
#include "PostScriptProlog.h"
#include "PostScriptSamples.h"
#include "moduleObjects.h"
#include "putInFront.h"

using namespace drawing;
using namespace postscript;

namespace {

int wholePoints(int millimetres)
{
    return saturateToInt(millimetres * PointsPerMillimetre);
}

// Points for each logical unit; 1 where there are no units to divide by.
FixedNumber scaleOf(int millimetres, int units)
{
    return finiteNumber(units != 0 ? millimetres * PointsPerMillimetre / units : 1, 3);
}

} // namespace

int CSurfacePSPrinter::closeSurface()
{
    Detail detail(*this);
    Detail::Change change(*this);
    detail.defineMissingPatterns();
    TovoTextString head;
    detail.appendHead(head);
    detail.appendProcedures(head);
    detail.appendPatternDefs(head);
    const std::string_view end = m_clipActive ? "grestore\n\nshowpage\n\n" : "\nshowpage\n\n";
    m_body.room(lengthIn32Bits(std::uint64_t{head.length()} + end.size()));
    // With that room made, nothing fails any more.
    putInFront(m_body, head);
    m_body.append(end.data(), static_cast<unsigned int>(end.size()));
    m_clipActive = false;
    m_missingPictures.cutTo(0);
    detail.forgetPatternDefs();
    change.keep();
    if (isWrittenAsZero(scaleOf(m_pageWidth, m_width)) || isWrittenAsZero(scaleOf(m_pageHeight, m_height))) {
        detail.tellOfTrap(Detail::Trap::ZeroScale);
    }
    return 0;
}

// From here on a unit is a logical unit, and the origin is the top left corner of the page image.
void CSurfacePSPrinter::Detail::appendHead(TovoTextString& s) const
{
    appendPieces(s, "%!PS-Adobe-3.0\n%%LanguageLevel: 2\n%%Creator: Tovo ",
                 std::string_view(moduleVersionText()), "\n%%Orientation: ",
                 std::string_view(m_page.m_width > m_page.m_height ? "Landscape\n" : "Portrait\n"));
    appendPieces(s, wholePoints(m_page.m_originX), " ", wholePoints(m_page.m_originY), " translate\n");
    appendPieces(s, "0 ", wholePoints(m_page.m_pageHeight), " translate\n");
    appendPieces(s, scaleOf(m_page.m_pageWidth, m_page.m_width), " ",
                 scaleOf(m_page.m_pageHeight, m_page.m_height), " scale\n\n");
}

// What the text calls, and what that calls in turn. The text family is in every document.
void CSurfacePSPrinter::Detail::appendProcedures(TovoTextString& s) const
{
    static constexpr struct {
        unsigned int callers;
        const std::string_view* text;
    } Families[] = {
        {RightShowUsed, &PostScriptProlog::rightshow},
        {MiddleShowUsed, &PostScriptProlog::middleshow},
        {FrameRectUsed, &PostScriptProlog::framerect},
        {FocusRectUsed, &PostScriptProlog::focusrect},
        {SolidRectUsed, &PostScriptProlog::solidrect},
        {EllipseUsed | PieUsed | ChordUsed, &PostScriptProlog::ellipse},
        {PieUsed, &PostScriptProlog::pie},
        {ChordUsed, &PostScriptProlog::chord},
        {HatchUsed, &PostScriptProlog::hatch},
        {RotatedShowUsed, &PostScriptProlog::rotatedshow},
        {TransparentImageUsed, &PostScriptProlog::transparentimage},
    };
    appendPieces(s, PostScriptProlog::jshow);
    for (const auto& family : Families) {
        if ((m_page.m_proceduresUsed & family.callers) != 0) {
            appendPieces(s, *family.text);
        }
    }
}

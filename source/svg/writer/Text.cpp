// Text in its five written forms.
//
// What SVG cannot say is in tovo: attributes: the DrawText flags, the rectangle, the rotation. Nothing is
// measured and no line is broken here. `y` is the top of the text and a shift by one em leads down to its base
// line, in every form but the base-line one.
#include "surfaceSVG.h"

#include <cmath>
#include <cstdlib>

#include "SvgChange.h"
#include "SvgDialect.h"
#include "SvgWriterDetail.h"
#include "boundedText.h"
#include "pageText.h"
#include "rectangle.h"
#include "textFlags.h"
#include "xmlText.h"

using namespace drawing;
using namespace svg;

namespace {

constexpr unsigned int ClippedOption = 0x4;

constexpr int ShiftRoom = 12;

// The reference point of the text: the alignment itself is in the flags only.
int anchorOf(const RECT& rect, unsigned int flags)
{
    if ((flags & RightFlag) != 0) {
        return rect.right;
    }
    return (flags & CentreFlag) != 0 ? wrapAdd(rect.left, widthOf(rect) / 2) : rect.left;
}

// 0 to 359.
int fullTurn(int angle)
{
    return (angle % 360 + 360) % 360;
}

// How far, in em, text on a path has to move so that it is where it would be without one. It goes by the
// character angle as the caller gave it.
float baseLineShift(int charAngle, int textAngle)
{
    const double forCharacters = std::abs(static_cast<double>(charAngle) - 180.0) / 180.0 - 1.0;
    return static_cast<float>(forCharacters - std::abs(textAngle - 180) / 180.0);
}

unsigned int lengthOf(const char* text)
{
    return static_cast<unsigned int>(lstrlenA(text));
}

} // namespace

void CSurfaceSVG::appendTextStyle(TovoTextString& out, RECT* rect, int flags)
{
    if ((static_cast<unsigned int>(flags) & NoClipFlag) != 0) {
        appendPieces(out, " ", TextRectKey, "(", int{rect->left}, ",", int{rect->top}, ",", int{rect->right},
                     ",", int{rect->bottom}, ")'");
    } else {
        appendClipStyle(out, rect);
    }
    appendPieces(out, " ", DrawOptionsKey, flags, "' ", FillKey, RgbColor{m_textStyle.getColor()}, "'");
    if (m_textStyle.getCharAngle() != 0) {
        appendPieces(out, " ", CharAngleKey, m_textStyle.getCharAngle(), "'");
    }
    if (m_textStyle.getTextAngle() != 0) {
        appendPieces(out, " ", TextAngleKey, m_textStyle.getTextAngle(), "'");
    }
}

void CSurfaceSVG::appendTextStyle(TovoTextString& out, int flags)
{
    appendPieces(out, " style=' ", TextFlagsKey, flags, "' ", FillKey, RgbColor{m_textStyle.getColor()}, "'");
}

void CSurfaceSVG::Detail::appendTextHead(TovoTextString& out, RECT* rect, int flags,
                                         const char* spaceAttribute)
{
    appendPieces(out, TextTag, "x='", anchorOf(*rect, static_cast<unsigned int>(flags)), "' y='",
                 int{rect->top}, "' dy='1em'", std::string_view(spaceAttribute),
                 std::string_view(m_page.m_nofmPending ? " class='nofm'" : ""));
    m_page.m_nofmPending = false;
    m_page.appendTextStyle(out, rect, flags);
    appendPieces(out, ">");
}

void CSurfaceSVG::drawString(const char* text, RECT* rect, unsigned int flags)
{
    if (text == nullptr || rect == nullptr) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString element(TextRoom{200});
    Detail(*this).appendTextHead(element, rect, wrapToInt(flags), "");
    appendEscaped(element, text, lengthOf(text));
    appendPieces(element, TextEndTag, "\n");
    m_body.append(element);
    change.keep();
}

void CSurfaceSVG::drawText(const char* text, RECT* rect, unsigned int flags)
{
    drawString(text, rect, flags);
}

void CSurfaceSVG::drawTextAt(const char* text, POINT* point, unsigned int flags)
{
    if (text == nullptr || point == nullptr) {
        return;
    }
    TovoTextString element(TextRoom{200});
    appendPieces(element, TextTag, "x='", int{point->x}, "' y='", int{point->y}, "' dy='1em'");
    appendTextStyle(element, wrapToInt(flags));
    appendPieces(element, ">");
    appendEscaped(element, text, lengthOf(text));
    appendPieces(element, TextEndTag, "\n");
    m_body.append(element);
}

void CSurfaceSVG::drawTextOnBaseLine(int x, int y, unsigned int options, RECT* rect, char* text, int length)
{
    if (text == nullptr) {
        return;
    }
    Detail::Change change(*this);
    TovoTextString element(TextRoom{200});
    appendPieces(element, TextTag, "x='", x, "' y='", y, "' ");
    if ((options & ClippedOption) != 0 && rect != nullptr) {
        makeClipDef(rect);
        appendPieces(element, " ", ClipPathKey, "url(", ClipReference, m_clipCount, ")'");
    }
    appendTextStyle(element, wrapToInt(options));
    appendPieces(element, " xml:space='preserve' class='", BaseLineClass, "'>");
    const std::string_view characters = leftOf(text, length);
    appendEscaped(element, characters.data(), static_cast<unsigned int>(characters.size()));
    appendPieces(element, TextEndTag, "\n");
    m_body.append(element);
    change.keep();
}

bool CSurfaceSVG::drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags, float, float)
{
    return Detail(*this).writeChunks(chunks, rect, flags, Detail::TextRotation{});
}

bool CSurfaceSVG::drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags)
{
    Detail::TextRotation rotation;
    rotation.textAngle = fullTurn(m_textStyle.getTextAngle());
    rotation.charAngle = fullTurn(m_textStyle.getCharAngle());
    if (rotation.textAngle != 0) {
        // Characters turn together with their line; what remains is what they turn against it.
        rotation.charAngle -= rotation.textAngle;
        rotation.shift = baseLineShift(m_textStyle.getCharAngle(), rotation.textAngle);
    }
    return Detail(*this).writeChunks(chunks, rect, flags, rotation);
}

bool CSurfaceSVG::Detail::writeChunks(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags,
                                      const TextRotation& rotation)
{
    if (chunks == nullptr || rect == nullptr) {
        return false;
    }
    Change change(m_page);
    TovoTextString element(TextRoom{500});
    appendTextHead(element, rect, flags, " xml:space='preserve'");
    appendPieces(element, "\n");
    const int anchor = anchorOf(*rect, static_cast<unsigned int>(flags));
    for (unsigned int i = 0; i < chunks->size(); ++i) {
        if (const CSurfaceTextChunk* const chunk = chunks->atGet(i)) {
            if (rotation.textAngle != 0) {
                appendPieces(element, "\t");
                m_page.createTextPath(element, anchor, rect->top, rotation.textAngle);
                appendPieces(element, "\n\t");
            }
            appendChunk(element, *chunk, rect->top, rotation);
            if (rotation.textAngle != 0) {
                appendPieces(element, "\t", TextPathEndTag, "\n");
            }
        }
    }
    appendPieces(element, TextEndTag, "\n");
    m_page.m_body.append(element);
    change.keep();
    return true;
}

void CSurfaceSVG::Detail::appendChunk(TovoTextString& out, const CSurfaceTextChunk& chunk, int top,
                                      const TextRotation& rotation)
{
    appendPieces(out, "\t", SpanTag);
    if (!chunk.m_followsPrevious) {
        appendPieces(out, " x='", int{chunk.m_position.x}, "' y='");
        if (rotation.textAngle == 0) {
            appendPieces(out, int{chunk.m_position.y}, "' dy='1em'");
        } else {
            appendPieces(out, wrapSubtract(chunk.m_position.y, top),
                         "'"); // along a path y counts from its line
        }
    }
    if (chunk.m_textLength != NoTextLength) {
        appendPieces(out, " ", TextLengthKey, chunk.m_textLength, "'");
    }
    if (chunk.m_underline) {
        appendPieces(out, " ", TextDecorationKey, UnderlineWord, "'");
    }
    if (rotation.textAngle != 0) {
        appendPieces(out, " baseline-shift='", FixedNumber{rotation.shift, 1, ShiftRoom}, "em'");
    }
    if (rotation.charAngle != 0) {
        appendGlyphRotation(out, rotation.charAngle, chunk.m_text.length());
    }
    appendPieces(out, ">");
    appendEscaped(out, chunk.m_text.text(), chunk.m_text.length());
    appendPieces(out, SpanEndTag, "\n");
}

void CSurfaceSVG::Detail::appendGlyphRotation(TovoTextString& out, int angle, unsigned int characters)
{
    const int quarter = m_page.glyphOrientation(angle);
    const int rest = angle - quarter;
    appendPieces(out, " glyph-orientation-horizontal='", -quarter, "' rotate='");
    for (unsigned int i = 0; i < characters; ++i) {
        appendPieces(out, std::string_view(i > 0 ? " " : ""), -rest);
    }
    appendPieces(out, "'");
}

int CSurfaceSVG::glyphOrientation(int angle)
{
    const int size = std::abs(angle);
    int quarter = 0;
    if (size >= 315) {
        quarter = 360;
    } else if (size > 225) {
        quarter = 270;
    } else if (size >= 135) {
        quarter = 180;
    } else if (size > 45) {
        quarter = 90;
    }
    return angle < 0 ? -quarter : quarter;
}

void CSurfaceSVG::createTextPath(TovoTextString& out, int x, int y, int angle)
{
    constexpr int PathLength = 1000; // logical units
    if (angle == 0) {
        return;
    }
    ++m_textPathCount;
    appendPieces(m_textPathDefs, PathTag, " id='", TextPathId, m_textPathCount, "' d='M", x, " ", y, "L",
                 wrapAdd(x, PathLength), " ", y, "' transform='translate(0 0) rotate( ", -angle, " ", x, " ",
                 y, ")'/>\n");
    // The offset cancels the absolute x of the runs on the path.
    appendPieces(out, TextPathTag, " ", HrefKey, "#", TextPathId, m_textPathCount, "' startOffset='",
                 wrapSubtract(0, x), "'>");
}

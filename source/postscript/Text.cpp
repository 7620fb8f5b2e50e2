// Fonts, and text in its forms.
//
// Nothing is measured and no line is broken here: widths are the interpreter's business, positions come from
// the caller or from the font's size.
#include "surfacePSPrinter.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "PostScriptChange.h"
#include "PostScriptDetail.h"
#include "PostScriptPieces.h"
#include "boundedText.h"
#include "textFlags.h"
#include "undo.h"

using namespace drawing;
using namespace postscript;

namespace {

// As the y of a chunk: it has none of its own.
constexpr int NoPosition = 0x7FFFFFFF;

constexpr char Escaped[] = "\\()"; // of a string literal

constexpr unsigned int RoomBesideText = 200; // characters

TextRoom roomFor(std::string_view text)
{
    const std::size_t room = text.size() + RoomBesideText;
    return TextRoom{static_cast<unsigned int>(std::min<std::size_t>(room, UINT_MAX))};
}

// For a string literal: what would end or change it is escaped, up to the first zero byte.
void appendLiteral(TovoTextString& out, std::string_view text)
{
    std::string_view rest = text.substr(0, text.find('\0'));
    const std::string_view behindZero = text.substr(rest.size());
    while (!rest.empty()) {
        const std::size_t plain = std::min(rest.find_first_of(Escaped), rest.size());
        appendPieces(out, rest.substr(0, plain));
        rest.remove_prefix(plain);
        if (!rest.empty()) {
            appendPieces(out, "\\", rest.substr(0, 1));
            rest.remove_prefix(1);
        }
    }
    appendPieces(out, behindZero);
}

std::string_view viewOf(const TovoTextString& text)
{
    return std::string_view(text.text(), text.length());
}

std::string_view styleOf(bool bold, bool italic)
{
    if (italic) {
        return bold ? "-BoldItalic" : "-Italic";
    }
    return bold ? "-Bold" : "";
}

} // namespace

TovoTextString CSurfacePSPrinter::toPS(TovoTextString text)
{
    if (viewOf(text).find_first_of(Escaped) == std::string_view::npos) {
        return text;
    }
    TovoTextString escaped(TextRoom{text.length()});
    appendLiteral(escaped, viewOf(text));
    return escaped;
}

double CSurfacePSPrinter::Detail::unitsPerPoint() const
{
    return m_page.m_pageHeight != 0 ? m_page.m_height / (m_page.m_pageHeight * PointsPerMillimetre) : 1;
}

void CSurfacePSPrinter::setFont(CSurfaceFont* font)
{
    if (font == nullptr) {
        return;
    }
    const CSurfaceFont before = m_font;
    m_font = *font;
    doOrUndo(
        [&] {
            writeFont(font->getFaceName(), font->getSize(), font->getBold(), font->getItalic(),
                      font->getStrikethru(), font->getUnderline());
        },
        [&] { m_font = before; });
}

// The name goes into the text as it is. One with a blank becomes a string for findfont, after the empty name
// that the slash makes.
void CSurfacePSPrinter::writeFont(char* faceName, float size, bool bold, bool italic, bool /*strikethru*/,
                                  bool /*underline*/)
{
    const std::string_view name(faceName != nullptr ? faceName : "");
    const bool withBlank = name.find(' ') != std::string_view::npos;
    Detail detail(*this);
    const FixedNumber units = finiteNumber(size * detail.unitsPerPoint(), 2);
    TovoTextString text(TextRoom{200});
    appendPieces(text, "/", std::string_view(withBlank ? "(" : ""), name, styleOf(bold, italic),
                 std::string_view(withBlank ? ")" : ""), " findfont ", units, " scalefont setfont \n");
    m_body.append(text);
    detail.noteFont();
    if (isWrittenAsZero(units)) {
        detail.tellOfTrap(Detail::Trap::ZeroFont);
    }
    if (name.find_first_of("()<>[]{}/%") != std::string_view::npos) {
        detail.tellOfTrap(Detail::Trap::FontName);
    }
}

// Whether it wrote anything.
bool CSurfacePSPrinter::Detail::appendTextColor(TovoTextString& s)
{
    if (m_page.m_currentColor == m_page.m_textStyle.getColor()) {
        return false;
    }
    appendRGBColor(s, m_page.m_textStyle.getColor());
    m_page.m_currentColor = m_page.m_textStyle.getColor();
    return true;
}

void CSurfacePSPrinter::appendTextStyle(TovoTextString& s, RECT* rect, int /*flags*/)
{
    Detail::Change change(*this);
    TextChange textChange(s);
    appendClipStyle(s, rect);
    if (m_currentColor != m_textStyle.getColor()) {
        appendPieces(s, " ");
        Detail(*this).appendTextColor(s);
    }
    appendPieces(s, "\n");
    change.keep();
    textChange.keep();
}

int CSurfacePSPrinter::Detail::baseLineBelow(int top) const
{
    return wrapAdd(top, saturateToInt(m_page.m_font.getSize()));
}

void CSurfacePSPrinter::drawString(const char* text, RECT* rect, unsigned int flags)
{
    if (text == nullptr || rect == nullptr) {
        return;
    }
    Detail::Change change(*this);
    const std::string_view characters(text);
    TovoTextString run(roomFor(characters));
    appendTextStyle(run, rect, wrapToInt(flags));
    appendPieces(run, " ", PsPoint{rect->left, Detail(*this).baseLineBelow(rect->top)}, " moveto\n(");
    appendLiteral(run, characters);
    appendPieces(run, ") show\n");
    m_body.append(run);
    change.keep();
}

void CSurfacePSPrinter::drawText(const char* text, RECT* rect, unsigned int flags)
{
    drawString(text, rect, flags);
}

void CSurfacePSPrinter::drawTextAt(const char* text, POINT* point, unsigned int flags)
{
    if (text == nullptr || point == nullptr) {
        return;
    }
    Detail::Change change(*this);
    const std::string_view characters(text);
    std::string_view show = ") show\n";
    if ((flags & RightFlag) != 0) {
        show = ") rightshow\n";
        m_proceduresUsed |= Detail::RightShowUsed;
    } else if ((flags & CentreFlag) != 0) {
        show = ") middleshow\n";
        m_proceduresUsed |= Detail::MiddleShowUsed;
    }
    TovoTextString run(roomFor(characters));
    Detail(*this).appendTextColor(run);
    appendPieces(run, " ", PsPoint{point->x, Detail(*this).baseLineBelow(point->y)}, " moveto (");
    appendLiteral(run, characters);
    appendPieces(run, show);
    m_body.append(run);
    change.keep();
}

void CSurfacePSPrinter::drawTextOnBaseLine(int x, int y, unsigned int /*options*/, RECT* rect, char* text,
                                           int length)
{
    if (text == nullptr) {
        return;
    }
    const std::string_view characters = leftOf(text, length);
    TovoTextString run(roomFor(characters));
    if (rect != nullptr) {
        appendPieces(run, "gsave newpath ");
        appendPath(run, rect);
        appendPieces(run, " clip newpath\n");
    }
    appendPieces(run, PsColor{m_textStyle.getColor()}, " setrgbcolor ", PsPoint{x, y}, " moveto (");
    appendLiteral(run, characters);
    appendPieces(run, ") show\n", std::string_view(rect != nullptr ? "grestore\n" : ""));
    m_body.append(run);
}

bool CSurfacePSPrinter::drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags)
{
    if (chunks == nullptr || rect == nullptr) {
        return false;
    }
    Detail::Change change(*this);
    TovoTextString text(TextRoom{500});
    if (Detail(*this).appendTextColor(text)) {
        appendPieces(text, "\n");
    }
    appendPieces(text, "gsave");
    if ((static_cast<unsigned int>(flags) & NoClipFlag) == 0) {
        appendPieces(text, " newpath ");
        appendPath(text, rect);
        appendPieces(text, " clip");
    }
    appendPieces(text, "\n");
    const double unit = Detail(*this).unitsPerPoint();
    const int ascent = saturateToInt(m_font.getSize() * unit);
    const int lineHeight = saturateToInt(m_font.getSize() * 1.2 * unit);
    int offset = ascent; // of the lines that have no y of their own, below the top
    CSurfaceTextChunk* previous = nullptr;
    for (unsigned int i = 0; i < chunks->size(); ++i) {
        CSurfaceTextChunk* const chunk = chunks->atGet(i);
        if (chunk == nullptr) {
            continue;
        }
        if (chunk->isStartOfAnotherLine(previous)) {
            offset = wrapAdd(offset, lineHeight);
        }
        const int y = chunk->m_position.y < NoPosition ? wrapAdd(chunk->m_position.y, ascent)
                                                       : wrapAdd(rect->top, offset);
        appendPieces(text, "\t");
        if (!chunk->m_followsPrevious || previous == nullptr) {
            const int x = chunk->m_followsPrevious ? rect->left : chunk->m_position.x;
            appendPieces(text, PsPoint{x, y}, " moveto ");
        }
        Detail(*this).appendChunk(text, *chunk);
        previous = chunk;
    }
    appendPieces(text, "grestore\n");
    m_body.append(text);
    change.keep();
    return true;
}

void CSurfacePSPrinter::Detail::appendChunk(TovoTextString& s, const CSurfaceTextChunk& chunk)
{
    const bool underline = m_page.m_font.getUnderline() || chunk.m_underline;
    if ((underline || m_page.m_font.getStrikethru()) && m_page.m_depthsWithFont == 0) {
        tellOfTrap(Trap::LineWithoutFont);
    }
    if (chunk.m_text.length() == 0 && chunk.m_textLength > 0) {
        tellOfTrap(Trap::EmptyRunWithWidth);
    }
    const int charAngle = m_page.m_textStyle.getCharAngle();
    const int textAngle = m_page.m_textStyle.getTextAngle();
    appendPieces(s, std::max(chunk.m_textLength, 0), " ",
                 std::string_view(m_page.m_font.getStrikethru() ? " true" : " false"),
                 std::string_view(underline ? " true (" : " false ("));
    appendLiteral(s, viewOf(chunk.m_text));
    if (charAngle == 0 && textAngle == 0) {
        appendPieces(s, ") jshow\n");
    } else {
        m_page.m_proceduresUsed |= RotatedShowUsed;
        appendPieces(s, ") ", charAngle, "  ", textAngle, "  rotatedshow\n");
    }
}

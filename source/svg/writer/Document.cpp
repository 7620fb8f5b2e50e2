// The document around a page's content: head, shared definitions, end pieces.
#include "surfaceSVG.h"

#include <climits>
#include <cstdint>

#include "SvgDialect.h"
#include "SvgWriterDetail.h"
#include "moduleObjects.h"
#include "pageText.h"
#include "putInFront.h"

using namespace drawing;
using namespace svg;

namespace {

constexpr char Prolog[] = "<?xml version='1.0' encoding='UTF-8' standalone='no'?>\n"
                          "<!DOCTYPE svg PUBLIC '-//W3C//DTD SVG 20010904//EN' "
                          "'http://www.w3.org/TR/2001/REC-SVG-20010904/DTD/svg10.dtd'>\n";

constexpr char Namespaces[] = " xmlns='http://www.w3.org/2000/svg'"
                              " xmlns:xlink='http://www.w3.org/1999/xlink'"
                              " xmlns:tovo='urn:tovo:surface'";

// A numbered definitions buffer, with a line feed after it when there is anything in it.
void appendSection(TovoTextString& head, const TovoTextString& definitions)
{
    if (!definitions.isEmpty()) {
        head.append(definitions);
        head.append("\n", 1);
    }
}

void appendSymbol(TovoTextString& head, std::string_view name, std::string_view style)
{
    appendPieces(head, "\t", SymbolTag, " id='", name, "'>", RectTag,
                 " x='0' y='0' width='100%' height='100%'", style, "/>", SymbolEndTag, "\n");
}

void appendHatches(TovoTextString& head)
{
    for (const SvgHatch& hatch : SvgHatches) {
        appendPieces(head, PatternTag, " id='", std::string_view(hatch.name),
                     "' patternUnits='userSpaceOnUse' x='0' y='0' width='9' height='9' stroke-width='1'>\n",
                     std::string_view(hatch.tile), "\n", PatternEndTag, "\n");
    }
}

} // namespace

int CSurfaceSVG::closeSurface()
{
    TovoTextString head;
    appendPieces(head, Prolog, CommentStart, " Created by Tovo ", std::string_view(moduleVersionText()),
                 " -->\n\n", SvgTag, " width='", m_pageWidth, "mm' height='", m_pageHeight, "mm' ",
                 ViewBoxKey, "0 0 ", m_width, " ", m_height, "'", Namespaces, ">\n\n");
    Detail(*this).appendDefinitions(head);
    constexpr std::string_view EndOfGroup = "</g>\n";
    constexpr std::string_view End = "</svg>\n\n";
    const std::uint64_t endLength = 3 * EndOfGroup.size() + End.size();
    if (const std::uint64_t length = head.length() + endLength; length <= UINT_MAX) {
        m_body.room(static_cast<unsigned int>(length));
    } else {
        krnOutOfMemory();
    }
    // With that room made, nothing fails any more.
    putInFront(m_body, head);
    if (m_hasTransform) {
        writeEndGroup();
        m_hasTransform = false;
    }
    if (m_currentClip > 0) {
        writeEndGroup();
        m_currentClip = 0;
    }
    if (m_fontGroupOpen) {
        m_fontGroupOpen = false;
        writeEndGroup();
    }
    appendPieces(m_body, End);
    return 0;
}

void CSurfaceSVG::Detail::appendDefinitions(TovoTextString& head) const
{
    const bool anyDefinition = !m_page.m_imageDefs.isEmpty() || !m_page.m_clipDefs.isEmpty() ||
                               !m_page.m_patternDefs.isEmpty() || !m_page.m_textPathDefs.isEmpty();
    if (!anyDefinition && m_page.m_symbolsUsed == 0) {
        return;
    }
    appendPieces(head, DefsTag, "\n");
    appendSection(head, m_page.m_clipDefs);
    appendSection(head, m_page.m_textPathDefs);
    appendSection(head, m_page.m_imageDefs);
    appendSection(head, m_page.m_patternDefs);
    if ((m_page.m_symbolsUsed & FrameRectUsed) != 0) {
        appendSymbol(head, FrameRectSymbol, " fill='none' stroke-width='1'");
    }
    if ((m_page.m_symbolsUsed & FocusRectUsed) != 0) {
        appendSymbol(head, FocusRectSymbol, " fill='none' stroke-width='1' stroke-dasharray='1,1'");
    }
    if ((m_page.m_symbolsUsed & SolidRectUsed) != 0) {
        appendSymbol(head, SolidRectSymbol, "");
    }
    if ((m_page.m_symbolsUsed & HatchUsed) != 0) {
        appendHatches(head);
    }
    if ((m_page.m_symbolsUsed & TiledImageUsed) != 0) {
        appendSymbol(head, TiledImageSymbol, " stroke-width='0'");
    }
    appendPieces(head, DefsEndTag, "\n\n");
}

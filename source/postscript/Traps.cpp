// What a host hears in its log, once for each document and cause: pages on which an interpreter stops, images that are
// refused. docs/what-pages-keep.md says how callers get round them.
#include "surfacePSPrinter.h"

#include <algorithm>
#include <iterator>

#include "PostScriptDetail.h"
#include "moduleObjects.h"
#include "toldOnce.h"

using namespace drawing;

namespace {

constexpr const char* TrapTexts[] = {
    "CSurfacePSPrinter::closeSurface The scale is 0, and an interpreter stops there: page size or logical "
    "size",
    "CSurfacePSPrinter::writeFont The size of a font is 0, and an interpreter stops at its text",
    "CSurfacePSPrinter::writeFont An interpreter stops at the name of a font with any of ()<>[]{}/%",
    "CSurfacePSPrinter::drawRoundedRectangle An interpreter stops at a rounded rectangle without extent, or "
    "with "
    "a radius as long as a side",
    "CSurfacePSPrinter::setTransform An interpreter stops at text under a transform that leaves no area",
    "CSurfacePSPrinter::drawString An interpreter stops at an underline or strike-through without a font: "
    "set the "
    "font again after the end of a clip or transform",
    "CSurfacePSPrinter::drawString An interpreter stops at an empty run that has a width",
};

constexpr unsigned int DeepestState = 31; // that the bits of m_depthsWithFont tell apart

unsigned int bitOf(unsigned int depth)
{
    return 1U << std::min(depth, DeepestState);
}

} // namespace

void CSurfacePSPrinter::Detail::tellOfTrap(Trap trap)
{
    static_assert(static_cast<unsigned int>(Trap::EmptyRunWithWidth) + 1 == std::size(TrapTexts));
    const unsigned int bit = 1U << static_cast<unsigned int>(trap);
    if ((m_page.m_toldTraps & bit) == 0) {
        m_page.m_toldTraps |= bit;
        moduleLog.log("%s", TrapTexts[static_cast<unsigned int>(trap)]);
    }
}

void CSurfacePSPrinter::Detail::tellOfRefusedImage(unsigned int id)
{
    if (firstTold(m_page.m_toldImages, id)) {
        moduleLog.log("CSurfacePSPrinter::includeImage Image id %u is above 65535", id);
    }
}

// A gsave and a grestore of the page's text. An interpreter forgets with a state the font that was set in it.
void CSurfacePSPrinter::Detail::beginState()
{
    ++m_page.m_stateDepth;
}

void CSurfacePSPrinter::Detail::endState()
{
    if (m_page.m_stateDepth == 0) {
        m_page.m_depthsWithFont = 0; // what is restored is the interpreter's own state, from before the page
        return;
    }
    --m_page.m_stateDepth;
    m_page.m_depthsWithFont &= bitOf(m_page.m_stateDepth) * 2 - 1;
}

void CSurfacePSPrinter::Detail::noteFont()
{
    m_page.m_depthsWithFont |= bitOf(m_page.m_stateDepth);
}

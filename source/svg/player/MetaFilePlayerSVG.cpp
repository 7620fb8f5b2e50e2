// Construction, the walk over the page, and its <svg> elements.
#include "metaFilePlayerSVG.h"

#include "ElementKind.h"
#include "ElementWalk.h"
#include "PageCursor.h"
#include "SvgDialect.h"
#include "SvgPlayerDetail.h"
#include "ValueDuring.h"
#include "WalkMemory.h"
#include "moduleObjects.h"
#include "surface.h"
#include "wrappingInt.h"

using namespace drawing;
using namespace svg;

namespace {

constexpr int DeepestNesting = 1000;

// Reads "viewBox='a b c d'" as far as it goes and gives how many numbers that was; the others stay.
int readViewBox(const char* attribute, RECT& viewBox)
{
    int numbers[4] = {viewBox.left, viewBox.top, viewBox.right, viewBox.bottom};
    const int count = intlSscanNumeric(attribute, "viewBox='%d %d %d %d'", &numbers[0], &numbers[1],
                                       &numbers[2], &numbers[3]);
    viewBox = RECT{numbers[0], numbers[1], numbers[2], numbers[3]};
    return count;
}

} // namespace

CMetaFilePlayerSVG::CMetaFilePlayerSVG(unsigned char* page, unsigned int length)
    : m_pageText(nullptr), m_surface(nullptr), m_svgSeen(false), m_viewport(nullptr), m_groupClip(false),
      m_memory(nullptr)
{
    // Both are owned by plain pointers, so the first goes again when the second gets no memory.
    m_pageText = makeInModuleHeap<TovoTextString>(page, length);
    try {
        m_memory = makeInModuleHeap<SvgWalkMemory>();
        if (m_pageText == nullptr || m_memory == nullptr) {
            krnOutOfMemory();
        }
    } catch (...) {
        destroyInModuleHeap(m_memory);
        destroyInModuleHeap(m_pageText);
        throw;
    }
    m_viewport = &m_memory->pageViewport;
}

CMetaFilePlayerSVG::~CMetaFilePlayerSVG()
{
    destroyInModuleHeap(m_memory);
    destroyInModuleHeap(m_pageText);
}

int CMetaFilePlayerSVG::metaFileFormat()
{
    return 2;
}

std::uint64_t CMetaFilePlayerSVG::bytesSearched() const
{
    return m_memory->searched.count;
}

int CMetaFilePlayerSVG::play(CSurface* surface, RECT* rect)
{
    if (surface == nullptr || rect == nullptr) {
        return 0;
    }
    m_surface = surface;
    m_surface->m_outputWidth = rect->right;
    m_surface->m_outputHeight = rect->bottom;
    try {
        const int error = play();
        if (error != 0) {
            moduleLog.log("CMetaFilePlayerSVG::player - Error during SVG playback, error number=%d", error);
            return 0;
        }
    } catch (KrnException& exception) {
        moduleLog.log("CMetaFilePlayerSVG::player - Exception during SVG playback, exception number=%d",
                      exception.number());
        return 0;
    }
    return 1;
}

int CMetaFilePlayerSVG::play()
{
    char* const text = m_pageText->text();
    m_memory->walkEnd = text + m_pageText->length();
    return processElements(text);
}

int CMetaFilePlayerSVG::processElements(char* text)
{
    Detail::ElementWalk walk(*this, text, m_memory->walkEnd);
    while (walk.next()) {
        Detail(*this).processElement(walk.element(), walk.type());
    }
    return 0;
}

int CMetaFilePlayerSVG::Detail::processElement(char* element, int type)
{
    switch (type) {
    case RecordProlog:
    case RecordComment:
        return 0;
    case RecordSvg:
        return m_player.m_svgSeen ? m_player.processSVGSubElement(&element)
                                  : m_player.processSVGElement(&element);
    case RecordDefs:
        return m_player.processDefsElement(&element);
    case RecordGroup:
        return m_player.processGroupElement(&element);
    case RecordGroupEnd:
        return m_player.processGroupEnd(element);
    case RecordText:
        return m_player.processTextElement(&element);
    case RecordPath:
        return m_player.processPathElement(element);
    case RecordRect:
        return m_player.processRectElement(&element);
    case RecordEllipse:
        return m_player.processEllipseElement(&element);
    case RecordLine:
        return m_player.processLineElement(&element);
    case RecordPolygon:
        return m_player.processPolygonElement(element);
    case RecordPolyline:
        return m_player.processPolylineElement(element);
    case RecordUse:
        return m_player.processUseElement(&element);
    default:
        reportUnexpectedElement(__LINE__);
        return -1;
    }
}

void CMetaFilePlayerSVG::Detail::reportUnexpectedElement(int line)
{
    kosAssertFail("Assertion failed", "false", "surface", "MetaFilePlayerSVG", line);
}

int CMetaFilePlayerSVG::processSVGElement(char** element)
{
    m_svgSeen = true;
    if (const char* const width = findKey(*element, "width=")) {
        intlSscanNumeric(width, "width='%d'", &m_surface->m_pageWidth);
    }
    if (const char* const height = findKey(*element, "height=")) {
        intlSscanNumeric(height, "height='%d'", &m_surface->m_pageHeight);
    }
    if (const char* const attribute = findKey(*element, ViewBoxKey)) {
        RECT& viewBox = m_viewport->viewBox;
        const int count = readViewBox(attribute, viewBox);
        m_surface->m_width = count > 2 ? viewBox.right : m_surface->m_width;
        m_surface->m_height = count > 3 ? viewBox.bottom : m_surface->m_height;
    }
    m_surface->prepareSurface();
    const ValueDuring<char*> inside(m_memory->walkEnd, m_memory->elementEnd);
    return processElements(*element + 1);
}

int CMetaFilePlayerSVG::processSVGSubElement(char** element)
{
    if (m_memory->depth >= DeepestNesting) {
        moduleLog.log("CMetaFilePlayerSVG::player - <svg> elements nested deeper than %d are passed over",
                      DeepestNesting);
        return -1;
    }
    SvgWalkMemory& memory = *m_memory;
    char* const end = memory.elementEnd;
    const auto read = [&](NumbersAhead& attribute, int(&numbers)[NumbersAhead::Most]) {
        attribute.read(*element, end, memory.searched, numbers);
        return numbers[0];
    };
    int x[NumbersAhead::Most] = {};
    int y[NumbersAhead::Most] = {};
    int width[NumbersAhead::Most] = {};
    int height[NumbersAhead::Most] = {};
    int box[NumbersAhead::Most] = {};
    SvgViewport viewport{read(memory.x, x), read(memory.y, y), read(memory.width, width),
                         read(memory.height, height), RECT{}};
    read(memory.viewBox, box);
    viewport.viewBox = RECT{box[0], box[1], box[2], box[3]};
    const ValueDuring<SvgViewport*> viewportInForce(m_viewport, &viewport);
    const ValueDuring<char*> inside(m_memory->walkEnd, end);
    const ValueDuring<int> deeper(m_memory->depth, m_memory->depth + 1);
    return processElements(*element + 1);
}

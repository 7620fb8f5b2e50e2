// Shapes: each element becomes the drawing call that made it.
//
// The numbers of a shape come first, in a fixed order and form, right after its name; a head that is read
// only in part makes the element unusable. Every shape starts from a new pen and brush and inherits nothing.
#include "metaFilePlayerSVG.h"

#include "PageCursor.h"
#include "SvgDialect.h"
#include "SvgPlayerDetail.h"
#include "brushStyles.h"
#include "penStyles.h"
#include "surface.h"
#include "wrappingInt.h"

using namespace drawing;
using namespace svg;

namespace {

// The draw operations that a path element can name. A name is tested by its first three letters.
struct ArcOperation {
    const char* name;
    void (CSurface::*draw)(RECT* rect, int x1, int y1, int x2, int y2);
};

constexpr ArcOperation ArcOperations[] = {
    {ArcName, &CSurface::drawArc},
    {PieName, &CSurface::drawPie},
    {ChordName, &CSurface::drawChord},
};
constexpr std::size_t ArcNameLength = 3;

const ArcOperation* arcOperationOf(const char* name)
{
    for (const ArcOperation& operation : ArcOperations) {
        if (std::strncmp(name, operation.name, ArcNameLength) == 0) {
            return &operation;
        }
    }
    return nullptr;
}

using PointList = Vector<POINT, 10>;

// Reads pairs "x,y " up to the first thing that is no pair and moves the cursor there. False when a pair is
// half there or has no blank after it. The step to the next pair goes after the next blank, so each further
// blank in front of a pair gives that pair once more.
bool readPoints(char*& cursor, PointList& points)
{
    for (;;) {
        char* pair = cursor;
        int repeats = 1;
        for (; isBlank(*pair); ++pair) {
            repeats += *pair == ' ' ? 1 : 0;
        }
        int x = 0;
        int y = 0;
        const int count = intlSscanNumeric(pair, "%d,%d", &x, &y);
        if (count == 0) {
            return true;
        }
        char* const blank = std::strpbrk(pair, " '");
        if (count != 2 || blank == nullptr || *blank != ' ') {
            return false;
        }
        for (; repeats > 0; --repeats) {
            points.add(POINT{x, y});
        }
        cursor = blank + 1;
    }
}

// The list of a polygon or polyline, sought by the element's name; null when there is no list or a broken one,
// else the place after it.
char* readPointList(char* element, const char* name, PointList& points)
{
    char* const attribute = findKey(findAfter(element, name), "points=");
    if (attribute == nullptr) {
        return nullptr;
    }
    char* cursor = stepOver(attribute, static_cast<int>(std::strlen(PointsKey)));
    return readPoints(cursor, points) ? cursor : nullptr;
}

} // namespace

int CMetaFilePlayerSVG::processRectElement(char** element)
{
    char* cursor = findAfter(*element, "rect ");
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    if (cursor == nullptr ||
        intlSscanNumeric(cursor, "x='%d' y='%d' width='%d' height='%d'", &x, &y, &width, &height) != 4) {
        return -1;
    }
    RECT rect{x, y, wrapAdd(x, width), wrapAdd(y, height)};
    int rx = 0;
    int ry = 0;
    if (char* const behindRx = readCoordinate(cursor, "rx=", rx)) {
        cursor = behindRx;
    }
    if (char* const behindRy = readCoordinate(cursor, "ry=", ry)) {
        cursor = behindRy;
    }
    CSurfacePen pen;
    CSurfaceBrush brush;
    if (Detail(*this).processRectStyle(cursor, &pen, &brush) < 0) {
        return -1;
    }
    if (brush.getStyle() == SolidBrush && (pen.getStyle() & PenLineMask) == PenWithoutLine) {
        m_surface->drawSolidRectangle(&rect, brush.getColor());
        return 0;
    }
    m_surface->setBrush(&brush);
    m_surface->setPen(&pen);
    if (rx > 0 || ry > 0) {
        m_surface->drawRoundedRectangle(&rect, static_cast<unsigned int>(rx), static_cast<unsigned int>(ry));
    } else {
        m_surface->drawRectangle(&rect);
    }
    return 0;
}

int CMetaFilePlayerSVG::Detail::processRectStyle(char* text, CSurfacePen* pen, CSurfaceBrush* brush)
{
    if (char* const style = findKey(text, "style=")) {
        // Read for its errors only: what it says is not applied, and no other attribute is looked at.
        RECT* clip = nullptr;
        unsigned long fillColor = 0;
        unsigned long strokeColor = 0;
        bool hasFill = false;
        bool hasStroke = false;
        char* value = style;
        m_player.getAttributeValue(style, &value);
        return m_player.processStyleAttribute(&value, &clip, &fillColor, &strokeColor, &hasFill, &hasStroke);
    }
    char* const stroke = findKey(text, "stroke=");
    if (stroke != nullptr && m_player.processStrokeAttribute(text, pen) < 0) {
        return -1;
    }
    char* const fill = findKey(text, "fill=");
    return fill != nullptr ? m_player.processFillAttribute(fill, brush) : 0;
}

int CMetaFilePlayerSVG::processEllipseElement(char** element)
{
    char* const head = findAfter(*element, "ellipse ");
    int cx = 0;
    int cy = 0;
    int rx = 0;
    int ry = 0;
    CSurfacePen pen;
    CSurfaceBrush brush;
    if (head == nullptr ||
        intlSscanNumeric(head, "cx='%d' cy='%d' rx='%d' ry='%d'", &cx, &cy, &rx, &ry) != 4 ||
        processStrokeAttribute(head, &pen) < 0 || processFillAttribute(head, &brush) < 0) {
        return -1;
    }
    RECT rect{wrapSubtract(cx, rx), wrapSubtract(cy, ry), wrapAdd(cx, rx), wrapAdd(cy, ry)};
    m_surface->setBrush(&brush);
    m_surface->setPen(&pen);
    m_surface->ellipse(&rect);
    return 0;
}

int CMetaFilePlayerSVG::processLineElement(char** element)
{
    char* const head = findAfter(*element, "line ");
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    CSurfacePen pen;
    if (head == nullptr ||
        intlSscanNumeric(head, "x1='%d' y1='%d' x2='%d' y2='%d'", &x1, &y1, &x2, &y2) != 4 ||
        processStrokeAttribute(head, &pen) < 0) {
        return -1;
    }
    m_surface->setPen(&pen);
    m_surface->drawLine(x1, y1, x2, y2);
    return 0;
}

int CMetaFilePlayerSVG::processPolygonElement(char* element)
{
    PointList points;
    CSurfacePen pen;
    CSurfaceBrush brush;
    char* const rest = readPointList(element, "polygon ", points);
    if (rest == nullptr || processStrokeAttribute(rest, &pen) < 0 || processFillAttribute(rest, &brush) < 0) {
        return -1;
    }
    if (brush.getStyle() == SolidBrush) {
        m_surface->solidPolygon(&points[0], points.size(), brush.getColor());
        return 0;
    }
    m_surface->setBrush(&brush);
    m_surface->setPen(&pen);
    m_surface->polygon(&points[0], points.size());
    return 0;
}

int CMetaFilePlayerSVG::processPolylineElement(char* element)
{
    PointList points;
    CSurfacePen pen;
    char* const rest = readPointList(element, "polyline ", points);
    if (rest == nullptr || processStrokeAttribute(rest, &pen) < 0) {
        return -1;
    }
    m_surface->setPen(&pen);
    m_surface->polyline(&points[0], points.size());
    return 0;
}

int CMetaFilePlayerSVG::processPathElement(char* element)
{
    // Other attributes of the prefix may precede the one that holds the call.
    char* name = findAfter(element, TovoPrefix);
    const ArcOperation* operation = nullptr;
    while (name != nullptr && (operation = arcOperationOf(name)) == nullptr) {
        name = findAfter(name, TovoPrefix);
    }
    const char* const numbers = findKey(name, "=");
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    if (numbers == nullptr || intlSscanNumeric(numbers, "='%d %d %d %d %d %d %d %d", &left, &top, &right,
                                               &bottom, &x1, &y1, &x2, &y2) != 8) {
        return -1;
    }
    CSurfacePen pen;
    CSurfaceBrush brush;
    if (findKey(element, "stroke=") != nullptr && processStrokeAttribute(element, &pen) < 0) {
        return -1;
    }
    char* const fill = findKey(element, "fill=");
    if (fill != nullptr && processFillAttribute(fill, &brush) < 0) {
        return -1;
    }
    RECT rect{left, top, right, bottom};
    m_surface->setBrush(&brush);
    m_surface->setPen(&pen);
    (m_surface->*operation->draw)(&rect, x1, y1, x2, y2);
    return 0;
}

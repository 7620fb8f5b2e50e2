// Shapes: each a call of the Windows drawing interface.
#include "surfaceGDI.h"

namespace {

// A brush for one call, deleted after it.
class TemporaryBrush {
public:
    explicit TemporaryBrush(unsigned long color) : m_brush(CreateSolidBrush(static_cast<COLORREF>(color))) {}
    ~TemporaryBrush() { DeleteObject(m_brush); }
    TemporaryBrush(const TemporaryBrush&) = delete;
    TemporaryBrush& operator=(const TemporaryBrush&) = delete;

    HBRUSH get() const { return m_brush; }

private:
    HBRUSH m_brush;
};

} // namespace

void CSurfaceGDI::drawArc(RECT* rect, int x1, int y1, int x2, int y2)
{
    if (rect != nullptr) {
        Arc(m_hdc, rect->left, rect->top, rect->right, rect->bottom, x1, y1, x2, y2);
    }
}

void CSurfaceGDI::drawChord(RECT* rect, int x1, int y1, int x2, int y2)
{
    if (rect != nullptr) {
        Chord(m_hdc, rect->left, rect->top, rect->right, rect->bottom, x1, y1, x2, y2);
    }
}

void CSurfaceGDI::drawPie(RECT* rect, int x1, int y1, int x2, int y2)
{
    if (rect != nullptr) {
        Pie(m_hdc, rect->left, rect->top, rect->right, rect->bottom, x1, y1, x2, y2);
    }
}

void CSurfaceGDI::drawFocusRect(RECT* rect)
{
    if (rect != nullptr) {
        DrawFocusRect(m_hdc, rect);
    }
}

void CSurfaceGDI::drawLine(int x1, int y1, int x2, int y2)
{
    MoveToEx(m_hdc, x1, y1, nullptr);
    LineTo(m_hdc, x2, y2);
}

void CSurfaceGDI::drawRectangle(RECT* rect)
{
    if (rect != nullptr) {
        Rectangle(m_hdc, rect->left, rect->top, rect->right, rect->bottom);
    }
}

void CSurfaceGDI::drawRectangle(RECT* rect, int, int)
{
    if (rect != nullptr) {
        Rectangle(m_hdc, rect->left, rect->top, rect->right, rect->bottom);
    }
}

void CSurfaceGDI::drawRoundedRectangle(RECT* rect, unsigned int width, unsigned int height)
{
    if (rect != nullptr) {
        RoundRect(m_hdc, rect->left, rect->top, rect->right, rect->bottom, static_cast<int>(width),
                  static_cast<int>(height));
    }
}

void CSurfaceGDI::drawSolidRectangle(RECT* rect, unsigned long color)
{
    if (rect != nullptr) {
        const TemporaryBrush brush(GetColor(color));
        FillRect(m_hdc, rect, brush.get());
    }
}

void CSurfaceGDI::ellipse(RECT* rect)
{
    if (rect != nullptr) {
        Ellipse(m_hdc, rect->left, rect->top, rect->right, rect->bottom);
    }
}

void CSurfaceGDI::solidPolygon(POINT* points, unsigned int count, unsigned long color)
{
    if (points == nullptr) {
        return;
    }
    const TemporaryBrush brush(GetColor(color));
    const HRGN region = CreatePolygonRgn(points, static_cast<int>(count), WINDING);
    FillRgn(m_hdc, region, brush.get());
    DeleteObject(region);
}

void CSurfaceGDI::floodFill(int x, int y, unsigned long color, unsigned int type)
{
    ExtFloodFill(m_hdc, x, y, static_cast<COLORREF>(GetColor(color)), type);
}

void CSurfaceGDI::frameRect(RECT* rect, unsigned long color)
{
    if (rect != nullptr) {
        const TemporaryBrush brush(GetColor(color));
        FrameRect(m_hdc, rect, brush.get());
    }
}

void CSurfaceGDI::polygon(POINT* points, unsigned int count)
{
    if (points != nullptr) {
        Polygon(m_hdc, points, static_cast<int>(count));
    }
}

void CSurfaceGDI::polyline(POINT* points, unsigned int count)
{
    if (points != nullptr) {
        Polyline(m_hdc, points, static_cast<int>(count));
    }
}

void CSurfaceGDI::drawPolygon(POINT* points, unsigned int count, bool)
{
    CSurfaceGDI::polygon(points, count);
}

void CSurfaceGDI::drawPolyline(POINT* points, unsigned int count)
{
    CSurfaceGDI::polyline(points, count);
}

void CSurfaceGDI::drawEdge(RECT* rect, unsigned int edge, unsigned int flags)
{
    if (rect != nullptr) {
        DrawEdge(m_hdc, rect, edge, flags);
    }
}

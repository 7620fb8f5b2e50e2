// Recording with libEMF; see PeerMetafile.h. It writes to a stream when it closes.
#include "PeerMetafile.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

#include <emf.h>

struct PeerMetafile::Recording {
    HDC context{};
    char* bytes = nullptr;
    std::size_t size = 0;
    std::vector<POINT> points;

    // Puts the object in the place of the one before, which is deleted when `owned` says so.
    void exchange(HGDIOBJ object, bool& owned)
    {
        const HGDIOBJ former = SelectObject(context, object);
        if (owned) {
            DeleteObject(former);
        }
        owned = true;
    }
    const POINT* pointsOf(const int* numbers, unsigned int count)
    {
        points.clear();
        for (unsigned int i = 0; i < count; ++i) {
            points.push_back({numbers[2 * i], numbers[2 * i + 1]});
        }
        return points.data();
    }
    bool ownsPen = false;
    bool ownsBrush = false;
};

PeerMetafile::PeerMetafile(int frameWidth, int frameHeight, int width, int height)
    : m_recording(new Recording)
{
    const RECT frame = {0, 0, frameWidth, frameHeight};
    std::FILE* stream = open_memstream(&m_recording->bytes, &m_recording->size);
    m_recording->context = CreateEnhMetaFileWithFILEA(HDC{}, stream, &frame, nullptr);
    SetMapMode(m_recording->context, MM_ANISOTROPIC);
    SetWindowExtEx(m_recording->context, width, height, nullptr);
    SetViewportExtEx(m_recording->context, width, height, nullptr);
}

PeerMetafile::~PeerMetafile()
{
    std::free(m_recording->bytes);
    delete m_recording;
}

void PeerMetafile::setPen(unsigned int color, bool dashed, unsigned int width)
{
    const LOGBRUSH brush = {BS_SOLID, color, 0};
    m_recording->exchange(
        ExtCreatePen(PS_GEOMETRIC | (dashed ? PS_DASH : PS_SOLID), width, &brush, 0, nullptr),
        m_recording->ownsPen);
}

void PeerMetafile::setNoPen()
{
    m_recording->exchange(GetStockObject(NULL_PEN), m_recording->ownsPen);
    m_recording->ownsPen = false;
}

void PeerMetafile::setBrush(unsigned int color, int style)
{
    if (style == hollow) {
        m_recording->exchange(GetStockObject(NULL_BRUSH), m_recording->ownsBrush);
        m_recording->ownsBrush = false;
        return;
    }
    const LOGBRUSH brush = {style == solid ? static_cast<UINT>(BS_SOLID) : static_cast<UINT>(BS_HATCHED),
                            color, style == solid ? 0 : static_cast<decltype(LOGBRUSH::lbHatch)>(style)};
    m_recording->exchange(CreateBrushIndirect(&brush), m_recording->ownsBrush);
}

void PeerMetafile::rectangle(int left, int top, int right, int bottom)
{
    Rectangle(m_recording->context, left, top, right, bottom);
}

void PeerMetafile::ellipse(int left, int top, int right, int bottom)
{
    Ellipse(m_recording->context, left, top, right, bottom);
}

void PeerMetafile::line(int x1, int y1, int x2, int y2)
{
    MoveToEx(m_recording->context, x1, y1, nullptr);
    LineTo(m_recording->context, x2, y2);
}

void PeerMetafile::polygon(const int* points, unsigned int count)
{
    Polygon(m_recording->context, m_recording->pointsOf(points, count), static_cast<INT>(count));
}

void PeerMetafile::polyline(const int* points, unsigned int count)
{
    Polyline(m_recording->context, m_recording->pointsOf(points, count), static_cast<INT>(count));
}

void PeerMetafile::close(std::string& page)
{
    DeleteEnhMetaFile(CloseEnhMetaFileWithFILE(m_recording->context));
    page.assign(m_recording->bytes, m_recording->size);
}

// Recording with libEMF; see PeerMetafile.h. It writes to a stream when it closes.
#include "PeerMetafile.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

#include <emf.h>

struct PeerMetafile::Recording {
    std::FILE* stream = nullptr;
    HDC context{};
    char* bytes = nullptr;
    std::size_t size = 0;
    std::vector<POINT> points;

    // All of them until the end: libEMF takes the next object in a deleted one's place for a stock object.
    std::vector<HGDIOBJ> objects;

    void select(HGDIOBJ object)
    {
        objects.push_back(object);
        SelectObject(context, object);
    }
    const POINT* pointsOf(const int* numbers, unsigned int count)
    {
        points.clear();
        for (unsigned int i = 0; i < count; ++i, numbers += 2) {
            points.push_back({numbers[0], numbers[1]});
        }
        return points.data();
    }
};

PeerMetafile::PeerMetafile(int frameWidth, int frameHeight, int width, int height)
    : m_recording(new Recording)
{
    const RECT frame = {0, 0, frameWidth, frameHeight};
    m_recording->stream = open_memstream(&m_recording->bytes, &m_recording->size);
    m_recording->context = CreateEnhMetaFileWithFILEA(HDC{}, m_recording->stream, &frame, nullptr);
    SetMapMode(m_recording->context, MM_ANISOTROPIC);
    SetWindowExtEx(m_recording->context, width, height, nullptr);
    const auto dots = [context = m_recording->context](int hundredths, int resolution, int millimetres) {
        return static_cast<INT>(static_cast<double>(hundredths) * GetDeviceCaps(context, resolution) /
                                (100.0 * GetDeviceCaps(context, millimetres)));
    };
    SetViewportExtEx(m_recording->context, dots(frameWidth, HORZRES, HORZSIZE),
                     dots(frameHeight, VERTRES, VERTSIZE), nullptr);
}

PeerMetafile::~PeerMetafile()
{
    std::free(m_recording->bytes);
    delete m_recording;
}

void PeerMetafile::setPen(unsigned int color, bool dashed, unsigned int width)
{
    const LOGBRUSH brush = {BS_SOLID, color, 0};
    m_recording->select(
        ExtCreatePen(PS_GEOMETRIC | (dashed ? PS_DASH : PS_SOLID), width, &brush, 0, nullptr));
}

void PeerMetafile::setNoPen()
{
    SelectObject(m_recording->context, GetStockObject(NULL_PEN));
}

void PeerMetafile::setBrush(unsigned int color, int style)
{
    if (style == Hollow) {
        SelectObject(m_recording->context, GetStockObject(NULL_BRUSH));
        return;
    }
    const LOGBRUSH brush = {style == Solid ? static_cast<UINT>(BS_SOLID) : static_cast<UINT>(BS_HATCHED),
                            color, style == Solid ? 0 : static_cast<decltype(LOGBRUSH::lbHatch)>(style)};
    m_recording->select(CreateBrushIndirect(&brush));
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
    std::fclose(m_recording->stream);
    for (const HGDIOBJ object : m_recording->objects) {
        DeleteObject(object);
    }
    page.assign(m_recording->bytes, m_recording->size);
}

#include "DevicePage.h"

#include <cstdlib>
#include <iostream>

#include <gdidevice.h>

#include "PageWork.h"
#include "PeerMetafile.h"
#include "TablePage.h"
#include "surfaceEMF.h"
#include "surfaceHdc.h"

namespace {

HDC makeDevice()
{
    GdiDeviceOptions options;
    options.width = SheetPixels.cx;
    options.height = SheetPixels.cy;
    options.dpi = SheetDotsPerInch;
    return gdiCreateDevice(&options);
}

class DeviceSheet : public TableSheet {
public:
    DeviceSheet() : m_device(makeDevice()), m_surface(m_device, {DotsPerTenUnits, DotsPerTenUnits}, {10, 10})
    {
        m_surface.setMapMode(MM_ANISOTROPIC);
    }
    ~DeviceSheet() override { DeleteDC(m_device); }

    void draw(int rows) override { drawTable(m_surface, rows); }
    const unsigned char* pixels(int& rowBytes) override { return gdiDeviceBits(m_device, &rowBytes); }

private:
    HDC m_device;
    CSurfaceHdc m_surface;
};

// A metafile, played.
class PlayedSheet : public TableSheet {
public:
    explicit PlayedSheet(std::string page) : m_page(std::move(page)), m_device(makeDevice()) {}
    ~PlayedSheet() override { DeleteDC(m_device); }

    void draw(int rows) override
    {
        CSurfaceHdc surface(m_device);
        const RECT bounds = tableBounds(rows);
        playPage(m_page, surface,
                 {0, 0, bounds.right * DotsPerTenUnits / 10, bounds.bottom * DotsPerTenUnits / 10});
    }
    const unsigned char* pixels(int& rowBytes) override { return gdiDeviceBits(m_device, &rowBytes); }

private:
    std::string m_page;
    HDC m_device;
};

// The frame of a table whose units are the dots of a screen, in hundredths of a millimetre.
RECT frameOf(int rows)
{
    constexpr int FrameOfDots = 2540;
    constexpr int Dots = 96;
    const RECT bounds = tableBounds(rows);
    return {0, 0, bounds.right * FrameOfDots / Dots, bounds.bottom * FrameOfDots / Dots};
}

// Stands in for a surface in drawTable.
class PeerCanvas {
public:
    explicit PeerCanvas(PeerMetafile& metafile) : m_metafile(metafile) {}

    void setPen(unsigned long color, int style, int width)
    {
        m_pen = {static_cast<unsigned int>(color), style == DashedPen, static_cast<unsigned int>(width)};
        givePen();
    }
    void setBrush(unsigned long color, int style)
    {
        const int peerStyle = style == SolidBrush    ? PeerMetafile::Solid
                              : style == HollowBrush ? PeerMetafile::Hollow
                                                     : style - FirstHatch;
        m_metafile.setBrush(static_cast<unsigned int>(color), peerStyle);
    }
    void drawRectangle(const RECT* rect)
    {
        m_metafile.rectangle(rect->left, rect->top, rect->right, rect->bottom);
    }
    void ellipse(const RECT* rect) { m_metafile.ellipse(rect->left, rect->top, rect->right, rect->bottom); }
    void drawLine(int x1, int y1, int x2, int y2) { m_metafile.line(x1, y1, x2, y2); }
    // libEMF fills and frames no rectangle but with the pen and the brush.
    void drawSolidRectangle(const RECT* rect, unsigned long color)
    {
        m_metafile.setNoPen();
        setBrush(color, SolidBrush);
        drawRectangle(rect);
        givePen();
    }
    void frameRect(const RECT* rect, unsigned long color)
    {
        m_metafile.setPen(static_cast<unsigned int>(color), false, 1);
        setBrush(0, HollowBrush);
        drawRectangle(rect);
        givePen();
    }
    void polygon(const POINT* points, unsigned int count) { m_metafile.polygon(&points->x, count); }
    void polyline(const POINT* points, unsigned int count) { m_metafile.polyline(&points->x, count); }

private:
    void givePen() { m_metafile.setPen(m_pen.color, m_pen.dashed, m_pen.width); }

    PeerMetafile& m_metafile;
    struct {
        unsigned int color;
        bool dashed;
        unsigned int width;
    } m_pen{0, false, 1};
};

// The share of the sheet's pixels that are clearly lighter or darker on one of them.
double difference(TableSheet& first, TableSheet& second)
{
    constexpr int Clearly = 3 * 64;
    int firstRow = 0;
    int secondRow = 0;
    const unsigned char* const one = first.pixels(firstRow);
    const unsigned char* const other = second.pixels(secondRow);
    int different = 0;
    for (int y = 0; y < SheetPixels.cy; ++y) {
        for (int x = 0; x < SheetPixels.cx; ++x) {
            int sum = 0;
            for (int channel = 0; channel < 3; ++channel) {
                sum += std::abs(one[y * firstRow + 4 * x + channel] - other[y * secondRow + 4 * x + channel]);
            }
            different += sum > Clearly ? 1 : 0;
        }
    }
    return static_cast<double>(different) / (static_cast<double>(SheetPixels.cx) * SheetPixels.cy);
}

} // namespace

std::unique_ptr<TableSheet> makeDeviceSheet()
{
    return std::make_unique<DeviceSheet>();
}

void recordSurfaceTable(int rows, std::string& page)
{
    RECT frame = frameOf(rows);
    const RECT bounds = tableBounds(rows);
    CSurfaceEMF surface(&frame);
    SetMapMode(surface.getHDC(), MM_ANISOTROPIC);
    SetWindowExtEx(surface.getHDC(), bounds.right, bounds.bottom, nullptr);
    SetViewportExtEx(surface.getHDC(), bounds.right, bounds.bottom, nullptr);
    drawTable(surface, rows);
    takePage(surface, page);
}

void recordPeerTable(int rows, std::string& page)
{
    const RECT frame = frameOf(rows);
    const RECT bounds = tableBounds(rows);
    PeerMetafile metafile(frame.right, frame.bottom, bounds.right, bounds.bottom);
    PeerCanvas canvas(metafile);
    drawTable(canvas, rows);
    metafile.close(page);
}

bool sheetsAgree(int rows)
{
    constexpr double Allowed = 0.05; // hatches begin elsewhere; an empty sheet differs by three times as much
    std::string page;
    std::string peerPage;
    recordSurfaceTable(rows, page);
    recordPeerTable(rows, peerPage);
    const std::unique_ptr<TableSheet> device = makeDeviceSheet();
    device->draw(rows);
    struct Other {
        const char* name;
        std::unique_ptr<TableSheet> sheet;
    };
    Other others[] = {{"cairo's sheet", makeCairoSheet(false)},
                      {"the metafile", std::make_unique<PlayedSheet>(page)},
                      {"libEMF's metafile", std::make_unique<PlayedSheet>(peerPage)}};
    bool agree = true;
    for (Other& other : others) {
        other.sheet->draw(rows);
        const double share = difference(*device, *other.sheet);
        if (share > Allowed) {
            std::cerr << other.name << " differs from the surface's in " << 100 * share
                      << " % of its pixels\n";
            agree = false;
        }
    }
    return agree;
}

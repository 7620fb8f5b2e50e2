#include "exhaustion/DrawnPage.h"

#include <array>
#include <cstdint>
#include <optional>

#include <expat.h>
#include <gdidevice.h>

#include "support/MetafileRecords.h"
#include "support/PixelPage.h"
#include "support/Runs.h"
#include "support/bitmapFile.h"
#include "surfaceEMF.h"
#include "surfaceHdc.h"
#include "surfacePSPrinter.h"
#include "surfaceSVG.h"

namespace {

RECT box{40, 50, 340, 150};
std::array<POINT, 5> corners{{{10, 10}, {90, 20}, {70, 80}, {30, 95}, {5, 40}}};
constexpr unsigned int Corners = 5;

template <typename Surface>
void onlyOn(CSurface& surface, void (*run)(Surface&))
{
    if (auto* const own = dynamic_cast<Surface*>(&surface)) {
        run(*own);
    }
}

void include(CSurface& s, unsigned int id, std::size_t bits, int type)
{
    std::string file = bitmapOf(std::string(4 * bits, '\x5A'), bits, 4);
    s.includeImage(id, reinterpret_cast<unsigned char*>(file.data()), static_cast<int>(file.size()), 8, 4,
                   type);
}

void choosePicture(CSurface& s, int picture)
{
    CSurfaceBrush brush(0xFF);
    brush.setPicture(picture);
    s.setBrush(&brush);
}

void drawRuns(CSurface& s, unsigned int flags)
{
    Runs runs{run("Total <1> & 2, ", {50, 60}), run("underlined", {0, 0}, true, 120, true),
              run("second line", {50, 100}, false, 80)};
    auto pointers = pointersTo(runs);
    s.drawString(&pointers, &box, static_cast<int>(flags));
}

void setStyle(CSurface& s, unsigned long color, int charAngle, int textAngle)
{
    CTextStyle style(color, 0, charAngle, textAngle);
    s.setTextStyle(&style);
}

void setFont(CSurface& s, float size, bool bold)
{
    char face[] = "Liberation Sans";
    s.setFont(face, size, bold, false, bold, !bold);
}

const std::string LongText(3000, 'w');

class SvgSheet : public Sheet {
public:
    CSurface& surface() override { return m_surface; }

private:
    RECT m_paper{0, 0, 210, 297};
    RECT m_page{0, 0, 794, 1123};
    CSurfaceSVG m_surface{&m_paper, &m_page};
};

class PostScriptSheet : public Sheet {
public:
    PostScriptSheet()
    {
        m_surface.m_width = 794;
        m_surface.m_height = 1123;
        m_surface.m_pageWidth = 210;
        m_surface.m_pageHeight = 297;
    }
    CSurface& surface() override { return m_surface; }

private:
    CSurfacePSPrinter m_surface{0, 0};
};

// A surface leaves a font in its context that it no longer knows when turned text came last. That is no fault of a
// failure, and the one who brought the context deletes it.
class MetafileSheet : public Sheet {
public:
    MetafileSheet() { m_surface.emplace(&m_frame); }
    ~MetafileSheet() override
    {
        const HGDIOBJ font = m_surface->m_leftFont;
        m_surface.reset();
        DeleteObject(font);
    }
    CSurface& surface() override { return *m_surface; }

private:
    class Recording : public CSurfaceEMF {
    public:
        using CSurfaceEMF::CSurfaceEMF;
        int closeSurface() override
        {
            m_leftFont = getHDC() != nullptr ? GetCurrentObject(getHDC(), OBJ_FONT) : m_leftFont;
            return CSurfaceEMF::closeSurface();
        }
        HGDIOBJ m_leftFont = nullptr;
    };
    RECT m_frame{0, 0, 21000, 29700};
    std::optional<Recording> m_surface;
};

class PixelSheet : public Sheet {
public:
    PixelSheet() { m_surface.emplace(m_device); }
    ~PixelSheet() override
    {
        m_surface.reset();
        DeleteObject(GetCurrentObject(m_device, OBJ_FONT));
        DeleteDC(m_device);
    }
    CSurface& surface() override { return *m_surface; }

private:
    static HDC newDevice()
    {
        GdiDeviceOptions options;
        options.width = 400;
        options.height = 300;
        return gdiCreateDevice(&options);
    }
    HDC m_device = newDevice();
    std::optional<CSurfaceHdc> m_surface;
};

template <typename Kind>
std::unique_ptr<Sheet> make()
{
    return std::make_unique<Kind>();
}

std::string faultOfSvg(const std::string& page)
{
    const XML_Parser parser = XML_ParserCreate("ISO-8859-1");
    std::string fault;
    if (XML_Parse(parser, page.data(), static_cast<int>(page.size()), 1) != XML_STATUS_OK) {
        fault = XML_ErrorString(XML_GetErrorCode(parser)) +
                (" in line " + std::to_string(XML_GetCurrentLineNumber(parser)));
    }
    XML_ParserFree(parser);
    return fault;
}

std::size_t countOf(const std::string& word, const std::string& page)
{
    std::size_t count = 0;
    for (std::size_t at = page.find(word); at != std::string::npos; at = page.find(word, at + 1)) {
        ++count;
    }
    return count;
}

std::string faultOfDocument(const std::string& page)
{
    if (!page.starts_with("%!PS-Adobe-3.0\n") || !page.ends_with("\nshowpage\n\n")) {
        return "no head or no end";
    }
    const std::string drawn = page.substr(page.rfind(" scale\n\n"));
    constexpr std::size_t Nested = 1; // the steps set a second transform inside the first
    return countOf("gsave", drawn) <= countOf("grestore", drawn) + Nested ? "" : "a state is left open";
}

std::string faultOfMetafile(const std::string& page)
{
    metafileRecords(std::vector<unsigned char>(page.begin(), page.end())); // expects by itself
    const HENHMETAFILE metafile =
        SetEnhMetaFileBits(static_cast<UINT>(page.size()), reinterpret_cast<const BYTE*>(page.data()));
    const PixelPage device(40, 30);
    const RECT target{0, 0, 40, 30};
    const bool played = PlayEnhMetaFile(device.context(), metafile, &target) != FALSE;
    DeleteEnhMetaFile(metafile);
    return played ? "" : "it does not play";
}

std::string faultOfNothing(const std::string& page)
{
    return page.empty() ? "" : "bytes";
}

} // namespace

const std::vector<Step> PageSteps{
    {"setFont",
     [](CSurface& s) {
         setFont(s, 10, false);
     }},
    {"drawString",
     [](CSurface& s) {
         s.drawString("A & B <c>\nsecond", &box, 0);
     }},
    {"setTextColor",
     [](CSurface& s) {
         s.setTextColor(0x0000C0);
     }},
    {"drawText",
     [](CSurface& s) {
         s.drawText("centred", &box, 0x25);
     }},
    {"drawTextAt",
     [](CSurface& s) {
         s.drawTextAt(LongText.c_str(), corners.data(), 0);
     }},
    {"setPen",
     [](CSurface& s) {
         s.setPen(0x00FF00, 1, 3);
     }},
    {"setBrush",
     [](CSurface& s) {
         s.setBrush(0xFF0000, 0);
     }},
    {"drawRectangle",
     [](CSurface& s) {
         s.drawRectangle(&box);
     }},
    {"hatch",
     [](CSurface& s) {
         s.setBrush(0x0000FF, 6);
     }},
    {"drawRoundedRectangle",
     [](CSurface& s) {
         s.drawRoundedRectangle(&box, 12, 14);
     }},
    {"ellipse",
     [](CSurface& s) {
         s.ellipse(&box);
     }},
    {"setClippingRegion",
     [](CSurface& s) {
         s.setClippingRegion(&box);
     }},
    {"drawLine",
     [](CSurface& s) {
         s.drawLine(1, 2, 300, 400);
     }},
    {"another clip",
     [](CSurface& s) {
         s.setClippingRegion(&box);
     }},
    {"a font inside the clip",
     [](CSurface& s) {
         setFont(s, 14, true);
     }},
    {"setTransform",
     [](CSurface& s) {
         s.setTransform(1, 0.5F, -0.5F, 1, 10, 20);
     }},
    {"polygon",
     [](CSurface& s) {
         s.polygon(corners.data(), Corners);
     }},
    {"another transform",
     [](CSurface& s) {
         s.setTransform(1, 0, 0, 1, 5, 5);
     }},
    {"polyline",
     [](CSurface& s) {
         s.polyline(corners.data(), Corners);
     }},
    {"a clip inside the transform",
     [](CSurface& s) {
         s.setClippingRegion(&box);
     }},
    {"clearTransform",
     [](CSurface& s) {
         s.clearTransform();
     }},
    {"no clip",
     [](CSurface& s) {
         s.setClippingRegion(nullptr);
     }},
    {"solidPolygon",
     [](CSurface& s) {
         s.solidPolygon(corners.data(), Corners, 0x123456);
     }},
    {"drawSolidRectangle",
     [](CSurface& s) {
         s.drawSolidRectangle(&box, 0x654321);
     }},
    {"frameRect",
     [](CSurface& s) {
         s.frameRect(&box, 0x808080);
     }},
    {"drawFocusRect",
     [](CSurface& s) {
         s.drawFocusRect(&box);
     }},
    {"drawArc",
     [](CSurface& s) {
         s.drawArc(&box, 300, 60, 50, 140);
     }},
    {"drawChord",
     [](CSurface& s) {
         s.drawChord(&box, 300, 60, 50, 140);
     }},
    {"drawPie",
     [](CSurface& s) {
         s.drawPie(&box, 300, 60, 50, 140);
     }},
    {"floodFill",
     [](CSurface& s) {
         s.floodFill(3, 4, 0x00FFFF, 1);
     }},
    {"includeImage",
     [](CSurface& s) {
         include(s, 3, 24, 1);
     }},
    {"includeImage with alpha",
     [](CSurface& s) {
         include(s, 4, 32, 1);
     }},
    {"natural image",
     [](CSurface& s) {
         s.drawImage(&box, 3, 0, 2, 3);
     }},
    {"scaled image",
     [](CSurface& s) {
         s.drawImage(&box, 4, 1, 0, 0);
     }},
    {"tiled image",
     [](CSurface& s) {
         s.drawImage(&box, 3, 2, 1, 1);
     }},
    {"picture brush",
     [](CSurface& s) {
         choosePicture(s, 3);
     }},
    {"filled with it",
     [](CSurface& s) {
         s.drawRectangle(&box);
     }},
    {"picture brush of later",
     [](CSurface& s) {
         choosePicture(s, 5);
     }},
    {"filled before it comes",
     [](CSurface& s) {
         s.drawPie(&box, 300, 60, 50, 140);
     }},
    {"its picture",
     [](CSurface& s) {
         include(s, 5, 24, 1);
     }},
    {"hollow brush",
     [](CSurface& s) {
         s.setBrush(0, 1);
     }},
    {"runs",
     [](CSurface& s) {
         drawRuns(s, 0);
     }},
    {"centred runs",
     [](CSurface& s) {
         drawRuns(s, 1);
     }},
    {"turned style",
     [](CSurface& s) {
         setStyle(s, 0x00C000, 30, 30);
     }},
    {"turned runs",
     [](CSurface& s) {
         drawRuns(s, 0);
     }},
    {"turned string",
     [](CSurface& s) {
         s.drawString("turned", &box, 0);
     }},
    {"upright letters",
     [](CSurface& s) {
         setStyle(s, 0xC0, 0, 90);
     }},
    {"upright string",
     [](CSurface& s) {
         s.drawString("upright", &box, 2);
     }},
    {"plain style",
     [](CSurface& s) {
         setStyle(s, 0, 0, 0);
     }},
    {"drawTextOnBaseLine",
     [](CSurface& s) {
         char text[] = "base & line";
         s.drawTextOnBaseLine(20, 400, 4, &box, text, 8);
     }},
    {"drawStringRotated",
     [](CSurface& s) {
         s.drawStringRotated("r", &box, 0, 10, 10);
     }},
    {"path of a rectangle",
     [](CSurface& s) {
         onlyOn<CSurfaceSVG>(s, [](CSurfaceSVG& page) { page.drawPath(&box, true); });
     }},
    {"path of points",
     [](CSurface& s) {
         onlyOn<CSurfaceSVG>(s, [](CSurfaceSVG& page) { page.drawPath(corners.data(), Corners, false); });
     }},
    {"erased on SVG",
     [](CSurface& s) {
         onlyOn<CSurfaceSVG>(s, [](CSurfaceSVG& page) { page.drawEraseRectangle(&box, 0xFFFFFF); });
     }},
    {"erased on PostScript",
     [](CSurface& s) {
         onlyOn<CSurfacePSPrinter>(s,
                                   [](CSurfacePSPrinter& page) { page.drawEraseRectangle(&box, 0xFFFFFF); });
     }},
    {"page count mark",
     [](CSurface& s) {
         if (dynamic_cast<CSurfaceHdc*>(&s) == nullptr) {
             s.printerNofMMarker(POINT{40, 340});
         }
     }},
    {"page count",
     [](CSurface& s) {
         s.drawString("#             ", &box, 0);
     }},
    {"last font",
     [](CSurface& s) {
         setFont(s, 9, false);
     }},
    {"last string",
     [](CSurface& s) {
         s.drawString("last", &box, 0);
     }},
};

const Target SvgTarget{"SVG", make<SvgSheet>, faultOfSvg, false, true};
const Target PostScriptTarget{"PostScript", make<PostScriptSheet>, faultOfDocument, false, true};
const Target MetafileTarget{"metafile", make<MetafileSheet>, faultOfMetafile, true, false};
const Target PixelTarget{"pixels", make<PixelSheet>, faultOfNothing, false, false};

std::string bytesOf(CSurface& surface)
{
    std::string page(static_cast<std::size_t>(surface.getDataLength()), '\0');
    unsigned int size = static_cast<unsigned int>(page.size());
    surface.getData(reinterpret_cast<unsigned char*>(page.data()), size);
    return page;
}

std::string drawnWithout(const Target& target, int left)
{
    const std::unique_ptr<Sheet> sheet = target.make();
    for (int i = 0; i < static_cast<int>(PageSteps.size()); ++i) {
        if (i != left) {
            PageSteps[static_cast<std::size_t>(i)].run(sheet->surface());
        }
    }
    sheet->surface().closeSurface();
    return bytesOf(sheet->surface());
}

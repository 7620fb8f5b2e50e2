#include "drawings.h"

#include <cstring>
#include <iterator>
#include <vector>

#include "support/PixelPage.h"
#include "surfaceHdc.h"

namespace {

void usePen(HDC d, int style, int width, COLORREF color)
{
    use(d, CreatePen(style, width, color));
}

void useBrush(HDC d, COLORREF color)
{
    use(d, CreateSolidBrush(color));
}

void useNoPen(HDC d)
{
    SelectObject(d, GetStockObject(NULL_PEN));
}

void useFont(HDC d, LONG height, LONG angle = 0, bool underlined = false)
{
    LOGFONTA font{};
    font.lfHeight = height;
    font.lfEscapement = font.lfOrientation = angle;
    font.lfUnderline = underlined ? 1 : 0;
    std::strcpy(font.lfFaceName, "Liberation Sans");
    use(d, CreateFontIndirectA(&font));
}

template <std::size_t Count>
void polygon(HDC d, const POINT (&points)[Count])
{
    Polygon(d, points, static_cast<int>(Count));
}

constexpr POINT Star[] = {{32, 2}, {46, 44}, {8, 18}, {56, 18}, {18, 44}};
constexpr POINT Zigzag[] = {{4, 40}, {16, 6}, {28, 40}, {40, 6}, {58, 30}};

// Eight by eight pixels, a diagonal of blue on red, green at the start.
HBITMAP makePicture(HDC d)
{
    const HBITMAP bitmap = CreateCompatibleBitmap(d, 8, 8);
    const HDC memory = CreateCompatibleDC(d);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    for (int i = 0; i < 64; ++i) {
        SetPixelV(memory, i % 8, i / 8, i == 0 ? Green : i % 8 == i / 8 ? Blue : Red);
    }
    SelectObject(memory, before);
    DeleteDC(memory);
    return bitmap;
}

// The same picture in a context of its own, for copies.
class PictureContext {
public:
    explicit PictureContext(HDC d, HBITMAP bitmap) : m_context(CreateCompatibleDC(d)), m_bitmap(bitmap)
    {
        m_before = SelectObject(m_context, bitmap);
    }
    PictureContext(const PictureContext&) = delete;
    PictureContext& operator=(const PictureContext&) = delete;
    ~PictureContext()
    {
        SelectObject(m_context, m_before);
        DeleteObject(m_bitmap);
        DeleteDC(m_context);
    }
    HDC context() const { return m_context; }

private:
    HDC m_context;
    HBITMAP m_bitmap;
    HGDIOBJ m_before;
};

HBITMAP makeMask()
{
    constexpr BYTE Rows[] = {0xF0, 0, 0xF0, 0, 0xCC, 0, 0xCC, 0, 0x0F, 0, 0x0F, 0, 0x81, 0, 0xFF, 0};
    return CreateBitmap(8, 8, 1, 1, Rows);
}

// A bitmap of 24 bits from memory, its rows from the bottom: four by two, red, green, blue, white, then black to yellow.
struct MemoryPicture {
    BITMAPINFOHEADER head{40, 4, 2, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    BYTE rows[24] = {0, 0, 255, 0, 255, 0, 255, 0, 0,   255, 255, 255,
                     0, 0, 0,   0, 0,   0, 0,   0, 255, 0,   255, 255};
    const BITMAPINFO* info() const { return reinterpret_cast<const BITMAPINFO*>(&head); }
};

void shapesOfHatches(HDC d)
{
    for (int style = HS_HORIZONTAL; style <= HS_DIAGCROSS; ++style) {
        use(d, CreateHatchBrush(style, Blue));
        const int x = style % 3 * 21;
        const int y = style / 3 * 24;
        Rectangle(d, x, y, x + 20, y + 23);
    }
}

void strokeOfStyle(HDC d, DWORD style)
{
    use(d, geometricPen(style, 7, Black));
    Polyline(d, Zigzag, 3);
    line(d, {36, 40}, {58, 40});
    const POINT triangle[] = {{40, 8}, {56, 8}, {48, 24}};
    polygon(d, triangle);
}

constexpr SideBySideDrawing Drawings[] = {
    {"rectangle",
     [](HDC d) {
         useBrush(d, Red);
         Rectangle(d, 4, 4, 40, 30);
         Rectangle(d, 60, 44, 20, 20);
     },
     false, true},
    {"rectangle without a pen",
     [](HDC d) {
         useNoPen(d);
         useBrush(d, Red);
         Rectangle(d, 4, 4, 40, 30);
     }},
    {"rectangle in advanced mode",
     [](HDC d) {
         SetGraphicsMode(d, GM_ADVANCED);
         useBrush(d, Red);
         Rectangle(d, 4, 4, 40, 30);
     }},
    {"ellipse",
     [](HDC d) {
         useBrush(d, Yellow);
         Ellipse(d, 3, 3, 61, 45);
     },
     false, true},
    {"ellipse without a pen",
     [](HDC d) {
         useNoPen(d);
         useBrush(d, Red);
         Ellipse(d, 3, 3, 61, 45);
     }},
    {"round rectangle",
     [](HDC d) {
         useBrush(d, Green);
         RoundRect(d, 3, 3, 61, 45, 20, 14);
     },
     false, true},
    {"arc",
     [](HDC d) {
         Arc(d, 3, 3, 61, 45, 61, 20, 10, 3);
     }},
    {"arc clockwise",
     [](HDC d) {
         SetArcDirection(d, AD_CLOCKWISE);
         Arc(d, 3, 3, 61, 45, 61, 20, 10, 3);
     }},
    {"chord",
     [](HDC d) {
         useBrush(d, Red);
         Chord(d, 3, 3, 61, 45, 61, 20, 10, 3);
     },
     false, true},
    {"pie",
     [](HDC d) {
         useBrush(d, Red);
         Pie(d, 3, 3, 61, 45, 61, 20, 10, 3);
     },
     false, true},
    {"angle arc",
     [](HDC d) {
         MoveToEx(d, 32, 24, nullptr);
         AngleArc(d, 32, 24, 20, 30, 200);
     }},
    {"thin lines",
     [](HDC d) {
         const POINT ends[] = {{63, 10}, {63, 47}, {40, 47}, {20, 47}, {2, 47}, {63, 1}};
         for (const POINT& end : ends) {
             line(d, {1, 1}, end);
         }
     },
     false, true},
    {"polyline",
     [](HDC d) {
         Polyline(d, Zigzag, 5);
     }},
    {"wide polyline",
     [](HDC d) {
         usePen(d, PS_SOLID, 5, Blue);
         Polyline(d, Zigzag, 5);
     }},
    {"polygon alternate",
     [](HDC d) {
         useBrush(d, Red);
         polygon(d, Star);
     },
     false, true},
    {"polygon winding",
     [](HDC d) {
         SetPolyFillMode(d, WINDING);
         useBrush(d, Red);
         polygon(d, Star);
     }},
    {"polygons",
     [](HDC d) {
         useBrush(d, Yellow);
         const POINT points[] = {{4, 4}, {60, 4}, {60, 44}, {4, 44}, {20, 12}, {44, 12}, {32, 36}};
         const INT counts[] = {4, 3};
         PolyPolygon(d, points, counts, 2);
     },
     false, true},
    {"curve",
     [](HDC d) {
         const POINT points[] = {{2, 40}, {10, -20}, {40, 70}, {60, 6}};
         PolyBezier(d, points, 4);
     }},
    {"pen widths",
     [](HDC d) {
         for (int width = 1; width <= 6; ++width) {
             usePen(d, PS_SOLID, width, Black);
             line(d, {6, width * 7}, {56, width * 7});
         }
     }},
    {"pen styles",
     [](HDC d) {
         for (int style = 0; style <= 4; ++style) { // PS_SOLID to PS_DASHDOTDOT
             usePen(d, style, 1, Black);
             line(d, {0, 4 + style * 8}, {64, 4 + style * 8});
         }
     }},
    {"pen styles over a background",
     [](HDC d) {
         SetBkMode(d, TRANSPARENT);
         for (int style = 0; style <= 4; ++style) { // PS_SOLID to PS_DASHDOTDOT
             usePen(d, style, 1, Red);
             line(d, {0, 4 + style * 8}, {64, 8 + style * 8});
         }
     }},
    {"flat ends, mitred",
     [](HDC d) {
         strokeOfStyle(d, PS_SOLID | PS_ENDCAP_FLAT | PS_JOIN_MITER);
     }},
    {"square ends, bevelled",
     [](HDC d) {
         strokeOfStyle(d, PS_SOLID | PS_ENDCAP_SQUARE | PS_JOIN_BEVEL);
     }},
    {"round ends and joins",
     [](HDC d) {
         strokeOfStyle(d, PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND);
     }},
    {"dashes of a wide pen",
     [](HDC d) {
         use(d, geometricPen(PS_DASH | PS_ENDCAP_FLAT, 4, Black));
         line(d, {2, 10}, {62, 10});
         use(d, geometricPen(PS_DASHDOT | PS_ENDCAP_FLAT, 4, Black));
         line(d, {2, 30}, {62, 30});
     }},
    {"pen inside a frame",
     [](HDC d) {
         useBrush(d, Yellow);
         usePen(d, PS_INSIDEFRAME, 6, Blue);
         Rectangle(d, 4, 4, 60, 44);
     }},
    {"hatches, opaque",
     [](HDC d) {
         SetBkColor(d, Yellow);
         shapesOfHatches(d);
     },
     false, true},
    {"hatches, transparent",
     [](HDC d) {
         RECT all{0, 20, 64, 30};
         FillRect(d, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
         SetBkMode(d, TRANSPARENT);
         shapesOfHatches(d);
     }},
    {"brush origin",
     [](HDC d) {
         SetBrushOrgEx(d, 3, 5, nullptr);
         shapesOfHatches(d);
     }},
    {"picture brush",
     [](HDC d) {
         const HBITMAP picture = makePicture(d);
         use(d, CreatePatternBrush(picture));
         Rectangle(d, 4, 4, 60, 44);
         DeleteObject(picture);
     }},
    {"picture brush of one bit",
     [](HDC d) {
         const HBITMAP mask = makeMask();
         SetTextColor(d, Red);
         SetBkColor(d, Yellow);
         use(d, CreatePatternBrush(mask));
         Rectangle(d, 4, 4, 60, 44);
         DeleteObject(mask);
     },
     false, true},
    {"filled and framed rectangles",
     [](HDC d) {
         const HBRUSH brush = CreateSolidBrush(Red);
         const RECT filled{2, 2, 30, 20};
         const RECT framed{34, 2, 62, 20};
         FillRect(d, &filled, brush);
         FrameRect(d, &framed, brush);
         DeleteObject(brush);
         useBrush(d, Blue);
         PatBlt(d, 2, 24, 20, 20, PATCOPY);
         PatBlt(d, 10, 10, 30, 24, PATINVERT);
         PatBlt(d, 20, 16, 30, 24, DSTINVERT);
     }},
    {"binary operations",
     [](HDC d) {
         useBrush(d, Yellow);
         Rectangle(d, 0, 12, 64, 36);
         usePen(d, PS_SOLID, 3, Red);
         for (int operation = R2_BLACK; operation <= R2_WHITE; ++operation) {
             SetROP2(d, operation);
             line(d, {operation * 4 - 2, 2}, {operation * 4 - 2, 46});
         }
     }},
    {"clip",
     [](HDC d) {
         IntersectClipRect(d, 10, 8, 50, 40);
         ExcludeClipRect(d, 20, 16, 30, 30);
         useBrush(d, Red);
         Ellipse(d, 3, 3, 61, 45);
     },
     false, true},
    {"clip by a polygon",
     [](HDC d) {
         const HRGN region = CreatePolygonRgn(Star, 5, WINDING);
         SelectClipRgn(d, region);
         DeleteObject(region);
         useBrush(d, Blue);
         Rectangle(d, 0, 0, 64, 48);
     }},
    {"clip by a path",
     [](HDC d) {
         BeginPath(d);
         Ellipse(d, 6, 6, 58, 42);
         EndPath(d);
         SelectClipPath(d, RGN_COPY);
         useBrush(d, Green);
         Rectangle(d, 0, 0, 64, 48);
     }},
    {"region",
     [](HDC d) {
         const HRGN region = CreatePolygonRgn(Star, 5, ALTERNATE);
         const HBRUSH brush = CreateSolidBrush(Red);
         FillRgn(d, region, brush);
         DeleteObject(brush);
         DeleteObject(region);
     }},
    {"path",
     [](HDC d) {
         BeginPath(d);
         MoveToEx(d, 6, 6, nullptr);
         LineTo(d, 40, 6);
         const POINT curve[] = {{60, 6}, {60, 42}, {40, 42}};
         PolyBezierTo(d, curve, 3);
         LineTo(d, 6, 42);
         CloseFigure(d);
         EndPath(d);
         useBrush(d, Yellow);
         usePen(d, PS_SOLID, 3, Blue);
         StrokeAndFillPath(d);
     },
     false, true},
    {"path of lines that leave the position",
     [](HDC d) {
         BeginPath(d);
         MoveToEx(d, 6, 40, nullptr);
         Polyline(d, Zigzag, 3);
         LineTo(d, 6, 6);
         LineTo(d, 30, 6);
         EndPath(d);
         useBrush(d, Yellow);
         StrokeAndFillPath(d);
     }},
    {"scaled page",
     [](HDC d) {
         SetMapMode(d, MM_ANISOTROPIC);
         SetWindowExtEx(d, 32, 16, nullptr);
         SetViewportExtEx(d, 64, 48, nullptr);
         useBrush(d, Red);
         Rectangle(d, 2, 2, 20, 10);
         usePen(d, PS_SOLID, 2, Blue);
         Ellipse(d, 12, 6, 30, 15);
     }},
    {"page with y upward",
     [](HDC d) {
         SetMapMode(d, MM_ANISOTROPIC);
         SetWindowExtEx(d, 64, 48, nullptr);
         SetViewportExtEx(d, 64, -48, nullptr);
         SetViewportOrgEx(d, 0, 48, nullptr);
         useBrush(d, Red);
         Pie(d, 4, 4, 60, 44, 60, 24, 32, 44);
     }},
    {"page of one unit to the pixel on both axes",
     [](HDC d) {
         SetMapMode(d, MM_ISOTROPIC);
         SetWindowExtEx(d, 100, 100, nullptr);
         SetViewportExtEx(d, 64, 48, nullptr);
         useBrush(d, Green);
         Rectangle(d, 5, 5, 95, 95);
     }},
    {"turned rectangle",
     [](HDC d) {
         SetGraphicsMode(d, GM_ADVANCED);
         const XFORM turn{0.8F, 0.6F, -0.6F, 0.8F, 24, -6};
         SetWorldTransform(d, &turn);
         useBrush(d, Red);
         Rectangle(d, 6, 12, 40, 36);
     }},
    {"copied picture",
     [](HDC d) {
         const PictureContext source(d, makePicture(d));
         BitBlt(d, 5, 6, 8, 8, source.context(), 0, 0, SRCCOPY);
         BitBlt(d, 20, 6, 30, 30, source.context(), -4, -4, SRCCOPY);
     }},
    {"stretched picture",
     [](HDC d) {
         const PictureContext source(d, makePicture(d));
         StretchBlt(d, 4, 4, 40, 40, source.context(), 0, 0, 8, 8, SRCCOPY);
     },
     false, true},
    {"mirrored picture",
     [](HDC d) {
         const PictureContext source(d, makePicture(d));
         StretchBlt(d, 60, 44, -40, -40, source.context(), 0, 0, 8, 8, SRCCOPY);
     }},
    {"picture made smaller",
     [](HDC d) {
         SetStretchBltMode(d, COLORONCOLOR);
         const PictureContext source(d, makePicture(d));
         StretchBlt(d, 4, 4, 4, 4, source.context(), 0, 0, 8, 8, SRCCOPY);
         StretchBlt(d, 20, 4, 5, 30, source.context(), 0, 0, 8, 8, SRCCOPY);
     }},
    {"masked picture",
     [](HDC d) {
         useBrush(d, Yellow);
         Rectangle(d, 0, 0, 64, 48);
         const PictureContext source(d, makePicture(d));
         const PictureContext mask(d, makeMask());
         SetTextColor(d, Black);
         SetBkColor(d, White);
         StretchBlt(d, 4, 4, 32, 32, source.context(), 0, 0, 8, 8, SRCINVERT);
         StretchBlt(d, 4, 4, 32, 32, mask.context(), 0, 0, 8, 8, SRCAND);
         StretchBlt(d, 4, 4, 32, 32, source.context(), 0, 0, 8, 8, SRCINVERT);
     }},
    {"picture from memory",
     [](HDC d) {
         const MemoryPicture picture;
         StretchDIBits(d, 4, 4, 48, 24, 0, 0, 4, 2, picture.rows, picture.info(), DIB_RGB_COLORS, SRCCOPY);
     },
     false, true},
    {"part of a picture from memory",
     [](HDC d) {
         const MemoryPicture picture;
         StretchDIBits(d, 4, 4, 48, 24, 1, 0, 2, 1, picture.rows, picture.info(), DIB_RGB_COLORS, SRCCOPY);
     }},
    {"flood",
     [](HDC d) {
         Rectangle(d, 4, 4, 60, 44);
         useBrush(d, Red);
         Ellipse(d, 20, 10, 44, 38);
         useBrush(d, Blue);
         ExtFloodFill(d, 8, 8, White, FLOODFILLSURFACE);
     }},
    {"edges",
     [](HDC d) {
         RECT box{4, 4, 60, 22};
         DrawEdge(d, &box, BDR_RAISEDOUTER | BDR_RAISEDINNER, BF_RECT);
         box = {4, 26, 60, 44};
         DrawEdge(d, &box, BDR_SUNKENOUTER | BDR_SUNKENINNER, BF_RECT | BF_MIDDLE);
     }},
    {"focus rectangle",
     [](HDC d) {
         const RECT box{4, 4, 59, 43};
         DrawFocusRect(d, &box);
     }},
    {"surface",
     [](HDC d) {
         CSurfaceHdc surface(d);
         surface.setPen(Red, PS_SOLID, 2);
         surface.setBrush(Green, 0);
         RECT box{4, 4, 40, 30};
         surface.drawRectangle(&box);
         box = {20, 16, 60, 44};
         surface.ellipse(&box);
         surface.drawLine(2, 46, 60, 2);
     }},
    {"text",
     [](HDC d) {
         useFont(d, -16);
         ExtTextOutA(d, 4, 4, 0, nullptr, "Hxg", 3, nullptr);
     },
     true, true},
    {"text by its base line, at the right",
     [](HDC d) {
         useFont(d, -16);
         SetTextAlign(d, TA_BASELINE | TA_RIGHT);
         ExtTextOutA(d, 60, 30, 0, nullptr, "Hxg", 3, nullptr);
     },
     true},
    {"text upward",
     [](HDC d) {
         useFont(d, -16, 900);
         ExtTextOutA(d, 20, 44, 0, nullptr, "Hxg", 3, nullptr);
     },
     true},
    {"text on its background",
     [](HDC d) {
         useFont(d, -16);
         SetBkColor(d, Yellow);
         ExtTextOutA(d, 8, 8, 0, nullptr, "Hxg", 3, nullptr);
     },
     true},
    {"underlined text",
     [](HDC d) {
         useFont(d, -20, 0, true);
         SetBkMode(d, TRANSPARENT);
         ExtTextOutA(d, 4, 8, 0, nullptr, "nnn", 3, nullptr);
     },
     true},
    {"text with given steps",
     [](HDC d) {
         useFont(d, -16);
         const INT steps[] = {20, 20, 10};
         ExtTextOutA(d, 2, 4, 0, nullptr, "HHH", 3, steps);
     },
     true},
    {"clipped text",
     [](HDC d) {
         useFont(d, -30);
         const RECT clip{10, 10, 50, 30};
         ExtTextOutA(d, 2, 2, ETO_CLIPPED | ETO_OPAQUE, &clip, "HHH", 3, nullptr);
     },
     true},
    {"text box",
     [](HDC d) {
         useFont(d, -11);
         RECT box{2, 2, 62, 46};
         DrawTextA(d, "four words in lines", -1, &box, DT_WORDBREAK | DT_CENTER);
     },
     true},
    {"surface's text",
     [](HDC d) {
         CSurfaceHdc surface(d);
         char face[] = "Liberation Sans";
         surface.setFont(face, 9, false, false, false, false);
         RECT box{2, 2, 62, 40};
         surface.drawText("Text", &box, DT_RIGHT);
     },
     true},
};

} // namespace

std::span<const SideBySideDrawing> sideBySideDrawings()
{
    return Drawings;
}

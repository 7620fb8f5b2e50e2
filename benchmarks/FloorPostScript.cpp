// The least that the table page can cost as a PostScript document: its bytes, appended piece by piece to one
// string. There is no surface, and no decision but those on pen and brush and on the colour and the line width
// that are set already. Checks.cpp sees to it that the result is the surface's page byte for byte.
#include <string_view>

#include "FloorPostScriptWriter.h"
#include "PostScriptPage.h"
#include "PostScriptProlog.h"
#include "TablePage.h"

namespace {

// More than any row writes.
constexpr std::size_t RoomPerRow = 2000;
constexpr std::size_t RoomForHead = 8000;

constexpr std::string_view HatchPatterns[HatchCount] = {" HatchHorizontal", " HatchVertical",
                                                        " HatchFDiagonal",  " HatchBDiagonal",
                                                        " HatchCross",      " HatchDiagCross"};

// Stands in for a surface in drawTable.
class FloorPostScript : public FloorPostScriptWriter {
public:
    using FloorPostScriptWriter::FloorPostScriptWriter;

    void setPen(unsigned long color, int /*style*/, int width)
    {
        m_penColor = color;
        m_penWidth = width;
    }

    void setBrush(unsigned long color, int style)
    {
        m_brushColor = color;
        m_brushStyle = style;
    }

    void drawRectangle(const RECT* rect)
    {
        writePlace(rect);
        if (m_brushStyle != HollowBrush) {
            write(" 4 copy");
            writeFill();
            write(" rectfill");
        }
        writePen();
        write(" rectstroke\n");
    }

    void drawLine(int x1, int y1, int x2, int y2)
    {
        writePen();
        write(" ");
        writePoint(x1, y1);
        write(" moveto ");
        writePoint(x2, y2);
        write(" lineto stroke\n");
    }

    void drawSolidRectangle(const RECT* rect, unsigned long color)
    {
        writeColor(color);
        write(" ");
        writePlace(rect);
        write(" solidrect\n");
    }

    void frameRect(const RECT* rect, unsigned long color)
    {
        writeColor(color);
        write(" ");
        writePlace(rect);
        write(" framerect\n");
    }

    void ellipse(const RECT* rect)
    {
        writePlainColor(m_penColor);
        write(m_penWidth, " setlinewidth ");
        writeEllipse(rect, " ellipse stroke ");
        if (m_brushStyle != HollowBrush) {
            writePlainColor(m_brushColor);
            writeEllipse(rect, " ellipse fill");
        }
        write("\n");
    }

    void polygon(const POINT* points, unsigned int count)
    {
        writePoints(points, count);
        write("closepath");
        if (m_brushStyle != HollowBrush) {
            const unsigned long outside = m_color;
            write(" gsave");
            writeFill();
            write(" fill grestore");
            m_color = outside;
        }
        writePen();
        write(" stroke\n");
    }

    void polyline(const POINT* points, unsigned int count)
    {
        writePoints(points, count);
        writePen();
        write(" stroke\n");
    }

private:
    void writePlace(const RECT* rect)
    {
        writePoint(rect->left, rect->top);
        writePoint(rect->right - rect->left, rect->bottom - rect->top);
    }

    void writePoints(const POINT* points, unsigned int count)
    {
        write(" newpath ");
        for (const POINT* point = points; point != points + count; ++point) {
            writePoint(point->x, point->y);
            write(point == points ? " moveto " : " lineto ");
        }
    }

    void writeEllipse(const RECT* rect, std::string_view paint)
    {
        const int rx = (rect->right - rect->left) / 2;
        const int ry = (rect->bottom - rect->top) / 2;
        writePoint(rect->left + rx, rect->top + ry);
        write(rx, " ", ry, " 0 360 ", paint);
    }

    void writePlainColor(unsigned long color)
    {
        if (m_color != color) {
            m_color = color;
            writeColor(color);
            write(" setrgbcolor ");
        }
    }

    void writePen()
    {
        if (m_color != m_penColor) {
            m_color = m_penColor;
            write(" ");
            writeColor(m_color);
            write(" setrgbcolor");
        }
        if (m_width != m_penWidth) {
            m_width = m_penWidth;
            write(" ", m_width, " setlinewidth");
        }
        write(" 1 setlinecap ", " 1 setlinejoin ");
    }

    void writeFill()
    {
        if (m_brushStyle == SolidBrush) {
            m_color = m_brushColor;
            write(" ");
            writeColor(m_color);
            write(" setrgbcolor ");
        } else {
            write("\n[/Pattern /DeviceRGB] setcolorspace ");
            writeColor(m_brushColor);
            write(HatchPatterns[m_brushStyle - FirstHatch], " setcolor ");
        }
    }

    unsigned long m_penColor = 0;
    int m_penWidth = 1;
    unsigned long m_brushColor = 0;
    int m_brushStyle = HollowBrush;
    unsigned long m_color = 0; // set last by the text
    int m_width = 1;
};

} // namespace

void makeFloorPostScript(int rows, std::string& page)
{
    page.clear();
    page.reserve(RoomForHead + static_cast<std::size_t>(rows) * RoomPerRow);
    FloorPostScript out(page);
    out.writeHead(tableBounds(rows));
    out.write(postscript::PostScriptProlog::jshow, postscript::PostScriptProlog::framerect,
              postscript::PostScriptProlog::solidrect, postscript::PostScriptProlog::ellipse,
              postscript::PostScriptProlog::hatch);
    drawTable(out, rows);
    out.write("\nshowpage\n\n");
}

// The least that the table page can cost: its bytes, appended piece by piece in the order of the document to
// one string. There is no surface, no buffer beside the string, and no decision but those on pen and brush. A
// writer that asks for the room of a whole element at once, not of each piece, can be faster than this.
// Checks.cpp sees to it that the result is the surface's page byte for byte.
#include <string_view>

#include "FloorWriter.h"
#include "TablePage.h"

namespace {

// More than any row writes, its pattern included.
constexpr std::size_t RoomPerRow = 3000;
constexpr std::size_t RoomForHead = 3000;

// Stands in for a surface in drawTable.
class FloorPage : public FloorWriter {
public:
    using FloorWriter::FloorWriter;

    void setPen(unsigned long color, int style, int width)
    {
        m_penColor = color;
        m_penStyle = style;
        m_penWidth = width;
    }

    void setBrush(unsigned long color, int style)
    {
        m_brushColor = color;
        m_brushStyle = style;
    }

    void drawRectangle(const RECT* rect)
    {
        writePlace("<rect", rect);
        write("'");
        writeFill();
        writePen();
        write(" />\n");
    }

    void drawLine(int x1, int y1, int x2, int y2)
    {
        write("<line x1='", x1, "' y1='", y1, "' x2='", x2, "' y2='", y2, "'");
        writePen();
        write(" />\n");
    }

    void drawSolidRectangle(const RECT* rect, unsigned long color)
    {
        writePlace("<use", rect);
        write("' xlink:href='#SolidRect' fill='", Rgb{color}, "'/>\n");
    }

    void frameRect(const RECT* rect, unsigned long color)
    {
        writePlace("<use", rect);
        write("' xlink:href='#FrameRect' stroke='", Rgb{color}, "'/>\n");
    }

    void ellipse(const RECT* rect)
    {
        const int rx = (rect->right - rect->left) / 2;
        const int ry = (rect->bottom - rect->top) / 2;
        write("<ellipse cx='", rect->left + rx, "' cy='", rect->top + ry, "' rx='", rx, "' ry='", ry, "' ");
        writeFill();
        writePen();
        write(" />\n");
    }

    void polygon(const POINT* points, unsigned int count)
    {
        writePoints("<polygon points='", points, count);
        writePen();
        writeFill();
        write(" />");
    }

    void polyline(const POINT* points, unsigned int count)
    {
        writePoints("<polyline points='", points, count);
        writePen();
        write(" />");
    }

private:
    void writePlace(std::string_view tag, const RECT* rect)
    {
        write(tag, " x='", rect->left, "' y='", rect->top, "' width='", rect->right - rect->left,
              "' height='", rect->bottom - rect->top);
    }

    void writePoints(std::string_view head, const POINT* points, unsigned int count)
    {
        write(head);
        for (const POINT* point = points; point != points + count; ++point) {
            write(point->x, ",", point->y, " ");
        }
        write("'");
    }

    void writePen()
    {
        write(" tovo:penStyle='", m_penStyle, "' ", " stroke='", Rgb{m_penColor}, "' stroke-width='",
              m_penWidth, "' ");
        if (m_penStyle == DashedPen) {
            write("stroke-dasharray='", 3 * m_penWidth, ",", m_penWidth, "' ");
        } else {
            write("stroke-linecap='round' ", "stroke-linejoin='round' ");
        }
    }

    void writeFill()
    {
        if (m_brushStyle == SolidBrush) {
            write(" fill='", Rgb{m_brushColor}, "' ");
        } else if (m_brushStyle == HollowBrush) {
            write(" fill='none' ");
        } else {
            write(" fill='url(#pattern", ++m_patternsUsed, ")' ");
        }
    }

    unsigned long m_penColor = 0;
    int m_penStyle = SolidPen;
    int m_penWidth = 1;
    unsigned long m_brushColor = 0;
    int m_brushStyle = HollowBrush;
    int m_patternsUsed = 0;
};

constexpr std::string_view HatchNames[HatchCount] = {"HatchHorizontal", "HatchVertical", "HatchFDiagonal",
                                                     "HatchBDiagonal",  "HatchCross",    "HatchDiagCross"};

constexpr std::string_view Symbols =
    "\t<symbol id='FrameRect'><rect x='0' y='0' width='100%' height='100%' fill='none' stroke-width='1'/>"
    "</symbol>\n"
    "\t<symbol id='SolidRect'><rect x='0' y='0' width='100%' height='100%'/></symbol>\n";

// In the order of hatchNames.
constexpr std::string_view HatchLines[HatchCount] = {
    "\t<line x1='0' y1='4' x2='9' y2='4'/>",
    "\t<line x1='4' y1='0' x2='4' y2='9'/>",
    "\t<line x1='0' y1='0' x2='9' y2='9'/>",
    "\t<line x1='9' y1='0' x2='0' y2='9'/>",
    "\t<line x1='0' y1='4' x2='9' y2='4'/>\t<line x1='4' y1='0' x2='4' y2='9'/>",
    "\t<line x1='0' y1='0' x2='9' y2='9'/>\t<line x1='9' y1='0' x2='0' y2='9'/>",
};

void writeDefinitions(FloorPage& out, int rows)
{
    out.write("<defs>\n");
    for (int row = 0; row < rows; ++row) {
        out.write("<pattern id='pattern", row + 1, "' stroke='", Rgb{hatchColor(row)}, "' xlink:href='#",
                  HatchNames[row % HatchCount], "'></pattern>\n");
    }
    out.write("\n", Symbols);
    for (int hatch = 0; hatch < HatchCount; ++hatch) {
        out.write("<pattern id='", HatchNames[hatch],
                  "' patternUnits='userSpaceOnUse' x='0' y='0' width='9' height='9' stroke-width='1'>\n",
                  HatchLines[hatch], "\n</pattern>\n");
    }
    out.write("</defs>\n\n");
}

} // namespace

void makeFloorPage(int rows, std::string& page)
{
    page.clear();
    page.reserve(RoomForHead + static_cast<std::size_t>(rows) * RoomPerRow);
    FloorPage out(page);
    out.writeHead(tableBounds(rows));
    writeDefinitions(out, rows);
    drawTable(out, rows);
    out.write("</svg>\n\n");
}

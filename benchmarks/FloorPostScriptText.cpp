// The least that the text page can cost as a PostScript document: its bytes, appended piece by piece to one
// string. None of its texts has anything to escape. Checks.cpp sees to it that the result is the surface's page
// byte for byte.
#include <string_view>

#include "FloorPostScriptWriter.h"
#include "PostScriptPage.h"
#include "PostScriptProlog.h"
#include "TextPage.h"

namespace {

// More than any row writes.
constexpr std::size_t RoomPerRow = 2500;
constexpr std::size_t RoomForHead = 8000;

class FloorPostScriptText : public FloorPostScriptWriter {
public:
    FloorPostScriptText(std::string& page, const RECT& bounds)
        : FloorPostScriptWriter(page),
          m_realSize(FontSize * (bounds.bottom / (RECT{PageMillimetres}.bottom * PointsPerMillimetre)))
    {
    }

    void font(bool bold)
    {
        write("/", FontName, bold ? "-Bold" : "", " findfont ");
        writeDecimal(m_realSize, 2);
        write(" scalefont setfont \n");
    }

    void color(unsigned long color) { m_wanted = color; }

    void cell(const CellText& text, const RECT& rect, unsigned int /*flags*/)
    {
        writeTextColor(" ", "");
        write("\n ");
        writePoint(rect.left, rect.top + FontSize);
        write(" moveto\n(", text.text, ") show\n");
    }

    void point(const CellText& text, int x, int y)
    {
        writeTextColor("", "");
        write(" ");
        writePoint(x, y + FontSize);
        write(" moveto (", text.text, ") show\n");
    }

    void baseLine(const CellText& text, int x, int y)
    {
        writeColor(m_wanted);
        write(" setrgbcolor ");
        writePoint(x, y);
        write(" moveto (", text.text, ") show\n");
    }

    void runs(const Run (&list)[RunCount], const RECT& rect, bool turned)
    {
        writeTextColor("", "\n");
        write("gsave");
        if (!turned) {
            writeClip(rect);
        }
        write("\n");
        for (const Run& run : list) {
            write("\t");
            if (!run.follows) {
                writePoint(rect.left + run.x, rect.top + static_cast<int>(m_realSize));
                write(" moveto ");
            }
            write(run.fittedTo != -1 ? run.fittedTo : 0, "  false", run.underline ? " true (" : " false (",
                  run.text);
            if (turned) {
                write(") ", 0, "  ", TurnedAngle, "  rotatedshow\n");
            } else {
                write(") jshow\n");
            }
        }
        write("grestore\n");
    }

private:
    void writeTextColor(std::string_view before, std::string_view after)
    {
        if (m_color != m_wanted) {
            m_color = m_wanted;
            write(before);
            writeColor(m_color);
            write(" setrgbcolor", after);
        }
    }

    void writeClip(const RECT& rect)
    {
        write(" newpath ");
        writePoint(rect.left, rect.top);
        write(" moveto ");
        writePoint(rect.right, rect.top);
        write(" lineto ");
        writePoint(rect.right, rect.bottom);
        write(" lineto ");
        writePoint(rect.left, rect.bottom);
        write(" lineto closepath clip");
    }

    double m_realSize; // of the font, in logical units
    unsigned long m_wanted = 0;
    unsigned long m_color = 0; // set last by the text
};

} // namespace

void makeFloorPostScriptText(int rows, std::string& page)
{
    page.clear();
    page.reserve(RoomForHead + static_cast<std::size_t>(rows) * RoomPerRow);
    FloorPostScriptText out(page, textBounds(rows));
    out.writeHead(textBounds(rows));
    out.write(postscript::PostScriptProlog::jshow, postscript::PostScriptProlog::rotatedshow);
    drawText(out, rows);
    out.write("\nshowpage\n\n");
}

// The text page on CSurfaceSVG and on CSurfacePSPrinter, from construction to the caller's bytes.
#include "TextPage.h"

#include <array>

#include "PageWork.h"
#include "PostScriptPage.h"
#include "surfacePSPrinter.h"
#include "surfaceSVG.h"

namespace {

// The chunks of formatted text, made once: a page moves them to its rectangles.
class RunChunks {
public:
    explicit RunChunks(const Run (&runs)[RunCount]) : m_runs(runs)
    {
        for (std::size_t i = 0; i < RunCount; ++i) {
            TovoTextString text(runs[i].text.data(), static_cast<unsigned int>(runs[i].text.size()));
            m_chunks[i].create(&text, false, POINT{}, runs[i].follows, runs[i].fittedTo, runs[i].underline);
            m_list.add(&m_chunks[i]);
        }
    }

    Array<CSurfaceTextChunk, 2>* at(const RECT& rect)
    {
        for (std::size_t i = 0; i < RunCount; ++i) {
            m_chunks[i].m_position = POINT{rect.left + m_runs[i].x, rect.top};
        }
        return &m_list;
    }

private:
    const Run (&m_runs)[RunCount];
    std::array<CSurfaceTextChunk, RunCount> m_chunks;
    Array<CSurfaceTextChunk, 2> m_list;
};

class SurfaceText {
public:
    explicit SurfaceText(CSurface& surface) : m_surface(surface) {}

    void font(bool bold)
    {
        char name[] = "Helvetica";
        static_assert(sizeof name == sizeof FontName);
        m_surface.setFont(name, FontSize, bold, false, false, false);
    }

    void color(unsigned long color) { m_surface.setTextColor(color); }
    void cell(const CellText& text, RECT rect, unsigned int flags)
    {
        m_surface.drawString(text.text, &rect, flags);
    }

    void point(const CellText& text, int x, int y)
    {
        POINT place{x, y};
        m_surface.drawTextAt(text.text, &place, 0);
    }

    void baseLine(const CellText& text, int x, int y)
    {
        m_surface.drawTextOnBaseLine(x, y, 0, nullptr, const_cast<char*>(text.text), -1);
    }

    void runs(const Run (&)[RunCount], RECT rect, bool turned)
    {
        static RunChunks upright(NoteRuns);
        static RunChunks onTurnedLine(TurnedRuns);
        if (turned) {
            m_surface.setTextRotation(0, TurnedAngle);
            m_surface.drawString(onTurnedLine.at(rect), &rect, NoClipFlag);
            m_surface.setTextRotation(0, 0);
        } else {
            m_surface.drawString(upright.at(rect), &rect, 0);
        }
    }

private:
    CSurface& m_surface;
};

} // namespace

void drawSurfaceText(CSurface& surface, int rows)
{
    SurfaceText canvas(surface);
    drawText(canvas, rows);
}

void makeSurfaceText(int rows, std::string& page)
{
    RECT millimetres = PageMillimetres;
    RECT bounds = textBounds(rows);
    CSurfaceSVG surface(&millimetres, &bounds);
    drawSurfaceText(surface, rows);
    takePage(surface, page);
}

void makePostScriptText(int rows, std::string& page)
{
    CSurfacePSPrinter surface = makePostScriptSurface(PageMillimetres, textBounds(rows));
    drawSurfaceText(surface, rows);
    takePage(surface, page);
}

void makeMarkedText(int rows, std::string& page)
{
    RECT millimetres = PageMillimetres;
    RECT bounds = textBounds(rows);
    CSurfaceSVG surface(&millimetres, &bounds);
    SurfaceText canvas(surface);
    drawText(canvas, rows);
    surface.printerNofMMarker(POINT{});
    canvas.cell({PageCountField.data(), PageCountField}, textCell(rows, 1), NoClipFlag);
    takePage(surface, page);
}

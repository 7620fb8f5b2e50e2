// The peer: the text page on cairo's SVG, PDF and PostScript surfaces, written to memory. Each call draws what the same
// call of a surface means in a viewer: its clip, its alignment, its fitted width, its underline. Only the characters of a
// turned line lie along it, which costs less than to turn them back.
#include <numbers>

#include "CairoWriter.h"
#include "DocumentPage.h"
#include "PostScriptPage.h"
#include "TextPage.h"

namespace {

class CairoText {
public:
    explicit CairoText(cairo_t* cairo) : m_cairo(cairo) {}

    void font(bool bold)
    {
        cairo_select_font_face(m_cairo, FontName, CAIRO_FONT_SLANT_NORMAL,
                               bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(m_cairo, FontSize);
    }

    void color(unsigned long color) { setColor(m_cairo, color); }

    void cell(const CellText& text, const RECT& rect, unsigned int flags)
    {
        const double share = (flags & RightFlag) != 0 ? 1 : (flags & CentreFlag) != 0 ? 0.5 : 0;
        const double shift = share > 0 ? share * widthOf(text.text) : 0;
        cairo_save(m_cairo);
        if ((flags & NoClipFlag) == 0) {
            clip(rect);
        }
        show(text.text, anchorOf(rect, flags) - shift, rect.top + FontSize);
        cairo_restore(m_cairo);
    }

    void point(const CellText& text, int x, int y) { show(text.text, x, y + FontSize); }
    void baseLine(const CellText& text, int x, int y) { show(text.text, x, y); }

    void runs(const Run (&list)[RunCount], const RECT& rect, bool turned)
    {
        cairo_save(m_cairo);
        if (!turned) {
            clip(rect);
        }
        cairo_translate(m_cairo, rect.left, rect.top);
        cairo_rotate(m_cairo, turned ? -TurnedAngle * std::numbers::pi / 180 : 0);
        double end = 0;
        for (const Run& run : list) {
            const double x = run.follows ? end : run.x;
            end = x + showRun(run, x);
        }
        cairo_restore(m_cairo);
    }

private:
    void clip(const RECT& rect)
    {
        cairo_rectangle(m_cairo, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
        cairo_clip(m_cairo);
    }

    double widthOf(const char* text)
    {
        cairo_text_extents_t extents;
        cairo_text_extents(m_cairo, text, &extents);
        return extents.x_advance;
    }

    void show(const char* text, double x, double y)
    {
        cairo_move_to(m_cairo, x, y);
        cairo_show_text(m_cairo, text);
    }

    // Gives the run's width.
    double showRun(const Run& run, double x)
    {
        const std::string text(run.text);
        const double width = widthOf(text.c_str());
        const double wanted = run.fittedTo != -1 ? run.fittedTo : width;
        cairo_save(m_cairo);
        cairo_translate(m_cairo, x, FontSize);
        cairo_scale(m_cairo, wanted / width, 1);
        show(text.c_str(), 0, 0);
        if (run.underline) {
            cairo_rectangle(m_cairo, 0, 1, width, 1);
            cairo_fill(m_cairo);
        }
        cairo_restore(m_cairo);
        return wanted;
    }

    cairo_t* m_cairo;
};

void writeText(PageFormat format, int rows, std::string& page)
{
    writeCairoPage(format, textBounds(rows), page, [rows](cairo_t* cairo) { drawCairoText(cairo, rows); });
}

} // namespace

void drawCairoText(cairo_t* cairo, int rows)
{
    // A painted ground covers the page from the start. Without it cairo unites the areas of all texts, one
    // by one, which costs it the square of their number.
    setColor(cairo, 0xFFFFFF);
    cairo_paint(cairo);
    CairoText canvas(cairo);
    drawText(canvas, rows);
}

void makeCairoDocumentText(int rows, std::string& document)
{
    writeText(PageFormat::Pdf, rows, document);
}

void makeCairoText(int rows, std::string& page)
{
    writeText(PageFormat::Svg, rows, page);
}

void makeCairoPostScriptText(int rows, std::string& page)
{
    writeText(PageFormat::PostScript, rows, page);
}

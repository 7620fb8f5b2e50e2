// The peer: the table page on cairo's SVG, PDF and PostScript surfaces, written to memory, and on an image.
// Each call draws what the same call of a surface means; hatches are six repeated tiles, made once for the page.
#include <array>
#include <numbers>

#include "CairoWriter.h"
#include "DevicePage.h"
#include "DocumentPage.h"
#include "PostScriptPage.h"
#include "TablePage.h"

namespace {

void addPath(cairo_t* cairo, const RECT* rect)
{
    cairo_rectangle(cairo, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top);
}

void addPath(cairo_t* cairo, const POINT* points, unsigned int count)
{
    for (const POINT* point = points; point != points + count; ++point) {
        cairo_line_to(cairo, point->x, point->y);
    }
}

CairoPattern makeHatch(std::size_t index)
{
    constexpr cairo_rectangle_t Extents{0, 0, 9, 9};
    constexpr int Lines[4][4] = {{0, 4, 9, 4}, {4, 0, 4, 9}, {0, 0, 9, 9}, {9, 0, 0, 9}};
    constexpr bool LinesOfHatch[HatchCount][4] = {{true, false, false, false}, {false, true, false, false},
                                                  {false, false, true, false}, {false, false, false, true},
                                                  {true, true, false, false},  {false, false, true, true}};
    const CairoSurface tile(cairo_recording_surface_create(CAIRO_CONTENT_COLOR_ALPHA, &Extents));
    const CairoContext cairo(cairo_create(tile.get()));
    setColor(cairo.get(), HatchColors[index]);
    cairo_set_line_width(cairo.get(), 1);
    for (int line = 0; line < 4; ++line) {
        if (LinesOfHatch[index][line]) {
            cairo_move_to(cairo.get(), Lines[line][0], Lines[line][1]);
            cairo_line_to(cairo.get(), Lines[line][2], Lines[line][3]);
        }
    }
    cairo_stroke(cairo.get());
    CairoPattern pattern(cairo_pattern_create_for_surface(tile.get()));
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_REPEAT);
    return pattern;
}

// Stands in for a surface in drawTable.
class CairoPage {
public:
    explicit CairoPage(cairo_t* cairo) : m_cairo(cairo)
    {
        cairo_set_line_cap(cairo, CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
        for (std::size_t index = 0; index < m_hatches.size(); ++index) {
            m_hatches[index] = makeHatch(index);
        }
    }

    void setPen(unsigned long color, int style, int width)
    {
        m_penColor = color;
        cairo_set_line_width(m_cairo, width);
        const double dashes[] = {3.0 * width, 1.0 * width};
        cairo_set_dash(m_cairo, dashes, style == DashedPen ? 2 : 0, 0);
    }

    void setBrush(unsigned long color, int style)
    {
        m_brushColor = color;
        m_brushStyle = style;
    }

    void drawRectangle(const RECT* rect)
    {
        addPath(m_cairo, rect);
        fillAndStroke();
    }

    void drawLine(int x1, int y1, int x2, int y2)
    {
        cairo_move_to(m_cairo, x1, y1);
        cairo_line_to(m_cairo, x2, y2);
        stroke(m_penColor);
    }

    void drawSolidRectangle(const RECT* rect, unsigned long color)
    {
        addPath(m_cairo, rect);
        setColor(m_cairo, color);
        cairo_fill(m_cairo);
    }

    void frameRect(const RECT* rect, unsigned long color)
    {
        addPath(m_cairo, rect);
        stroke(color);
    }

    void ellipse(const RECT* rect)
    {
        const double rx = (rect->right - rect->left) / 2.0;
        const double ry = (rect->bottom - rect->top) / 2.0;
        cairo_save(m_cairo);
        cairo_translate(m_cairo, rect->left + rx, rect->top + ry);
        cairo_scale(m_cairo, rx, ry);
        cairo_new_sub_path(m_cairo);
        cairo_arc(m_cairo, 0, 0, 1, 0, 2 * std::numbers::pi);
        cairo_close_path(m_cairo);
        cairo_restore(m_cairo);
        fillAndStroke();
    }

    void polygon(const POINT* points, unsigned int count)
    {
        addPath(m_cairo, points, count);
        cairo_close_path(m_cairo);
        fillAndStroke();
    }

    void polyline(const POINT* points, unsigned int count)
    {
        addPath(m_cairo, points, count);
        stroke(m_penColor);
    }

private:
    void stroke(unsigned long color)
    {
        setColor(m_cairo, color);
        cairo_stroke(m_cairo);
    }

    void fillAndStroke()
    {
        if (m_brushStyle == SolidBrush) {
            setColor(m_cairo, m_brushColor);
            cairo_fill_preserve(m_cairo);
        } else if (m_brushStyle >= FirstHatch) {
            cairo_set_source(m_cairo, m_hatches[static_cast<std::size_t>(m_brushStyle - FirstHatch)].get());
            cairo_fill_preserve(m_cairo);
        }
        stroke(m_penColor);
    }

    cairo_t* m_cairo;
    std::array<CairoPattern, HatchCount> m_hatches;
    unsigned long m_penColor = 0;
    unsigned long m_brushColor = 0;
    int m_brushStyle = HollowBrush;
};

void writeTable(PageFormat format, int rows, std::string& page)
{
    writeCairoPage(format, tableBounds(rows), page, [rows](cairo_t* cairo) { drawCairoTable(cairo, rows); });
}

class CairoSheet : public TableSheet {
public:
    explicit CairoSheet(bool smooth)
        : m_image(cairo_image_surface_create(CAIRO_FORMAT_RGB24, SheetPixels.cx, SheetPixels.cy)),
          m_cairo(cairo_create(m_image.get())), m_page(m_cairo.get())
    {
        cairo_set_source_rgb(m_cairo.get(), 1, 1, 1);
        cairo_paint(m_cairo.get());
        cairo_scale(m_cairo.get(), DotsPerTenUnits / 10.0, DotsPerTenUnits / 10.0);
        cairo_set_antialias(m_cairo.get(), smooth ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    }

    void draw(int rows) override { drawTable(m_page, rows); }
    const unsigned char* pixels(int& rowBytes) override
    {
        cairo_surface_flush(m_image.get());
        rowBytes = cairo_image_surface_get_stride(m_image.get());
        return cairo_image_surface_get_data(m_image.get());
    }

private:
    CairoSurface m_image;
    CairoContext m_cairo;
    CairoPage m_page;
};

} // namespace

std::unique_ptr<TableSheet> makeCairoSheet(bool smooth)
{
    return std::make_unique<CairoSheet>(smooth);
}

void drawCairoTable(cairo_t* cairo, int rows)
{
    CairoPage canvas(cairo);
    drawTable(canvas, rows);
}

void makeCairoDocumentTable(int rows, std::string& document)
{
    writeTable(PageFormat::Pdf, rows, document);
}

void makeCairoPage(int rows, std::string& page)
{
    writeTable(PageFormat::Svg, rows, page);
}

void makeCairoPostScript(int rows, std::string& page)
{
    writeTable(PageFormat::PostScript, rows, page);
}

// The least that the text page can cost: its bytes, appended piece by piece in the order of the document to one
// string. Clips and the paths of turned text are defined in front of the content, so the page is passed three
// times: once for each kind of definition, once for the texts.
#include "FloorWriter.h"
#include "TextPage.h"

namespace {

// More than any row writes, its definitions included.
constexpr std::size_t RoomPerRow = 4000;
constexpr std::size_t RoomForHead = 3000;

constexpr bool hasClip(unsigned int flags)
{
    return (flags & NoClipFlag) == 0;
}

// A canvas on which nothing is defined.
struct NoDefinitions : FloorWriter {
    using FloorWriter::FloorWriter;

    void font(bool) {}
    void color(unsigned long) {}
    void cell(const CellText&, const RECT&, unsigned int) {}
    void point(const CellText&, int, int) {}
    void baseLine(const CellText&, int, int) {}
};

class ClipDefinitions : public NoDefinitions {
public:
    using NoDefinitions::NoDefinitions;

    void cell(const CellText&, const RECT& rect, unsigned int flags)
    {
        if (hasClip(flags)) {
            define(rect);
        }
    }

    void runs(const Run (&)[RunCount], const RECT& rect, bool turned)
    {
        if (!turned) {
            define(rect);
        }
    }

private:
    void define(const RECT& rect)
    {
        write("<clipPath id='clip", ++m_clips, "'><path  d='M", rect.left, " ", rect.top, "L", rect.right,
              " ", rect.top, "L", rect.right, " ", rect.bottom, "L", rect.left, " ", rect.bottom,
              "z' /></clipPath>\n");
    }

    int m_clips = 0;
};

class PathDefinitions : public NoDefinitions {
public:
    using NoDefinitions::NoDefinitions;

    void runs(const Run (&list)[RunCount], const RECT& rect, bool turned)
    {
        for (std::size_t i = 0; turned && i < std::size(list); ++i) {
            write("<path id='textPath", ++m_paths, "' d='M", rect.left, " ", rect.top, "L", rect.left + 1000,
                  " ", rect.top, "' transform='translate(0 0) rotate( ", -TurnedAngle, " ", rect.left, " ",
                  rect.top, ")'/>\n");
        }
    }

private:
    int m_paths = 0;
};

class FloorText : public FloorWriter {
public:
    using FloorWriter::FloorWriter;

    void font(bool bold)
    {
        write(m_fontOpen ? "</g>\n" : "", "<g font-family='", FontName, "' font-size='", FontSize,
              ".00pt' font-style='normal' font-weight='", bold ? "bold" : "normal", "'>\n");
        m_fontOpen = true;
    }

    void color(unsigned long color) { m_color = color; }

    void cell(const CellText& text, const RECT& rect, unsigned int flags)
    {
        write("<text x='", anchorOf(rect, flags), "' y='", rect.top, "' dy='1em'");
        writeStyle(rect, flags);
        write(">", text.escaped, "</text>\n");
    }

    void point(const CellText& text, int x, int y)
    {
        write("<text x='", x, "' y='", y, "' dy='1em' style=' TovoFlags:", 0, "' fill='", Rgb{m_color}, "'>",
              text.escaped, "</text>\n");
    }

    void baseLine(const CellText& text, int x, int y)
    {
        write("<text x='", x, "' y='", y, "'  style=' TovoFlags:", 0, "' fill='", Rgb{m_color},
              "' xml:space='preserve' class='BLT'>", text.escaped, "</text>\n");
    }

    void runs(const Run (&list)[RunCount], const RECT& rect, bool turned)
    {
        write("<text x='", rect.left, "' y='", rect.top, "' dy='1em' xml:space='preserve'");
        writeStyle(rect, turned ? NoClipFlag : 0);
        if (turned) {
            write(" tovo:textAngle='", TurnedAngle, "'");
        }
        write(">\n");
        for (const Run& run : list) {
            turned ? writeTurned(run, rect) : writeUpright(run, rect);
        }
        write("</text>\n");
    }

private:
    void writeStyle(const RECT& rect, unsigned int flags)
    {
        if (hasClip(flags)) {
            write(" clip-path='url(#clip", ++m_clips, ")' ");
        } else {
            write(" tovo:textRect='(", rect.left, ",", rect.top, ",", rect.right, ",", rect.bottom, ")'");
        }
        write(" tovo:drawOptions='", static_cast<int>(flags), "' fill='", Rgb{m_color}, "'");
    }

    void writeLook(const Run& run)
    {
        if (run.fittedTo != -1) {
            write(" textLength='", run.fittedTo, "'");
        }
        if (run.underline) {
            write(" text-decoration='underline'");
        }
    }

    void writeUpright(const Run& run, const RECT& rect)
    {
        write("\t<tspan");
        if (!run.follows) {
            write(" x='", rect.left + run.x, "' y='", rect.top, "' dy='1em'");
        }
        writeLook(run);
        write(">", run.text, "</tspan>\n");
    }

    void writeTurned(const Run& run, const RECT& rect)
    {
        write("\t<textPath xlink:href='#textPath", ++m_paths, "' startOffset='", -rect.left,
              "'>\n\t\t<tspan x='", rect.left + run.x, "' y='", 0, "'");
        writeLook(run);
        write(" baseline-shift='-0.5em' glyph-orientation-horizontal='", TurnedAngle, "' rotate='", 0);
        for (std::size_t i = 1; i < run.text.size(); ++i) {
            write(" ", 0);
        }
        write("'>", run.text, "</tspan>\n\t</textPath>\n");
    }

    unsigned long m_color = 0;
    bool m_fontOpen = false;
    int m_clips = 0;
    int m_paths = 0;
};

} // namespace

void makeFloorText(int rows, std::string& page)
{
    page.clear();
    page.reserve(RoomForHead + static_cast<std::size_t>(rows) * RoomPerRow);
    FloorText out(page);
    out.writeHead(textBounds(rows));
    out.write("<defs>\n");
    ClipDefinitions clips(page);
    drawText(clips, rows);
    out.write("\n");
    PathDefinitions paths(page);
    drawText(paths, rows);
    out.write("\n</defs>\n\n");
    drawText(out, rows);
    out.write("</g>\n</svg>\n\n");
}

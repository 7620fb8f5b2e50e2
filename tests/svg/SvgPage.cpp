// Takes pages apart: the fixed pieces of a document, and the one test that all tables of cases run through.
#include "SvgPage.h"

#include <ostream>

namespace {

std::string hatch(const std::string& name, const std::string& lines)
{
    return "<pattern id='Hatch" + name +
           "' patternUnits='userSpaceOnUse' x='0' y='0' width='9' height='9' stroke-width='1'>\n" + lines +
           "\n</pattern>\n";
}

const std::string across = "\t<line x1='0' y1='4' x2='9' y2='4'/>";
const std::string down = "\t<line x1='4' y1='0' x2='4' y2='9'/>";
const std::string falling = "\t<line x1='0' y1='0' x2='9' y2='9'/>";
const std::string rising = "\t<line x1='9' y1='0' x2='0' y2='9'/>";

const std::string end = "</svg>\n\n";

} // namespace

const std::string frameSymbol = "\t<symbol id='FrameRect'><rect x='0' y='0' width='100%' height='100%' "
                                "fill='none' stroke-width='1'/></symbol>\n";
const std::string focusSymbol = "\t<symbol id='FocusRect'><rect x='0' y='0' width='100%' height='100%' "
                                "fill='none' stroke-width='1' stroke-dasharray='1,1'/></symbol>\n";
const std::string solidSymbol =
    "\t<symbol id='SolidRect'><rect x='0' y='0' width='100%' height='100%'/></symbol>\n";
const std::string hatches = hatch("Horizontal", across) + hatch("Vertical", down) +
                            hatch("FDiagonal", falling) + hatch("BDiagonal", rising) +
                            hatch("Cross", across + down) + hatch("DiagCross", falling + rising);

void PrintTo(const DrawnCase& drawn, std::ostream* out)
{
    *out << drawn.name;
}

std::string nameOf(const testing::TestParamInfo<DrawnCase>& info)
{
    return info.param.name;
}

std::string closedPage(CSurfaceSVG& surface)
{
    EXPECT_EQ(0, surface.closeSurface());
    unsigned int size = static_cast<unsigned int>(surface.getDataLength());
    std::vector<unsigned char> bytes(size);
    surface.getData(bytes.data(), size);
    return {bytes.begin(), bytes.begin() + size};
}

std::string headOf(int pageWidth, int pageHeight, int width, int height)
{
    return "<?xml version='1.0' encoding='UTF-8' standalone='no'?>\n"
           "<!DOCTYPE svg PUBLIC '-//W3C//DTD SVG 20010904//EN' "
           "'http://www.w3.org/TR/2001/REC-SVG-20010904/DTD/svg10.dtd'>\n"
           "<!-- Created by Tovo " SURFACE_TESTED_VERSION " -->\n\n"
           "<svg width='" +
           std::to_string(pageWidth) + "mm' height='" + std::to_string(pageHeight) + "mm' viewBox='0 0 " +
           std::to_string(width) + " " + std::to_string(height) +
           "' xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
           "xmlns:tovo='urn:tovo:surface'>\n\n";
}

std::string drawnPage(const std::function<void(CSurfaceSVG&)>& draw)
{
    CSurfaceSVG surface(in({0, 0, 210, 297}), in({0, 0, 2100, 2970}));
    draw(surface);
    const std::string page = closedPage(surface);
    const std::string head = headOf(210, 297, 2100, 2970);
    if (!page.starts_with(head) || !page.ends_with(end)) {
        return page;
    }
    return page.substr(head.size(), page.size() - head.size() - end.size());
}

std::string definitions(const std::string& content)
{
    return "<defs>\n" + content + "</defs>\n\n";
}

void useFont(CSurfaceSVG& surface, std::string face, float size, bool bold, bool italic, bool strikethru,
             bool underline)
{
    surface.setFont(face.data(), size, bold, italic, strikethru, underline);
}

TEST_P(SvgPage, HoldsExactly)
{
    EXPECT_EQ(GetParam().page, drawnPage(GetParam().draw));
}

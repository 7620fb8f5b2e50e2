#include "SvgPage.h"

#include <cairo.h>

#include <cmath>
#include <cstring>

#include "CairoPicture.h"
#include "DeviceRect.h"
#include "svgNotation.h"
#include "sys/krnutil.h"

namespace wingdi {

namespace {

// Definitions that are kept to be found again take no more than this.
constexpr std::size_t MostRemembered = std::size_t{1} << 20; // bytes

std::string numbered(const char* name, int number)
{
    return std::string(name).append(std::to_string(number));
}

std::string pngOf(const VectorPicture& picture)
{
    std::string png;
    if (const auto surface = surfaceOf(picture)) {
        cairo_surface_write_to_png_stream(
            surface.get(),
            [](void* bytes, const unsigned char* data, unsigned int length) {
                static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
                return CAIRO_STATUS_SUCCESS;
            },
            &png);
    }
    return png;
}

std::string base64(std::string bytes)
{
    char* text = nullptr;
    int length = 0;
    if (base64Encode(reinterpret_cast<unsigned char*>(bytes.data()), static_cast<unsigned int>(bytes.size()),
                     text, length, false) != 0) {
        return {};
    }
    std::string encoded(text, static_cast<std::size_t>(length));
    base64Free(text);
    return encoded;
}

std::string hatchLines(DWORD hatch)
{
    std::string lines;
    const bool isCross = hatch == HS_CROSS;
    const bool isDiagonalCross = hatch == HS_DIAGCROSS;
    if (hatch == HS_HORIZONTAL || isCross) {
        lines += "M0 4.5H8";
    }
    if (hatch == HS_VERTICAL || isCross) {
        lines += "M4.5 0V8";
    }
    if (hatch == HS_FDIAGONAL || isDiagonalCross) {
        lines += "M-1 -1L9 9M-1 7L1 9M7 -1L9 1";
    }
    if (hatch == HS_BDIAGONAL || isDiagonalCross) {
        lines += "M-1 9L9 -1M-1 1L1 -1M7 9L9 7";
    }
    return lines;
}

const char* capOf(DWORD style)
{
    switch (style & PS_ENDCAP_MASK) {
    case PS_ENDCAP_FLAT:
        return "butt";
    case PS_ENDCAP_SQUARE:
        return "square";
    default:
        return "round";
    }
}

const char* joinOf(DWORD style)
{
    switch (style & PS_JOIN_MASK) {
    case PS_JOIN_BEVEL:
        return "bevel";
    case PS_JOIN_MITER:
        return "miter";
    default:
        return "round";
    }
}

std::string attribute(const char* name, const std::string& value)
{
    return std::string(" ").append(name).append("=\"").append(value).append("\"");
}

} // namespace

SvgPage::SvgPage(double paperWidth, double paperHeight, double width, double height)
    : m_width(width), m_height(height)
{
    m_bytes = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<!-- A page for viewers. Players take stored pages, which this is not. -->\n"
              "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\"";
    m_bytes += attribute("width", svgNumber(paperWidth) + "mm") +
               attribute("height", svgNumber(paperHeight) + "mm") +
               attribute("viewBox", "0 0 " + svgNumber(width) + " " + svgNumber(height)) + ">\n";
    m_bytes += "<rect" + attribute("width", svgNumber(width)) + attribute("height", svgNumber(height)) +
               " fill=\"#ffffff\"/>\n";
}

RECT SvgPage::visibleBox() const
{
    return grown({0, 0, static_cast<LONG>(m_width) + 1, static_cast<LONG>(m_height) + 1}, Nearby);
}

std::string SvgPage::defined(const std::string& kind, const std::string& contents)
{
    const std::string key = kind + contents;
    if (const auto found = m_definitions.find(key); found != m_definitions.end()) {
        return found->second;
    }
    std::string id = numbered("d", ++m_count);
    const std::string element = kind.substr(0, kind.find(' '));
    m_bytes.append("<defs><").append(kind).append(attribute("id", id)).append(">").append(contents);
    m_bytes.append("</").append(element).append("></defs>\n");
    if (key.size() <= MostRemembered - m_rememberedBytes) {
        m_rememberedBytes += key.size();
        m_definitions.emplace(key, id);
    }
    return id;
}

void SvgPage::setClip(const VectorClip& clip)
{
    for (; m_openGroups > 0; --m_openGroups) {
        m_bytes += "</g>\n";
    }
    const auto confine = [this](const std::string& contents) {
        const std::string id = defined("clipPath", contents);
        m_bytes += "<g" + attribute("clip-path", "url(#" + id + ")") + ">\n";
        ++m_openGroups;
    };
    const RECT around = visibleBox();
    if (clip.rectangles) {
        std::string path;
        for (const RECT& rect : *clip.rectangles) {
            const RECT seen = overlap(rect, around);
            path.append("M").append(std::to_string(seen.left)).append(" ").append(std::to_string(seen.top));
            path.append("H")
                .append(std::to_string(seen.right))
                .append("V")
                .append(std::to_string(seen.bottom));
            path.append("H").append(std::to_string(seen.left)).append("Z");
        }
        confine("<path" + attribute("d", path.empty() ? "M0 0Z" : path) + "/>");
    }
    for (const VectorClip::Shape& shape : clip.shapes) {
        confine("<path" + attribute("d", svgPath(shape.outline->clippedArea(around))) +
                attribute("clip-rule", shape.fillMode == WINDING ? "nonzero" : "evenodd") + "/>");
    }
}

std::string SvgPage::idOf(const VectorPicture& picture)
{
    if (const auto found = m_pictures.find(picture.id); found != m_pictures.end()) {
        return found->second;
    }
    std::string id = numbered("p", ++m_count);
    m_bytes += "<defs><image" + attribute("id", id) + attribute("width", std::to_string(picture.width)) +
               attribute("height", std::to_string(picture.height)) +
               attribute("xlink:href", "data:image/png;base64," + base64(pngOf(picture))) + "/></defs>\n";
    m_pictures.emplace(picture.id, id);
    return id;
}

std::string SvgPage::paintValue(const VectorPaint& paint)
{
    if (!paint.hatch && !paint.tile) {
        return svgColor(paint.color);
    }
    const int width = paint.tile ? paint.tile->width : 8;
    const int height = paint.tile ? paint.tile->height : 8;
    const Mapping place{paint.unit,
                        0,
                        0,
                        paint.unit,
                        static_cast<double>(paint.origin.x),
                        static_cast<double>(paint.origin.y)};
    std::string contents;
    if (paint.tile) {
        contents = "<use" + attribute("xlink:href", "#" + idOf(*paint.tile)) + "/>";
    } else {
        if (paint.gaps) {
            contents = "<rect width=\"8\" height=\"8\"" + attribute("fill", svgColor(*paint.gaps)) + "/>";
        }
        contents += "<path" + attribute("d", hatchLines(*paint.hatch)) +
                    attribute("stroke", svgColor(paint.color)) + " fill=\"none\"/>";
    }
    const std::string id = defined(
        "pattern patternUnits=\"userSpaceOnUse\"" + attribute("width", std::to_string(width)) +
            attribute("height", std::to_string(height)) + attribute("patternTransform", svgMatrix(place)),
        contents);
    return "url(#" + id + ")";
}

void SvgPage::fill(const Outline& area, int fillMode, const VectorPaint& paint)
{
    const std::string value = paintValue(paint);
    const RECT around = visibleBox();
    const std::string path = svgPath(liesWithin(area.box(), around) ? area : area.clippedArea(around));
    m_bytes += "<path" + attribute("d", path) + attribute("fill", value) +
               (fillMode == WINDING ? "" : " fill-rule=\"evenodd\"") + svgBlend(paint.blend) + "/>\n";
}

void SvgPage::stroke(const Outline& lines, const PenLook& pen, const VectorPaint& paint)
{
    const std::string value = paintValue(paint);
    const int reach = static_cast<int>(std::ceil(pen.reach()));
    const RECT around = grown(visibleBox(), reach);
    const bool isNear = liesWithin(grown(lines.box(), reach), around);
    const Outline& seen = isNear ? lines : lines.clippedLines(around, {});
    Mapping nib;
    if (pen.nib) {
        nib = *pen.nib;
        nib.dx = nib.dy = 0;
    }
    m_bytes += "<path" + attribute("d", svgPath(seen, nib.inverse())) + attribute("stroke", value) +
               " fill=\"none\"";
    m_bytes += attribute("stroke-width", svgNumber(pen.nib ? pen.logicalWidth : pen.width)) +
               attribute("stroke-linecap", capOf(pen.style)) +
               attribute("stroke-linejoin", joinOf(pen.style)) +
               attribute("stroke-miterlimit", svgNumber(pen.miterLimit));
    if (!pen.dashes.empty()) {
        std::string dashes;
        for (const double dash : pen.dashes) {
            dashes.append(dashes.empty() ? "" : " ").append(svgNumber(dash));
        }
        m_bytes += attribute("stroke-dasharray", dashes);
    }
    if (pen.nib) {
        m_bytes += attribute("transform", svgMatrix(nib));
    }
    m_bytes += svgBlend(paint.blend) + "/>\n";
}

void SvgPage::picture(const std::shared_ptr<const VectorPicture>& picture, const Mapping& toPage, bool smooth,
                      Blend blend)
{
    const std::string id = idOf(*picture);
    constexpr const char* Modes[] = {"", "mix-blend-mode:multiply;", "mix-blend-mode:screen;",
                                     "mix-blend-mode:difference;"};
    std::string style = Modes[static_cast<std::size_t>(blend)];
    style += smooth ? "" : "image-rendering:optimizeSpeed;image-rendering:pixelated";
    m_bytes += "<use" + attribute("xlink:href", "#" + id) + attribute("transform", svgMatrix(toPage)) +
               (style.empty() ? "" : attribute("style", style)) + "/>\n";
}

bool SvgPage::finish()
{
    setClip({});
    m_bytes += "</svg>\n";
    return true;
}

} // namespace wingdi

// The printed form of each kind of value, as RecordingSurface.h lists them. Locale-free and total: every bit
// pattern has a text.
#include "RecordingSurface.h"

#include <cstdint>
#include <cstring>

#include "quotedText.h"

namespace {

template <typename... Pieces>
std::string joined(const Pieces&... pieces)
{
    std::string text;
    (text.append(pieces), ...);
    return text;
}

const char* flag(bool set, const char* name)
{
    return set ? name : "";
}

} // namespace

std::string RecordingSurface::text() const
{
    std::string lines;
    for (const std::string& call : m_calls) {
        lines.append(call).append("\n");
    }
    return lines;
}

std::string RecordingSurface::shown(unsigned long color)
{
    if (color > 0xFFFFFF) {
        return "0x" + shown<unsigned long>(color, 16);
    }
    const auto part = [color](int shift) {
        return shown(static_cast<unsigned int>(color >> shift & 0xFF));
    };
    return joined("rgb(", part(0), ",", part(8), ",", part(16), ")");
}

std::string RecordingSurface::shown(const RECT& rect)
{
    return joined("(", shown(rect.left), ", ", shown(rect.top), ", ", shown(rect.right), ", ",
                  shown(rect.bottom), ")");
}

std::string RecordingSurface::shown(const POINT& point)
{
    return joined("(", shown(point.x), ", ", shown(point.y), ")");
}

std::string RecordingSurface::shown(const SIZE& size)
{
    return joined(shown(size.cx), "x", shown(size.cy));
}

std::string RecordingSurface::shown(const Points& points)
{
    std::string list;
    for (unsigned int index = 0; points.first != nullptr && index < points.count; ++index) {
        list.append(flag(index > 0, " ")).append(shown(points.first[index]));
    }
    return joined("[", list, "]");
}

std::string RecordingSurface::shown(const Bytes& bytes)
{
    std::uint32_t hash = 0x811C9DC5;
    for (int index = 0; bytes.data != nullptr && index < bytes.size; ++index) {
        hash = (hash ^ bytes.data[index]) * 0x01000193;
    }
    return joined(shown(bytes.size), ":", shown(hash, 16));
}

std::string RecordingSurface::shown(const std::string& text)
{
    return quotedText(text);
}

std::string RecordingSurface::shown(const Piece& piece)
{
    const auto room = static_cast<std::size_t>(piece.length);
    return piece.text == nullptr ? "null" : shown(std::string(piece.text, strnlen(piece.text, room)));
}

std::string RecordingSurface::shown(const CSurfaceTextChunk& chunk)
{
    return joined("{", shown(std::string(chunk.m_text.text(), chunk.m_text.length())), " ",
                  shown(chunk.m_position), " length ", shown(chunk.m_textLength), " find ",
                  shown(chunk.m_findPosition[0]), " ", shown(chunk.m_findPosition[1]),
                  flag(chunk.m_isNewLine, " newline"), flag(chunk.m_followsPrevious, " follows"),
                  flag(chunk.m_underline, " underline"), "}");
}

std::string RecordingSurface::shown(const Chunks& chunks)
{
    std::string list;
    for (unsigned int index = 0; index < chunks.size(); ++index) {
        list.append(flag(index > 0, " ")).append(shown(chunks.atGet(index)));
    }
    return joined("[", list, "]");
}

std::string RecordingSurface::shown(const CSurfaceBrush& brush)
{
    return joined(shown(brush.getColor()), " style ", shown(brush.getStyle()), " picture ",
                  shown(brush.getPicture()));
}

std::string RecordingSurface::shown(CSurfaceFont font)
{
    return joined(shown(font.getFaceName()), " ", shown(font.getSize()), flag(font.getBold(), " bold"),
                  flag(font.getItalic(), " italic"), flag(font.getUnderline(), " underline"),
                  flag(font.getStrikethru(), " strikethru"));
}

std::string RecordingSurface::shown(const CSurfacePen& pen)
{
    return joined(shown(pen.getColor()), " style ", shown(pen.getStyle()), " width ", shown(pen.getWidth()));
}

std::string RecordingSurface::shown(const CTextStyle& style)
{
    return joined(shown(style.getColor()), " style ", shown(style.getStyle()), " angles ",
                  shown(style.getCharAngle()), " ", shown(style.getTextAngle()));
}

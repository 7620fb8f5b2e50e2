// The printed form of each kind of value, as RecordingSurface.h lists them. Locale-free and total: every bit
// pattern has a text.
#include "support/RecordingSurface.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>

namespace {

template <typename Number, typename... Base>
std::string digits(Number number, Base... base)
{
    std::array<char, 64> buffer{};
    return {buffer.data(), std::to_chars(buffer.begin(), buffer.end(), number, base...).ptr};
}

std::string flag(bool set, const char* name)
{
    return set ? std::string(" ") + name : std::string();
}

} // namespace

std::string RecordingSurface::text() const
{
    std::string lines;
    for (const std::string& call : m_calls) {
        lines += call + "\n";
    }
    return lines;
}

std::string RecordingSurface::shown(int number)
{
    return digits(number);
}

std::string RecordingSurface::shown(unsigned int number)
{
    return digits(number);
}

std::string RecordingSurface::shown(float number)
{
    return digits(number);
}

std::string RecordingSurface::shown(unsigned long color)
{
    if (color > 0xFFFFFF) {
        return "0x" + digits(color, 16);
    }
    return "rgb(" + digits(color & 0xFF) + "," + digits(color >> 8 & 0xFF) + "," + digits(color >> 16) + ")";
}

std::string RecordingSurface::shown(const RECT& rect)
{
    return "(" + digits(rect.left) + ", " + digits(rect.top) + ", " + digits(rect.right) + ", " +
           digits(rect.bottom) + ")";
}

std::string RecordingSurface::shown(const POINT& point)
{
    return "(" + digits(point.x) + ", " + digits(point.y) + ")";
}

std::string RecordingSurface::shown(const SIZE& size)
{
    return digits(size.cx) + "x" + digits(size.cy);
}

std::string RecordingSurface::shown(const Points& points)
{
    std::string list;
    for (unsigned int index = 0; points.first != nullptr && index < points.count; ++index) {
        list += (list.empty() ? "" : " ") + shown(points.first[index]);
    }
    return "[" + list + "]";
}

std::string RecordingSurface::shown(const Bytes& bytes)
{
    std::uint32_t hash = 0x811C9DC5;
    for (int index = 0; bytes.data != nullptr && index < bytes.size; ++index) {
        hash = (hash ^ bytes.data[index]) * 0x01000193;
    }
    return digits(bytes.size) + ":" + digits(hash, 16);
}

std::string RecordingSurface::shown(const std::string& text)
{
    std::string quoted;
    for (const char character : text) {
        const unsigned int byte = static_cast<unsigned char>(character);
        const bool plain = byte >= 0x20 && byte < 0x7F && character != '"' && character != '\\';
        quoted += plain ? std::string(1, character) : (byte < 0x10 ? "\\x0" : "\\x") + digits(byte, 16);
    }
    return "\"" + quoted + "\"";
}

std::string RecordingSurface::shown(const char* text)
{
    return shown(Piece{text, -1});
}

std::string RecordingSurface::shown(const Piece& piece)
{
    if (piece.text == nullptr) {
        return "null";
    }
    return shown(std::string(piece.text, strnlen(piece.text, static_cast<std::size_t>(piece.length))));
}

std::string RecordingSurface::shown(const CSurfaceTextChunk& chunk)
{
    return "{" + shown(std::string(chunk.m_text.text(), chunk.m_text.length())) + " " +
           shown(chunk.m_position) + " length " + digits(chunk.m_textLength) + " find " +
           digits(chunk.m_findPosition[0]) + " " + digits(chunk.m_findPosition[1]) +
           flag(chunk.m_isNewLine, "newline") + flag(chunk.m_followsPrevious, "follows") +
           flag(chunk.m_underline, "underline") + "}";
}

std::string RecordingSurface::shown(const Array<CSurfaceTextChunk, 2>& chunks)
{
    std::string list;
    for (unsigned int index = 0; index < chunks.size(); ++index) {
        list += (list.empty() ? "" : " ") + shown(chunks.atGet(index));
    }
    return "[" + list + "]";
}

std::string RecordingSurface::shown(const CSurfaceBrush& brush)
{
    return shown(brush.getColor()) + " style " + digits(brush.getStyle()) + " picture " +
           digits(brush.getPicture());
}

std::string RecordingSurface::shown(CSurfaceFont font)
{
    return shown(font.getFaceName()) + " " + digits(font.getSize()) + flag(font.getBold(), "bold") +
           flag(font.getItalic(), "italic") + flag(font.getUnderline(), "underline") +
           flag(font.getStrikethru(), "strikethru");
}

std::string RecordingSurface::shown(const CSurfacePen& pen)
{
    return shown(pen.getColor()) + " style " + digits(pen.getStyle()) + " width " + digits(pen.getWidth());
}

std::string RecordingSurface::shown(const CTextStyle& style)
{
    return shown(style.getColor()) + " style " + digits(style.getStyle()) + " angles " +
           digits(style.getCharAngle()) + " " + digits(style.getTextAngle());
}

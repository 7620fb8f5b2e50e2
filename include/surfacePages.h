// What callers in C++20 do with surfaces and stored pages again and again, in few words. Optional: nothing else of the
// library needs this header, and all of it is inline, over the calls that the other headers declare.
//
// Pages are vectors of bytes here, or views of bytes that somebody else keeps. Where the library throws KrnException for want
// of memory, these functions let it through; their own vectors and strings throw std::bad_alloc.
#pragma once

#include <algorithm>
#include <climits>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <windows.h>

#include "metaFilePlayer.h"
#include "pageHighlight.h"
#include "pageHits.h"
#include "surface.h"
#include "surfaceHdc.h"
#include "sys/krnos.h"

namespace pages {

using Bytes = std::vector<unsigned char>;
using View = std::span<const unsigned char>;

namespace detail {

// A page as the player's operations take it. They write to none of its bytes, but for the stamp. One that is too long for
// them has the length 0, as no page has.
struct Argument {
    explicit Argument(View page)
        : bytes(const_cast<unsigned char*>(page.data())),
          length(page.size() <= INT_MAX ? static_cast<unsigned int>(page.size()) : 0)
    {
    }

    unsigned char* bytes;
    unsigned int length;
};

inline std::string_view textOf(View page)
{
    return {reinterpret_cast<const char*>(page.data()), page.size()};
}

} // namespace detail

// --- Drawing

// A colour as all operations take it; each part from 0 to 255.
constexpr unsigned long rgb(unsigned int red, unsigned int green, unsigned int blue)
{
    return (red & 0xFFU) | (green & 0xFFU) << 8U | (blue & 0xFFU) << 16U;
}

// The address of a value that lives as long as the call it is written in:
//   page.drawRectangle(pages::temporary(RECT{10, 10, 90, 40}));
template <class Value>
Value* temporary(Value&& value)
{
    static_assert(!std::is_reference_v<Value>, "An object with a name has an address of its own.");
    return std::addressof(value);
}

// How a font looks, all of it off unless it is named.
struct FontLook {
    bool bold = false;
    bool italic = false;
    bool strikethru = false;
    bool underline = false;
};

// `size` is in points, of the face's name 31 bytes count.
inline CSurfaceFont font(const char* face, float size, FontLook look = {})
{
    return {const_cast<char*>(face), size, look.bold, look.italic, look.strikethru, look.underline};
}

inline void setFont(CSurface& surface, const char* face, float size, FontLook look = {})
{
    CSurfaceFont chosen = font(face, size, look);
    surface.setFont(&chosen);
}

// Flags as those of the Windows DrawText.
inline void drawText(CSurface& surface, const std::string& text, RECT rect, unsigned int flags = 0)
{
    surface.drawText(text.c_str(), &rect, flags);
}

inline void drawTextAt(CSurface& surface, const std::string& text, POINT point, unsigned int flags = 0)
{
    surface.drawTextAt(text.c_str(), &point, flags);
}

// Text on a base line that begins at (x, y), without a clip.
inline void drawTextOnBaseLine(CSurface& surface, int x, int y, std::string text)
{
    surface.drawTextOnBaseLine(x, y, 0, nullptr, text.data(), -1);
}

// The room that one line of text takes on a device: its advances by the height of the font, not the ink, in units of which an
// inch has `unitsPerInch`, rounded up. An ampersand counts as a character. A null device is the screen; the state of the device
// is not touched. 0 and 0 where it can't be measured.
inline SIZE textSize(HDC device, CSurfaceFont font, std::string_view text, int unitsPerInch)
{
    SIZE size{};
    const HDC beside = CreateCompatibleDC(device);
    if (beside != nullptr && text.size() <= INT_MAX) {
        const auto units = [&](LONG dots, int dotsPerInch) {
            const long long perInch = std::max(dotsPerInch, 1);
            return static_cast<LONG>((static_cast<long long>(dots) * unitsPerInch + perInch - 1) / perInch);
        };
        CSurfaceHdc surface(beside);
        surface.setFont(&font);
        GetTextExtentPoint32A(beside, text.data(), static_cast<int>(text.size()), &size);
        size.cx = units(size.cx, GetDeviceCaps(beside, LOGPIXELSX));
        size.cy = units(size.cy, GetDeviceCaps(beside, LOGPIXELSY));
    }
    DeleteDC(beside);
    return size;
}

// --- Stored pages

// The whole file; nothing when it can't be read.
inline std::optional<Bytes> loadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    Bytes bytes{std::istreambuf_iterator<char>(file), {}};
    return file.is_open() && !file.bad() ? std::optional(std::move(bytes)) : std::nullopt;
}

// In place of what the file held. False when not all of it could be written.
inline bool saveFile(const std::string& path, View bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(file.flush());
}

// Closes the surface and takes its page; empty where there is none.
inline Bytes finished(CSurface& surface)
{
    if (surface.closeSurface() != 0 || surface.getDataLength() <= 0) {
        return {};
    }
    auto size = static_cast<unsigned int>(surface.getDataLength());
    Bytes page(size);
    surface.getData(page.data(), size);
    page.resize(size);
    return page;
}

// Null for no known page, and where there is no memory for the player.
inline std::unique_ptr<CMetaFilePlayer> player(View page)
{
    const detail::Argument argument(page);
    return std::unique_ptr<CMetaFilePlayer>(CMetaFilePlayer::createPlayer(argument.bytes, argument.length));
}

// Plays the page on a surface; of the target, a rectangle of the destination, right and bottom count. False when it could not be
// played.
inline bool play(View page, CSurface& surface, RECT target)
{
    const std::unique_ptr<CMetaFilePlayer> made = player(page);
    return made != nullptr && made->play(&surface, &target) == 1;
}

// Writes "number of count" into the places that wait for it; the length stays. On an SVG page true when something was written, on a
// metafile when a text comes after a mark, also where its place is too short.
inline bool stamp(Bytes& page, int number, int count)
{
    const detail::Argument argument{View(page)};
    return CMetaFilePlayer::insertPageCount(argument.bytes, static_cast<int>(argument.length), number, count);
}

// --- Search

// How a search compares.
struct Match {
    bool sameCase = false;
    bool wholeWords = false;
};

// The copy of a page that marks a hit, which is freed with this. Movable.
class FoundPage {
public:
    FoundPage() = default;
    FoundPage(unsigned char* bytes, unsigned int length) : m_bytes(bytes), m_length(length) {}

    View bytes() const { return {m_bytes.get(), m_length}; }
    bool empty() const { return m_length == 0; }

private:
    struct Free {
        void operator()(unsigned char* bytes) const { CMetaFilePlayer::freeFoundPage(bytes); }
    };
    std::unique_ptr<unsigned char, Free> m_bytes;
    unsigned int m_length = 0;
};

// All hits of a text, for a range-for loop, once:
//   pages::Hits hits(page, "total");
//   for (const PageHit& hit : hits) { ... }
// The page has to stay as it is for as long as this lives. The text is compared with the bytes of the page; see utf8Of.
class Hits {
public:
    // A hit, or the place after the last one.
    class Iterator {
    public:
        using value_type = PageHit;
        using difference_type = std::ptrdiff_t;

        explicit Iterator(PageHits& walk) : m_walk(&walk), m_there(walk.next()) {}

        const PageHit& operator*() const { return m_walk->hit(); }
        const PageHit* operator->() const { return &m_walk->hit(); }
        Iterator& operator++()
        {
            m_there = m_walk->next();
            return *this;
        }
        void operator++(int) { ++*this; }
        friend bool operator==(const Iterator& place, std::default_sentinel_t) { return !place.m_there; }

    private:
        PageHits* m_walk;
        bool m_there;
    };

    Hits(View page, std::string text, Match match = {})
        : m_page(page), m_text(std::move(text)), m_match(match), m_walk(walkOf(page, m_text, match))
    {
    }

    // Goes to the first hit when it is called first; each further call goes on.
    Iterator begin() { return Iterator(m_walk); }
    static std::default_sentinel_t end() { return {}; }

    // The copy of the page with this hit of it marked; empty without memory.
    FoundPage marked(const PageHit& hit) const
    {
        const detail::Argument page(m_page);
        unsigned int position = hit.position;
        unsigned int offset = hit.textOffset;
        unsigned char* found = nullptr;
        unsigned int length = 0;
        int x = 0;
        int y = 0;
        CMetaFilePlayer::searchPageForString(page.bytes, page.length, m_text.c_str(), m_match.sameCase,
                                             m_match.wholeWords, position, offset, found, length, x, y);
        return {found, length};
    }

private:
    static PageHits walkOf(View page, const std::string& text, Match match)
    {
        const detail::Argument argument(page);
        return {argument.bytes, argument.length, text.c_str(), match.sameCase, match.wholeWords};
    }

    View m_page;
    std::string m_text;
    Match m_match;
    PageHits m_walk;
};

// For viewers and not for players: an SVG page with the hit of its marked copy in `color`, and underlined. In a marked copy itself
// the hit is an attribute that viewers don't know, and turned text has lost its lines; here nothing but the hit is other than on the
// page. The marked copy of a metafile has its hit in red already, and comes back as it is. Empty where `marked` is no marked copy
// of this page.
inline Bytes highlighted(View page, View marked, unsigned long color = rgb(255, 0, 0))
{
    const detail::Argument argument(page);
    constexpr int SvgPage = 2;
    if (CMetaFilePlayer::getMetaFileFormat(argument.bytes, argument.length) != SvgPage) {
        return {marked.begin(), marked.end()};
    }
    const std::optional<std::string> made =
        detail::Highlighter(detail::textOf(page), detail::textOf(marked), color).run();
    return made ? Bytes(made->begin(), made->end()) : Bytes();
}

// --- Text encodings
//
// Surfaces take bytes. Devices and metafiles read them as code page 1252, viewers of an SVG page as UTF-8.

namespace detail {

// The characters of the bytes from 128 on in code page 1252.
inline std::u16string upperHalf()
{
    std::string bytes;
    for (int byte = 128; byte < 256; ++byte) {
        bytes.push_back(static_cast<char>(byte));
    }
    unsigned short wide[129] = {};
    intlCStringToUnicode(bytes.c_str(), wide, 129);
    return {wide, wide + 128};
}

// Takes the character at the front of UTF-8 away ([RFC 3629] 4); 0xFFFD for a byte that begins none.
inline char32_t takeCharacter(std::string_view& text)
{
    const auto byteAt = [text](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    constexpr char32_t Least[] = {0, 0, 0x80, 0x800, 0x10000};
    const unsigned int first = byteAt(0);
    const std::size_t length = first < 0x80 ? 1 : first < 0xC0 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? first : first & (0x7FU >> length);
    bool good = length != 0 && first < 0xF8;
    for (std::size_t i = 1; i < length; ++i) {
        good = good && (byteAt(i) & 0xC0U) == 0x80;
        character = character << 6U | (byteAt(i) & 0x3FU);
    }
    good = good && character >= Least[length];
    text.remove_prefix(good ? length : 1);
    return good ? character : 0xFFFD;
}

} // namespace detail

// From UTF-8 to the bytes of code page 1252; `unknown` for each character that it does not have and each byte that is no UTF-8.
inline std::string codePageOf(std::string_view utf8, char unknown = '?')
{
    const std::u16string upper = detail::upperHalf();
    std::string bytes;
    while (!utf8.empty()) {
        const char32_t character = detail::takeCharacter(utf8);
        const std::size_t place =
            character <= 0xFFFF ? upper.find(static_cast<char16_t>(character)) : std::u16string::npos;
        bytes.push_back(character < 0x80                ? static_cast<char>(character)
                        : place != std::u16string::npos ? static_cast<char>(128 + place)
                                                        : unknown);
    }
    return bytes;
}

// From the bytes of code page 1252 to UTF-8.
inline std::string utf8Of(std::string_view bytes)
{
    const std::u16string upper = detail::upperHalf();
    std::string utf8;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        const unsigned int character = code < 0x80 ? code : upper[code - 128U];
        if (character < 0x80) {
            utf8.push_back(byte);
            continue;
        }
        if (character >= 0x800) {
            utf8.push_back(static_cast<char>(0xE0U | character >> 12U));
        }
        utf8.push_back(static_cast<char>(character >= 0x800 ? 0x80U | (character >> 6U & 0x3FU)
                                                            : 0xC0U | character >> 6U));
        utf8.push_back(static_cast<char>(0x80U | (character & 0x3FU)));
    }
    return utf8;
}

} // namespace pages

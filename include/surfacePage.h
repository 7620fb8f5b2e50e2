// Helpers for programs in C++20: pages as vectors, hits as a range, texts as views. Nothing here is needed by a surface or
// a player; each helper is a thin layer over their interface, which says what null, -1 and errors mean.
//
// Errors: where memory ends, std::bad_alloc, or KrnException from the library.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "metaFilePlayer.h"
#include "pageHits.h"
#include "surface.h"
#include "sys/krnos.h"

namespace surfaces {

using Bytes = std::vector<unsigned char>;
using PageView = std::span<const unsigned char>;

constexpr unsigned long rgb(unsigned int red, unsigned int green, unsigned int blue)
{
    return (red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16;
}

// Closes the surface and takes its page; empty for surfaces that leave none, and when the page could not be closed.
inline Bytes finishedPage(CSurface& surface)
{
    const int length = surface.closeSurface() == 0 ? surface.getDataLength() : 0;
    Bytes page(static_cast<std::size_t>(std::max(length, 0)));
    auto size = static_cast<unsigned int>(page.size());
    surface.getData(page.data(), size);
    return page;
}

// The whole file; nothing when it can't be read.
inline std::optional<Bytes> loadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    Bytes bytes{std::istreambuf_iterator<char>(file), {}};
    return file.is_open() && !file.bad() ? std::optional(std::move(bytes)) : std::nullopt;
}

// In place of what the file held. False when not all of it could be written.
inline bool saveFile(const std::string& path, PageView bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(file.flush());
}

// Null for a page of no known format. The player reads the page as long as it lives.
inline std::unique_ptr<CMetaFilePlayer> playerOf(PageView page)
{
    auto* const bytes = const_cast<unsigned char*>(page.data()); // which a player does not write to
    return std::unique_ptr<CMetaFilePlayer>(
        CMetaFilePlayer::createPlayer(bytes, static_cast<unsigned int>(page.size())));
}

// In a rectangle of the surface's logical units, of which right and bottom count. False when nothing was played.
inline bool play(PageView page, CSurface& surface, RECT target)
{
    const std::unique_ptr<CMetaFilePlayer> player = playerOf(page);
    return player != nullptr && player->play(&surface, &target) != 0;
}

// True when the page shows a page count and now these numbers.
inline bool stampPageCount(Bytes& page, int number, int count)
{
    return CMetaFilePlayer::insertPageCount(page.data(), static_cast<int>(page.size()), number, count);
}

struct SearchOptions {
    bool matchCase = false;
    bool wholeWord = false;
};

// The hits on a page, for a range-based for loop. The page has to live longer; a PageHit holds until the next one.
class HitRange {
public:
    HitRange(PageView page, const std::string& text, SearchOptions options = {})
        : m_hits(page.data(), static_cast<unsigned int>(page.size()), text.c_str(), options.matchCase,
                 options.wholeWord)
    {
    }

    class Iterator {
    public:
        using value_type = PageHit;
        using difference_type = std::ptrdiff_t;

        explicit Iterator(PageHits& hits) : m_hits(hits.next() ? &hits : nullptr) {}
        const PageHit& operator*() const { return m_hits->hit(); }
        const PageHit* operator->() const { return &m_hits->hit(); }
        Iterator& operator++()
        {
            m_hits = m_hits->next() ? m_hits : nullptr;
            return *this;
        }
        void operator++(int) { ++*this; }
        bool operator==(std::default_sentinel_t /*end*/) const { return m_hits == nullptr; }

    private:
        PageHits* m_hits;
    };

    // Goes on after the hits that were taken before.
    Iterator begin() { return Iterator(m_hits); }
    static std::default_sentinel_t end() { return {}; }

private:
    PageHits m_hits;
};

// A copy of the page in which the hit is marked, as the players understand it; empty when there is no such hit.
inline Bytes markedPage(PageView page, const std::string& text, const PageHit& hit,
                        SearchOptions options = {})
{
    auto* const bytes = const_cast<unsigned char*>(page.data()); // which a search does not write to
    unsigned int position = hit.position;
    unsigned int textOffset = hit.textOffset;
    unsigned char* found = nullptr;
    unsigned int length = 0;
    int x = 0;
    int y = 0;
    CMetaFilePlayer::searchPageForString(bytes, static_cast<unsigned int>(page.size()), text.c_str(),
                                         options.matchCase, options.wholeWord, position, textOffset, found,
                                         length, x, y);
    const std::unique_ptr<unsigned char, decltype(&CMetaFilePlayer::freeFoundPage)> owner(
        found, CMetaFilePlayer::freeFoundPage);
    return length > 0 ? Bytes(found, found + length) : Bytes();
}

namespace detail {

inline void appendEscaped(std::string& xml, std::string_view text)
{
    for (const char c : text) {
        switch (c) {
        case '<':
            xml += "&lt;";
            break;
        case '&':
            xml += "&amp;";
            break;
        default:
            xml += c;
        }
    }
}

// The range that a mark's value names, START,LENGTH'; an empty one where it names none.
struct MarkedRange {
    std::size_t start = 0;
    std::size_t length = 0;
};

inline MarkedRange markedRange(std::string_view value)
{
    MarkedRange range;
    const char* const end = value.data() + value.size();
    const auto start = std::from_chars(value.data(), end, range.start);
    if (start.ec == std::errc() && start.ptr != end && *start.ptr == ',') {
        std::from_chars(start.ptr + 1, end, range.length);
    }
    return range;
}

} // namespace detail

// A copy of an SVG page with a marked hit, in which viewers show the hit in the colour. A marked page itself only says where
// the hit is; that of a metafile shows it in red by itself and comes back as it is, as does a page without a mark.
inline Bytes shownHit(PageView marked, unsigned long color = rgb(208, 0, 0))
{
    constexpr std::string_view Mark = "tovo:find='";
    constexpr std::string_view RunEnd = "</tspan>";
    const std::string_view page(reinterpret_cast<const char*>(marked.data()), marked.size());
    std::string shown;
    std::size_t copied = 0;
    for (std::size_t mark = page.find(Mark); mark != std::string_view::npos; mark = page.find(Mark, copied)) {
        const std::size_t text = page.find('>', mark);
        const std::size_t end = page.find(RunEnd, mark);
        if (text == std::string_view::npos || end == std::string_view::npos || text >= end) {
            break;
        }
        const std::string_view run = page.substr(text + 1, end - text - 1);
        const detail::MarkedRange range = detail::markedRange(page.substr(mark + Mark.size()));
        const std::size_t start = std::min(range.start, run.size());
        shown.append(page, copied, text + 1 - copied);
        detail::appendEscaped(shown, run.substr(0, start));
        if (range.length != 0) {
            shown += "<tspan style='fill:rgb(" + std::to_string(color & 0xFF) + ',' +
                     std::to_string(color >> 8 & 0xFF) + ',' + std::to_string(color >> 16 & 0xFF) + ")'>";
            detail::appendEscaped(shown, run.substr(start, range.length));
            shown += RunEnd;
        }
        detail::appendEscaped(shown, run.substr(std::min(start + range.length, run.size())));
        copied = end;
    }
    shown.append(page, copied);
    return {shown.begin(), shown.end()};
}

// Text of UTF-8 in code page 1252, which devices, metafiles and PostScript documents take; `missing` for characters that it
// does not have, and for bytes that are no character.
inline std::string codePage1252Of(std::string_view utf8, char missing = '?')
{
    std::string text;
    for (std::size_t at = 0; at < utf8.size();) {
        const auto first = static_cast<unsigned char>(utf8[at]);
        const std::size_t length = first < 0x80   ? 1
                                   : first < 0xC2 ? 0
                                   : first < 0xE0 ? 2
                                   : first < 0xF0 ? 3
                                                  : 0;
        char32_t character = length == 1 ? first : first & (length == 2 ? 0x1FU : 0x0FU);
        bool isWhole = length != 0 && at + length <= utf8.size();
        for (std::size_t i = 1; isWhole && i < length; ++i) {
            isWhole = (utf8[at + i] & 0xC0) == 0x80;
            character = character << 6 | (static_cast<unsigned char>(utf8[at + i]) & 0x3FU);
        }
        const unsigned short wide[2] = {static_cast<unsigned short>(character), 0};
        char byte[2] = {};
        intlUnicodeToCString(wide, byte, 2);
        const bool isThere = isWhole && (byte[0] != '?' || character == '?');
        text += isThere ? byte[0] : missing;
        at += isWhole ? length : 1;
    }
    return text;
}

struct FontStyle {
    bool bold = false;
    bool italic = false;
    bool strikethru = false;
    bool underline = false;
};

// `points` is the size. The name is cut at 31 characters.
inline void setFont(CSurface& surface, std::string face, float points, FontStyle style = {})
{
    surface.setFont(face.data(), points, style.bold, style.italic, style.strikethru, style.underline);
}

// Flags as those of DrawText.
inline void drawText(CSurface& surface, const std::string& text, RECT rect, unsigned int flags = 0)
{
    surface.drawText(text.c_str(), &rect, flags);
}

inline void drawTextAt(CSurface& surface, const std::string& text, POINT point, unsigned int flags = 0)
{
    surface.drawTextAt(text.c_str(), &point, flags);
}

inline void drawTextOnBaseLine(CSurface& surface, int x, int y, std::string text)
{
    surface.drawTextOnBaseLine(x, y, 0, nullptr, text.data(), static_cast<int>(text.size()));
}

// In logical units of the context, with the font that is selected there; 0 and 0 without one.
inline SIZE textSize(HDC context, std::string_view text)
{
    SIZE size{};
    GetTextExtentPoint32A(context, text.data(), static_cast<int>(text.size()), &size);
    return size;
}

} // namespace surfaces

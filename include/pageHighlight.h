// How pages::highlighted of surfacePages.h makes the hits of an SVG page visible; for that header alone.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "sys/krnos.h"

namespace pages::detail {

// The five characters that pages write as entities, and what is written.
struct Entity {
    char character;
    std::string_view written;
};
inline constexpr Entity Entities[] = {
    {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&apos;"}};

// The character at the front of a page's text as it was drawn, and the bytes that it takes on the page.
inline Entity characterAt(std::string_view text)
{
    for (const Entity& entity : Entities) {
        if (text.starts_with(entity.written)) {
            return entity;
        }
    }
    return {text[0], text.substr(0, 1)};
}

// A page and its marked copy, which are the same but for the texts: read side by side, so that what is text and what is markup
// is known from the page, where text is escaped, and not from the copy, where it is not.
class Highlighter {
public:
    Highlighter(std::string_view page, std::string_view marked, unsigned long color)
        : m_page(page), m_marked(marked)
    {
        const auto part = [color](int shift) {
            return std::to_string(color >> shift & 0xFFU);
        };
        m_hitTag = "<tspan fill='rgb(" + part(0) + ',' + part(8) + ',' + part(16) +
                   ")' text-decoration='underline'>";
    }

    // Nothing when the copy is none of the page.
    std::optional<std::string> run()
    {
        constexpr std::string_view End = "</text>";
        for (;;) {
            const std::size_t at = m_page.find("<text ");
            const std::size_t end = m_page.find(End, std::min(at, m_page.size()));
            if (end == std::string_view::npos) {
                break;
            }
            if (!takeSame(at) || !takeElement(m_page.substr(0, end + End.size() - at))) {
                return std::nullopt;
            }
        }
        return takeSame(m_page.size()) && m_marked.empty() ? std::optional(m_out) : std::nullopt;
    }

private:
    bool skip(std::string_view text)
    {
        const bool there = m_marked.starts_with(text);
        m_marked.remove_prefix(there ? text.size() : 0);
        return there;
    }

    bool takeSame(std::size_t count)
    {
        const std::string_view same = m_page.substr(0, count);
        m_page.remove_prefix(same.size());
        m_out += same;
        return skip(same);
    }

    // An element that the search could not read is as it was.
    bool takeElement(std::string_view element)
    {
        const std::string_view marked = m_marked;
        const std::size_t written = m_out.size();
        if (takeTexts(element)) {
            m_page.remove_prefix(element.size());
            return true;
        }
        m_marked = marked;
        m_out.resize(written);
        return takeSame(element.size());
    }

    bool takeTexts(std::string_view element)
    {
        constexpr std::string_view Span = "<tspan";
        constexpr std::string_view SpanEnd = "</tspan>";
        std::size_t done = element.find('>') + 1;
        m_out += element.substr(0, done);
        if (!skip(element.substr(0, done))) {
            return false;
        }
        std::size_t span = element.find(Span, done);
        if (span == std::string_view::npos) {
            const std::size_t end = element.rfind('<');
            const bool taken = skip(Span) && takeMarked(element.substr(done, end - done)) && skip(SpanEnd);
            m_out += element.substr(end);
            return taken && skip("</text>\n");
        }
        for (; span != std::string_view::npos; span = element.find(Span, done)) {
            const std::size_t text = element.find('>', span) + 1;
            const std::size_t end = element.find(SpanEnd, text);
            if (end == std::string_view::npos) {
                return false;
            }
            m_out += element.substr(done, text - done);
            done = end;
            // A run without a hit is copied, with the byte after it.
            if (skip(element.substr(span, end + SpanEnd.size() + 1 - span))) {
                m_out += element.substr(text, end - text);
            } else if (!skip(element.substr(span, text - 1 - span)) ||
                       !takeMarked(element.substr(text, end - text)) || !skip(SpanEnd) || !skip("\n")) {
                return false;
            }
        }
        m_out += element.substr(done);
        return skip("</text>\n");
    }

    // The mark of a text, and the text, of which the marked part is highlighted.
    bool takeMarked(std::string_view text)
    {
        int start = 0;
        int length = 0;
        constexpr std::size_t LongestMark = 64;
        const std::size_t head = m_marked.substr(0, LongestMark).find('>');
        if (head == std::string_view::npos || intlSscanNumeric(std::string(m_marked.substr(0, head)).c_str(),
                                                               " tovo:find='%d,%d'", &start, &length) != 2) {
            return false;
        }
        m_marked.remove_prefix(head + 1);
        for (int place = 0; !text.empty(); ++place) {
            const Entity character = characterAt(text);
            m_out += length > 0 && place == start ? std::string_view(m_hitTag) : "";
            m_out += character.written;
            m_out += length > 0 && place == start + length - 1 ? "</tspan>" : "";
            text.remove_prefix(character.written.size());
            if (!skip({&character.character, 1})) {
                return false;
            }
        }
        return true;
    }

    std::string_view m_page; // what is still to be read
    std::string_view m_marked;
    std::string m_hitTag;
    std::string m_out;
};

} // namespace pages::detail

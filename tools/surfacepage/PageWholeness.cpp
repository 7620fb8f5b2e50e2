#include "PageWholeness.h"

#include <cstddef>
#include <cstring>
#include <string_view>

#include <windows.h>

#include "RecordWalk.h"

namespace pagetool {

namespace {

// Pieces of markup whose text is not looked into.
struct Bracket {
    std::string_view begin;
    std::string_view end;
};
constexpr Bracket Brackets[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}, {"<!", ">"}};

// Where the markup that begins here ends; npos: nowhere. Values in quotes may hold any character.
std::size_t endOfTag(std::string_view page, std::size_t begin)
{
    for (std::size_t at = page.find_first_of("'\">", begin); at != std::string_view::npos;
         at = page.find_first_of("'\">", at + 1)) {
        if (page[at] == '>') {
            return at + 1;
        }
        at = page.find(page[at], at + 1);
        if (at == std::string_view::npos) {
            break;
        }
    }
    return std::string_view::npos;
}

std::size_t endOfMarkup(std::string_view page, std::size_t begin)
{
    for (const Bracket& bracket : Brackets) {
        if (page.substr(begin, bracket.begin.size()) == bracket.begin) {
            const std::size_t end = page.find(bracket.end, begin + bracket.begin.size());
            return end == std::string_view::npos ? end : end + bracket.end.size();
        }
    }
    return endOfTag(page, begin + 1);
}

bool isElement(std::string_view markup)
{
    return markup[1] != '!' && markup[1] != '?';
}

std::string damageOfSvg(std::string_view page)
{
    std::size_t open = 0;
    for (std::size_t begin = page.find('<'); begin != std::string_view::npos;) {
        const std::size_t end = endOfMarkup(page, begin);
        if (end == std::string_view::npos) {
            return std::string("is cut short: the markup at byte ")
                .append(std::to_string(begin))
                .append(" does not end");
        }
        const std::string_view markup = page.substr(begin, end - begin);
        const bool closes = markup[1] == '/';
        if (closes && open > 0) {
            --open;
        } else if (!closes && isElement(markup) && markup[markup.size() - 2] != '/') {
            ++open;
        }
        begin = page.find('<', end);
    }
    return open == 0
               ? std::string()
               : std::string("is cut short: ").append(std::to_string(open)).append(" elements do not end");
}

} // namespace

std::string damageOf(const StoredPage& page)
{
    return page.isMetafile() ? walkRecords(page.bytes, [](const metafile::Record&) {})
                             : damageOfSvg(page.text());
}

std::optional<StoredPage> wholePart(const StoredPage& page)
{
    std::size_t length = 0;
    DWORD count = 0;
    walkRecords(page.bytes, [&](const metafile::Record& record) {
        length = record.position + record.bytes.size();
        ++count;
    });
    if (count < 2) {
        return std::nullopt;
    }
    StoredPage part{{page.bytes.begin(), page.bytes.begin() + static_cast<std::ptrdiff_t>(length)},
                    page.format};
    // [MS-EMF] 2.3.4.1; no palette.
    constexpr DWORD Size = 5 * sizeof(DWORD);
    constexpr DWORD End[] = {EMR_EOF, Size, 0, 0, Size};
    const auto* const end = reinterpret_cast<const unsigned char*>(End);
    part.bytes.insert(part.bytes.end(), end, end + sizeof(End));
    ++count;
    const auto size = static_cast<DWORD>(part.bytes.size());
    std::memcpy(part.data() + offsetof(ENHMETAHEADER, nBytes), &size, sizeof(size));
    std::memcpy(part.data() + offsetof(ENHMETAHEADER, nRecords), &count, sizeof(count));
    return part;
}

} // namespace pagetool

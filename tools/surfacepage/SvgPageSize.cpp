#include "SvgPageSize.h"

#include <algorithm>
#include <vector>

#include "RecordingSurface.h"
#include "metaFilePlayerSVG.h"

namespace pagetool {

SvgPageSize svgPageSize(std::string_view page)
{
    // The sizes are in the page's first tag of this kind. A player wants the element closed and nothing in it.
    constexpr std::string_view Closing = "</svg>";
    const std::size_t tag = std::min(page.find("<svg"), page.size());
    const std::size_t end = std::min(page.find('>', tag), page.size() - 1);
    std::vector<unsigned char> head(page.begin(), page.begin() + static_cast<std::ptrdiff_t>(end) + 1);
    head.insert(head.end(), Closing.begin(), Closing.end());
    RecordingSurface surface([](const std::string&) {});
    CMetaFilePlayerSVG player(head.data(), static_cast<unsigned int>(head.size()));
    RECT nowhere{};
    player.play(&surface, &nowhere);
    return {{surface.m_width, surface.m_height}, {surface.m_pageWidth, surface.m_pageHeight}};
}

} // namespace pagetool

#include <algorithm>

#include "PageInventory.h"
#include "SvgPageSize.h"
#include "commands.h"
#include "metaFilePlayer.h"
#include "quotedText.h"

namespace pagetool {

namespace {

std::string by(long long width, long long height, const char* unit)
{
    return std::to_string(width).append(" x ").append(std::to_string(height)).append(" ").append(unit);
}

std::string sizeOf(StoredPage& page)
{
    if (!page.isMetafile()) {
        const SvgPageSize size = svgPageSize(page.text());
        return by(size.millimetres.cx, size.millimetres.cy, "mm, ") +
               by(size.units.cx, size.units.cy, "units");
    }
    unsigned int width = 0;
    unsigned int height = 0;
    CMetaFilePlayer::getImageSize(page.data(), static_cast<int>(page.size()), width, height);
    return by(width, height, "pixels of the device it was made for");
}

// "3: 2 rect, 1 text", the most frequent first.
std::string summaryOf(const std::map<std::string, std::size_t>& parts)
{
    std::vector<std::pair<std::string, std::size_t>> byNumber(parts.begin(), parts.end());
    std::stable_sort(byNumber.begin(), byNumber.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    std::size_t total = 0;
    std::string list;
    for (const auto& [name, number] : byNumber) {
        total += number;
        list.append(list.empty() ? ": " : ", ").append(std::to_string(number)).append(" ").append(name);
    }
    return std::to_string(total).append(list);
}

class Listing {
public:
    void line(const std::string& name, const std::string& value)
    {
        constexpr std::size_t NameWidth = 12;
        text.append("  ").append(name).append(NameWidth - name.size(), ' ').append(value).append("\n");
    }
    void list(const std::string& name, const std::vector<std::string>& values, bool brief)
    {
        line(name, std::to_string(values.size()));
        for (std::size_t i = 0; !brief && i < values.size(); ++i) {
            text.append("    ").append(values[i]).append("\n");
        }
    }

    std::string text;
};

} // namespace

Outcome infoCommand(FileJob& job, const InfoOptions& options)
{
    std::optional<StoredPage> page = readPage(job);
    if (!page) {
        return Outcome::Failed;
    }
    const PageInventory inventory = inventoryOf(*page);
    Listing sheet{job.file() + "\n"};
    sheet.line("format", page->isMetafile() ? "enhanced metafile" : "SVG page");
    sheet.line("length", std::to_string(page->size()).append(" bytes"));
    sheet.line("size", sizeOf(*page));
    sheet.line(page->isMetafile() ? "records" : "elements", summaryOf(inventory.parts));
    sheet.line("page counts", std::to_string(inventory.pageCounts));
    sheet.list("fonts", inventory.fonts, options.brief);
    sheet.list("images", inventory.images, options.brief);
    std::vector<std::string> texts;
    for (const PlacedText& text : inventory.texts) {
        texts.push_back(quotedText(text.text));
    }
    sheet.list("text", texts, options.brief);
    job.print(sheet.text);
    return inventory.damage.empty() ? Outcome::Done : job.fail(inventory.damage);
}

} // namespace pagetool

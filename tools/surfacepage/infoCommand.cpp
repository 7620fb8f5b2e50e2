#include <algorithm>
#include <iterator>
#include <utility>

#include "JsonLine.h"
#include "PageInventory.h"
#include "SvgPageSize.h"
#include "commands.h"
#include "metaFilePlayer.h"
#include "quotedText.h"

namespace pagetool {

namespace {

std::string by(const SIZE& size, const char* unit)
{
    return std::to_string(size.cx).append(" x ").append(std::to_string(size.cy)).append(" ").append(unit);
}

SIZE pixelsOf(StoredPage& metafile)
{
    unsigned int width = 0;
    unsigned int height = 0;
    CMetaFilePlayer::getImageSize(metafile.data(), static_cast<int>(metafile.size()), width, height);
    return {static_cast<LONG>(width), static_cast<LONG>(height)};
}

std::string sizeOf(StoredPage& page)
{
    if (page.isMetafile()) {
        return by(pixelsOf(page), "pixels of the device it was made for");
    }
    const SvgPageSize size = svgPageSize(page.text());
    return by(size.millimetres, "mm, ") + by(size.units, "units");
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
    template <class Part, class InWords>
    void list(const std::string& name, const std::vector<Part>& parts, InWords inWords, bool brief)
    {
        line(name, std::to_string(parts.size()));
        for (std::size_t i = 0; !brief && i < parts.size(); ++i) {
            text.append("    ").append(inWords(parts[i])).append("\n");
        }
    }

    std::string text;
};

const char* formatOf(const StoredPage& page)
{
    return page.isMetafile() ? "enhanced metafile" : "SVG page";
}

std::string sheetOf(const FileJob& job, StoredPage& page, const PageInventory& inventory, bool brief)
{
    Listing sheet{job.file() + "\n"};
    sheet.line("format", formatOf(page));
    sheet.line("length", std::to_string(page.size()).append(" bytes"));
    sheet.line("size", sizeOf(page));
    sheet.line(page.isMetafile() ? "records" : "elements", summaryOf(inventory.parts));
    sheet.line("page counts", std::to_string(inventory.pageCounts));
    sheet.list(
        "fonts", inventory.fonts, [](const PageFont& font) { return font.inWords(); }, brief);
    sheet.list(
        "images", inventory.images, [](const PagePicture& image) { return image.inWords(); }, brief);
    sheet.list(
        "text", inventory.texts, [](const PlacedText& text) { return quotedText(text.text); }, brief);
    return sheet.text;
}

Json sizeObjectOf(StoredPage& page)
{
    if (page.isMetafile()) {
        const SIZE pixels = pixelsOf(page);
        return {{"width", pixels.cx}, {"height", pixels.cy}, {"unit", "pixels"}};
    }
    const SvgPageSize size = svgPageSize(page.text());
    return {{"width", size.millimetres.cx},
            {"height", size.millimetres.cy},
            {"unit", "mm"},
            {"units", {size.units.cx, size.units.cy}}};
}

Json fontObjectOf(const PageFont& font)
{
    Json object = {{"face", jsonText(font.face)}};
    if (font.height != 0) {
        object["height"] = font.height;
    } else {
        object["points"] = font.points;
    }
    const std::pair<const char*, bool> looks[] = {{"bold", font.bold},
                                                  {"italic", font.italic},
                                                  {"underline", font.underline},
                                                  {"strikethru", font.strikethru}};
    for (const auto& [name, isOn] : looks) {
        object[name] = isOn;
    }
    return object;
}

Json pictureObjectOf(const PagePicture& picture)
{
    Json object = Json::object();
    if (picture.id) {
        object = {{"id", *picture.id}, {"type", picture.kind}, {"bytes", picture.bytes}};
    } else {
        object = {{"bits", picture.bits}};
    }
    object["width"] = picture.width;
    object["height"] = picture.height;
    return object;
}

template <class Part>
Json listOf(const std::vector<Part>& parts, Json (*objectOf)(const Part&))
{
    Json list = Json::array();
    std::transform(parts.begin(), parts.end(), std::back_inserter(list), objectOf);
    return list;
}

Json objectOf(const FileJob& job, StoredPage& page, const PageInventory& inventory, bool brief)
{
    Json object = jsonOf(job);
    object["format"] = formatOf(page);
    object["length"] = page.size();
    object["size"] = sizeObjectOf(page);
    object[page.isMetafile() ? "records" : "elements"] = inventory.parts;
    object["pageCounts"] = inventory.pageCounts;
    if (brief) {
        object["fonts"] = inventory.fonts.size();
        object["images"] = inventory.images.size();
        object["texts"] = inventory.texts.size();
    } else {
        object["fonts"] = listOf(inventory.fonts, fontObjectOf);
        object["images"] = listOf(inventory.images, pictureObjectOf);
        object["texts"] = jsonOf(inventory.texts);
    }
    if (!inventory.damage.empty()) {
        object["damage"] = inventory.damage;
    }
    return object;
}

} // namespace

Outcome infoCommand(FileJob& job, const InfoOptions& options)
{
    std::optional<StoredPage> page = readPage(job);
    if (!page) {
        return Outcome::Failed;
    }
    const PageInventory inventory = inventoryOf(*page);
    if (options.json) {
        printJson(job, objectOf(job, *page, inventory, options.brief));
    } else {
        job.print(sheetOf(job, *page, inventory, options.brief));
    }
    return inventory.damage.empty() ? Outcome::Done : job.fail(inventory.damage);
}

} // namespace pagetool

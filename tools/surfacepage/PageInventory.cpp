#include "PageInventory.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <memory>

#include "MetafileContents.h"
#include "PageWholeness.h"
#include "RecordingSurface.h"
#include "metaFilePlayer.h"

namespace pagetool {

namespace {

// The numbers of requiredPictureType.
struct PictureType {
    int number;
    const char* name;
};
constexpr PictureType PictureTypes[] = {{1, "bitmap"}, {3, "icon"}, {5, "icon"}, {6, "TIFF"},
                                        {7, "JPEG"},   {8, "PNG"},  {9, "GIF"}};

const char* pictureTypeName(int number)
{
    for (const PictureType& type : PictureTypes) {
        if (type.number == number) {
            return type.name;
        }
    }
    return "unknown type";
}

// Takes down what a player hands to it. The calls themselves are of no interest.
class InventorySurface : public RecordingSurface {
public:
    using RecordingSurface::drawString;
    using RecordingSurface::setFont;

    explicit InventorySurface(PageInventory& inventory)
        : RecordingSurface([](const std::string&) {}), m_inventory(inventory)
    {
    }

    void setFont(CSurfaceFont* font) override
    {
        if (font != nullptr) {
            m_inventory.addFont({font->getFaceName(), font->getSize(), 0, font->getBold(), font->getItalic(),
                                 font->getUnderline(), font->getStrikethru()});
        }
        RecordingSurface::setFont(font);
    }
    void includeImage(unsigned int id, unsigned char*, int size, int width, int height, int type) override
    {
        m_inventory.images.push_back(
            {id, width, height, pictureTypeName(type), static_cast<std::size_t>(size), 0});
    }
    void drawString(const char* text, RECT* rect, unsigned int) override { add(text, cornerOf(rect)); }
    bool drawString(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int) override
    {
        std::string text;
        for (unsigned int i = 0; chunks != nullptr && i < chunks->size(); ++i) {
            const CSurfaceTextChunk& chunk = *chunks->atGet(i);
            text.append(chunk.m_isNewLine && i > 0 ? " " : "");
            text.append(chunk.m_text.text(), chunk.m_text.length());
        }
        add(text.c_str(), cornerOf(rect));
        return true;
    }
    void drawText(const char* text, RECT* rect, unsigned int) override { add(text, cornerOf(rect)); }
    void drawTextAt(const char* text, POINT* point, unsigned int) override
    {
        add(text, point != nullptr ? *point : POINT{});
    }
    void drawTextOnBaseLine(int x, int y, unsigned int, RECT*, char* text, int length) override
    {
        if (text != nullptr) {
            add(std::string(text, strnlen(text, static_cast<std::size_t>(length))).c_str(), {x, y});
        }
    }
    void drawStringRotated(const char* text, RECT* rect, unsigned int, int, int) override
    {
        add(text, cornerOf(rect));
    }
    void setTransform(float a, float b, float c, float d, float dx, float dy) override
    {
        m_transform = {a, b, c, d, dx, dy};
        RecordingSurface::setTransform(a, b, c, d, dx, dy);
    }
    void clearTransform() override
    {
        m_transform = {1, 0, 0, 1, 0, 0};
        RecordingSurface::clearTransform();
    }

private:
    static POINT cornerOf(const RECT* rect)
    {
        return rect != nullptr ? POINT{rect->left, rect->top} : POINT{};
    }
    void add(const char* text, POINT at)
    {
        if (text == nullptr || *text == '\0') {
            return;
        }
        const double x = at.x;
        const double y = at.y;
        const auto [a, b, c, d, dx, dy] = m_transform;
        m_inventory.texts.push_back(
            {{at.x, at.y}, text, {onPage(x * a + y * c + dx), onPage(x * b + y * d + dy)}});
    }
    static LONG onPage(double value)
    {
        constexpr double Farthest = 1e9;
        return std::isfinite(value) ? static_cast<LONG>(std::lround(std::clamp(value, -Farthest, Farthest)))
                                    : 0;
    }

    XFORM m_transform{1, 0, 0, 1, 0, 0};
    PageInventory& m_inventory;
};

std::size_t count(std::string_view text, std::string_view wanted)
{
    std::size_t found = 0;
    for (std::size_t at = text.find(wanted); at != std::string_view::npos; at = text.find(wanted, at + 1)) {
        ++found;
    }
    return found;
}

void countElements(std::string_view page, PageInventory& inventory)
{
    for (std::size_t at = page.find('<'); at != std::string_view::npos; at = page.find('<', at + 1)) {
        std::size_t end = at + 1;
        while (end < page.size() && std::isalpha(static_cast<unsigned char>(page[end])) != 0) {
            ++end;
        }
        if (end > at + 1) {
            ++inventory.parts[std::string(page.substr(at + 1, end - at - 1))];
        }
    }
}

void takeSvgPage(StoredPage& page, PageInventory& inventory)
{
    countElements(page.text(), inventory);
    inventory.pageCounts = count(page.text(), "class='nofm'");
    InventorySurface surface(inventory);
    const std::unique_ptr<CMetaFilePlayer> player(CMetaFilePlayer::createPlayer(page.data(), page.size()));
    RECT nowhere{};
    if (player == nullptr || player->play(&surface, &nowhere) != 1) {
        inventory.damage = "can't be played";
    }
    if (std::string damage = damageOf(page); !damage.empty()) {
        inventory.damage = std::move(damage);
    }
}

void takeMetafile(StoredPage& page, PageInventory& inventory)
{
    inventory.damage = walkRecords(page.bytes, [&](const metafile::Record& record) {
        ++inventory.parts[recordName(record.type)];
        for (const PlacedText& text : textsOf(record)) {
            inventory.texts.push_back(text);
        }
        if (const std::optional<PageFont> font = fontOf(record)) {
            inventory.addFont(*font);
        }
        if (const std::optional<PagePicture> picture = pictureOf(record)) {
            inventory.images.push_back(*picture);
        }
        inventory.pageCounts += isPageCountMark(record) ? 1 : 0;
    });
}

} // namespace

void PageInventory::addFont(const PageFont& font)
{
    if (m_known.insert(font.inWords()).second) {
        fonts.push_back(font);
    }
}

bool isPageCountMark(const metafile::Record& record)
{
    constexpr std::string_view Mark = "TPC";
    constexpr std::size_t Length = Mark.size() + 2 * sizeof(LONG);
    const auto comment = record.field<EMRGDICOMMENT>(0);
    return record.type == EMR_GDICOMMENT && comment && comment->cbData == Length &&
           record.bytes.size() >= sizeof(EMRGDICOMMENT) + Length &&
           std::memcmp(record.bytes.data() + sizeof(EMRGDICOMMENT), Mark.data(), Mark.size()) == 0;
}

PageInventory inventoryOf(StoredPage& page)
{
    PageInventory inventory;
    if (page.isMetafile()) {
        takeMetafile(page, inventory);
    } else {
        takeSvgPage(page, inventory);
    }
    return inventory;
}

} // namespace pagetool

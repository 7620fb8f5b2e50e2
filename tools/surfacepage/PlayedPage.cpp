#include "PlayedPage.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>

#include "PageWholeness.h"
#include "SvgPageSize.h"
#include "metaFilePlayer.h"

namespace pagetool {

namespace {

constexpr std::int64_t HundredthsPerMillimetre = 100;

Sheet sheetOf(StoredPage& page)
{
    if (!page.isMetafile()) {
        const SvgPageSize size = svgPageSize(page.text());
        return size.isUsable() ? Sheet{size.millimetres.cx * HundredthsPerMillimetre,
                                       size.millimetres.cy * HundredthsPerMillimetre, size.units,
                                       static_cast<double>(size.units.cx)}
                               : Sheet{};
    }
    RECTL frame{};
    std::memcpy(&frame, page.data() + offsetof(ENHMETAHEADER, rclFrame), sizeof(frame));
    SIZEL device{};
    SIZEL millimetres{};
    std::memcpy(&device, page.data() + offsetof(ENHMETAHEADER, szlDevice), sizeof(device));
    std::memcpy(&millimetres, page.data() + offsetof(ENHMETAHEADER, szlMillimeters), sizeof(millimetres));
    Sheet sheet{std::int64_t{frame.right} - frame.left, std::int64_t{frame.bottom} - frame.top};
    if (device.cx > 0 && millimetres.cx > 0) {
        sheet.devicePixels = static_cast<double>(sheet.width) * device.cx /
                             (static_cast<double>(millimetres.cx) * HundredthsPerMillimetre);
    }
    return sheet;
}

} // namespace

bool Sheet::isUsable() const
{
    constexpr std::int64_t Most = std::numeric_limits<LONG>::max();
    return width > 0 && height > 0 && width <= Most && height <= Most;
}

int Sheet::pixels(std::int64_t length, double devicePixels, double deviceMillimetres)
{
    const double exact =
        static_cast<double>(length) * devicePixels / (deviceMillimetres * HundredthsPerMillimetre);
    return static_cast<int>(std::clamp(exact + 0.5, 1.0, 1e9));
}

std::optional<PlayedPage> PlayedPage::read(FileJob& job)
{
    std::optional<StoredPage> page = readPage(job);
    if (!page) {
        return std::nullopt;
    }
    std::string damage = damageOf(*page);
    if (!damage.empty() && page->isMetafile()) {
        page = wholePart(*page);
        if (!page) {
            job.complain(damage.append(", and nothing of it can be drawn"));
            return std::nullopt;
        }
    }
    PlayedPage played(std::move(*page), std::move(damage));
    if (!played.sheet().isUsable()) {
        job.complain("has no usable size");
        return std::nullopt;
    }
    return played;
}

PlayedPage::PlayedPage(StoredPage&& page, std::string&& missing)
    : m_page(std::move(page)), m_sheet(sheetOf(m_page)), m_missing(std::move(missing))
{
}

bool PlayedPage::play(CSurface& surface, int width, int height)
{
    const std::unique_ptr<CMetaFilePlayer> player(
        CMetaFilePlayer::createPlayer(m_page.data(), m_page.size()));
    RECT target{0, 0, width, height};
    if (player == nullptr) {
        return false;
    }
    if (player->play(&surface, &target) == 1) {
        return true;
    }
    // A metafile goes on after records that it can't play.
    if (m_page.isMetafile() && m_missing.empty()) {
        m_missing = "holds records that can't be played";
    }
    return m_page.isMetafile();
}

} // namespace pagetool

#include "StockObjects.h"

#include <iterator>

#include "DeviceContext.h"

using namespace wingdi;

namespace {

// Classic values of the system colours, from COLOR_SCROLLBAR (0) to COLOR_INFOTEXT (23).
constexpr COLORREF SystemColors[] = {
    0xC8D0D4, 0xA56E3A, 0x6A240A, 0x808080, 0xC8D0D4, 0xFFFFFF, 0x000000, 0x000000,
    0x000000, 0xFFFFFF, 0xC8D0D4, 0xC8D0D4, 0x808080, 0x6A240A, 0xFFFFFF, 0xC8D0D4,
    0x808080, 0x808080, 0x000000, 0xC8D0D4, 0xFFFFFF, 0x404040, 0xC8D0D4, 0x000000,
};
static_assert(std::size(SystemColors) == 24);

} // namespace

HGDIOBJ GetStockObject(int index)
{
    return guarded<HGDIOBJ>(nullptr, [&]() -> HGDIOBJ {
        const std::shared_ptr<GdiObject> object = stockObject(index);
        return object ? object->handle() : nullptr;
    });
}

DWORD GetSysColor(int index)
{
    return index >= 0 && index < static_cast<int>(std::size(SystemColors)) ? SystemColors[index] : 0;
}

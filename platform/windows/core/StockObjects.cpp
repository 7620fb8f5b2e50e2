#include "StockObjects.h"

#include <array>
#include <iterator>
#include <string_view>
#include <variant>

#include "AtModuleEnd.h"
#include "DeviceContext.h"
#include "HandleTable.h"

namespace wingdi {

using namespace krnos;

namespace {

struct StockBrush {
    UINT style;
    COLORREF color;
};
struct StockPen {
    DWORD style;
    COLORREF color;
};
struct StockFont {
    LONG height;
    LONG weight;
    BYTE pitch;
    std::u16string_view face;
};
using StockEntry = std::variant<std::monostate, StockBrush, StockPen, StockFont>;

constexpr StockEntry Entries[] = {
    /* WHITE_BRUSH */ StockBrush{BS_SOLID, 0xFFFFFF},
    /* LTGRAY_BRUSH */ StockBrush{BS_SOLID, 0xC0C0C0},
    /* GRAY_BRUSH */ StockBrush{BS_SOLID, 0x808080},
    /* DKGRAY_BRUSH */ StockBrush{BS_SOLID, 0x404040},
    /* BLACK_BRUSH */ StockBrush{BS_SOLID, 0},
    /* NULL_BRUSH */ StockBrush{BS_NULL, 0},
    /* WHITE_PEN */ StockPen{PS_SOLID, 0xFFFFFF},
    /* BLACK_PEN */ StockPen{PS_SOLID, 0},
    /* NULL_PEN */ StockPen{PS_NULL, 0},
    /* 9 */ std::monostate{},
    /* OEM_FIXED_FONT */ StockFont{12, FW_NORMAL, FIXED_PITCH | FF_MODERN, u"Terminal"},
    /* ANSI_FIXED_FONT */ StockFont{12, FW_NORMAL, FIXED_PITCH | FF_MODERN, u"Courier"},
    /* ANSI_VAR_FONT */ StockFont{12, FW_NORMAL, VARIABLE_PITCH | FF_SWISS, u"MS Sans Serif"},
    /* SYSTEM_FONT */ StockFont{16, FW_BOLD, VARIABLE_PITCH | FF_SWISS, u"System"},
    /* DEVICE_DEFAULT_FONT */ StockFont{16, FW_BOLD, VARIABLE_PITCH | FF_SWISS, u"System"},
    /* DEFAULT_PALETTE */ std::monostate{},
    /* SYSTEM_FIXED_FONT */ StockFont{15, FW_NORMAL, FIXED_PITCH | FF_MODERN, u"Fixedsys"},
    /* DEFAULT_GUI_FONT */ StockFont{-11, FW_NORMAL, VARIABLE_PITCH | FF_SWISS, u"MS Shell Dlg"},
    /* DC_BRUSH */ StockBrush{BS_SOLID, 0xFFFFFF},
    /* DC_PEN */ StockPen{PS_SOLID, 0},
};
static_assert(std::size(Entries) == STOCK_LAST + 1);

// The number of the bitmap that memory contexts begin with. GetStockObject doesn't give it out.
constexpr int DefaultBitmapIndex = 21;

struct Maker {
    std::shared_ptr<GdiObject> operator()(std::monostate /*nothing*/) const { return nullptr; }
    std::shared_ptr<GdiObject> operator()(const StockBrush& entry) const
    {
        auto brush = std::make_shared<BrushObject>();
        brush->style = entry.style;
        brush->color = entry.color;
        return brush;
    }
    std::shared_ptr<GdiObject> operator()(const StockPen& entry) const
    {
        auto pen = std::make_shared<PenObject>();
        pen->style = entry.style;
        pen->color = entry.color;
        return pen;
    }
    std::shared_ptr<GdiObject> operator()(const StockFont& entry) const
    {
        auto font = std::make_shared<FontObject>();
        font->description.lfHeight = entry.height;
        font->description.lfWeight = entry.weight;
        font->description.lfPitchAndFamily = entry.pitch;
        entry.face.copy(font->description.lfFaceName, LF_FACESIZE - 1);
        return font;
    }
};

using StockTable = std::array<std::shared_ptr<GdiObject>, STOCK_LAST + 1>;

StockTable makeStockTable()
{
    StockTable table;
    for (std::size_t index = 0; index < table.size(); ++index) {
        std::shared_ptr<GdiObject> object = std::visit(Maker{}, Entries[index]);
        if (object && HandleTable::instance().addStock(object, static_cast<int>(index)) != nullptr) {
            table[index] = std::move(object);
        }
    }
    return table;
}

// What is in the handle table lives as long as that: no longer than the last context or object.
template <class Stock>
void endUnlessUsed(Stock* stock)
{
    if (HandleTable::instance().count() == 0) {
        delete stock;
    }
}

} // namespace

std::shared_ptr<GdiObject> stockObject(int index)
{
    static const StockTable& table = *new StockTable(makeStockTable());
    static const AtModuleEnd End([] { endUnlessUsed(&table); });
    return index >= 0 && index <= STOCK_LAST ? table[static_cast<std::size_t>(index)] : nullptr;
}

std::shared_ptr<BitmapObject> makeDefaultBitmap()
{
    const auto make = [] {
        auto object = std::make_shared<BitmapObject>();
        object->bitmap = Bitmap::create(1, 1, 1, false, false);
        return object;
    };
    static const std::shared_ptr<BitmapObject>& stock = *[&make] {
        auto object = std::make_unique<std::shared_ptr<BitmapObject>>(make());
        HandleTable::instance().addStock(*object, DefaultBitmapIndex);
        return object.release();
    }();
    static const AtModuleEnd End([] { endUnlessUsed(&stock); });
    std::shared_ptr<BitmapObject> own = make();
    HandleTable::standFor(*own, *stock);
    return own->bitmap ? own : nullptr;
}

std::shared_ptr<BrushObject> makeSolidBrush(COLORREF color)
{
    auto brush = std::make_shared<BrushObject>();
    brush->color = color & 0xFFFFFF;
    return brush;
}

} // namespace wingdi

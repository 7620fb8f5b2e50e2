// The part of MetafileDevice that records pens, brushes and fonts: created when they are first used, deleted when the
// application has deleted them and they are not selected any more.
#include <cstring>
#include <optional>

#include "DeviceContext.h"
#include "MetafileDevice.h"
#include "PackedDib.h"

namespace wingdi {

void MetafileDevice::recordDeletions() noexcept
{
    m_objects.takeDeleted([this](DWORD entry) {
        m_buffer.append(EMR_DELETEOBJECT, EMRSELECTOBJECT{{}, entry});
    });
}

void MetafileDevice::recordSelection(DWORD entry)
{
    record(EMR_SELECTOBJECT, EMRSELECTOBJECT{{}, entry});
}

void MetafileDevice::objectSelected(DeviceContext& /*context*/, const std::shared_ptr<GdiObject>& object)
{
    if (const DWORD entry = entryOf(*object)) {
        recordSelection(entry);
        m_objects.select(object->kind(), entry);
    }
}

DWORD MetafileDevice::entryOf(const GdiObject& object)
{
    if (object.stockIndex() >= 0) {
        return ENHMETA_STOCK_OBJECT | static_cast<DWORD>(object.stockIndex());
    }
    if (const DWORD known = m_objects.find(object.handle())) {
        return known;
    }
    if (m_objects.anyDeleted()) {
        recordDeletions(); // which gives entries back
    }
    const DWORD entry = m_objects.add(object.handle());
    if (entry == 0 || !recordCreation(object, entry)) {
        m_buffer.stop();
        return 0;
    }
    return entry;
}

bool MetafileDevice::recordCreation(const GdiObject& object, DWORD entry)
{
    switch (object.kind()) {
    case ObjectKind::Pen:
        return recordPen(static_cast<const PenObject&>(object), entry);
    case ObjectKind::Brush:
        return recordBrush(static_cast<const BrushObject&>(object), entry);
    case ObjectKind::Font: {
        EMREXTCREATEFONTINDIRECTW fields{};
        fields.ihFont = entry;
        fields.elfw.elfLogFont = static_cast<const FontObject&>(object).description;
        return record(EMR_EXTCREATEFONTINDIRECTW, fields) != nullptr;
    }
    default:
        return false;
    }
}

bool MetafileDevice::recordPen(const PenObject& pen, DWORD entry)
{
    if (!pen.extended) {
        const auto width = static_cast<LONG>(pen.width);
        return record(EMR_CREATEPEN, EMRCREATEPEN{{}, entry, pen.style, {width, 0}, pen.color}) != nullptr;
    }
    EMREXTCREATEPEN fields{};
    fields.ihPen = entry;
    fields.elp = {pen.style, pen.width, pen.brushStyle,
                  pen.color, pen.hatch, static_cast<DWORD>(pen.dashes.size()),
                  {}};
    std::size_t further = 0; // dashes
    if (!pen.dashes.empty()) {
        fields.elp.elpStyleEntry[0] = pen.dashes.front();
        further = (pen.dashes.size() - 1) * sizeof(DWORD);
    }
    const BitmapView view = pen.pattern ? pen.pattern->view() : BitmapView{};
    std::optional<PackedDib> dib;
    if (pen.pattern) {
        dib.emplace(view);
        const bool monochrome = pen.brushStyle == BS_PATTERN && pen.pattern->isMonochrome();
        fields.elp.elpBrushStyle = monochrome ? BS_PATTERN : BS_DIBPATTERNPT;
        fields.offBmi = static_cast<DWORD>(sizeof(fields) + further);
        fields.cbBmi = static_cast<DWORD>(dib->headLength());
        fields.offBits = fields.offBmi + fields.cbBmi;
        fields.cbBits = static_cast<DWORD>(dib->bitsLength());
    }
    BYTE* const tail = record(EMR_EXTCREATEPEN, fields, further + fields.cbBmi + fields.cbBits);
    if (tail == nullptr) {
        return false;
    }
    if (further != 0) {
        std::memcpy(tail, pen.dashes.data() + 1, further);
    }
    if (dib) {
        dib->writeHead(tail + further);
        dib->writeBits(tail + further + dib->headLength());
    }
    return true;
}

bool MetafileDevice::recordBrush(const BrushObject& brush, DWORD entry)
{
    if (!brush.pattern) {
        EMRCREATEBRUSHINDIRECT fields{};
        fields.ihBrush = entry;
        fields.lb = {brush.style, brush.color, brush.hatch};
        return record(EMR_CREATEBRUSHINDIRECT, fields) != nullptr;
    }
    // A monochrome pattern takes the context's colours when it is played; the colours of others are their own.
    const bool monochrome = brush.style == BS_PATTERN && brush.pattern->isMonochrome();
    const BitmapView view = brush.pattern->view();
    const PackedDib dib(view);
    EMRCREATEMONOBRUSH fields{};
    fields.ihBrush = entry;
    fields.iUsage = DIB_RGB_COLORS;
    fields.offBmi = sizeof(fields);
    fields.cbBmi = static_cast<DWORD>(dib.headLength());
    fields.offBits = fields.offBmi + fields.cbBmi;
    fields.cbBits = static_cast<DWORD>(dib.bitsLength());
    BYTE* const tail = record(monochrome ? EMR_CREATEMONOBRUSH : EMR_CREATEDIBPATTERNBRUSHPT, fields,
                              dib.headLength() + dib.bitsLength());
    if (tail == nullptr) {
        return false;
    }
    dib.writeHead(tail);
    dib.writeBits(tail + dib.headLength());
    return true;
}

} // namespace wingdi

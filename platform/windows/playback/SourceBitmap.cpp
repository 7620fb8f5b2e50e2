#include "SourceBitmap.h"

#include <cstring>

namespace wingdi {

SourceBitmap::SourceBitmap(HDC target, const FileDib& dib, bool monochrome)
{
    if (monochrome) {
        m_bitmap = CreateBitmap(dib.width(), dib.height(), 1, 1, nullptr);
        SetDIBits(target, m_bitmap, 0, static_cast<UINT>(dib.height()), dib.bits(), dib.info(),
                  DIB_RGB_COLORS);
        return;
    }
    void* bits = nullptr;
    m_bitmap = CreateDIBSection(target, dib.info(), DIB_RGB_COLORS, &bits, nullptr, 0);
    if (m_bitmap != nullptr && bits != nullptr) {
        std::memcpy(bits, dib.bits(), dib.bitsLength());
    }
}

SourceBitmap::~SourceBitmap()
{
    DeleteObject(m_bitmap);
}

SourceContext::SourceContext(HDC target, const SourceBitmap& bitmap, const XFORM& transform,
                             COLORREF background)
    : m_context(CreateCompatibleDC(target))
{
    SelectObject(m_context, bitmap.handle());
    SetBkColor(m_context, background);
    SetGraphicsMode(m_context, GM_ADVANCED);
    SetWorldTransform(m_context, &transform);
}

SourceContext::~SourceContext()
{
    DeleteDC(m_context);
}

} // namespace wingdi

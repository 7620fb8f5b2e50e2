#include "GdiObject.h"

#include "HandleTable.h"

namespace wingdi {

GdiObject::~GdiObject()
{
    if (m_handle != nullptr && m_stockIndex < 0) {
        HandleTable::instance().release(m_handle);
    }
}

} // namespace wingdi

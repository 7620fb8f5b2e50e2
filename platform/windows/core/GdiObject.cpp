#include "GdiObject.h"

#include "HandleTable.h"

GdiObject::~GdiObject()
{
    if (m_handle != nullptr && m_stockIndex < 0) {
        HandleTable::instance().release(m_handle);
    }
}

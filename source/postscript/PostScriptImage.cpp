// CPostScriptImage: its fields and its owners.
#include "surfacePSPrinter.h"

#include "moduleObjects.h"

using namespace drawing;

CPostScriptImage::CPostScriptImage()
    : m_width(0), m_height(0), m_bitsPerPixel(0), m_compressed(false), m_owners(1)
{
}

CPostScriptImage::CPostScriptImage(const CPostScriptImage& other)
    : m_width(other.m_width), m_height(other.m_height), m_data(other.m_data),
      m_bitsPerPixel(other.m_bitsPerPixel), m_compressed(other.m_compressed), m_owners(1)
{
}

CPostScriptImage& CPostScriptImage::operator=(const CPostScriptImage& other)
{
    m_data = other.m_data;
    m_width = other.m_width;
    m_height = other.m_height;
    m_bitsPerPixel = other.m_bitsPerPixel;
    m_compressed = other.m_compressed;
    return *this;
}

CPostScriptImage::~CPostScriptImage() = default;

void CPostScriptImage::addOwner()
{
    m_owners.fetch_add(1, std::memory_order_relaxed);
}

void CPostScriptImage::removeOwner()
{
    if (m_owners.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        delete this;
    }
}

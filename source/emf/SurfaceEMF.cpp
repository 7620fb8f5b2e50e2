#include "surfaceEMF.h"

#include "PageCountMarker.h"

using namespace metafile;

CSurfaceEMF::CSurfaceEMF() : m_initialFont(nullptr), m_metafile(nullptr) {}

CSurfaceEMF::CSurfaceEMF(RECT* bounds) : m_initialFont(nullptr), m_metafile(nullptr)
{
    m_hdc = CreateEnhMetaFileA(nullptr, nullptr, bounds, nullptr);
    m_initialFont = static_cast<HFONT>(GetCurrentObject(m_hdc, OBJ_FONT));
}

CSurfaceEMF::~CSurfaceEMF()
{
    if (m_metafile != nullptr) {
        DeleteEnhMetaFile(m_metafile);
    }
}

void CSurfaceEMF::getData(unsigned char* buffer, unsigned int& size)
{
    if (buffer != nullptr) {
        GetEnhMetaFileBits(m_metafile, size, buffer);
    }
}

int CSurfaceEMF::getDataLength()
{
    return m_metafile != nullptr ? static_cast<int>(GetEnhMetaFileBits(m_metafile, 0, nullptr)) : 0;
}

int CSurfaceEMF::closeSurface()
{
    if (GetCurrentObject(m_hdc, OBJ_FONT) != m_initialFont) {
        SelectObject(m_hdc, m_initialFont);
    }
    if (m_hdc != nullptr) {
        m_metafile = CloseEnhMetaFile(m_hdc);
    }
    m_hdc = nullptr;
    return m_metafile != nullptr ? 0 : -1;
}

int CSurfaceEMF::getSurfaceType()
{
    return 1;
}

void CSurfaceEMF::printerNofMMarker(POINT point)
{
    std::array<BYTE, PageCountMarker::Size> marker = PageCountMarker{point.x, point.y}.data();
    GdiComment(getHDC(), static_cast<UINT>(marker.size()), marker.data());
}

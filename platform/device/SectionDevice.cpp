// gdidevice.h on Windows: a memory context with a section of memory for its bitmap, which the system's functions paint.
#include "gdidevice.h"

#include <algorithm>
#include <cstdint>
#include <mutex>
#include <new>
#include <vector>

#include "AtModuleEnd.h"
#include "PngFile.h"

using namespace krnos;

namespace {

constexpr int BytesPerPixel = 4;

struct Page {
    HDC device;
    HBITMAP bitmap;
    unsigned char* bits;
    int width;
    int height;
};

// Contexts end without a word to this module. Only the thread that draws on a context may look into it; of those of other
// threads the handle must do, which may be in use again.
bool isOver(const Page& old, HDC newDevice)
{
    return old.device == newDevice || GetObjectType(old.device) != OBJ_MEMDC;
}

class Pages {
public:
    Pages() = default;
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;
    ~Pages()
    {
        for (const Page& page : m_pages) {
            DeleteObject(page.bitmap);
        }
    }

    void add(const Page& page)
    {
        const std::lock_guard lock(m_mutex);
        std::erase_if(m_pages, [&page](const Page& old) {
            return isOver(old, page.device) && DeleteObject(old.bitmap) != FALSE;
        });
        m_pages.push_back(page);
    }

    // Without bits: no page.
    Page find(HDC device)
    {
        const std::lock_guard lock(m_mutex);
        const auto found = std::find_if(m_pages.begin(), m_pages.end(), [device](const Page& page) {
            return page.device == device && GetCurrentObject(device, OBJ_BITMAP) == page.bitmap;
        });
        return found != m_pages.end() ? *found : Page{};
    }

private:
    std::mutex m_mutex;
    std::vector<Page> m_pages;
};

Pages& pages()
{
    static Pages* const all = new Pages;
    static const AtModuleEnd end([] { delete all; });
    return *all;
}

bool isPossible(const GdiDeviceOptions& options)
{
    constexpr std::int64_t MostBytes = std::int64_t{256} << 20;
    return options.width > 0 && options.height > 0 && options.dpi > 0 &&
           std::int64_t{options.width} * options.height <= MostBytes / BytesPerPixel;
}

// Contexts in memory have the resolution of the screen, by which fonts get their size.
int dotsPerInchOfPages()
{
    const HDC context = CreateCompatibleDC(nullptr);
    const int dotsPerInch = GetDeviceCaps(context, LOGPIXELSY);
    DeleteDC(context);
    return dotsPerInch;
}

// Null, and nothing is left, where the system has no memory for it.
HDC createPage(const GdiDeviceOptions& options)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = options.width;
    info.bmiHeader.biHeight = -options.height; // from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 8 * BytesPerPixel;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HDC device = CreateCompatibleDC(nullptr);
    if (bitmap != nullptr && device != nullptr && SelectObject(device, bitmap) != nullptr) {
        auto* const pixels = static_cast<unsigned char*>(bits);
        // With zero in the unused byte, as the system's own painting leaves it: a flood looks at it.
        std::fill_n(static_cast<std::uint32_t*>(bits),
                    std::size_t(options.width) * std::size_t(options.height), 0xFFFFFFU);
        try {
            pages().add({device, bitmap, pixels, options.width, options.height});
            return device;
        } catch (const std::bad_alloc&) {
        }
    }
    DeleteDC(device);
    DeleteObject(bitmap);
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

} // namespace

HDC gdiCreateDevice(const GdiDeviceOptions* options)
{
    const GdiDeviceOptions wanted = options != nullptr ? *options : GdiDeviceOptions{};
    if (!isPossible(wanted)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (wanted.dpi != dotsPerInchOfPages()) {
        SetLastError(ERROR_NOT_SUPPORTED);
        return nullptr;
    }
    return createPage(wanted);
}

const unsigned char* gdiDeviceBits(HDC device, int* strideBytes)
{
    const Page page = pages().find(device);
    if (page.bits != nullptr && strideBytes != nullptr) {
        *strideBytes = page.width * BytesPerPixel;
    }
    GdiFlush(); // the system may keep calls together
    return page.bits;
}

int gdiDeviceCalls(HDC, const char*)
{
    return -1;
}

bool gdiSavePng(HDC device, const char* path)
{
    const Page page = pages().find(device);
    GdiFlush();
    return page.bits != nullptr && path != nullptr &&
           device::writePng(path, page.bits, static_cast<std::size_t>(page.width) * BytesPerPixel, page.width,
                            page.height);
}

int gdiUnplayedRecords(DWORD)
{
    return 0;
}

// Documents are painted by this project's own layer, which Windows builds don't have.

HDC gdiCreateDocument(const GdiDocumentOptions* /*options*/)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return nullptr;
}

bool gdiSetPageSize(HDC /*document*/, double /*width*/, double /*height*/, int /*dpi*/)
{
    return false;
}

bool gdiAddOutline(HDC /*document*/, const char* /*title*/)
{
    return false;
}

int gdiApproximations(HDC /*document*/)
{
    return 0;
}

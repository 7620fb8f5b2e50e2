// Surfaces of several threads at once: each gets its own page, as if it were alone. This program also runs under
// ThreadSanitizer (./test threads).
#include "support/PixelPage.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "surfaceEMF.h"
#include "surfaceHdc.h"

namespace {

// A page with a face, a size and figures of its own.
void drawPage(CSurfaceGDI& surface, int page)
{
    char faces[][16] = {"Arial", "Times New Roman", "Courier New"};
    for (int row = 0; row < 12; ++row) {
        surface.setFont(faces[(page + row) % 3], static_cast<float>(6 + (page + row) % 9), row % 2 == 0,
                        row % 3 == 0, false, false);
        surface.setPen(999UL * static_cast<unsigned long>(page), row % 5, 1 + row % 3);
        surface.setBrush(0xFF0000U >> (4U * static_cast<unsigned int>(row % 5)), row % 8);
        const LONG top = 20 * row;
        RECT rect{10, top, 200, top + 20};
        surface.drawRectangle(&rect);
        surface.drawText(("&Page " + std::to_string(page) + ", row " + std::to_string(row)).c_str(), &rect,
                         DT_CENTER);
        surface.drawStringRotated("turned", &rect, 0, row * 7, row * 7);
    }
}

#if defined(_WIN32)
// Wine leaves in a font record what happens to be after the ends of its names and of its fields ([MS-EMF] 2.2.13).
void clearAfterFaceNames(std::string& metafile)
{
    constexpr std::size_t faceName = 40;
    constexpr std::size_t afterNames = 296;
    constexpr std::size_t afterFields = 330;
    std::uint32_t head[2]{}; // type and size
    for (std::size_t at = 0; at + sizeof(head) <= metafile.size(); at += std::max(head[1], 8U)) {
        std::memcpy(head, metafile.data() + at, sizeof(head));
        std::size_t end = at + faceName;
        while (head[0] == EMR_EXTCREATEFONTINDIRECTW && metafile[end] != '\0') {
            end += sizeof(WCHAR);
        }
        if (head[0] == EMR_EXTCREATEFONTINDIRECTW) {
            metafile.replace(at + afterFields, head[1] - afterFields, head[1] - afterFields, '\0');
            std::fill(metafile.begin() + static_cast<std::ptrdiff_t>(end),
                      metafile.begin() + static_cast<std::ptrdiff_t>(at + afterNames), '\0');
        }
    }
}
#endif

std::string recordedPage(int page)
{
    RECT frame{0, 0, 10000, 10000};
    CSurfaceEMF surface(&frame);
    drawPage(surface, page);
    EXPECT_EQ(0, surface.closeSurface());
    std::string bytes(static_cast<std::size_t>(surface.getDataLength()), '\0');
    unsigned int size = static_cast<unsigned int>(bytes.size());
    surface.getData(reinterpret_cast<unsigned char*>(bytes.data()), size);
#if defined(_WIN32)
    clearAfterFaceNames(bytes);
#endif
    return bytes;
}

std::string paintedPage(int page)
{
    const PixelPage device(240, 260);
    std::string colors;
    CSurfaceHdc surface(device.context());
    drawPage(surface, page);
    for (int y = 0; y < device.height(); ++y) {
        for (int x = 0; x < device.width(); ++x) {
            const COLORREF color = device.at(x, y);
            colors.append(reinterpret_cast<const char*>(&color), sizeof(color));
        }
    }
    return colors;
}

TEST(SurfacesOnThreads, EachDrawItsOwnPage)
{
    constexpr int Pages = 8;
    std::vector<std::string> drawn(Pages);
    std::vector<std::thread> threads;
    threads.reserve(Pages);
    for (int page = 0; page < Pages; ++page) {
        threads.emplace_back([&drawn, page] {
            drawn[static_cast<std::size_t>(page)] = recordedPage(page) + paintedPage(page);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (int page = 0; page < Pages; ++page) {
        EXPECT_TRUE(drawn[static_cast<std::size_t>(page)] == recordedPage(page) + paintedPage(page)) << page;
    }
}

} // namespace

// Letters as large as a font's number allows: painted where they belong, and no pixels of them are kept.
#include <gtest/gtest.h>

#include <string>

#include <sys/resource.h>

#include "support/PixelPage.h"

namespace {

long peakOfMemory() // KiB
{
    rusage use{};
    getrusage(RUSAGE_SELF, &use);
    return use.ru_maxrss;
}

void write(HDC context, int height, const std::string& letters)
{
    LOGFONTA font{};
    font.lfHeight = -height;
    lstrcpyA(font.lfFaceName, "Arial");
    use(context, CreateFontIndirectA(&font));
    SetBkMode(context, TRANSPARENT);
    for (const char letter : letters) {
        ExtTextOutA(context, 0, 0, 0, nullptr, &letter, 1, nullptr);
    }
}

TEST(LargeLetters, LieWhereSmallOnesDo)
{
    for (const int height : {100, 200, 3000}) { // kept, and as outlines
        const PixelPage page(height / 2, height);
        write(page.context(), height, "I"); // whose stem is from 0.09 to 0.19 of the height
        EXPECT_EQ(page.at(height * 14 / 100, height / 2), Black) << height;
        EXPECT_EQ(page.at(height * 5 / 100, height / 2), White) << height;
        EXPECT_EQ(page.at(height * 25 / 100, height / 2), White) << height;
    }
}

TEST(LargeLetters, AreNotKeptAsPixels)
{
    constexpr long Most = 200 * 1024; // KiB; as pixels they take 3 GiB
    const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    const PixelPage page(100, 100);
    GdiDocumentOptions options;
    options.kind = GdiDocumentKind::Picture;
    options.write = [](const unsigned char*, std::size_t, void*) {
        return true;
    };
    options.pageWidth = options.pageHeight = 25.4;
    options.dpi = 96;
    const HDC picture = gdiCreateDocument(&options);
    DOCINFOA info{};
    info.cbSize = sizeof(info);
    StartDocA(picture, &info);
    StartPage(picture);
    const long before = peakOfMemory();
    for (const HDC context : {page.context(), picture}) {
        for (const int height : {9000, 10000, 32767}) {
            write(context, height, letters);
        }
    }
    EXPECT_LT(peakOfMemory() - before, Most);
    EXPECT_GT(EndDoc(picture), 0);
    DeleteDC(picture);
}

} // namespace

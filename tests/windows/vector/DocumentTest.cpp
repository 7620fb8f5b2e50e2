// Documents as programs make them: the order of calls, where the bytes go, what is in them.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

#include "support/PixelPage.h"
#include "support/encodedPicture.h"

namespace {

// Keeps its bytes, or loses all after so many.
struct Sink {
    std::string bytes;
    std::size_t room = std::string::npos;

    static bool write(const unsigned char* bytes, std::size_t count, void* context)
    {
        Sink& sink = *static_cast<Sink*>(context);
        if (count > sink.room) {
            return false;
        }
        sink.room -= sink.room == std::string::npos ? 0 : count;
        sink.bytes.append(reinterpret_cast<const char*>(bytes), count);
        return true;
    }
};

class Document : public testing::Test {
protected:
    ~Document() override { DeleteDC(m_context); }

    HDC begin(GdiDocumentOptions options = {})
    {
        options.write = Sink::write;
        options.context = &m_sink;
        options.pageWidth = options.pageHeight = 25.4;
        options.dpi = 96;
        m_context = gdiCreateDocument(&options);
        return m_context;
    }
    static int start(HDC context)
    {
        DOCINFOA info{};
        info.cbSize = sizeof(info);
        return StartDocA(context, &info);
    }
    bool holds(const char* text) const { return m_sink.bytes.find(text) != std::string::npos; }

    Sink m_sink;

private:
    HDC m_context = nullptr;
};

TEST_F(Document, TakesItsCallsInTheirOrder)
{
    const HDC d = begin();
    EXPECT_EQ(StartPage(d), SP_ERROR);
    EXPECT_EQ(EndPage(d), SP_ERROR);
    EXPECT_EQ(EndDoc(d), SP_ERROR);
    EXPECT_EQ(AbortDoc(d), SP_ERROR);
    EXPECT_EQ(StartDocA(d, nullptr), SP_ERROR);
    EXPECT_GT(start(d), 0);
    EXPECT_EQ(start(d), SP_ERROR);
    EXPECT_EQ(EndPage(d), SP_ERROR);
    EXPECT_GT(StartPage(d), 0);
    EXPECT_EQ(StartPage(d), SP_ERROR);
    EXPECT_TRUE(gdiAddOutline(d, "One"));
    EXPECT_TRUE(Rectangle(d, 1, 1, 9, 9));
    EXPECT_GT(EndPage(d), 0);
    EXPECT_FALSE(gdiAddOutline(d, "Two"));
    EXPECT_TRUE(gdiSetPageSize(d, 50.8, 25.4, 192));
    EXPECT_EQ(GetDeviceCaps(d, HORZRES), 384);
    EXPECT_EQ(GetDeviceCaps(d, LOGPIXELSY), 192);
    EXPECT_GT(StartPage(d), 0);
    EXPECT_GT(EndDoc(d), 0); // with the page that is open
    EXPECT_TRUE(holds("%PDF-") && holds("%%EOF"));
    EXPECT_GT(start(d), 0); // a document more on the same context
    EXPECT_EQ(EndDoc(d), SP_ERROR);
    const PixelPage page(4, 4);
    EXPECT_EQ(start(page.context()), SP_ERROR);
}

TEST_F(Document, AnswersAsAPrinterDoes)
{
    const HDC d = begin();
    EXPECT_EQ(GetDeviceCaps(d, RASTERCAPS), RC_BITBLT | RC_STRETCHBLT);
    EXPECT_EQ(GetDeviceCaps(d, HORZSIZE), 25);
    EXPECT_EQ(GetDeviceCaps(d, VERTRES), 96);
    start(d);
    StartPage(d);
    EXPECT_EQ(GetPixel(d, 1, 1), CLR_INVALID);
    EXPECT_FALSE(ExtFloodFill(d, 1, 1, White, FLOODFILLSURFACE));
    EXPECT_EQ(gdiApproximations(d), 0);
    SetROP2(d, R2_NOTXORPEN);
    Rectangle(d, 1, 1, 9, 9);
    EXPECT_EQ(gdiApproximations(d), 2);
}

TEST_F(Document, RefusesSizesThatItCannotHave)
{
    const struct {
        double width;
        double height;
        int dpi;
        double pictureDpi;
        GdiDocumentKind kind;
    } cases[] = {
        {0, 10, 96, 0, GdiDocumentKind::Pdf},
        {10, -1, 96, 0, GdiDocumentKind::Pdf},
        {std::numeric_limits<double>::quiet_NaN(), 10, 96, 0, GdiDocumentKind::Pdf},
        {10, 5081, 96, 0, GdiDocumentKind::Pdf},
        {10, 10, 0, 0, GdiDocumentKind::Pdf},
        {10, 10, 9601, 0, GdiDocumentKind::Pdf},
        {1000, 1000, 600, 0, GdiDocumentKind::Picture},
        {1000, 1000, 96, 9600, GdiDocumentKind::Picture},
        {0.1, 10, 96, 0, GdiDocumentKind::Picture},
        {10, 10, 96, std::numeric_limits<double>::quiet_NaN(), GdiDocumentKind::Picture},
        {5000, 10, 400, 0, GdiDocumentKind::Jpeg}, // wider than its format can be
    };
    for (const auto& entry : cases) {
        GdiDocumentOptions options;
        options.kind = entry.kind;
        options.pageWidth = entry.width;
        options.pageHeight = entry.height;
        options.dpi = entry.dpi;
        options.pictureDpi = entry.pictureDpi;
        EXPECT_EQ(gdiCreateDocument(&options), nullptr) << &entry - cases;
    }
}

TEST_F(Document, ThatCannotBeWrittenFails)
{
    for (const std::size_t room : {0U, 100U, 600U}) {
        m_sink = {{}, room};
        const HDC d = begin();
        bool good = start(d) > 0;
        for (int page = 0; page < 3; ++page) {
            good = StartPage(d) > 0 && good;
            Ellipse(d, 1, 1, 90, 90);
            good = EndPage(d) > 0 && good;
        }
        EXPECT_FALSE(EndDoc(d) > 0 && good) << room;
        DeleteDC(d);
        begin();
    }
}

// A file is the new one or the old one.
TEST_F(Document, TakesThePlaceOfAFileAtItsEnd)
{
    const std::string path = testing::TempDir() + "document.pdf";
    const auto contents = [&path] {
        std::ifstream in(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    };
    std::ofstream(path) << "old";
    for (const bool aborts : {true, false}) {
        GdiDocumentOptions options;
        options.path = path.c_str();
        const HDC d = gdiCreateDocument(&options);
        start(d);
        StartPage(d);
        Rectangle(d, 1, 1, 900, 900);
        EXPECT_TRUE(gdiAddOutline(d, "A page that may never be"));
        EXPECT_EQ(contents(), "old");
        EXPECT_GT(aborts ? AbortDoc(d) : EndDoc(d), 0);
        DeleteDC(d);
    }
    EXPECT_EQ(contents().substr(0, 5), "%PDF-");
    for (const auto& entry : std::filesystem::directory_iterator(testing::TempDir())) {
        EXPECT_FALSE(entry.path().string().starts_with(path + ".")) << entry.path();
    }
    std::filesystem::remove(path);
}

TEST_F(Document, IsTheSameForTheSameCalls)
{
    std::string before;
    for (const char* const epoch : {"", "", "86400"}) {
        setenv("SOURCE_DATE_EPOCH", epoch, 1);
        m_sink = {};
        GdiDocumentOptions options;
        options.title = "T";
        const HDC d = begin(options);
        start(d);
        StartPage(d);
        use(d, CreateHatchBrush(HS_CROSS, Red));
        Ellipse(d, 1, 1, 90, 90);
        EndDoc(d);
        EXPECT_EQ(holds("19700102"), *epoch != '\0');
        EXPECT_TRUE(before.empty() || *epoch != '\0' || before == m_sink.bytes);
        before = m_sink.bytes;
        DeleteDC(d);
    }
    unsetenv("SOURCE_DATE_EPOCH");
    begin();
}

// JPEG data stay what they are; of a part of the picture the pixels are taken.
TEST_F(Document, KeepsJpegAsJpeg)
{
    constexpr int Side = 8;
    const std::vector<unsigned char> jpeg = encodedPicture(FIF_JPEG, Side, 0x40);
    const BITMAPINFO info = encodedHead(BI_JPEG, Side, jpeg.size());
    for (const int part : {Side, Side - 1}) {
        m_sink = {};
        const HDC d = begin();
        start(d);
        StartPage(d);
        for (const int x : {0, 20}) {
            EXPECT_EQ(
                StretchDIBits(d, x, 0, 16, 16, 0, 0, part, part, jpeg.data(), &info, DIB_RGB_COLORS, SRCCOPY),
                part);
        }
        EXPECT_GT(EndDoc(d), 0);
        const std::string kept(jpeg.begin(), jpeg.end());
        const std::size_t first = m_sink.bytes.find(kept);
        EXPECT_EQ(first != std::string::npos, part == Side);
        EXPECT_EQ(m_sink.bytes.find(kept, first + 1), std::string::npos);
        DeleteDC(d);
    }
    begin();
}

// Numbers that no page has, clips of very many rectangles, pictures that lie elsewhere.
TEST_F(Document, EndsWellWhateverIsDrawn)
{
    const HDC d = begin();
    start(d);
    StartPage(d);
    constexpr LONG Far = std::numeric_limits<LONG>::max();
    Rectangle(d, -Far, -Far, Far, Far);
    Ellipse(d, -Far, 3, Far, 5);
    use(d, geometricPen(PS_DASH, 9, Blue));
    line(d, {-Far, -Far}, {Far, Far});
    BITMAPINFOHEADER head{40, 1, 1, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    const BYTE pixel[4] = {1, 2, 3, 0};
    for (const LONG size : {LONG{0}, LONG{1}, LONG{-1}, Far}) {
        StretchDIBits(d, Far - 9, 5, size, size, 0, 0, size, 1, pixel, reinterpret_cast<BITMAPINFO*>(&head),
                      DIB_RGB_COLORS, SRCCOPY);
    }
    SetGraphicsMode(d, GM_ADVANCED);
    for (const float value : {std::nanf(""), 1e30F, 1e-30F}) {
        const XFORM turn{value, 0, 0, value, value, 1};
        SetWorldTransform(d, &turn);
        Rectangle(d, 1, 1, 9, 9);
        ExtTextOutA(d, 1, 1, 0, nullptr, "A", 1, nullptr);
    }
    ModifyWorldTransform(d, nullptr, MWT_IDENTITY);
    const WCHAR noCharacters[] = {0xFFFF, 0xD83D, 0xDE00, 0xDE00, 7, 'A'};
    ExtTextOutW(d, 1, 1, 0, nullptr, noCharacters, 6, nullptr);
    for (int i = 0; i < 3000; ++i) {
        ExcludeClipRect(d, i % 96, i / 96 * 2, i % 96 + 1, i / 96 * 2 + 1);
        Rectangle(d, 0, 0, 96, 96);
    }
    EXPECT_GT(EndPage(d), 0);
    EXPECT_GT(EndDoc(d), 0);
    EXPECT_LT(m_sink.bytes.size(), std::size_t{16} << 20);
}

} // namespace

// The bounds in records and header hold every pixel that playing the metafile paints.
#include <gdidevice.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "support/MetafileRecords.h"
#include "support/PixelPage.h"

namespace {

constexpr int Side = 400;

struct Box {
    int left = Side;
    int top = Side;
    int right = -1;
    int bottom = -1;

    bool holds(const Box& other, int slack) const
    {
        return other.right < 0 || (left - slack <= other.left && top - slack <= other.top &&
                                   right + slack >= other.right && bottom + slack >= other.bottom);
    }
};

std::ostream& operator<<(std::ostream& stream, const Box& box)
{
    return stream << box.left << ' ' << box.top << ' ' << box.right << ' ' << box.bottom;
}

template <class Draw>
Box inkOf(const Draw& draw)
{
    const PixelPage page(Side, Side);
    draw(page.context());
    Box ink;
    for (int y = 0; y < Side; ++y) {
        for (int x = 0; x < Side; ++x) {
            if (page.at(x, y) != White) {
                ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x),
                       std::max(ink.bottom, y)};
            }
        }
    }
    return ink;
}

// Playback's transform has single precision: a place halfway between two pixels may round to either of them.
int slackOf(HDC context)
{
    return GetMapMode(context) == MM_TEXT && GetGraphicsMode(context) == GM_COMPATIBLE ? 0 : 1;
}

struct Recorded {
    Box header;
    Box record; // the first record of these types
    Box ink;    // of the metafile, played on a page of its resolution
    Box drawn;  // of the same calls on such a page
};

template <class Draw>
Recorded recorded(std::initializer_list<std::uint32_t> types, const Draw& draw)
{
    const RECT frame{0, 0, 50800, 38100};
    const HDC context = CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr);
    draw(context);
    const HENHMETAFILE metafile = CloseEnhMetaFile(context);
    std::vector<unsigned char> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
    GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
    Recorded result;
    result.ink = inkOf([metafile](HDC page) {
        const RECT screen{0, 0, 1920, 1440};
        EXPECT_TRUE(PlayEnhMetaFile(page, metafile, &screen));
    });
    result.drawn = inkOf(draw);
    DeleteEnhMetaFile(metafile);
    const auto boxOf = [](const MetafileRecord& record) {
        return Box{record.fields[0], record.fields[1], record.fields[2], record.fields[3]};
    };
    const std::vector<MetafileRecord> records = metafileRecords(bytes);
    result.header = boxOf(records.front());
    for (const MetafileRecord& record : records) {
        if (std::find(types.begin(), types.end(), record.type) != types.end()) {
            result.record = boxOf(record);
            break;
        }
    }
    return result;
}

class Random {
public:
    explicit Random(unsigned int seed) : m_engine(seed) {}
    int number(int low, int high)
    {
        return low + static_cast<int>(m_engine() % static_cast<unsigned int>(high - low + 1));
    }
    bool often() { return number(0, 2) != 0; }
    // Numbers of the page's middle, in whatever units fill it.
    POINT point() { return {number(0, 100), number(0, 100)}; }

private:
    std::mt19937 m_engine;
};

// Puts 100 by 100 logical units into the middle of the page: plainly, mirrored, unevenly, or turned and sheared.
void chooseMapping(HDC context, Random& random)
{
    const int kind = random.number(0, 3);
    if (kind == 0) {
        SetViewportOrgEx(context, 150, 150, nullptr);
        return;
    }
    const int width = random.number(20, 200);
    const int height = kind == 1 ? width : random.number(20, 200);
    if (kind < 3) {
        SetMapMode(context, MM_ANISOTROPIC);
        SetWindowExtEx(context, 100, 100, nullptr);
        const bool flip = random.number(0, 3) == 0;
        SetViewportExtEx(context, width, flip ? -height : height, nullptr);
        SetViewportOrgEx(context, 100, flip ? 300 : 100, nullptr);
        if (random.often()) {
            return;
        }
    }
    SetGraphicsMode(context, GM_ADVANCED);
    if (kind == 3) {
        const float angle = static_cast<float>(random.number(0, 62)) / 10;
        const float shear = static_cast<float>(random.number(-5, 5)) / 10;
        const float across = static_cast<float>(width) / 100;
        const float down = static_cast<float>(height) / 100;
        XFORM form{across * std::cos(angle),
                   across * std::sin(angle),
                   -down * std::sin(angle + shear),
                   down * std::cos(angle + shear),
                   0,
                   0};
        form.eDx = 200 - 50 * (form.eM11 + form.eM21);
        form.eDy = 200 - 50 * (form.eM12 + form.eM22);
        SetWorldTransform(context, &form);
    }
}

void choosePen(HDC context, Random& random)
{
    const int dashed = random.number(PS_DASH, PS_INSIDEFRAME);
    const DWORD style = random.often() ? PS_SOLID : static_cast<DWORD>(dashed);
    const int width = random.number(0, 3) == 0 ? random.number(2, 20) : random.number(0, 1);
    if (random.often()) {
        use(context, CreatePen(static_cast<int>(style), width, 0));
        return;
    }
    const LOGBRUSH brush{BS_SOLID, 0, 0};
    constexpr DWORD Caps[] = {PS_ENDCAP_ROUND, PS_ENDCAP_SQUARE, PS_ENDCAP_FLAT};
    constexpr DWORD Joins[] = {PS_JOIN_ROUND, PS_JOIN_BEVEL, PS_JOIN_MITER};
    use(context, ExtCreatePen(PS_GEOMETRIC | style | Caps[random.number(0, 2)] | Joins[random.number(0, 2)],
                              static_cast<DWORD>(width), &brush, 0, nullptr));
    SetMiterLimit(context, static_cast<FLOAT>(random.number(1, 12)), nullptr);
}

using Points = const POINT (&)[4];

HBRUSH gray()
{
    return static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH));
}

template <decltype(&Arc) part>
void drawPart(HDC context, Points p)
{
    part(context, p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y, p[3].x, p[3].y);
}

constexpr void (*Shapes[])(HDC, Points) = {
    [](HDC context, Points p) {
        MoveToEx(context, p[0].x, p[0].y, nullptr);
        LineTo(context, p[1].x, p[1].y);
    },
    [](HDC context, Points p) { Polyline(context, p, 4); },
    [](HDC context, Points p) { Polygon(context, p, 4); },
    [](HDC context, Points p) { PolyBezier(context, p, 4); },
    [](HDC context, Points p) { Rectangle(context, p[0].x, p[0].y, p[1].x, p[1].y); },
    [](HDC context, Points p) { RoundRect(context, p[0].x, p[0].y, p[1].x, p[1].y, 20, 30); },
    drawPart<Arc>,
    drawPart<Chord>,
    drawPart<Pie>,
    [](HDC context, Points p) {
        const RECT rect{p[0].x, p[0].y, p[1].x, p[1].y};
        FillRect(context, &rect, gray());
    },
    [](HDC context, Points p) {
        const HRGN region = CreateRectRgn(p[0].x, p[0].y, p[1].x, p[1].y);
        FillRgn(context, region, gray());
        DeleteObject(region);
    },
    [](HDC context, Points p) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), 1, 1, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        const DWORD gray = 0x808080;
        StretchDIBits(context, p[0].x, p[0].y, p[1].x - p[0].x, p[1].y - p[0].y, 0, 0, 1, 1, &gray, &info,
                      DIB_RGB_COLORS, SRCCOPY);
    },
    [](HDC context, Points p) {
        BeginPath(context);
        PolylineTo(context, p, 4);
        AngleArc(context, p[0].x, p[0].y, static_cast<DWORD>(p[1].x) / 2, 30, 200);
        EndPath(context);
        StrokeAndFillPath(context);
    },
};

TEST(DrawnBounds, HoldTheInkOfShapes)
{
    int painted = 0;
    for (unsigned int seed = 0; seed < 1500; ++seed) {
        int slack = 0;
        const Recorded result = recorded(
            {EMR_POLYLINE16, EMR_POLYGON16, EMR_POLYBEZIER16, EMR_BITBLT, EMR_FILLRGN, EMR_STROKEANDFILLPATH,
             EMR_STRETCHDIBITS},
            [&](HDC context) {
                Random random(seed);
                chooseMapping(context, random);
                choosePen(context, random);
                use(context, CreateSolidBrush(0x808080));
                SetArcDirection(context, random.often() ? AD_COUNTERCLOCKWISE : AD_CLOCKWISE);
                const POINT points[] = {random.point(), random.point(), random.point(), random.point()};
                Shapes[random.number(0, static_cast<int>(std::size(Shapes)) - 1)](context, points);
                slack = slackOf(context);
            });
        EXPECT_TRUE(result.header.holds(result.ink, slack))
            << seed << ": " << result.header << " < " << result.ink;
        EXPECT_TRUE(result.header.holds(result.drawn, 0))
            << seed << ": " << result.header << " < " << result.drawn;
        EXPECT_TRUE(result.record.right < 0 || result.record.holds(result.ink, slack))
            << seed << ": " << result.record;
        painted += result.ink.right < 0 ? 0 : 1;
    }
    EXPECT_GT(painted, 1250);
}

// Those of records hold the ink of turned text; of upright text they are the cell of its advances.
TEST(DrawnBounds, HoldTheInkOfText)
{
    for (unsigned int seed = 0; seed < 600; ++seed) {
        bool upright = true;
        int slack = 0;
        SIZE extent{};
        POINT at{};
        const Recorded result = recorded({EMR_EXTTEXTOUTW}, [&](HDC context) {
            Random random(seed);
            // Elsewhere letters are neither turned in their line nor stretched, but may be when they are played.
            const bool advanced = random.often();
            SetViewportOrgEx(context, 200, 200, nullptr);
            if (advanced) {
                chooseMapping(context, random);
                SetGraphicsMode(context, GM_ADVANCED);
            }
            LOGFONTA font{};
            font.lfHeight = random.number(-40, 40);
            font.lfItalic = random.often();
            font.lfUnderline = random.often();
            font.lfEscapement = random.often() ? 0 : random.number(0, 36) * 100;
            font.lfOrientation = !advanced || random.often() ? font.lfEscapement : random.number(0, 36) * 100;
            lstrcpyA(font.lfFaceName, random.often() ? "Times New Roman" : "Arial");
            use(context, CreateFontIndirectA(&font));
            SetBkMode(context, random.often() ? TRANSPARENT : OPAQUE);
            SetBkColor(context, 0xC0C0C0);
            const std::string text =
                std::string("jfQ_W/y").substr(static_cast<std::size_t>(random.number(0, 6)));
            XFORM form{};
            GetWorldTransform(context, &form);
            upright = font.lfEscapement % 3600 == 0 && font.lfOrientation % 3600 == 0 && form.eM12 == 0 &&
                      form.eM11 > 0 && form.eM22 > 0;
            slack = slackOf(context);
            GetTextExtentPoint32A(context, text.c_str(), static_cast<int>(text.size()), &extent);
            GetViewportOrgEx(context, &at);
            ExtTextOutA(context, 0, 0, 0, nullptr, text.c_str(), static_cast<UINT>(text.size()), nullptr);
        });
        EXPECT_TRUE(result.header.holds(result.ink, slack))
            << seed << ": " << result.header << " < " << result.ink;
        if (upright && slack == 0) {
            EXPECT_EQ(result.record.left, at.x) << seed;
            EXPECT_EQ(result.record.top, at.y);
            EXPECT_EQ(result.record.right, at.x + extent.cx - 1);
            EXPECT_EQ(result.record.bottom, at.y + extent.cy - 1);
        } else if (!upright) {
            EXPECT_TRUE(result.record.holds(result.ink, slack))
                << seed << ": " << result.record << " < " << result.ink;
        }
    }
}

} // namespace

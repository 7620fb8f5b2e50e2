// Writes a metafile with shapes, brushes, text and bitmaps: sample_metafile FILE.
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <vector>

namespace {

void select(HDC context, HGDIOBJ object)
{
    DeleteObject(SelectObject(context, object));
}

void drawShapes(HDC context)
{
    const LOGBRUSH blue{BS_SOLID, 0xC04000, 0};
    select(context, ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_JOIN_MITER, 5, &blue, 0, nullptr));
    select(context, CreateSolidBrush(0x80E0FF));
    Rectangle(context, 20, 20, 180, 100);
    select(context, CreateHatchBrush(HS_DIAGCROSS, 0x0000C0));
    RoundRect(context, 200, 20, 360, 100, 30, 30);
    select(context, CreatePen(PS_SOLID, 1, 0));
    Ellipse(context, 380, 20, 540, 100);
    Pie(context, 20, 120, 180, 220, 180, 170, 100, 120);
    const POINT star[] = {{280, 120}, {310, 220}, {205, 160}, {355, 160}, {250, 220}};
    SetPolyFillMode(context, WINDING);
    Polygon(context, star, 5);
    BeginPath(context);
    const POINT curve[] = {{380, 170}, {420, 80}, {500, 260}, {540, 170}};
    PolyBezier(context, curve, 4);
    EndPath(context);
    StrokePath(context);
    const RECT fill{20, 240, 180, 280};
    FillRect(context, &fill, static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH)));
}

void drawText(HDC context)
{
    LOGFONTA font{};
    font.lfHeight = -28;
    font.lfWeight = FW_BOLD;
    std::strcpy(font.lfFaceName, "Liberation Sans");
    select(context, CreateFontIndirectA(&font));
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, 0x006000);
    ExtTextOutA(context, 200, 240, 0, nullptr, "Metafile \xE9\xDF", 11, nullptr);
}

void drawBitmap(HDC context)
{
    constexpr int Side = 16;
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), Side, Side, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<BYTE> rows;
    for (int y = 0; y < Side; ++y) {
        for (int x = 0; x < Side; ++x) {
            rows.insert(rows.end(), {static_cast<BYTE>(x * 16), static_cast<BYTE>(y * 16), 64});
        }
    }
    StretchDIBits(context, 420, 230, 80, 80, 0, 0, Side, Side, rows.data(), &info, DIB_RGB_COLORS, SRCCOPY);
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        return 2;
    }
    const RECT frame{0, 0, 560 * 50800 / 1920, 330 * 50800 / 1920};
    const HDC context = CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr);
    drawShapes(context);
    drawText(context);
    drawBitmap(context);
    const HENHMETAFILE metafile = CloseEnhMetaFile(context);
    std::vector<BYTE> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
    GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
    DeleteEnhMetaFile(metafile);
    std::FILE* const file = std::fopen(arguments[1], "wb");
    const bool written =
        file != nullptr && !bytes.empty() && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return file != nullptr && std::fclose(file) == 0 && written ? 0 : 1;
}

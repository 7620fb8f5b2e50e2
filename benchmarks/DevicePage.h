// The table page as pixels and as a metafile: drawn by CSurfaceHdc on a device of 300 dots per inch beside cairo on an
// image of the same size, and recorded by CSurfaceEMF beside libEMF.
#pragma once

#include <memory>
#include <string>

#include <windows.h>

// A4 at 300 dots per inch, of which the table of 50 rows takes the upper part.
inline constexpr SIZE SheetPixels{2480, 3508};
inline constexpr int SheetDotsPerInch = 300;
inline constexpr int DotsPerTenUnits = 31;

// A white sheet on which the table can be drawn again and again.
class TableSheet {
public:
    TableSheet() = default;
    TableSheet(const TableSheet&) = delete;
    TableSheet& operator=(const TableSheet&) = delete;
    virtual ~TableSheet() = default;

    virtual void draw(int rows) = 0;
    // Rows of the sheet from the top, four bytes a pixel, of which the last does not count.
    virtual const unsigned char* pixels(int& rowBytes) = 0;
};

// What is measured is `draw`: sheet, surface and cairo context are made before.
std::unique_ptr<TableSheet> makeDeviceSheet();
// `smooth`: with edges smoothed, as cairo does when nobody asks; else as the device paints.
std::unique_ptr<TableSheet> makeCairoSheet(bool smooth);

void recordSurfaceTable(int rows, std::string& page);
void recordPeerTable(int rows, std::string& page);

// Whether cairo's sheet and both metafiles, played, show what the surface's sheet shows, but for hatches and edges.
// Says on standard error what does not.
bool sheetsAgree(int rows);

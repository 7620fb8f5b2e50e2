#include "MetafilePage.h"

#include <cstring>
#include <iostream>

#include "PageWork.h"
#include "TextPage.h"
#include "surfaceEMF.h"

void makeMetafilePage(int records, std::string& page)
{
    constexpr int LineHeight = 20;
    constexpr int Width = 700;
    RECT bounds{0, 0, 21000, 29700}; // hundredths of a millimetre
    CSurfaceEMF surface(&bounds);
    char face[] = "Helvetica";
    surface.setFont(face, 10, false, false, false, false);
    for (int record = 1; record <= records; ++record) {
        RECT line{10, record * LineHeight, Width, (record + 1) * LineHeight};
        std::string text = "Record " + std::to_string(record);
        text.append(" of the page that is kept");
        if (record == records - 1) {
            surface.printerNofMMarker({line.left, line.right});
        } else if (record == records) {
            text = std::string("In ").append(ClosingWord);
        }
        surface.drawString(text.c_str(), &line, DT_LEFT | DT_SINGLELINE);
    }
    takePage(surface, page);
}

bool copyPage(std::string& page)
{
    static std::string copy;
    copy.resize(page.size());
    std::memcpy(copy.data(), page.data(), page.size());
    return !page.empty();
}

bool metafileWorks(int records)
{
    std::string page;
    makeMetafilePage(records, page);
    const std::string count(PageCountText);
    const bool stamped = findInPage(page, {count.c_str(), true, true}).markedBytes == 0 && stampPage(page) &&
                         findInPage(page, {count.c_str(), true, true}).markedBytes > page.size();
    bool searched = true;
    for (const bool wholeWord : {false, true}) {
        searched = searched && findInPage(page, {ClosingWord, false, wholeWord}).markedBytes > page.size() &&
                   findInPage(page, {MissingWord, false, wholeWord}).markedBytes == 0;
    }
    if (!stamped || !searched) {
        std::cerr << (stamped ? "the metafile was not searched\n" : "the metafile was not stamped\n");
    }
    return stamped && searched;
}

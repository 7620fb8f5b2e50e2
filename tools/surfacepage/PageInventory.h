// What is on a page: its parts by name, fonts, images, texts.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "PageFile.h"
#include "PageParts.h"
#include "PlacedText.h"
#include "RecordWalk.h"

namespace pagetool {

struct PageInventory {
    // Listed once, in the order of their first use.
    void addFont(const PageFont& font);

    std::map<std::string, std::size_t> parts; // elements or records, and how many of each
    std::vector<PageFont> fonts;
    std::vector<PagePicture> images;
    std::vector<PlacedText> texts; // in the order of drawing
    std::size_t pageCounts = 0;    // places that a stamp looks for
    std::string damage;            // what is wrong with the page; empty: nothing

private:
    std::set<std::string> m_known;
};

PageInventory inventoryOf(StoredPage& page);

// Whether a record lets the text after it be stamped.
bool isPageCountMark(const metafile::Record& record);

} // namespace pagetool

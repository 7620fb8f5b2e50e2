// The pages that metafiles are played on.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/HandMadeMetafile.h"
#include "support/PixelPage.h"

inline bool play(HDC target, const std::vector<unsigned char>& bytes, const RECT& rect)
{
    const HENHMETAFILE metafile = SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data());
    const bool played = PlayEnhMetaFile(target, metafile, &rect) != FALSE;
    DeleteEnhMetaFile(metafile);
    return played;
}

// A page of the frame's size; its picture has a blank after each row.
class Page : public PixelPage {
public:
    Page() : PixelPage(12, 6) {}

    std::string picture() const
    {
        std::string rows = PixelPage::picture().substr(1) + ' ';
        std::replace(rows.begin(), rows.end(), '\n', ' ');
        return rows;
    }
};

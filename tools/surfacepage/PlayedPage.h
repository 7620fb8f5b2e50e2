// A stored page on its way to another format: its size, and what of it could be drawn.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <windows.h>

#include "PageFile.h"

class CSurface;

namespace pagetool {

// The paper of a page in hundredths of a millimetre, and the extent of an SVG page's coordinates.
struct Sheet {
    bool isUsable() const;
    RECT frame() const { return {0, 0, static_cast<LONG>(width), static_cast<LONG>(height)}; }
    // Of a device with so many pixels on so many millimetres.
    static int pixels(std::int64_t length, double devicePixels, double deviceMillimetres);

    std::int64_t width = 0;
    std::int64_t height = 0;
    SIZE units{};            // 0: a metafile
    double devicePixels = 0; // its width on the device that the page was made for
};

class PlayedPage {
public:
    // Nothing for a file that is no page, has no usable size or nothing that can be drawn; it has been said then.
    static std::optional<PlayedPage> read(FileJob& job);

    bool isMetafile() const { return m_page.isMetafile(); }
    const Sheet& sheet() const { return m_sheet; }
    // Draws it on a target of this size. False when it can't be drawn.
    bool play(CSurface& surface, int width, int height);
    // What is missing of that which was played; empty: nothing.
    const std::string& missing() const { return m_missing; }

private:
    PlayedPage(StoredPage&& page, std::string&& missing);

    StoredPage m_page;
    Sheet m_sheet;
    std::string m_missing;
};

} // namespace pagetool

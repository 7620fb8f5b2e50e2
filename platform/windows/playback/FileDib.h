// A device-independent bitmap that a record holds, checked and brought into the form in which the functions of
// <windows.h> take it: they trust the head they are given.
#pragma once

#include <windows.h>

#include <cstdlib>
#include <optional>
#include <vector>

#include "Bitmap.h"
#include "Playback.h"
#include "sys/recordReader.h"

namespace wingdi {

// Where in a record head and pixels of a bitmap are.
struct DibPlace {
    DWORD headOffset;
    DWORD headLength;
    DWORD bitsOffset;
    DWORD bitsLength;
};

class FileDib {
public:
    // False when the place leaves the record.
    static bool stands(const metafile::Record& record, const DibPlace& place) noexcept;
    // Nothing for a bitmap of unsound or unknown form. With `rows` above 0 only so many are there, from the first.
    // `encoded`: it may be JPEG or PNG, which StretchDIBits alone takes.
    static std::optional<FileDib> read(Playback& playback, const metafile::Record& record,
                                       const DibPlace& place, UINT usage, LONG rows = 0,
                                       bool encoded = false);

    const BITMAPINFO* info() const noexcept { return reinterpret_cast<const BITMAPINFO*>(m_head.data()); }
    const BYTE* bits() const noexcept { return m_bits.data(); }
    // Of the rows alone, whatever may follow them in the record.
    std::size_t bitsLength() const noexcept { return m_bits.size(); }
    // Head and rows in one piece.
    std::vector<BYTE> packed() const;
    BitmapView view() const;
    bool isEncoded() const noexcept;
    int width() const noexcept { return info()->bmiHeader.biWidth; }
    int height() const noexcept { return std::abs(info()->bmiHeader.biHeight); }
    bool bottomUp() const noexcept { return info()->bmiHeader.biHeight > 0; }
    // One bit a pixel, black and white: the form in which monochrome bitmaps are in files.
    bool isMonochrome() const noexcept;

private:
    static std::optional<FileDib> readEncoded(Playback& playback, std::vector<BYTE> head,
                                              std::span<const BYTE> bits);

    std::vector<BYTE> m_head; // with palette
    std::vector<BYTE> m_owned;
    std::span<const BYTE> m_bits;
};

} // namespace wingdi

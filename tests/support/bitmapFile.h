// Images for the tests, as the bytes of a Windows bitmap file.
#pragma once

#include <string>
#include <utility>

// A Windows bitmap; `pixels` holds blue, green, red and, with 32 bits, alpha.
inline std::string bitmapOf(const std::string& pixels, std::size_t bits, std::size_t height = 1)
{
    const std::size_t rowSize = pixels.size() / height;
    std::string file(54, '\0');
    const std::pair<std::size_t, std::size_t> fields[] = {
        {0, 'B'}, {1, 'M'}, {10, 54}, {14, 40}, {18, rowSize * 8 / bits}, {22, height}, {26, 1}, {28, bits}};
    for (const auto& [at, value] : fields) {
        file[at] = static_cast<char>(value);
    }
    for (std::size_t at = 0; at < pixels.size(); at += rowSize) {
        file += pixels.substr(at, rowSize);
        file.resize((file.size() + 1) / 4 * 4 + 2, '\x7F'); // in fours after the head
    }
    return file;
}

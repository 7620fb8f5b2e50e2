// Pictures of a few colours as text: the colours of the letters first, then the rows, each a list of counts and letters.
#pragma once

#include <windows.h>

#include <map>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels; // the top row first

    bool operator==(const Picture&) const = default;
    COLORREF at(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(std::ptrdiff_t{y} * width + x)];
    }
};

inline void writePicture(std::ostream& out, const Picture& picture)
{
    std::map<COLORREF, char> letters;
    out << picture.width << ' ' << picture.height;
    for (const COLORREF color : picture.pixels) {
        const auto [entry, isNew] = letters.emplace(color, static_cast<char>('A' + letters.size()));
        if (isNew) {
            out << ' ' << color;
        }
    }
    for (int y = 0; y < picture.height; ++y) {
        out << '\n';
        for (int x = 0, end = 0; x < picture.width; x = end) {
            while (end < picture.width && picture.at(end, y) == picture.at(x, y)) {
                ++end;
            }
            out << end - x << letters[picture.at(x, y)];
        }
    }
    out << '\n';
}

inline Picture readPicture(std::istream& in)
{
    Picture picture;
    std::string head;
    std::getline(in, head);
    std::istringstream heading(head);
    heading >> picture.width >> picture.height;
    std::vector<COLORREF> colors;
    for (COLORREF color = 0; heading >> color;) {
        colors.push_back(color);
    }
    const auto wanted = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    int count = 0;
    for (char letter = 0; picture.pixels.size() < wanted && in >> count >> letter;) {
        picture.pixels.insert(picture.pixels.end(), static_cast<std::size_t>(count),
                              colors.at(static_cast<std::size_t>(letter - 'A')));
    }
    return picture;
}

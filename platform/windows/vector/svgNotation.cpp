#include "svgNotation.h"

#include <charconv>
#include <cmath>
#include <iterator>

namespace wingdi {

std::string svgNumber(double value, int decimals)
{
    constexpr double Farthest = 1e9;
    if (!std::isfinite(value) || std::abs(value) > Farthest) {
        return "0";
    }
    char text[48];
    const auto [end, error] = std::to_chars(text, std::end(text), value, std::chars_format::fixed, decimals);
    std::string number(text, error == std::errc() ? end : text);
    if (number.find('.') != std::string::npos) {
        number.erase(number.find_last_not_of('0') + 1);
        if (number.back() == '.') {
            number.pop_back();
        }
    }
    return number == "-0" || number.empty() ? "0" : number;
}

std::string svgColor(COLORREF color)
{
    constexpr char Digits[] = "0123456789abcdef";
    std::string text = "#";
    for (const int shift : {4, 0, 12, 8, 20, 16}) {
        text.push_back(Digits[color >> shift & 15]);
    }
    return text;
}

std::string svgMatrix(const Mapping& mapping)
{
    constexpr int Decimals = 6;
    std::string text = "matrix(";
    for (const double part : {mapping.xx, mapping.xy, mapping.yx, mapping.yy}) {
        text.append(svgNumber(part, Decimals)).append(" ");
    }
    return text.append(svgNumber(mapping.dx)).append(" ").append(svgNumber(mapping.dy)).append(")");
}

std::string svgPath(const Outline& outline, const Mapping& toPath)
{
    std::string path;
    outline.forEach([&](Outline::Step step, const DevicePoint* point) {
        constexpr char Letters[] = {'M', 'L', 'C', 'Z'};
        path.push_back(Letters[static_cast<std::size_t>(step)]);
        const int count = step == Outline::Step::Curve ? 3 : step == Outline::Step::Close ? 0 : 1;
        for (int i = 0; i < count; ++i) {
            const DevicePoint place = toPath.apply(point[i].x + 0.5, point[i].y + 0.5);
            path.append(i > 0 ? " " : "").append(svgNumber(place.x)).append(" ").append(svgNumber(place.y));
        }
    });
    return path;
}

std::string svgBlend(Blend blend)
{
    constexpr const char* Styles[] = {"", " style=\"mix-blend-mode:multiply\"",
                                      " style=\"mix-blend-mode:screen\"",
                                      " style=\"mix-blend-mode:difference\""};
    return Styles[static_cast<std::size_t>(blend)];
}

} // namespace wingdi

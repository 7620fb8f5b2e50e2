#include "PageParts.h"

#include <charconv>
#include <iterator>

#include "quotedText.h"

namespace pagetool {

std::string PageFont::inWords() const
{
    std::string text = quotedText(face);
    if (points != 0 || height == 0) {
        char size[32];
        text.append(" ").append(size, std::to_chars(size, std::end(size), points).ptr);
    } else {
        text.append(" height ").append(std::to_string(height));
    }
    text.append(bold ? " bold" : "").append(italic ? " italic" : "");
    return text.append(underline ? " underline" : "").append(strikethru ? " strikethru" : "");
}

std::string PagePicture::inWords() const
{
    std::string text = id ? std::to_string(*id).append(": ") : std::string();
    text.append(std::to_string(width)).append(" x ").append(std::to_string(height)).append(" pixels");
    if (!id) {
        return text.append(" of ").append(std::to_string(bits)).append(" bits");
    }
    return text.append(", ").append(kind).append(", ").append(std::to_string(bytes)).append(" bytes");
}

} // namespace pagetool

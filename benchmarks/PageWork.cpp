// Pages by CMetaFilePlayer, and the same bytes by expat, memmem and memcpy.
#include "PageWork.h"

#include <cstring>
#include <memory>
#include <stdexcept>

#include <expat.h>

#include "metaFilePlayer.h"
#include "surface.h"

namespace {

unsigned char* bytesOf(std::string& page)
{
    return reinterpret_cast<unsigned char*>(page.data());
}

// To take its length is the least that reads every byte of a value.
void countStart(void* count, const XML_Char* name, const XML_Char** attributes)
{
    auto& total = *static_cast<XmlCount*>(count);
    total.texts += std::strcmp(name, "text") == 0 ? 1 : 0;
    for (; *attributes != nullptr; attributes += 2) {
        total.attributes += std::strlen(attributes[1]);
    }
}

void countCharacters(void* count, const XML_Char*, int length)
{
    static_cast<XmlCount*>(count)->characters += static_cast<std::size_t>(length);
}

} // namespace

void takePage(CSurface& surface, std::string& page)
{
    surface.closeSurface();
    auto size = static_cast<unsigned int>(surface.getDataLength());
    page.resize(size);
    surface.getData(bytesOf(page), size);
}

bool playPage(std::string& page, CSurface& surface, RECT destination)
{
    const std::unique_ptr<CMetaFilePlayer> player(
        CMetaFilePlayer::createPlayer(bytesOf(page), static_cast<unsigned int>(page.size())));
    return player != nullptr && player->play(&surface, &destination) == 1;
}

Hit findInPage(std::string& page, const Search& search)
{
    unsigned int position = 0;
    unsigned int textOffset = 0;
    unsigned char* found = nullptr;
    unsigned int foundLength = 0;
    int x = 0;
    int y = 0;
    CMetaFilePlayer::searchPageForString(bytesOf(page), static_cast<unsigned int>(page.size()), search.text,
                                         search.matchCase, search.wholeWord, position, textOffset, found,
                                         foundLength, x, y);
    if (foundLength > 0) {
        CMetaFilePlayer::freeFoundPage(found);
    }
    return {position, foundLength};
}

bool scanPage(std::string_view page, std::string_view text)
{
    return memmem(page.data(), page.size(), text.data(), text.size()) != nullptr;
}

bool stampPage(std::string& page)
{
    return CMetaFilePlayer::insertPageCount(bytesOf(page), static_cast<int>(page.size()), 7, 12);
}

bool copyMarkedPage(std::string& page, std::string& copy)
{
    constexpr std::string_view Mark = "class='nofm'";
    std::memcpy(copy.data(), page.data(), page.size());
    const bool marked = scanPage(copy, Mark);
    std::memcpy(page.data(), copy.data(), page.size());
    return marked;
}

XmlCount parsePage(std::string_view page)
{
    XmlCount count;
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(XML_ParserCreate(nullptr),
                                                                              XML_ParserFree);
    XML_SetUserData(parser.get(), &count);
    XML_SetStartElementHandler(parser.get(), countStart);
    XML_SetCharacterDataHandler(parser.get(), countCharacters);
    if (XML_Parse(parser.get(), page.data(), static_cast<int>(page.size()), XML_TRUE) != XML_STATUS_OK) {
        throw std::runtime_error(XML_ErrorString(XML_GetErrorCode(parser.get())));
    }
    return count;
}

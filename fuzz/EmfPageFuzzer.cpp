// Does with any bytes what is done with a stored metafile page: stamp, size, search to the end. A marked page must
// give its own size.
#include "metaFilePlayerEMF.h"
#include "sys/tovostr.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

void search(std::vector<unsigned char>& page, const char* text, bool wholeWord)
{
    const auto length = static_cast<unsigned int>(page.size());
    unsigned int position = 0;
    unsigned int textOffset = 0;
    unsigned char* found = nullptr;
    do {
        CMetaFilePlayer::freeFoundPage(found);
        const unsigned int before[] = {position, textOffset};
        unsigned int foundLength = 0;
        int x = 0;
        int y = 0;
        CMetaFilePlayerEMF::searchPageForString(page.data(), length, text, false, wholeWord, position,
                                                textOffset, found, foundLength, x, y);
        if (found != nullptr) {
            unsigned int told = 0;
            std::memcpy(&told, found + offsetof(ENHMETAHEADER, nBytes), sizeof(told));
            require(told == foundLength && foundLength > length);
            require(position > before[0] || (position == before[0] && textOffset > before[1]));
        }
    } while (found != nullptr);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<unsigned char> page(data, data + size); // so that a sanitizer sees every read beyond it
    for (const char* const text : {"a", "ab", "a b", "b c a"}) {
        search(page, text, false);
        search(page, text, true);
    }
    int x = 0;
    int y = 0;
    TovoTextString text;
    const auto length = static_cast<unsigned int>(size);
    CMetaFilePlayerEMF::findNextField(page.data(), length, x, y, text);
    unsigned int extent[2];
    CMetaFilePlayerEMF::getImageSize(page.data(), static_cast<int>(size), extent[0], extent[1]);
    CMetaFilePlayerEMF::insertPageCount(page.data(), static_cast<int>(size), 1, 2);
    const CMetaFilePlayerEMF player(page.data(), length);
    return 0;
}

#include "metaFilePlayer.h"

#include <climits>
#include <string_view>

#include "metaFilePlayerEMF.h"
#include "metaFilePlayerSVG.h"
#include "moduleObjects.h"

using namespace drawing;

namespace {

enum MetaFileFormat { UnknownFormat = 0, EnhancedMetafile = 1, SvgPage = 2 };

// The head of a metafile ([MS-EMF] 2.3.4.2): the record type 1 of its header, little-endian, and further on
// its signature.
constexpr std::string_view MetafileType("\1\0\0\0", 4);
constexpr std::string_view MetafileSignature(" EMF");
constexpr std::size_t MetafileSignatureOffset = 40;

bool isEnhancedMetafile(std::string_view page)
{
    return page.size() >= MetafileSignatureOffset + MetafileSignature.size() &&
           page.substr(0, MetafileType.size()) == MetafileType &&
           page.substr(MetafileSignatureOffset, MetafileSignature.size()) == MetafileSignature;
}

bool holds(std::string_view page, std::string_view text)
{
    return page.find(text) != std::string_view::npos;
}

void logUnknownFormat(const char* operation)
{
    moduleLog.log("%s Unknown meta file format %d", operation, UnknownFormat);
}

} // namespace

CMetaFilePlayer::~CMetaFilePlayer() = default;

CMetaFilePlayer* CMetaFilePlayer::createPlayer(unsigned char* page, unsigned int length)
{
    switch (getMetaFileFormat(page, length)) {
    case EnhancedMetafile:
        return new CMetaFilePlayerEMF(page, length);
    case SvgPage:
        return new CMetaFilePlayerSVG(page, length);
    default:
        logUnknownFormat("CMetaFilePlayer::createPlayer");
        return nullptr;
    }
}

int CMetaFilePlayer::getMetaFileFormat(unsigned char* page, unsigned int length)
{
    // Callers that hold lengths as int may pass a negative one.
    if (page == nullptr || length == 0 || length > static_cast<unsigned int>(INT_MAX)) {
        return UnknownFormat;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(page), length);
    if (isEnhancedMetafile(bytes)) {
        return EnhancedMetafile;
    }
    return holds(bytes, "<?xml") && holds(bytes, "<!DOCTYPE svg") ? SvgPage : UnknownFormat;
}

bool CMetaFilePlayer::insertPageCount(unsigned char* page, int length, int pageNumber, int pageCount)
{
    switch (getMetaFileFormat(page, static_cast<unsigned int>(length))) {
    case EnhancedMetafile:
        return CMetaFilePlayerEMF::insertPageCount(page, length, pageNumber, pageCount);
    case SvgPage:
        return CMetaFilePlayerSVG::insertPageCount(page, length, pageNumber, pageCount);
    default:
        logUnknownFormat("CMetaFilePlayer::insertPageCount");
        return false;
    }
}

void CMetaFilePlayer::getImageSize(unsigned char* page, int length, unsigned int& width, unsigned int& height)
{
    width = 0;
    height = 0;
    switch (getMetaFileFormat(page, static_cast<unsigned int>(length))) {
    case EnhancedMetafile:
        CMetaFilePlayerEMF::getImageSize(page, length, width, height);
        break;
    case SvgPage:
        CMetaFilePlayerSVG::getImageSize(page, length, width, height);
        break;
    default:
        logUnknownFormat("CMetaFilePlayer::getImageSize");
        break;
    }
}

int CMetaFilePlayer::searchPageForString(unsigned char* page, unsigned int length, const char* text,
                                         bool matchCase, bool wholeWord, unsigned int& position,
                                         unsigned int& textOffset, unsigned char*& foundPage,
                                         unsigned int& foundLength, int& x, int& y)
{
    switch (getMetaFileFormat(page, length)) {
    case EnhancedMetafile:
        return CMetaFilePlayerEMF::searchPageForString(page, length, text, matchCase, wholeWord, position,
                                                       textOffset, foundPage, foundLength, x, y);
    case SvgPage:
        return CMetaFilePlayerSVG::searchPageForString(page, length, text, matchCase, wholeWord, position,
                                                       textOffset, foundPage, foundLength, x, y);
    default:
        logUnknownFormat("CMetaFilePlayer::searchPageForString");
        return 0;
    }
}

void CMetaFilePlayer::freeFoundPage(unsigned char* page)
{
    freeToModuleHeap(page);
}

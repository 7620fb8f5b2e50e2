#include "pageHits.h"

#include "MetafileHits.h"
#include "PageHitWalk.h"
#include "SvgHits.h"
#include "metaFilePlayer.h"
#include "moduleObjects.h"
#include "sys/krnos.h"

namespace {

PageHitWalk* required(PageHitWalk* walk)
{
    if (walk == nullptr) {
        krnOutOfMemory();
    }
    return walk;
}

PageHitWalk* makeWalk(const unsigned char* page, unsigned int length, const char* text, bool matchCase,
                      bool wholeWord)
{
    constexpr int EnhancedMetafile = 1;
    constexpr int SvgPage = 2;
    auto* const bytes = const_cast<unsigned char*>(page); // which nobody writes to
    switch (CMetaFilePlayer::getMetaFileFormat(bytes, length)) {
    case EnhancedMetafile:
        return required(
            metafile::makeMetafileHits(metafile::pageOf(bytes, length), text, matchCase, wholeWord));
    case SvgPage:
        return required(
            svg::makeSvgHits({reinterpret_cast<const char*>(page), length}, text, matchCase, wholeWord));
    default:
        return nullptr;
    }
}

} // namespace

PageHits::PageHits(const unsigned char* page, unsigned int length, const char* text, bool matchCase,
                   bool wholeWord)
    : m_walk(text != nullptr && *text != '\0' ? makeWalk(page, length, text, matchCase, wholeWord) : nullptr)
{
}

PageHits::~PageHits()
{
    drawing::destroyInModuleHeap(m_walk);
}

bool PageHits::next()
{
    return m_walk != nullptr && m_walk->next(m_hit);
}

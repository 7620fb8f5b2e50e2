// What an operation changes on an SVG page, taken back unless it comes to its end.
//
// An operation makes one at its beginning and keeps it at its end. In between it may fail anywhere for want of memory: the
// page is then as it was before, and numbers of definitions are given out again. Taking back needs no memory.
#pragma once

#include "SvgWriterDetail.h"

class CSurfaceSVG::Detail::Change {
public:
    explicit Change(CSurfaceSVG& page)
        : m_page(page), m_bodyLength(page.m_body.length()), m_clipsLength(page.m_clipDefs.length()),
          m_patternsLength(page.m_patternDefs.length()), m_pathsLength(page.m_textPathDefs.length()),
          m_clipCount(page.m_clipCount), m_patternCount(page.m_patternCount),
          m_pathCount(page.m_textPathCount), m_symbolsUsed(page.m_symbolsUsed),
          m_currentClip(page.m_currentClip), m_nofmPending(page.m_nofmPending),
          m_fontGroupOpen(page.m_fontGroupOpen), m_hasTransform(page.m_hasTransform)
    {
    }
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;
    ~Change()
    {
        if (!m_kept) {
            takeBack();
        }
    }

    void keep() { m_kept = true; }

private:
    void takeBack()
    {
        m_page.m_body.cutTo(m_bodyLength);
        m_page.m_clipDefs.cutTo(m_clipsLength);
        m_page.m_patternDefs.cutTo(m_patternsLength);
        m_page.m_textPathDefs.cutTo(m_pathsLength);
        m_page.m_clipCount = m_clipCount;
        m_page.m_patternCount = m_patternCount;
        m_page.m_textPathCount = m_pathCount;
        m_page.m_symbolsUsed = m_symbolsUsed;
        m_page.m_currentClip = m_currentClip;
        m_page.m_nofmPending = m_nofmPending;
        m_page.m_fontGroupOpen = m_fontGroupOpen;
        m_page.m_hasTransform = m_hasTransform;
    }

    CSurfaceSVG& m_page;
    unsigned int m_bodyLength;
    unsigned int m_clipsLength;
    unsigned int m_patternsLength;
    unsigned int m_pathsLength;
    int m_clipCount;
    int m_patternCount;
    int m_pathCount;
    int m_symbolsUsed;
    int m_currentClip;
    bool m_nofmPending;
    bool m_fontGroupOpen;
    bool m_hasTransform;
    bool m_kept = false;
};

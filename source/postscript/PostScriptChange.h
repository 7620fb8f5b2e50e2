// What an operation changes on a page of PostScript, taken back unless it comes to its end.
//
// An operation makes one at its beginning and keeps it at its end. In between it may fail anywhere for want of memory: the
// page is then as it was before. Taking back needs no memory.
#pragma once

#include "PostScriptDetail.h"
#include "sys/tovostr.h"

namespace postscript {

// What is appended to one text, cut off again unless it is kept.
class TextChange {
public:
    explicit TextChange(TovoTextString& text) : m_text(text), m_length(text.length()) {}
    TextChange(const TextChange&) = delete;
    TextChange& operator=(const TextChange&) = delete;
    ~TextChange()
    {
        if (!m_kept) {
            m_text.cutTo(m_length);
        }
    }

    void keep() { m_kept = true; }

private:
    TovoTextString& m_text;
    unsigned int m_length;
    bool m_kept = false;
};

} // namespace postscript

class CSurfacePSPrinter::Detail::Change {
public:
    explicit Change(CSurfacePSPrinter& page)
        : m_page(page), m_bodyLength(page.m_body.length()), m_procedures(page.m_proceduresUsed),
          m_color(page.m_currentColor), m_lineWidth(page.m_currentLineWidth), m_clip(page.m_clipActive),
          m_hasTransform(page.m_hasTransform), m_stateDepth(page.m_stateDepth),
          m_depthsWithFont(page.m_depthsWithFont), m_patterns(page.m_patternDefs.size()),
          m_patternsLength(page.m_patternTexts.length()), m_missing(page.m_missingPictures.size())
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
        m_page.m_proceduresUsed = m_procedures;
        m_page.m_currentColor = m_color;
        m_page.m_currentLineWidth = m_lineWidth;
        m_page.m_clipActive = m_clip;
        m_page.m_hasTransform = m_hasTransform;
        m_page.m_stateDepth = m_stateDepth;
        m_page.m_depthsWithFont = m_depthsWithFont;
        for (unsigned int i = m_patterns; i < m_page.m_patternDefs.size(); ++i) {
            Detail(m_page).setPatternDefined(m_page.m_patternDefs[i].picture, false);
        }
        m_page.m_patternDefs.cutTo(m_patterns);
        m_page.m_patternTexts.cutTo(m_patternsLength);
        m_page.m_missingPictures.cutTo(m_missing);
    }

    CSurfacePSPrinter& m_page;
    unsigned int m_bodyLength;
    unsigned int m_procedures;
    unsigned long m_color;
    int m_lineWidth;
    bool m_clip;
    bool m_hasTransform;
    unsigned int m_stateDepth;
    unsigned int m_depthsWithFont;
    unsigned int m_patterns;
    unsigned int m_patternsLength;
    unsigned int m_missing;
    bool m_kept = false;
};

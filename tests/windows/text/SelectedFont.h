// A font in a context for the time of a test.
#pragma once

#include <windows.h>

struct FontForm {
    const char* face;
    LONG height;
    LONG weight = FW_NORMAL;
    BYTE italic = 0;
    LONG width = 0;
    LONG escapement = 0;
};

class SelectedFont {
public:
    SelectedFont(HDC context, const FontForm& form) : m_context(context)
    {
        LOGFONTA font{};
        font.lfHeight = form.height;
        font.lfWidth = form.width;
        font.lfWeight = form.weight;
        font.lfItalic = form.italic;
        font.lfEscapement = font.lfOrientation = form.escapement;
        font.lfCharSet = DEFAULT_CHARSET;
        lstrcpyA(font.lfFaceName, form.face);
        m_font = CreateFontIndirectA(&font);
        m_former = SelectObject(context, m_font);
    }
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;
    ~SelectedFont()
    {
        SelectObject(m_context, m_former);
        DeleteObject(m_font);
    }

private:
    HDC m_context;
    HFONT m_font;
    HGDIOBJ m_former;
};

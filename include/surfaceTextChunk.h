// CSurfaceTextChunk: one run of formatted text that knows its place on the page. A caller, or a player that replays a page,
// builds an array of them and hands it to CSurface::drawString in one call.
#pragma once

#include <cstddef>

#include <windows.h>

#include "sys/moduleObject.h"
#include "sys/surfaceExport.h"
#include "sys/tovoarray.h"
#include "sys/tovostr.h"

class SURFACE_API CSurfaceTextChunk : public ModuleObject {
public:
    // No text, flags or position; textLength -1.
    CSurfaceTextChunk();
    CSurfaceTextChunk(const CSurfaceTextChunk& other) = default;
    CSurfaceTextChunk& operator=(const CSurfaceTextChunk& other) = default;
    virtual ~CSurfaceTextChunk();

    // Fills everything but the find position; the text is copied (null: empty). `position` is in logical
    // units and means nothing when `followsPrevious` is set; `textLength` is the width in logical units that
    // the run is fitted to, -1 for none.
    void create(TovoTextString* text, bool isNewLine, POINT position, bool followsPrevious, int textLength,
                bool underline);

    // Whether this run begins a new line after `previous`, which is null for the first run.
    bool isStartOfAnotherLine(CSurfaceTextChunk* previous) const;

    bool m_isNewLine; // begins a new line even where its position does not
    TovoTextString m_text;
    POINT m_position;       // where the run begins
    bool m_followsPrevious; // goes on where the previous run ended
    int m_textLength;       // width to fit the run to, logical units; -1: none
    // On the text back ends the whole run is underlined; on devices its first character alone, by the mark of the
    // Windows DrawText, which shows as an ampersand when the flags hold DT_NOPREFIX.
    bool m_underline;
    int m_findPosition[2]; // mark of a search, carried along for surfaces outside this module
};

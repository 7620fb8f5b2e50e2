// What CSurfaceSVG does beside the operations that its header names, on the page that it is made for.
//
// Made where it is called, and gone with the call. Writing in several steps is the business of Change (SvgChange.h).
#pragma once

#include <string_view>

#include "hidden.h"
#include "surfaceSVG.h"

class SURFACE_HIDDEN CSurfaceSVG::Detail {
public:
    // Shared definitions that the page needs, as bits of m_symbolsUsed.
    enum SymbolBits {
        FrameRectUsed = 1,
        FocusRectUsed = 2,
        SolidRectUsed = 4,
        HatchUsed = 8,
        TiledImageUsed = 16
    };

    // How the runs of a formatted text are turned.
    struct TextRotation {
        int textAngle = 0; // of the line, 0 to 359 degrees
        int charAngle = 0; // of the characters against their line
        float shift = 0;   // of the base line, em
    };

    class Change;
    struct ArcPath;

    explicit Detail(CSurfaceSVG& page) : m_page(page) {}

    void appendDefinitions(TovoTextString& head) const;
    void appendTextHead(TovoTextString& out, RECT* rect, int flags, const char* spaceAttribute);
    bool writeChunks(Array<CSurfaceTextChunk, 2>* chunks, RECT* rect, int flags,
                     const TextRotation& rotation);
    void drawSector(std::string_view name, RECT* rect, POINT start, POINT end);
    // Null for a number without an image.
    const POINT* sizeOfImage(int id) const;

private:
    void appendChunk(TovoTextString& out, const CSurfaceTextChunk& chunk, int top,
                     const TextRotation& rotation);
    void appendGlyphRotation(TovoTextString& out, int angle, unsigned int characters);

    CSurfaceSVG& m_page;
};

// CMetaFilePlayerSVG: the player for pages that CSurfaceSVG wrote, and the page operations on them.
//
// Made by CMetaFilePlayer::createPlayer. It is no general SVG renderer but the inverse of CSurfaceSVG: one
// walk over a private copy of the page, in which each element becomes calls on the destination surface at
// once. Elements are found by literal, case-sensitive searches and ended in place by a zero byte over their
// closing `>`, so a player is played once and deleted.
//
// An element that cannot be used draws nothing and the walk goes on; text that does not close ends the walk.
// Nested <svg> elements are followed 1,000 levels deep; deeper ones are passed over with a log line. Images whose id is
// above 65,535 are refused, with one log line for each id of a page: the surfaces of text keep images in a table by id.
#pragma once

#include <cstdint>

#include "metaFilePlayer.h"
#include "sys/tovoarray.h"
#include "sys/tovostr.h"

class CSurfaceBrush;
class CSurfacePen;
class CSurfaceTextChunk;
struct SvgViewport;
struct SvgWalkMemory;

class SURFACE_API CMetaFilePlayerSVG : public CMetaFilePlayer {
public:
    // Copies `length` bytes of the page; a null page counts as empty. Throws KrnException without memory.
    CMetaFilePlayerSVG(unsigned char* page, unsigned int length);
    ~CMetaFilePlayerSVG() override;

    int play(CSurface* surface, RECT* rect) override;
    int metaFileFormat() override;

    // How many bytes `play` has looked at so far in search of elements, of their ends and of what nested ones have in
    // common. At most a small multiple of the page's length, whatever the page is.
    std::uint64_t bytesSearched() const;

    static bool insertPageCount(unsigned char* page, int length, int pageNumber, int pageCount);
    static void getImageSize(unsigned char* page, int length, unsigned int& width, unsigned int& height);
    static int searchPageForString(unsigned char* page, unsigned int length, const char* text, bool matchCase,
                                   bool wholeWord, unsigned int& position, unsigned int& textOffset,
                                   unsigned char*& foundPage, unsigned int& foundLength, int& x, int& y);

private:
    class Detail; // helpers of the module

    int play();

    // The scanner.
    bool getNextElement(char** cursor, int& type);
    char* getEndOfElement(char* element, int type);
    int getRecordType(char* element);
    int getAttributeValue(char* attribute, char** value);
    int getAttributeValue(char* attribute, TovoTextString* value);

    // Each gives 0 for done and -1 for an element it could not use.
    int processElements(char* text);
    int processSVGElement(char** element);
    int processSVGSubElement(char** element);
    int processGroupElement(char** element);
    int processGroupEnd(char* element);
    int processRectElement(char** element);
    int processEllipseElement(char** element);
    int processLineElement(char** element);
    int processPolygonElement(char* element);
    int processPolylineElement(char* element);
    int processPathElement(char* element);
    int processTextElement(char** element);

    int processTSpanElement(char* element, CSurfaceTextChunk* chunk);
    int processTextRect(char* element, RECT* rect);
    int processClipPath(char* element, RECT** rect);
    int processTextStyleAttributes(char* text, unsigned long* color, unsigned int* options, int* charAngle,
                                   int* textAngle);

    int processStrokeAttribute(char* text, CSurfacePen* pen);
    int processFillAttribute(char* text, CSurfaceBrush* brush);
    int processStyleAttribute(char** value, RECT** clip, unsigned long* fillColor, unsigned long* strokeColor,
                              bool* hasFill, bool* hasStroke);

    int processDefsElement(char** element);
    int processUseElement(char** element);
    int processPattern(char* pattern, CSurfaceBrush* brush);

    bool intersectRect(RECT* result, RECT* a, RECT* b);

    TovoTextString* m_pageText;   // the private copy, owned; every pointer of the walk points into it
    Vector<RECT, 10> m_clipRects; // clip N at position N; narrowed in place by clip groups
    Vector<char*, 10> m_patterns; // pattern N at position N, pointing into the page text
    CSurface* m_surface;          // the destination, not owned
    bool m_svgSeen;               // the outermost <svg has been met
    SvgViewport* m_viewport;      // the one in force
    bool m_groupClip;             // a clip is set that goes with the next end of a group
    SvgWalkMemory* m_memory;      // what the walk remembers to stay linear in the page's length
};

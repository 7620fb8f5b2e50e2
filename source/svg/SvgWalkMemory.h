// What a player remembers of its page so that a walk stays linear in the page's length.
//
// Nested <svg> elements are the one thing that walks descend into, and each level would search the text of
// all levels inside it again: for its own closing tag, and for attributes that it does not have. A pattern,
// likewise, would be searched again by each fill that names it. The answers given here are those that the
// plain searches would give.
#pragma once

#include <windows.h>

#include "sys/tovoarray.h"

// The viewport of an <svg> element. The four numbers of `viewBox` stand in the order of the attribute, so its
// right and bottom hold a width and a height.
struct SvgViewport {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    RECT viewBox{};
};

// A search for one key that is asked from places further and further on.
class KeyAhead {
public:
    explicit KeyAhead(const char* key) : m_key(key) {}

    // The first place of the key at or behind `from` in a text that ends at `end` with a zero byte; null when
    // there is none.
    char* find(char* from, char* end);

private:
    const char* m_key;
    char* m_asked = nullptr; // where the last search began
    char* m_found = nullptr; // what it found, or the end of the text it searched
};

// The closing tags of all <svg> elements, matched in one pass over the text that the first one stands in.
class SvgNesting {
public:
    // The closing tag of `element`, an "<svg"; null when it has none in front of `end`, the zero byte that ends
    // the text around it.
    char* closingTag(char* element, char* end);

private:
    struct Opening {
        char* place;
        char* closing;          // null: not closed
        unsigned int enclosing; // 1-based; 0: none
    };

    void match(char* text);
    const Opening* opening(const char* place) const;

    Vector<Opening, 16> m_openings; // in the order of their places
};

// What a pattern definition does to a brush.
struct PatternBrush {
    bool isRead;
    bool isUsable;
    unsigned long color;
    int style;
    int picture;
};

struct SvgWalkMemory {
    SvgViewport pageViewport;
    char* elementEnd = nullptr; // the zero byte that ended the element found last
    char* walkEnd = nullptr;    // the zero byte that ends the text of the walk under way
    int depth = 0;              // nested <svg> elements around the walk
    SvgNesting nesting;
    KeyAhead x{"x="};
    KeyAhead y{"y="};
    KeyAhead width{"width="};
    KeyAhead height{"height="};
    KeyAhead viewBox{"viewBox='"};
    Vector<PatternBrush, 10> patternBrushes; // beside the table of patterns
};

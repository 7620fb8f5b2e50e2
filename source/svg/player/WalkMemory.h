// What a player remembers of its page so that a walk stays linear in the page's length.
//
// Nested <svg> elements are the one thing that walks descend into, and each level would search the text of
// all levels inside it again: for its own closing tag, and for attributes that it does not have. A pattern,
// likewise, would be searched again by each fill that names it. The answers given here are those that the
// plain searches would give.
#pragma once

#include <cstdint>

#include <windows.h>

#include "sys/tovoarray.h"

// The viewport of an <svg> element. The four numbers of `viewBox` have the order of the attribute, so its
// right and bottom hold a width and a height.
struct SvgViewport {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    RECT viewBox{};
};

// The bytes that searches have looked at. It stays in proportion to the page's length, whatever the page is.
struct SearchedBytes {
    std::uint64_t count = 0;

    // A search from one place to another one of the same text.
    void add(const char* from, const char* to) { count += static_cast<std::uint64_t>(to - from); }
};

// The numbers of an attribute that is asked for from places further and further on. The attribute may be far ahead, and
// its numbers may be long: each is looked for once and read once.
class NumbersAhead {
public:
    static constexpr int Most = 4;

    // The text that the attribute begins with, and the format by which it is read, with at most four numbers.
    NumbersAhead(const char* key, const char* format) : m_key(key), m_format(format) {}

    // Reads the attribute whose first place is at or after `from`, in a text that ends at `end` with a zero byte, as far
    // as it can be read; the other numbers stay.
    void read(char* from, char* end, SearchedBytes& searched, int (&numbers)[Most]);

private:
    char* find(char* from, char* end, SearchedBytes& searched);

    const char* m_key;
    const char* m_format;
    char* m_asked = nullptr; // where the last search began
    char* m_found = nullptr; // what it found, or the end of the text it searched
    char* m_read = nullptr;  // the place whose numbers these are
    int m_count = 0;
    int m_numbers[Most] = {};
};

// The closing tags of all <svg> elements, matched in one pass over the text of the first one.
class SvgNesting {
public:
    // The closing tag of `element`, an "<svg"; null when it has none before `end`, the zero byte that ends the text
    // around it.
    char* closingTag(char* element, char* end, SearchedBytes& searched);

private:
    struct Opening {
        char* place;
        char* closing;          // null: not closed
        unsigned int enclosing; // 1-based; 0: none
    };

    void match(char* text, SearchedBytes& searched);
    const Opening* opening(const char* place) const;
    char* closingOfEnclosing(const Opening& opening) const;

    Vector<Opening, 16> m_openings;        // in the order of their places
    Vector<char*, 16> m_unmatchedClosings; // likewise
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
    SearchedBytes searched;
    NumbersAhead x{"x=", "x='%d'"};
    NumbersAhead y{"y=", "y='%d'"};
    NumbersAhead width{"width=", "width='%d'"};
    NumbersAhead height{"height=", "height='%d'"};
    NumbersAhead viewBox{"viewBox='", "viewBox='%d %d %d %d'"};
    Vector<PatternBrush, 10> patternBrushes; // beside the table of patterns
    Vector<unsigned int, 10> toldImages;     // ids whose refusal is in the log
};

// ReadingOrder: which text of a page follows a place, from left to right in a line and line by line downward.
//
// Asked by the search of a metafile page where a text may run on. A line is what lies less than 5 units above or
// below the place. Among the fields that follow it, the one with the least key is next: y * 1000 + x in 32 bits
// that wrap, with the y of the place for all of its line; of equal ones the first on the page. A key of 0 counts
// as none, so that a field with it gives way to any other after it on the page.
#pragma once

#include <cstdint>

#include "sys/tovoarray.h"
#include <windows.h>

namespace metafile {

class ReadingOrder {
public:
    static constexpr unsigned int None = 0xFFFFFFFF;

    // Adds the next field of the page, number 0 first. All are added before anything is asked.
    void add(POINTL field) { m_fields.add(field); }

    // The number of the field that follows the place; `none` when none does. By one look at all fields.
    unsigned int lookForNext(POINTL place) const;

    // The same, with a sorted index made at the first question. Only a least key of 0 needs the look at all.
    unsigned int next(POINTL place);

private:
    // A field that follows a place, and its key seen from there.
    struct Candidate {
        unsigned int number = None;
        int key = 0;
    };

    void sort();
    const POINTL& sorted(unsigned int rank) const { return m_fields[m_order[rank]]; }
    unsigned int rankFrom(std::int64_t y, std::int64_t x) const;
    void chooseFromLine(Candidate& best, POINTL place, int line) const;
    static void choose(Candidate& best, Candidate candidate);

    Vector<POINTL, 100> m_fields;
    Vector<unsigned int, 100> m_order;  // numbers by y, x and number
    Vector<Candidate, 100> m_leastFrom; // for each rank in it, what has the least key from there on
};

} // namespace metafile

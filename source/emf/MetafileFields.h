// MetafileFields: the texts of a metafile page, collected once for a search.
//
// A field is a text record with at least one character. Made by CMetaFilePlayerEMF for one call and read by
// MetafileSearch.
#pragma once

#include <string_view>

#include "MetafileText.h"
#include "ReadingOrder.h"
#include "sys/tovoarray.h"
#include "sys/tovostr.h"

namespace metafile {

struct MetafileField {
    unsigned int position; // of its record in the page, in bytes
    POINTL place;
    RECTL bounds;
    unsigned int textStart; // in the joined text of all fields
    unsigned int textLength;
    unsigned int blanks; // that the text begins with
};

class MetafileFields {
public:
    static constexpr unsigned int None = ReadingOrder::None;

    // Throws KrnException without memory, as everything here.
    MetafileFields(metafile::Page page, bool lowerCase);

    unsigned int size() const { return m_fields.size(); }
    const MetafileField& operator[](unsigned int field) const { return m_fields[field]; }

    // Eight bits a character, without a zero byte inside.
    std::string_view text(unsigned int field) const
    {
        return {m_text.text() + m_fields[field].textStart, m_fields[field].textLength};
    }

    // The field that follows in reading order; `none` at the end of the page.
    unsigned int next(unsigned int field) { return m_order.next(m_fields[field].place); }
    unsigned int lookForNext(POINTL place) const { return m_order.lookForNext(place); }

    // Where a text goes on that passes over fields of nothing but blanks: the next field with more, and the one
    // before it. The order can lead around in a circle; a circle of blanks leads nowhere.
    struct Step {
        unsigned int before;
        unsigned int next; // `none`: nowhere
    };
    Step stepOverBlanks(unsigned int field);

private:
    bool isBlank(unsigned int field) const { return m_fields[field].blanks == m_fields[field].textLength; }

    Vector<MetafileField, 100> m_fields;
    TovoTextString m_text;
    ReadingOrder m_order;
    Vector<Step, 1> m_steps; // those known, by field; a `before` of `none` is not known
};

} // namespace metafile

// The text of a text record of a stored metafile, as the page operations see it.
#pragma once

#include <cstddef>
#include <optional>

#include "sys/recordReader.h"
#include "sys/tovostr.h"

namespace metafile {

// The fields of an EMR_EXTTEXTOUTA or EMR_EXTTEXTOUTW ([MS-EMF] 2.3.5.7, 2.3.5.8). Its characters, if it has
// any, lie inside the record and after these fields.
struct MetafileText {
    EMREXTTEXTOUTW fields;
    unsigned int characterSize; // in bytes: 1 or 2

    std::size_t offsetOf(unsigned int character) const
    {
        return fields.emrtext.offString + std::size_t{character} * characterSize;
    }
};

// Nothing for other records and for those whose characters lie elsewhere.
std::optional<MetafileText> textOf(const metafile::Record& record);

// Adds the characters as 8 bits, a zero among them as a blank: one for each of the record, so that an index into
// them is one into the record's. Throws KrnException without memory.
void appendCharacters(const metafile::Record& record, const MetafileText& text, TovoTextString& out);

} // namespace metafile

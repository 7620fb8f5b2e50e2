#include "MetafileText.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace metafile {

namespace {

// Whether `count` elements at an offset lie after the fields of a text record and inside it.
bool holds(const metafile::Record& record, std::uint64_t offset, std::uint64_t count, std::uint64_t size)
{
    return offset >= sizeof(EMREXTTEXTOUTW) && offset + count * size <= record.bytes.size();
}

} // namespace

std::optional<MetafileText> textOf(const metafile::Record& record)
{
    if (record.type != EMR_EXTTEXTOUTA && record.type != EMR_EXTTEXTOUTW) {
        return std::nullopt;
    }
    const std::optional<EMREXTTEXTOUTW> fields = record.as<EMREXTTEXTOUTW>();
    const unsigned int characterSize = record.type == EMR_EXTTEXTOUTW ? 2 : 1;
    if (!fields || (fields->emrtext.nChars != 0 &&
                    !holds(record, fields->emrtext.offString, fields->emrtext.nChars, characterSize))) {
        return std::nullopt;
    }
    return MetafileText{*fields, characterSize};
}

void appendCharacters(const metafile::Record& record, const MetafileText& text, TovoTextString& out)
{
    constexpr unsigned int Piece = 256;
    unsigned short wide[Piece + 1];
    const unsigned int count = text.fields.emrtext.nChars;
    if (count == 0) {
        return; // then its text may lie anywhere
    }
    char* const target = out.room(count);
    const unsigned char* const source = record.bytes.data() + text.offsetOf(0);
    if (text.characterSize == 1) {
        std::memcpy(target, source, count);
        std::replace(target, target + count, '\0', ' ');
    }
    for (unsigned int done = 0; text.characterSize == 2 && done < count; done += Piece) {
        const unsigned int length = std::min(Piece, count - done);
        std::memcpy(wide, source + std::size_t{done} * 2, std::size_t{length} * 2);
        std::replace(wide, wide + length, 0, static_cast<int>(' '));
        wide[length] = 0;
        intlUnicodeToCString(wide, target + done, static_cast<int>(length) + 1);
    }
    out.grow(count);
}

} // namespace metafile

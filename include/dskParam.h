// DskParam: the platform's parameter record, as far as loadFonts hands out its text through it.
#pragma once

#include <cstddef>
#include <cstdint>

#include <windows.h>

// Asked with 18, the record's value, and the addresses of the text and its length; the text is to be copied during
// the call. The result becomes that of loadFonts.
using DskParamFunction = int(CALLBACK*)(int request, std::uint32_t value, const char** text,
                                        unsigned int* length);

// Kinds 1 and 14 bring a buffer of 65,536 bytes, kinds 5 and 25 a function. Packed, because the layout is shared
// with the platform: the pointer lies at offset 4 and the value at offset 12 whatever the width of a pointer.
#pragma pack(push, 1)
struct DskParam {
    enum Kind : std::uint16_t { buffer = 1, function = 5, countedBuffer = 14, otherFunction = 25 };

    std::uint16_t kind;
    std::uint8_t flag;
    std::uint8_t reserved;
    union {
        char* text;
        DskParamFunction answer;
        std::uint64_t room; // eight bytes also where a pointer has four
    };
    std::uint32_t value; // of a counted buffer: the bytes of its text
};
#pragma pack(pop)
static_assert(sizeof(DskParam) == 16 && offsetof(DskParam, text) == 4 && offsetof(DskParam, value) == 12);

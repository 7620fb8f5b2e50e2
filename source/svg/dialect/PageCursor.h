// Stepping through the text of a page in place.
//
// The walk ends each element with a zero byte, and that byte is what bounds everything here: no function looks
// after it. A null pointer stands for "not there"; searches from null give null, so that a chain of them
// needs one test at its end.
#pragma once

#include <cstring>

inline bool beginsWith(const char* text, const char* prefix)
{
    while (*prefix != '\0' && *text == *prefix) {
        ++text;
        ++prefix;
    }
    return *prefix == '\0';
}

inline bool isBlank(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

// The next place of `key`; null without one.
inline char* findKey(char* from, const char* key)
{
    return from != nullptr ? std::strstr(from, key) : nullptr;
}

// The place `count` characters on, or the end of the text when that is nearer.
inline char* stepOver(char* from, int count)
{
    for (; count > 0 && *from != '\0'; --count) {
        ++from;
    }
    return from;
}

// As findKey, for a tag or the rest of one after its "<". From one place of its first character to the next,
// because the stretch may be long and is asked about again and again: no call measures it to its end.
inline char* findTag(char* from, const char* tag)
{
    char* place = from != nullptr ? std::strchr(from, *tag) : nullptr;
    while (place != nullptr && !beginsWith(place, tag)) {
        place = std::strchr(place + 1, *tag);
    }
    return place;
}

// The place after the next `key`.
inline char* findBehind(char* from, const char* key)
{
    char* const found = findKey(from, key);
    return found != nullptr ? found + std::strlen(key) : nullptr;
}

// A value that begins at `value` and runs to the next apostrophe, which a zero byte replaces, or else to the
// end of the element. Gives the place after it.
inline char* endValue(char* value)
{
    char* const quote = std::strchr(value, '\'');
    if (quote == nullptr) {
        return value + std::strlen(value);
    }
    *quote = '\0';
    return quote + 1;
}

struct IntegerRead {
    int value;
    char* end; // the place after the digits; where the reading began when there is no number
};

// A whole number as strtol reads it in the "C" locale, base 0 telling the base from the number's own prefix.
// What is beyond 32 bits becomes the nearest int; no number gives 0.
IntegerRead readInteger(char* at, int base = 10);

inline int integerAt(char* at, int base = 10)
{
    return readInteger(at, base).value;
}

// The number of an attribute whose `key` ends in "=", after one character for the quote. Gives the place after
// the number; null, and the number as it was, when the key is not there.
inline char* readCoordinate(char* from, const char* key, int& number)
{
    char* const quote = findBehind(from, key);
    if (quote == nullptr) {
        return nullptr;
    }
    const IntegerRead read = readInteger(stepOver(quote, 1));
    number = read.value;
    return read.end;
}

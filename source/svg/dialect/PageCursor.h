// Stepping through the text of a page in place.
//
// The walk ends each element with a zero byte, and that byte is what bounds everything here: no function looks
// after it. A null pointer stands for "not there"; searches from null give null, so that a chain of them
// needs one test at its end. `Char` is char, or const char for text that is only read.
#pragma once

#include <cstring>

namespace svg {

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

template <typename Char>
Char* skipBlanks(Char* text)
{
    while (isBlank(*text)) {
        ++text;
    }
    return text;
}

template <typename Char>
Char* endOf(Char* text)
{
    return text + std::strlen(text);
}

// The next place of `key`; null without one.
template <typename Char>
Char* findKey(Char* from, const char* key)
{
    return from != nullptr ? std::strstr(from, key) : nullptr;
}

// The place `count` characters on, or the end of the text when that is nearer.
template <typename Char>
Char* stepOver(Char* from, int count)
{
    for (; count > 0 && *from != '\0'; --count) {
        ++from;
    }
    return from;
}

// As findKey, for a tag or the rest of one after its "<". From one place of its first character to the next,
// because the stretch may be long and is asked about again and again: no call measures it to its end.
template <typename Char>
Char* findTag(Char* from, const char* tag)
{
    Char* place = from != nullptr ? std::strchr(from, *tag) : nullptr;
    while (place != nullptr && !beginsWith(place, tag)) {
        place = std::strchr(place + 1, *tag);
    }
    return place;
}

// The place after the next `key`.
template <typename Char>
Char* findAfter(Char* from, const char* key)
{
    Char* const found = findKey(from, key);
    return found != nullptr ? found + std::strlen(key) : nullptr;
}

// The rest of a text that begins with `prefix`; null for another one.
template <typename Char>
Char* afterPrefix(Char* text, const char* prefix)
{
    return beginsWith(text, prefix) ? text + std::strlen(prefix) : nullptr;
}

// Ends the text at the next `character`, which a zero byte replaces, and gives the place after it; null, and the text
// as it was, without one.
inline char* endAt(char* text, char character)
{
    char* const end = std::strchr(text, character);
    if (end == nullptr) {
        return nullptr;
    }
    *end = '\0';
    return end + 1;
}

// A value that begins at `value` and runs to the next apostrophe, or else to the end of the element. Ends it, and
// gives the place after it.
inline char* endValue(char* value)
{
    char* const rest = endAt(value, '\'');
    return rest != nullptr ? rest : endOf(value);
}

// The place after a value that a zero byte of ours has ended.
inline char* afterEnded(char* value)
{
    return endOf(value) + 1;
}

template <typename Char>
struct IntegerRead {
    int value;
    Char* end; // the place after the digits; where the reading began when there is no number
};

// A whole number as strtol reads it in the "C" locale, base 0 telling the base from the number's own prefix.
// What is beyond 32 bits becomes the nearest int; no number gives 0.
IntegerRead<const char> readNumber(const char* at, int base);

template <typename Char>
IntegerRead<Char> readInteger(Char* at, int base = 10)
{
    const IntegerRead<const char> read = readNumber(at, base);
    return {read.value, at + (read.end - at)};
}

inline int integerAt(const char* at, int base = 10)
{
    return readNumber(at, base).value;
}

// The number of an attribute whose `key` ends in "=", after one character for the quote. Gives the place after
// the number; null, and the number as it was, when the key is not there.
template <typename Char>
Char* readCoordinate(Char* from, const char* key, int& number)
{
    Char* const quote = findAfter(from, key);
    if (quote == nullptr) {
        return nullptr;
    }
    const IntegerRead<Char> read = readInteger(stepOver(quote, 1));
    number = read.value;
    return read.end;
}

} // namespace svg

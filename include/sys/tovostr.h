// The strings of the platform: TovoTextString, the zero-terminated 8-bit string that every page is built
// with, and TovoBinaryString, the same for arbitrary bytes.
//
// Used by the whole module and by its callers. Buffers come from the string storage of krnos.h and grow in
// steps of 64 bytes: room for n characters takes the next multiple of 64 above n. Whoever can estimate
// what it will write reserves first. Without memory, or beyond what 32 bits can size, every growing operation
// throws KrnException and leaves the string as it was. Neither class takes a lock.
#pragma once

#include <bit>
#include <climits>
#include <cstdint>
#include <cstring>
#include <utility>

#include "sys/krnos.h"

// The buffer behind both strings: ownership, growth and the operations that count bytes and know no text.
//
// A string without a buffer points to kstr_null_string with length and capacity 0. One with a buffer has its
// length below the capacity and a zero byte after its content and at the end of the buffer.
class TovoStringBuffer {
public:
    TovoStringBuffer& operator=(const TovoStringBuffer&) = delete;

    unsigned int length() const noexcept { return _length; }

    // Bytes of the buffer, the terminator's included; 0 without a buffer.
    unsigned int capacity() const noexcept { return _capacity; }
    bool isEmpty() const noexcept { return _length == 0; }

    // Replaces the content by `length` bytes, which may be a piece of the content itself. A null `data` or a
    // length of 0 empties the string and keeps the buffer.
    void assign(const void* data, unsigned int length)
    {
        replaceContent(data, length);
        if (_capacity != 0) {
            _text[_length] = '\0';
        }
    }

    // Adds `length` bytes, which may be a piece of the content itself. Length 0 or null `data` does nothing.
    void append(const void* data, unsigned int length)
    {
        if (length == 0 || data == nullptr) {
            return;
        }
        if (const std::uint64_t needed = std::uint64_t{_length} + length; needed >= _capacity) {
            data = growKeeping(data, needed);
            if (_text == kstr_null_string) {
                reportLostBuffer(length);
                return;
            }
        }
        std::memmove(_text + _length, data, length);
        _length += length;
        _text[_length] = '\0';
    }

    // Makes room for `length` characters; content and length stay.
    void reserve(unsigned int length)
    {
        if (length >= _capacity) {
            growTo(length);
        }
    }

    // Sets the length. Bytes that the string gains are whatever the buffer held, for the caller to fill; 0
    // gives the buffer back.
    void setLength(unsigned int length)
    {
        if (length == 0) {
            empty();
            return;
        }
        reserve(length);
        if (_capacity != 0) {
            _length = length;
            _text[_length] = '\0';
        }
    }

    // Drops the characters from `length` on and keeps the buffer. Needs no memory.
    void cutTo(unsigned int length) noexcept
    {
        if (length < _length) {
            _length = length;
            _text[_length] = '\0';
        }
    }

    // The two exchange their buffers. Needs no memory.
    void swap(TovoStringBuffer& other) noexcept
    {
        std::swap(_text, other._text);
        std::swap(_length, other._length);
        std::swap(_capacity, other._capacity);
    }

    // Gives the buffer back.
    void empty() noexcept
    {
        kstr_deallocate(_text);
        standOnNothing();
    }

protected:
    TovoStringBuffer() noexcept { standOnNothing(); }
    TovoStringBuffer(const void* data, unsigned int length) : TovoStringBuffer() { assign(data, length); }

    TovoStringBuffer(TovoStringBuffer&& other) noexcept
        : _text(other._text), _length(other._length), _capacity(other._capacity)
    {
        other.standOnNothing();
    }

    // Leaves a pattern behind that a use after destruction trips over. Through volatile, because stores into
    // an object that ends are otherwise dropped.
    ~TovoStringBuffer()
    {
        kstr_deallocate(_text);
        *const_cast<char* volatile*>(&_text) = std::bit_cast<char*>(std::uintptr_t{0xBAADF00DU});
        *const_cast<volatile unsigned int*>(&_length) = 0;
        *const_cast<volatile unsigned int*>(&_capacity) = 0;
    }

    void takeOver(TovoStringBuffer& other) noexcept
    {
        if (this != &other) {
            kstr_deallocate(_text);
            _text = other._text;
            _length = other._length;
            _capacity = other._capacity;
            other.standOnNothing();
        }
    }

    // The content is replaced, and nothing after it is written.
    void replaceContent(const void* data, unsigned int length)
    {
        if (data == nullptr || length == 0) {
            _length = 0;
            return;
        }
        if (length >= _capacity) {
            const std::uint32_t capacity = capacityFor(length);
            adopt(kstr_allocate(capacity), capacity, _text);
            if (_capacity == 0) {
                return;
            }
        }
        std::memmove(_text, data, length);
        _length = length;
    }

    void growTo(std::uint64_t length)
    {
        const std::uint32_t capacity = capacityFor(length);
        adopt(kstr_reallocate(_text, capacity), capacity, nullptr);
        if (_capacity != 0) {
            _text[_length] = '\0';
        }
    }

    char* _text;
    unsigned int _length;
    unsigned int _capacity;

private:
    static std::uint32_t capacityFor(std::uint64_t length)
    {
        const std::uint64_t bytes = (length / 64 + 1) * 64;
        if (bytes > UINT32_MAX) {
            krnOutOfMemory();
        }
        return static_cast<std::uint32_t>(bytes);
    }

    void standOnNothing() noexcept
    {
        _text = const_cast<char*>(kstr_null_string);
        _length = 0;
        _capacity = 0;
    }

    // The old buffer is given back only once the new one is there, so that a failure changes nothing. A storage that
    // answers with the shared empty string has kept nothing: the string is empty then, and nothing is written there.
    void adopt(void* block, std::uint32_t capacity, void* oldBlock)
    {
        if (block == nullptr) {
            krnOutOfMemory();
        }
        kstr_deallocate(oldBlock);
        if (block == kstr_null_string) {
            standOnNothing();
            return;
        }
        _text = static_cast<char*>(block);
        _capacity = capacity;
        _text[capacity - 1] = '\0';
    }

    // Grows, and gives the place of `data` afterwards: a piece of the content moves with it.
    const void* growKeeping(const void* data, std::uint64_t length)
    {
        const std::uintptr_t offset =
            std::bit_cast<std::uintptr_t>(data) - std::bit_cast<std::uintptr_t>(_text);
        const bool ownContent = offset < _capacity;
        growTo(length);
        return ownContent ? _text + offset : data;
    }

    // The storage answered with the shared empty string; nothing may be written there.
    void reportLostBuffer(unsigned int length)
    {
        _length += length;
        if (_length != 0) {
            kosAssertFail("Assertion failed", "_length == 0", "surface", "..\\..\\include\\sys/tovostr", 450);
        }
        _length = 0;
    }
};

// How many characters a new, empty string is to have room for.
struct TextRoom {
    unsigned int length;
};

// Text. Passed by value it is the callee's to work on. Positions count from 0.
class TovoTextString : public TovoStringBuffer {
public:
    TovoTextString() noexcept = default;
    TovoTextString(const char* text) : TovoStringBuffer(text, lengthOf(text)) {}
    TovoTextString(const void* data, unsigned int length) : TovoStringBuffer(data, length) {}
    explicit TovoTextString(TextRoom room) { reserve(room.length); }

    // An empty string's copy has no buffer.
    TovoTextString(const TovoTextString& other) : TovoStringBuffer(other._text, other._length) {}
    TovoTextString(TovoTextString&& other) noexcept = default;
    ~TovoTextString() = default;

    TovoTextString& operator=(const TovoTextString& other)
    {
        assign(other._text, other._length);
        return *this;
    }

    TovoTextString& operator=(TovoTextString&& other) noexcept
    {
        takeOver(other);
        return *this;
    }

    // Never null. Without a buffer the text is the shared empty string, which nobody may write to.
    const char* text() const noexcept { return _text; }
    char* text() noexcept { return _text; }

    using TovoStringBuffer::append;
    void append(const char* text) { append(text, lengthOf(text)); }
    void append(const TovoTextString& other) { append(other._text, other._length); }

    // Room for `count` more characters and the terminator; gives the place where they go. For writers that
    // compose in place: write there, then `grow` by what was written.
    char* room(unsigned int count)
    {
        if (const std::uint64_t needed = std::uint64_t{_length} + count; needed >= _capacity) {
            growTo(needed);
            if (_capacity == 0) {
                krnOutOfMemory(); // there is no place to write to
            }
        }
        return _text + _length;
    }

    // Takes in `count` characters written at the place that `room` gave, at most as many as it was asked for.
    void grow(unsigned int count) noexcept
    {
        _length += count;
        _text[_length] = '\0';
    }

    // The first `count` characters; none below 0, all from the length on.
    TovoTextString left(int count) const { return mid(0, count); }

    // The characters from `start` on; below 0 counts as 0, and past the end there are none.
    TovoTextString mid(int start) const
    {
        const unsigned int first = clamped(start, _length);
        return TovoTextString(_text + first, _length - first);
    }

    // At most `count` of them.
    TovoTextString mid(int start, int count) const
    {
        const unsigned int first = clamped(start, _length);
        return TovoTextString(_text + first, clamped(count, _length - first));
    }

    // The position of the first occurrence at or after `start` and before the first zero byte from there; -1
    // when there is none or `start` is past the end. A start below 0 counts as 0.
    int find(const char* needle, int start) const noexcept
    {
        const unsigned int first = start > 0 ? static_cast<unsigned int>(start) : 0;
        if (first > _length || needle == nullptr) {
            return -1;
        }
        const char* const found = std::strstr(_text + first, needle);
        return found != nullptr && found - _text <= INT_MAX ? static_cast<int>(found - _text) : -1;
    }

    // Drops `count` characters at the end, as many as there are; none for 0 and below.
    void truncate(int count) noexcept
    {
        if (const unsigned int dropped = clamped(count, _length); dropped != 0) {
            _length -= dropped;
            _text[_length] = '\0';
        }
    }

    // In code page 1252, up to the first zero byte.
    SURFACE_API void toLower() noexcept;

    friend TovoTextString operator+(const TovoTextString& a, const TovoTextString& b)
    {
        TovoTextString sum;
        if (const std::uint64_t length = std::uint64_t{a._length} + b._length; length != 0) {
            sum.growTo(length);
        }
        sum.append(a);
        sum.append(b);
        return sum;
    }

private:
    static unsigned int lengthOf(const char* text)
    {
        const std::size_t length = text != nullptr ? std::strlen(text) : 0;
        if (length > UINT_MAX) {
            krnOutOfMemory();
        }
        return static_cast<unsigned int>(length);
    }

    // `count` between 0 and `limit`.
    static unsigned int clamped(int count, unsigned int limit) noexcept
    {
        const unsigned int positive = count > 0 ? static_cast<unsigned int>(count) : 0;
        return positive < limit ? positive : limit;
    }
};

// Bytes. Not copied: whoever needs a second one says so with `assign`.
class TovoBinaryString : public TovoStringBuffer {
public:
    TovoBinaryString() noexcept = default;
    TovoBinaryString(const void* data, unsigned int length) : TovoStringBuffer(data, length) {}
    TovoBinaryString(TovoBinaryString&& other) noexcept = default;
    ~TovoBinaryString() = default;

    TovoBinaryString& operator=(TovoBinaryString&& other) noexcept
    {
        takeOver(other);
        return *this;
    }

    // Never null; as with a text, nobody writes there while there is no buffer.
    const char* data() const noexcept { return _text; }
    char* data() noexcept { return _text; }

    // `assign` for the samples of an image: fills the buffer and writes no terminator after them.
    void assignSamples(const void* data, unsigned int length) { replaceContent(data, length); }
};

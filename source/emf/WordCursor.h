// Steps from word to word of a text that separators cut.
#pragma once

#include <cstddef>
#include <string_view>

#include "wordSeparators.h"

class WordCursor {
public:
    // In front of the first word.
    explicit WordCursor(std::string_view text) : _text(text) {}

    // Moves to the next word; false, and no word, after the last one.
    bool next()
    {
        _start = _end;
        while (_start < _text.size() && isWordSeparator(_text[_start])) {
            ++_start;
        }
        _end = _start;
        while (_end < _text.size() && !isWordSeparator(_text[_end])) {
            ++_end;
        }
        return _end > _start;
    }

    std::string_view word() const { return _text.substr(_start, _end - _start); }
    unsigned int start() const { return static_cast<unsigned int>(_start); }
    unsigned int end() const { return static_cast<unsigned int>(_end); }

private:
    std::string_view _text;
    std::size_t _start = 0;
    std::size_t _end = 0;
};

// Metafiles written as text.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/MetafileRecords.h"

using Words = std::vector<std::int32_t>;

// Records end with ';'. Each is a name, or a type without one, and its fields: whole numbers, or real ones that end with 'f'.
//   @four    the four fields of a bitmap's place; the bitmap, one of `bitmaps`, follows at the record's end
//   R( ... ) the data of a region of rectangles; $ its length in bytes
class HandMadeMetafile {
public:
    // A pixel of the reference device is a millimetre, and the frame has 12 by 6 of them.
    HandMadeMetafile(const std::string& records, const std::map<std::string, Words>& bitmaps,
                     bool withEnd = true)
        : m_words{1,       88, 0, 0, 11, 5, 0, 0,   1200, 600, 0x464D4520,
                  0x10000, 0,  0, 9, 0,  0, 0, 100, 100,  100, 100}
    {
        std::istringstream stream(withEnd ? records + "EOF 0 16 20;" : records);
        for (std::string record; std::getline(stream, record, ';');) {
            enter(record, bitmaps);
        }
        m_words[12] = static_cast<std::int32_t>(m_words.size() * 4);
    }

    std::vector<unsigned char> bytes() const
    {
        std::vector<unsigned char> result(m_words.size() * 4);
        std::memcpy(result.data(), m_words.data(), result.size());
        return result;
    }

private:
    void enter(const std::string& record, const std::map<std::string, Words>& bitmaps)
    {
        const std::size_t start = m_words.size();
        std::vector<std::pair<std::size_t, Words>> pending; // where a bitmap's place is
        std::istringstream stream(record);
        for (std::string word; stream >> word;) {
            if (word[0] == '@') {
                pending.emplace_back(m_words.size(), bitmaps.at(word.substr(1)));
                m_words.resize(m_words.size() + 4);
            } else if (word == "R(") {
                const std::size_t begin = m_words.size();
                m_words.insert(m_words.end(), {32, 1, 0, 0, 0, 0, 0, 0});
                while (stream >> word && word != ")") {
                    m_words.push_back(std::stoi(word));
                }
                m_words[begin + 2] = static_cast<std::int32_t>((m_words.size() - begin - 8) / 4);
                m_words[m_regionLength] = static_cast<std::int32_t>((m_words.size() - begin) * 4);
            } else if (const auto* const named = std::ranges::find(RecordNames, word, &RecordName::name);
                       named != std::end(RecordNames)) {
                m_words.push_back(static_cast<std::int32_t>(named->type));
            } else if (word.back() == 'f' && word[1] != 'x') {
                const float value = std::stof(word);
                std::memcpy(&m_words.emplace_back(), &value, sizeof(value));
            } else {
                m_regionLength = word == "$" ? m_words.size() : m_regionLength;
                m_words.push_back(word == "$" ? 0 : static_cast<std::int32_t>(std::stoll(word, nullptr, 0)));
            }
            if (m_words.size() == start + 1) {
                m_words.push_back(0);
            }
        }
        for (const auto& [place, bitmap] : pending) {
            // A head of ten words and as many colours as it names.
            const auto offset = static_cast<std::int32_t>((m_words.size() - start) * 4);
            const std::int32_t head = 40 + bitmap[8] * 4;
            const std::int32_t fields[] = {offset, head, offset + head,
                                           static_cast<std::int32_t>(bitmap.size() * 4) - head};
            std::memcpy(&m_words[place], fields, sizeof(fields));
            m_words.insert(m_words.end(), bitmap.begin(), bitmap.end());
        }
        if (m_words.size() > start) {
            m_words[start + 1] = static_cast<std::int32_t>((m_words.size() - start) * 4);
        }
    }

    Words m_words;
    std::size_t m_regionLength = 0;
};

// Metafile pages made record by record, and taken apart again, by nothing but the numbers of [MS-EMF].
#pragma once

#include <windows.h>

#include <cstring>
#include <string>
#include <vector>

template <typename Layout>
std::string bytesOf(const Layout& layout)
{
    return {reinterpret_cast<const char*>(&layout), sizeof(layout)};
}

inline std::string recordOf(DWORD type, std::string fields)
{
    fields.resize((fields.size() + 3) / 4 * 4);
    return bytesOf(EMR{type, static_cast<DWORD>(fields.size() + 8)}) + fields;
}

inline DWORD numberAt(const std::string& bytes, std::size_t offset)
{
    DWORD number = 0;
    std::memcpy(&number, bytes.data() + offset, sizeof(number));
    return number;
}

inline std::string withNumber(std::string bytes, std::size_t offset, DWORD number)
{
    return bytes.replace(offset, 4, bytesOf(number));
}

inline std::string markerRecord(int left, int right)
{
    return recordOf(EMR_GDICOMMENT, bytesOf(DWORD{11}) + "TPC" + bytesOf(POINTL{left, right}));
}

// A text of characters 10 units wide and high, with advances of 7 after it.
inline std::string textRecord(int x, int y, const std::string& text, bool wide = false)
{
    std::string characters;
    for (const char character : text) {
        characters += wide ? std::string{character, '\0'} : std::string{character};
    }
    characters.resize((characters.size() + 3) / 4 * 4);
    const auto count = static_cast<DWORD>(text.size());
    EMREXTTEXTOUTW record{};
    const auto advances = static_cast<DWORD>(sizeof(record) + characters.size());
    record.rclBounds = {x, y, x + 10 * static_cast<int>(count) - 1, y + 9};
    record.emrtext = {{x, y}, count, sizeof(record), ETO_CLIPPED, {}, advances};
    for (DWORD i = 0; i < count; ++i) {
        characters += bytesOf(DWORD{7});
    }
    return recordOf(wide ? EMR_EXTTEXTOUTW : EMR_EXTTEXTOUTA, bytesOf(record).substr(8) + characters);
}

// A page of 210 by 297 millimetres on a device of 96 dots per inch.
inline std::string metafileOf(const std::vector<std::string>& records)
{
    std::string page;
    for (const std::string& record : records) {
        page += record;
    }
    page += recordOf(EMR_EOF, bytesOf(EMREOF{{}, 0, 16, 20}).substr(8));
    ENHMETAHEADER header{};
    header.rclFrame = {0, 0, 21000, 29700};
    header.dSignature = ENHMETA_SIGNATURE;
    header.nBytes = static_cast<DWORD>(page.size() + sizeof(header));
    header.nRecords = static_cast<DWORD>(records.size() + 2);
    header.szlDevice = {1920, 1440};
    header.szlMillimeters = {508, 381};
    return recordOf(EMR_HEADER, bytesOf(header).substr(8)) + page;
}

inline std::vector<std::string> recordsOf(const std::string& page)
{
    std::vector<std::string> records;
    for (std::size_t at = 0; at < page.size(); at += records.back().size()) {
        records.push_back(page.substr(at, numberAt(page, at + 4)));
    }
    return records;
}

// The characters of a text record, the low bytes of wide ones; blanks as points.
inline std::string charactersOf(const std::string& record)
{
    std::string text;
    const std::size_t step = numberAt(record, 0) == EMR_EXTTEXTOUTW ? 2 : 1;
    for (DWORD i = 0; i < numberAt(record, 44); ++i) {
        const char character = record[numberAt(record, 48) + i * step];
        text += character == ' ' ? '.' : character;
    }
    return text;
}

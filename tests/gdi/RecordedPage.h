// Pages recorded as metafiles: what the tests of the GDI surfaces share.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/MetafileRecords.h"
#include "surfaceEMF.h"

using GdiDrawing = std::function<void(CSurfaceEMF&)>;

inline std::vector<unsigned char> closedPage(CSurfaceEMF& surface)
{
    EXPECT_EQ(0, surface.getDataLength());
    EXPECT_EQ(0, surface.closeSurface());
    std::vector<unsigned char> page(static_cast<std::size_t>(surface.getDataLength()));
    unsigned int size = static_cast<unsigned int>(page.size());
    surface.getData(page.data(), size);
    EXPECT_EQ(page.size(), size);
    return page;
}

// The text of a text record, by the offsets in it.
inline std::string textIn(const MetafileRecord& record)
{
    const auto* const words = reinterpret_cast<const char*>(record.fields.data());
    std::string text;
    for (int i = 0; i < record.fields[9]; ++i) {
        text.push_back(words[record.fields[10] - 8 + 2 * i]);
    }
    return text;
}

// The records that a drawing leaves between head and end, a line each. Of a text record: its text in quotes, the
// reference point, the options, and the advance of the first character; of a font record: height, orientation.
inline std::string recordsOf(const GdiDrawing& draw)
{
    RECT frame{0, 0, 21000, 29700};
    CSurfaceEMF surface(&frame);
    draw(surface);
    std::string lines;
    const std::vector<MetafileRecord> records = metafileRecords(closedPage(surface));
    for (std::size_t i = 1; i + 1 < records.size(); ++i) {
        const MetafileRecord& record = records[i];
        const std::vector<std::int32_t>& field = record.fields;
        const auto appendNumbers = [&](std::initializer_list<int> numbers) {
            for (const int number : numbers) {
                lines.append(" ").append(std::to_string(number));
            }
        };
        if (record.type == EMR_EXTTEXTOUTW) {
            const auto advances = static_cast<std::size_t>(field[16] / 4 - 2);
            lines.append("'").append(textIn(record)).append("'");
            appendNumbers({field[7], field[8], field[11], field[advances]});
        } else if (record.type == EMR_EXTCREATEFONTINDIRECTW) {
            lines.append("font");
            appendNumbers({field[0], field[1], field[3], field[4]});
        } else {
            lines.append(textOf(record));
        }
        lines += "\n";
    }
    return lines;
}

// Rows of run-length encoded bitmaps ([MS-WMF] 3.1.6).
#include <algorithm>

#include "Bitmap.h"

namespace wingdi {

namespace {

class RunLengthReader {
public:
    RunLengthReader(const DibHead& head, std::span<const BYTE> bits)
        : m_head(head), m_bits(bits), m_nibbles(head.compression == BI_RLE4)
    {
        m_rows.resize(head.stride * static_cast<unsigned int>(head.height));
    }

    // False when the codes are cut or lead out of the picture. Some writers leave the end mark out.
    bool run()
    {
        while (m_bits.size() >= 2) {
            const BYTE count = m_bits[0];
            const BYTE value = m_bits[1];
            m_bits = m_bits.subspan(2);
            if (count > 0) {
                if (!repeat(count, value)) {
                    return false;
                }
            } else if (value == 1) { // end of the bitmap
                return true;
            } else if (!escape(value)) {
                return false;
            }
        }
        return true;
    }

    std::vector<BYTE>& rows() noexcept { return m_rows; }

private:
    bool repeat(BYTE count, BYTE value)
    {
        for (int index = 0; index < count; ++index) {
            put(m_nibbles ? (index % 2 == 0 ? value >> 4 : value & 0xF) : value);
        }
        return m_y < m_head.height;
    }

    bool escape(BYTE code)
    {
        if (code == 0) { // end of the row
            m_x = 0;
            m_y = std::min(m_y + 1, m_head.height);
            return true;
        }
        if (code == 2) { // a move
            if (m_bits.size() < 2) {
                return false;
            }
            m_x = std::min(m_x + m_bits[0], m_head.width);
            m_y = std::min(m_y + m_bits[1], m_head.height);
            m_bits = m_bits.subspan(2);
            return true;
        }
        return literal(code);
    }

    // Pixels as they are, padded to 16 bits.
    bool literal(int count)
    {
        const auto bytes = static_cast<std::size_t>(m_nibbles ? (count + 1) / 2 : count);
        if (bytes > m_bits.size()) {
            return false;
        }
        for (int index = 0; index < count; ++index) {
            const BYTE value = m_bits[static_cast<std::size_t>(m_nibbles ? index / 2 : index)];
            put(m_nibbles ? (index % 2 == 0 ? value >> 4 : value & 0xF) : value);
        }
        m_bits = m_bits.subspan(std::min((bytes + 1) & ~std::size_t{1}, m_bits.size()));
        return m_y < m_head.height;
    }

    // Pixels beyond the end of a row are dropped.
    void put(int value) noexcept
    {
        if (m_x < m_head.width && m_y < m_head.height) {
            BYTE* row = m_rows.data() + m_head.stride * static_cast<unsigned int>(m_y);
            if (m_nibbles) {
                row[m_x / 2] = static_cast<BYTE>(row[m_x / 2] | (value << (m_x % 2 == 0 ? 4 : 0)));
            } else {
                row[m_x] = static_cast<BYTE>(value);
            }
            ++m_x;
        }
    }

    const DibHead& m_head;
    std::span<const BYTE> m_bits;
    bool m_nibbles;
    std::vector<BYTE> m_rows;
    int m_x = 0;
    int m_y = 0; // from the bottom, as stored
};

} // namespace

std::optional<std::vector<BYTE>> expandRle(const DibHead& head, std::span<const BYTE> bits)
{
    if (head.compression != BI_RLE8 && head.compression != BI_RLE4) {
        return std::nullopt;
    }
    RunLengthReader reader(head, bits);
    if (!reader.run()) {
        return std::nullopt;
    }
    return std::move(reader.rows());
}

} // namespace wingdi

#include "ShrunkPixels.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "PixelRows.h"
#include "RasterOperation.h"

namespace wingdi {

namespace {

std::int64_t floorOf(std::int64_t value, std::int64_t divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// What one target position covers, in units of which a source pixel takes `unit`.
struct Cover {
    std::int64_t begin;
    std::int64_t end;
    std::int64_t unit;

    std::uint64_t weightOf(std::int64_t pixel) const
    {
        return static_cast<std::uint64_t>(std::min(end, (pixel + 1) * unit) - std::max(begin, pixel * unit));
    }
};

Cover coverOf(const AxisCopy& copy, std::int64_t position)
{
    const std::int64_t targetLength = copy.targetEnd - copy.target;
    const std::int64_t unit = std::abs(targetLength);
    const std::int64_t step = (copy.sourceEnd - copy.source) * (targetLength < 0 ? -1 : 1);
    const std::int64_t from = copy.source * unit + (position - copy.target) * step;
    return {std::min(from, from + step), std::max(from, from + step), unit};
}

// The pixels that the cover touches, or those whose middle it holds, within [low, high).
SourceSpan spanUnder(const Cover& cover, bool touched, int low, int high)
{
    const std::int64_t unit = cover.unit;
    const std::int64_t first =
        touched ? floorOf(cover.begin, unit) : floorOf(2 * cover.begin + unit - 1, 2 * unit);
    const std::int64_t last =
        touched ? floorOf(cover.end - 1, unit) : floorOf(2 * cover.end - unit - 1, 2 * unit);
    const auto begin = static_cast<int>(std::max<std::int64_t>(first, low));
    const auto end = static_cast<int>(std::min<std::int64_t>(last, high - 1));
    return {begin, end, cover.weightOf(begin), cover.weightOf(end)};
}

using Sums = std::array<std::uint64_t, 4>;

// All four bytes of a pixel are averaged: a bitmap with alpha keeps one.
void add(Sums& sums, DWORD pixel, std::uint64_t weight)
{
    for (std::size_t channel = 0; channel < sums.size(); ++channel) {
        sums[channel] += weight * (pixel >> (8 * channel) & 0xFF);
    }
}

DWORD averageOf(const Sums& sums, std::uint64_t weight)
{
    DWORD pixel = 0;
    for (std::size_t channel = 0; channel < sums.size(); ++channel) {
        pixel |= static_cast<DWORD>((sums[channel] + weight / 2) / weight) << (8 * channel);
    }
    return pixel;
}

std::uint64_t weightIn(const SourceSpan& span, std::uint64_t inner, int position)
{
    return position == span.first ? span.firstWeight : position == span.last ? span.lastWeight : inner;
}

std::uint64_t wholeWeight(const SourceSpan& span, std::uint64_t inner)
{
    const auto between = static_cast<std::uint64_t>(std::max(0, span.last - span.first - 1));
    return span.firstWeight + between * inner + (span.last > span.first ? span.lastWeight : 0);
}

// What takes colours from black and white does so after bits are merged: the operation is on the bits.
bool takesColorsLast(const ColorRule& rule, Shrinking shrinking)
{
    return shrinking != Shrinking::Average && rule.kind == ColorRule::Kind::FromMonochrome;
}

// What the first of pixels is merged with.
DWORD neutralOf(Shrinking shrinking)
{
    return shrinking == Shrinking::All ? 0xFFFFFFFF : 0;
}

DWORD merged(Shrinking shrinking, DWORD first, DWORD second)
{
    return shrinking == Shrinking::All ? first & second : first | second;
}

// Calls take(pixels, x, count) for pieces of a row's span: a span may be far longer than what is kept of it.
template <class Take>
void readSpan(const BitmapView& view, const SourceSpan& span, int y, const Take& take)
{
    std::array<DWORD, 256> pixels;
    for (int x = span.first; x <= span.last;) {
        const int count = std::min(static_cast<int>(pixels.size()), span.last - x + 1);
        readPixels(view, x, y, count, pixels.data());
        take(pixels.data(), x, count);
        x += count;
    }
}

} // namespace

Shrinking shrinkingFor(int stretchMode, BYTE operation, bool oneBit) noexcept
{
    if (operation != ternaryOf(SRCCOPY) || stretchMode == COLORONCOLOR) {
        return Shrinking::Nearest;
    }
    if (stretchMode == HALFTONE || !oneBit) {
        return Shrinking::Average;
    }
    return stretchMode == WHITEONBLACK ? Shrinking::Any : Shrinking::All;
}

bool AxisCopy::shrinks() const noexcept
{
    return std::abs(sourceEnd - source) > std::abs(targetEnd - target);
}

ShrunkAxis::ShrunkAxis(const AxisCopy& copy, const std::vector<int>& nearest, int begin, int low, int high,
                       Shrinking shrinking)
{
    const bool shrinks = copy.shrinks();
    spanOf.reserve(nearest.size());
    for (std::size_t i = 0; i < nearest.size(); ++i) {
        SourceSpan span{nearest[i], nearest[i], 1, 1};
        if (shrinks) {
            const Cover cover = coverOf(copy, begin + static_cast<std::int64_t>(i));
            innerWeight = static_cast<std::uint64_t>(cover.unit);
            const SourceSpan under = spanUnder(cover, shrinking == Shrinking::Average, low, high);
            span = under.first <= under.last ? under : span;
        }
        if (shrinks || spans.empty() || spans.back().first != span.first) {
            spans.push_back(span);
        }
        spanOf.push_back(spans.size() - 1);
    }
}

MixedPixel::MixedPixel(const ColorRule& rule, Shrinking shrinking)
    : m_rule(rule), m_shrinking(shrinking), m_merged(neutralOf(shrinking))
{
}

void MixedPixel::add(DWORD pixel)
{
    if (!takesColorsLast(m_rule, m_shrinking)) {
        m_rule.apply(&pixel, 1);
    }
    wingdi::add(m_sums, pixel, 1);
    m_merged = merged(m_shrinking, m_merged, pixel);
    ++m_count;
}

DWORD MixedPixel::result() const
{
    if (m_shrinking == Shrinking::Average) {
        return averageOf(m_sums, m_count);
    }
    DWORD pixel = m_merged;
    if (takesColorsLast(m_rule, m_shrinking)) {
        m_rule.apply(&pixel, 1);
    }
    return pixel;
}

ShrunkPixels::ShrunkPixels(const BitmapView& view, const ColorRule& rule, Shrinking shrinking,
                           ShrunkAxis columns, ShrunkAxis rows)
    : m_view(view), m_rule(rule), m_shrinking(shrinking), m_columns(std::move(columns)),
      m_rows(std::move(rows)), m_picture(m_columns.spans.size() * m_rows.spans.size())
{
    DWORD* pixels = m_picture.data();
    for (const SourceSpan& span : m_rows.spans) {
        if (m_shrinking == Shrinking::Average) {
            averageRow(span, pixels);
        } else {
            mergeRow(span, pixels);
        }
        pixels += m_columns.spans.size();
    }
}

// Weights are below 2^28 along each axis, so that sums keep within 64 bits.
void ShrunkPixels::averageRow(const SourceSpan& span, DWORD* pixels) const
{
    std::vector<Sums> sums(m_columns.spans.size());
    for (int y = span.first; y <= span.last; ++y) {
        for (std::size_t column = 0; column < sums.size(); ++column) {
            const SourceSpan& across = m_columns.spans[column];
            Sums rowSums{};
            readSpan(m_view, across, y, [&](DWORD* read, int x, int count) {
                m_rule.apply(read, count);
                for (int i = 0; i < count; ++i) {
                    add(rowSums, read[i], weightIn(across, m_columns.innerWeight, x + i));
                }
            });
            const std::uint64_t weight = weightIn(span, m_rows.innerWeight, y);
            for (std::size_t channel = 0; channel < rowSums.size(); ++channel) {
                sums[column][channel] += rowSums[channel] * weight;
            }
        }
    }
    const std::uint64_t weight = wholeWeight(span, m_rows.innerWeight);
    for (std::size_t column = 0; column < sums.size(); ++column) {
        pixels[column] =
            averageOf(sums[column], weight * wholeWeight(m_columns.spans[column], m_columns.innerWeight));
    }
}

void ShrunkPixels::mergeRow(const SourceSpan& span, DWORD* pixels) const
{
    const bool colorsLast = takesColorsLast(m_rule, m_shrinking);
    const std::size_t columns = m_columns.spans.size();
    std::fill_n(pixels, columns, neutralOf(m_shrinking));
    for (int y = span.first; y <= span.last; ++y) {
        for (std::size_t column = 0; column < columns; ++column) {
            readSpan(m_view, m_columns.spans[column], y, [&](DWORD* read, int /*x*/, int count) {
                if (!colorsLast) {
                    m_rule.apply(read, count);
                }
                for (int i = 0; i < count; ++i) {
                    pixels[column] = merged(m_shrinking, pixels[column], read[i]);
                }
            });
        }
    }
    if (colorsLast) {
        m_rule.apply(pixels, static_cast<int>(columns));
    }
}

const DWORD* ShrunkPixels::read(std::size_t column, std::size_t row, std::size_t count)
{
    const DWORD* const pixels = m_picture.data() + m_rows.spanOf[row] * m_columns.spans.size();
    if (m_columns.spans.size() == m_columns.spanOf.size()) {
        return pixels + column;
    }
    m_stretch.resize(count);
    std::transform(m_columns.spanOf.begin() + static_cast<std::ptrdiff_t>(column),
                   m_columns.spanOf.begin() + static_cast<std::ptrdiff_t>(column + count), m_stretch.begin(),
                   [pixels](std::size_t span) { return pixels[span]; });
    return m_stretch.data();
}

} // namespace wingdi

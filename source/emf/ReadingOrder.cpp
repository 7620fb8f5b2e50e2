#include "ReadingOrder.h"

#include <algorithm>
#include <climits>
#include <tuple>

#include "wrappingInt.h"

namespace metafile {

using namespace drawing;

namespace {

constexpr int LineReach = 5;
constexpr int LineFactor = 1000;

int keyOf(int y, int x)
{
    return wrapAdd(wrapMultiply(y, LineFactor), x);
}

} // namespace

unsigned int ReadingOrder::lookForNext(POINTL place) const
{
    Candidate best;
    for (unsigned int number = 0; number < m_fields.size(); ++number) {
        const POINTL& field = m_fields[number];
        const std::int64_t down = std::int64_t{field.y} - place.y;
        const bool sameLine = down < LineReach;
        if (down <= -LineReach || (sameLine && field.x <= place.x)) {
            continue;
        }
        const int key = keyOf(sameLine ? place.y : field.y, field.x);
        if (key < best.key || best.key == 0) {
            best = {number, key};
        }
    }
    return best.number;
}

unsigned int ReadingOrder::next(POINTL place)
{
    if (m_order.size() != m_fields.size()) {
        sort();
    }
    Candidate best;
    unsigned int rank = rankFrom(std::int64_t{place.y} - LineReach + 1, INT_MIN);
    while (rank < m_order.size() && std::int64_t{sorted(rank).y} - place.y < LineReach) {
        const int line = sorted(rank).y;
        chooseFromLine(best, place, line);
        rank = rankFrom(std::int64_t{line} + 1, INT_MIN);
    }
    if (rank < m_order.size()) {
        choose(best, m_leastFrom[rank]);
    }
    return best.number != None && best.key == 0 ? lookForNext(place) : best.number;
}

// Keys grow with x, but for the one place where they wrap around: the least is the first after the place or the
// first after that one.
void ReadingOrder::chooseFromLine(Candidate& best, POINTL place, int line) const
{
    const std::int64_t start = wrapMultiply(place.y, LineFactor);
    const std::int64_t wrapsAt = start > 0 ? INT_MAX - start + 1 : INT_MIN - start;
    const std::int64_t after = std::int64_t{place.x} + 1;
    for (const std::int64_t x : {after, std::max(after, wrapsAt)}) {
        const unsigned int rank = rankFrom(line, x);
        if (rank < m_order.size() && sorted(rank).y == line) {
            choose(best, {m_order[rank], keyOf(place.y, sorted(rank).x)});
        }
    }
}

void ReadingOrder::choose(Candidate& best, Candidate candidate)
{
    if (best.number == None || std::tie(candidate.key, candidate.number) < std::tie(best.key, best.number)) {
        best = candidate;
    }
}

// How many fields lie before the first at (x, y) or after it in the order.
unsigned int ReadingOrder::rankFrom(std::int64_t y, std::int64_t x) const
{
    const unsigned int* const order = &m_order[0];
    const unsigned int* const first =
        std::partition_point(order, order + m_order.size(), [&](unsigned int number) {
            const POINTL& field = m_fields[number];
            return field.y != y ? field.y < y : field.x < x;
        });
    return static_cast<unsigned int>(first - order);
}

void ReadingOrder::sort()
{
    const unsigned int count = m_fields.size();
    m_order.reSize(count);
    m_leastFrom.reSize(count);
    for (unsigned int number = 0; number < count; ++number) {
        m_order.add(number);
    }
    std::sort(&m_order[0], &m_order[0] + count, [this](unsigned int a, unsigned int b) {
        const POINTL& first = m_fields[a];
        const POINTL& second = m_fields[b];
        return std::tie(first.y, first.x, a) < std::tie(second.y, second.x, b);
    });
    Candidate least;
    for (unsigned int rank = count; rank-- > 0;) {
        choose(least, {m_order[rank], keyOf(sorted(rank).y, sorted(rank).x)});
        m_leastFrom.atPut(rank, least);
    }
}

} // namespace metafile

// The containers: their two position conventions, growth, zeros past the size, order by key.
#include "sys/tovoarray.h"

#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace {

// All the room, so that what lies past the size shows as well: it must be zero for the next atPut.
template <typename Container>
auto roomOf(const Container& container)
{
    return std::vector(&container[0], &container[0] + container.capacity());
}

TEST(Vector, GrowsByHalfAndOne)
{
    Vector<int, 10> values;
    for (const unsigned int room : {10U, 16U, 25U, 38U}) {
        while (values.size() < room) {
            values.add(1);
            ASSERT_EQ(values.capacity(), room);
        }
    }
}

TEST(Vector, CountsFromOneAndFromZero)
{
    Vector<int, 2> values;
    values.insertAt(30, 1);
    values.insertAt(10, 1);
    values.insertAt(20, 2);
    values.insertAt(40, 4);
    values.insertAt(99, 6);
    values.insertAt(99, 0);
    EXPECT_EQ(roomOf(values), (std::vector<int>{10, 20, 30, 40}));
    EXPECT_EQ(values.at(1), values.atGet(0));
    EXPECT_EQ(*values.at(4), values[3]);
    EXPECT_EQ(values.at(5), nullptr);
    EXPECT_EQ(values.atGet(4), nullptr);
    values.add(values[1]);
    EXPECT_EQ(roomOf(values), (std::vector<int>{10, 20, 30, 40, 20, 0, 0}));
}

TEST(Vector, StoresPastTheEndWithZerosBetween)
{
    Vector<int, 7> values;
    values.atPut(4, 7);
    EXPECT_EQ(values.size(), 5U);
    values.atPut(8, 8);
    EXPECT_EQ(values.size(), 9U);
    EXPECT_EQ(roomOf(values), (std::vector<int>{0, 0, 0, 0, 7, 0, 0, 0, 8}));
    values.reSize(5);
    EXPECT_EQ(values.size(), 5U);
    values.atPut(6, 9);
    EXPECT_EQ(roomOf(values), (std::vector<int>{0, 0, 0, 0, 7, 0, 9}));

    struct Stepped : Vector<int, 10> { // nothing in the interface sets the step
        Stepped() { _growBy = 8; }
    } stepped;
    stepped.atPut(10, 2);
    EXPECT_EQ(stepped.capacity(), 11U);
    stepped.atPut(11, 3);
    EXPECT_EQ(stepped.capacity(), 19U);
}

TEST(Vector, AssignmentKeepsTheRoomAndCleansIt)
{
    Vector<int, 2> target;
    target.atPut(2, 3);
    const Vector<int, 2> copy(target);
    EXPECT_EQ(roomOf(copy), roomOf(target));
    const int* const block = &target[0];
    EXPECT_NE(&copy[0], block);
    target = Vector<int, 2>();
    EXPECT_EQ(target.size(), 0U);
    EXPECT_EQ(&target[0], block);
    EXPECT_EQ(roomOf(target), (std::vector<int>{0, 0, 0}));

    Vector<int, 2> small;
    small = copy;
    small = *&small;
    EXPECT_EQ(roomOf(small), (std::vector<int>{0, 0, 3}));
    small.clear();
    EXPECT_EQ(roomOf(small), (std::vector<int>{0, 0}));
}

TEST(Array, SharesPointersAndTakesExactlyTheirRoom)
{
    int numbers[] = {1, 2, 3};
    Array<int, 10> source;
    source.atPut(1, &numbers[1]);
    source.insertAt(&numbers[0], 1);
    EXPECT_EQ(source.at(1), &numbers[0]);
    EXPECT_EQ(source.atGet(1), nullptr);
    EXPECT_EQ(source.at(4), nullptr);
    EXPECT_EQ(roomOf(Array<int, 10>(source)), roomOf(source));

    Array<int, 10> assigned;
    assigned = source;
    assigned = *&assigned;
    EXPECT_EQ(roomOf(assigned), (std::vector<int*>{&numbers[0], nullptr, &numbers[1]}));
    assigned = Array<int, 10>();
    EXPECT_EQ(assigned.capacity(), 0U);
    assigned.add(&numbers[2]);
    EXPECT_EQ(assigned.at(1), &numbers[2]);
    source.clear();
    EXPECT_EQ(source.size(), 0U);
    EXPECT_EQ(roomOf(source), std::vector<int*>(10));
}

struct Keyed {
    int key;
    int sortKey() const { return key; }
};

TEST(SortedArray, KeepsTheOrderOfSignedKeys)
{
    Keyed five{5}, again{5}, low{-2147483647 - 1}, high{2147483647}, none{0};
    SortedArray<Keyed, 2> unique(false);
    SortedArray<Keyed, 2> all(true);
    for (Keyed* element : {&five, &again, &high, &low, &none}) {
        unique.add(element);
        all.add(element);
    }
    EXPECT_EQ(unique.size(), 4U);
    EXPECT_EQ(roomOf(unique), (std::vector<Keyed*>{&low, &none, &five, &high}));
    EXPECT_EQ(roomOf(all), (std::vector<Keyed*>{&low, &none, &again, &five, &high, nullptr, nullptr}));
    all.clear();
    EXPECT_EQ(all.capacity(), 100U);
}

TEST(Containers, RefuseSizesBeyond32BitsAndLeakNothing)
{
    const unsigned int before = kosDefaultHeap.blocksInUse();
    {
        const std::unique_ptr<Vector<double, 2>> values(new Vector<double, 2>);
        EXPECT_EQ(kosDefaultHeap.blocksInUse(), before + 2);
        values->add(1.5);
        EXPECT_THROW(values->reSize(0x20000000U), KrnException);
        EXPECT_THROW(values->atPut(0xFFFFFFFFU, 2.5), KrnException);
        EXPECT_EQ(roomOf(*values), (std::vector<double>{1.5, 0}));
    }
    EXPECT_EQ(kosDefaultHeap.blocksInUse(), before);
}

} // namespace

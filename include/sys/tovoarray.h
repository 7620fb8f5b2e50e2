// The containers of the platform: Vector<T, N> keeps values, Array<T, N> keeps pointers that it does not own,
// SortedArray<T, N> keeps them in the order of their keys.
//
// They hold the module's tables of images, clip rectangles and text chunks. N is the number of elements that
// the constructor makes room for, no step of growth. Positions come in two conventions: `at` and `insertAt`
// count from 1; `atGet`, `atPut` and `operator[]` from 0. Blocks, and containers made by `new`, come from
// kosDefaultHeap; where memory ends, or 32 bits cannot size a block, KrnException is thrown and the container
// stays as it was. None of them takes a lock.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "sys/krnos.h"

// The block behind all three: elements, room and growth, in 0-based indices. Elements past the size are
// zero at all times, so that storing past the end leaves zeros in between.
template <typename Element>
class TovoBlock {
    static_assert(std::is_trivially_copyable_v<Element>, "elements are moved as bytes");
    static_assert(alignof(Element) <= alignof(std::max_align_t), "blocks have the alignment of basic types");

public:
    unsigned int size() const noexcept { return _size; }

    // Elements for which there is room.
    unsigned int capacity() const noexcept { return _capacity; }

    // Unchecked, 0-based.
    Element& operator[](unsigned int index) noexcept { return _items[index]; }
    const Element& operator[](unsigned int index) const noexcept { return _items[index]; }

    // Makes the room exactly `count` elements; what no longer fits is dropped. 0 leaves no block.
    void reSize(unsigned int count)
    {
        Element* const block = newBlock(count);
        copyElements(block, _items, _capacity < count ? _capacity : count);
        replaceBlock(block, count);
        if (_size > count) {
            _size = count;
        }
    }

    // Drops the elements from the 0-based index `count` on and keeps the room. Needs no memory.
    void cutTo(unsigned int count) noexcept
    {
        if (count < _size) {
            std::memset(bytes(_items + count), 0, bytesOf(_size - count));
            _size = count;
        }
    }

    // The two exchange their blocks. Needs no memory.
    void swap(TovoBlock& other) noexcept
    {
        std::swap(_items, other._items);
        std::swap(_size, other._size);
        std::swap(_capacity, other._capacity);
        std::swap(_growBy, other._growBy);
    }

    static void* operator new(std::size_t size)
    {
        return kosDefaultHeap.alloc(static_cast<unsigned int>(size), false);
    }
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* block) noexcept { kosDefaultHeap.free(block); }

protected:
    TovoBlock() noexcept = default;

    // A block of the same size with the same elements.
    TovoBlock(const TovoBlock& other) : _growBy(other._growBy)
    {
        reSize(other._capacity);
        copyElements(_items, other._items, other._size);
        _size = other._size;
    }

    virtual ~TovoBlock()
    {
        replaceBlock(nullptr, 0);
        _size = 0;
        _growBy = 0;
    }

    TovoBlock& operator=(const TovoBlock&) = delete;

    // Starts anew: no elements, room for `count`.
    void startWith(unsigned int count)
    {
        replaceBlock(newBlock(count), count);
        _size = 0;
    }

    // Positions outside 1 to size + 1 are passed over.
    void insertElement(Element value, unsigned int position)
    {
        const unsigned int index = position - 1;
        if (index > _size) {
            return;
        }
        if (_size == _capacity) {
            growTo(std::uint64_t{_capacity} * 3 / 2 + 1);
        }
        std::memmove(bytes(_items + index + 1), _items + index, bytesOf(_size - index));
        _items[index] = value;
        ++_size;
    }

    void putElement(unsigned int index, Element value)
    {
        if (index >= _capacity) {
            const std::uint64_t needed = std::uint64_t{index} + 1;
            const std::uint64_t step = std::uint64_t{_size} + _growBy;
            growTo(_growBy != 0 && step > needed ? step : needed);
        }
        if (index >= _size) {
            _size = index + 1;
        }
        _items[index] = value;
    }

    // Takes over the elements of `other` into the block as it is; there must be room for them.
    void copyContent(const TovoBlock& other)
    {
        if (_size > other._size) {
            std::memset(bytes(_items + other._size), 0, bytesOf(_size - other._size));
        }
        copyElements(_items, other._items, other._size);
        _size = other._size;
        _growBy = other._growBy;
    }

    Element* _items = nullptr;
    unsigned int _size = 0;
    unsigned int _capacity = 0;
    unsigned int _growBy = 0;

private:
    // Of a pointer, where elements are pointers. NOLINTNEXTLINE(bugprone-sizeof-expression)
    static constexpr std::size_t ElementSize = sizeof(Element);

    static void* bytes(Element* element) noexcept { return element; }
    static std::size_t bytesOf(unsigned int count) noexcept { return count * ElementSize; }

    static Element* newBlock(unsigned int count)
    {
        if (count == 0) {
            return nullptr;
        }
        const std::uint64_t size = std::uint64_t{count} * ElementSize;
        if (size > UINT32_MAX) {
            krnOutOfMemory();
        }
        void* const block = kosDefaultHeap.alloc(static_cast<unsigned int>(size), false);
        std::memset(block, 0, static_cast<std::size_t>(size));
        return static_cast<Element*>(block);
    }

    static void copyElements(Element* target, const Element* source, unsigned int count) noexcept
    {
        if (count != 0) {
            std::memcpy(bytes(target), source, bytesOf(count));
        }
    }

    void replaceBlock(Element* block, unsigned int capacity) noexcept
    {
        kosDefaultHeap.free(_items);
        _items = block;
        _capacity = capacity;
    }

    void growTo(std::uint64_t count)
    {
        if (count > UINT32_MAX) {
            krnOutOfMemory();
        }
        reSize(static_cast<unsigned int>(count));
    }
};

// Values.
template <typename T, unsigned int N>
class Vector : public TovoBlock<T> {
public:
    Vector() { clear(); }
    Vector(const Vector& other) = default;
    ~Vector() override = default;

    // The room never shrinks here.
    Vector& operator=(const Vector& other)
    {
        if (this != &other) {
            if (other._size > this->_capacity) {
                this->startWith(other._size);
            }
            this->copyContent(other);
        }
        return *this;
    }

    // No elements, room for N.
    void clear() { this->startWith(N); }

    void add(const T& value) { this->insertElement(value, this->_size + 1); }
    void insertAt(const T& value, unsigned int position) { this->insertElement(value, position); }
    void atPut(unsigned int index, const T& value) { this->putElement(index, value); }

    // The element at a 1-based position; null past the size.
    T* at(unsigned int position) const { return atGet(position - 1); }

    // The element at a 0-based index; null from the size on.
    T* atGet(unsigned int index) const { return index < this->_size ? this->_items + index : nullptr; }
};

// Pointers. Whoever fills it deletes what they point to, and after a copy only one of the two sides does.
template <typename T, unsigned int N>
class Array : public TovoBlock<T*> {
public:
    Array() { this->reSize(N); }
    Array(const Array& other) = default;
    ~Array() override = default;

    // The room becomes exactly what the other side's elements need.
    Array& operator=(const Array& other)
    {
        if (this != &other) {
            this->startWith(other._size);
            this->copyContent(other);
        }
        return *this;
    }

    // Forgets the pointers; room for N.
    void clear() { this->startWith(N); }

    void add(T* value) { this->insertElement(value, this->_size + 1); }
    void insertAt(T* value, unsigned int position) { this->insertElement(value, position); }
    void atPut(unsigned int index, T* value) { this->putElement(index, value); }

    // The pointer stored at a 1-based position; null past the size.
    T* at(unsigned int position) const { return atGet(position - 1); }

    // The pointer stored at a 0-based index; null from the size on.
    T* atGet(unsigned int index) const { return index < this->_size ? this->_items[index] : nullptr; }
};

// Pointers in ascending order of the key that `int T::sortKey() const` gives. Elements come in through `add`
// and are never null. Each one moves all that follow it, so that many of them in descending order take quadratic time;
// the module's own page search, whose pages come from strangers, sorts its records at once instead.
template <typename T, unsigned int N>
class SortedArray : public Array<T, N> {
public:
    explicit SortedArray(bool allowDuplicates) : m_allowDuplicates(allowDuplicates) {}

    // Room for 100, whatever N is.
    void clear() { this->startWith(100); }

    // Where duplicates are not allowed, an element whose key is there already is not added. Where they are, it
    // goes in front of the one that the search met.
    void add(T* element)
    {
        const Place place = placeOf(element->sortKey());
        if (!place.taken || m_allowDuplicates) {
            this->insertAt(element, place.index + 1);
        }
    }

private:
    // Would break the order.
    using Array<T, N>::insertAt;
    using Array<T, N>::atPut;

    struct Place {
        unsigned int index;
        bool taken;
    };

    Place placeOf(int key) const
    {
        std::int64_t lower = 0;
        std::int64_t upper = std::int64_t{this->_size} - 1;
        while (lower <= upper) {
            const std::int64_t middle = (lower + upper) / 2;
            const int found = this->_items[middle]->sortKey();
            if (key == found) {
                return {static_cast<unsigned int>(middle), true};
            }
            if (key > found) {
                lower = middle + 1;
            } else {
                upper = middle - 1;
            }
        }
        return {static_cast<unsigned int>(lower), false};
    }

    bool m_allowDuplicates;
};

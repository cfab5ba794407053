// What a thread keeps between calls until it is told to release it.
#pragma once

#include "frame/heap.hpp"

#include <cstddef>

namespace ark {

// One block of the heap: a table or a working buffer. An empty slot is all zeros, so that a zero-filled context is
// ready.
class Slot {
public:
    // The table: built on first request, by fill(T* table) in a block of count() elements, and the same block from then
    // on. Null when there is no memory.
    template <class T, class Count, class Fill>
    T* table(Count count, Fill fill)
    {
        return block_ ? static_cast<T*>(block_) : build<T>(count, fill);
    }

    // A working buffer of at least count elements. What it held is lost when it must grow. Null when there is no
    // memory.
    template <class T>
    T* buffer(std::size_t count)
    {
        return count <= bytes_ / sizeof(T) ? static_cast<T*>(block_) : grow<T>(count);
    }

    void clear()
    {
        heapFree(block_);
        block_ = nullptr;
        bytes_ = 0;
    }

private:
    template <class T, class Count, class Fill>
    [[gnu::cold, gnu::noinline]] T* build(Count count, Fill fill)
    {
        if (!allocate<T>(count()))
            return nullptr;
        fill(static_cast<T*>(block_));
        return static_cast<T*>(block_);
    }

    template <class T>
    [[gnu::cold, gnu::noinline]] T* grow(std::size_t count)
    {
        clear();
        return allocate<T>(count) ? static_cast<T*>(block_) : nullptr;
    }

    template <class T>
    bool allocate(std::size_t count)
    {
        if (count > std::size_t(-1) / 2 / sizeof(T))
            return false;
        block_ = heapAllocate(count * sizeof(T));
        bytes_ = block_ ? count * sizeof(T) : 0;
        return block_ != nullptr;
    }

    void* block_;
    std::size_t bytes_;
};

} // namespace ark

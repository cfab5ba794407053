// Working memory of the library itself: one place that asks the heap.
#pragma once

#include <cstddef>
#include <utility>

namespace ark {

// Aligned to a cache line, which is also the widest vector. Null when there is no memory; a size of 0 gives a block.
void* heapAllocate(std::size_t bytes);
void heapFree(void* block); // accepts null

// An array of plain elements, not initialised, that ends with its scope. Test it before use:
//   Buffer<float> work{n};
//   if (!work) return outOfMemory(at, "...");
template <class T>
class Buffer {
public:
    Buffer() = default;
    explicit Buffer(std::size_t count)
        : data_{count <= maxCount ? static_cast<T*>(heapAllocate(count * sizeof(T))) : nullptr}
    {}
    Buffer(Buffer&& other) noexcept : data_{std::exchange(other.data_, nullptr)} {}
    Buffer& operator=(Buffer&& other) noexcept
    {
        std::swap(data_, other.data_);
        return *this;
    }
    ~Buffer() { heapFree(data_); }

    explicit operator bool() const { return data_ != nullptr; }
    T* data() { return data_; }
    const T* data() const { return data_; }
    T& operator[](std::size_t i) { return data_[i]; }
    const T& operator[](std::size_t i) const { return data_[i]; }

private:
    static constexpr std::size_t maxCount = std::size_t(-1) / 2 / sizeof(T);

    T* data_ = nullptr;
};

} // namespace ark

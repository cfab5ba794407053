// Memory: the public allocators and the library's own.
#include "frame/heap.hpp"

#include <arkpx/frame.h>

#include <cstdint>
#include <cstdlib>

namespace ark {
namespace {

// A block of the heap, the address that it was got at stored just below the aligned address handed out. The padding is
// what the worst position of the heap's block needs.
template <std::size_t alignment>
void* allocateAligned(std::size_t bytes)
{
    constexpr std::size_t padding = sizeof(void*) + alignment;
    if (bytes > PTRDIFF_MAX - padding)
        return nullptr;
    void* const heapBlock = std::malloc(bytes + padding);
    if (!heapBlock)
        return nullptr;
    const auto lowest = reinterpret_cast<std::uintptr_t>(heapBlock) + sizeof(void*);
    void* const block = reinterpret_cast<void*>((lowest + alignment - 1) & ~std::uintptr_t{alignment - 1});
    static_cast<void**>(block)[-1] = heapBlock;
    return block;
}

void freeAligned(void* block)
{
    if (block)
        std::free(static_cast<void**>(block)[-1]);
}

template <class T>
T* allocate(int count)
{
    if (count < 0 || std::size_t(count) > PTRDIFF_MAX / sizeof(T))
        return nullptr;
    return static_cast<T*>(allocateAligned<8>(std::size_t(count) * sizeof(T)));
}

} // namespace

void* heapAllocate(std::size_t bytes) { return allocateAligned<64>(bytes); }

void heapFree(void* block) { freeAligned(block); }

} // namespace ark

using ark::allocate;

// clang-format off
void*       arkMalloc (int size) { return allocate<char>(size); }
float*      arksMalloc(int n)    { return allocate<float>(n); }
double*     arkdMalloc(int n)    { return allocate<double>(n); }
FloatCplx*  arkcMalloc(int n)    { return allocate<FloatCplx>(n); }
DoubleCplx* arkzMalloc(int n)    { return allocate<DoubleCplx>(n); }
short*      arkwMalloc(int n)    { return allocate<short>(n); }
ShortCplx*  arkvMalloc(int n)    { return allocate<ShortCplx>(n); }
int*        arkiMalloc(int n)    { return allocate<int>(n); }
IntCplx*    arkjMalloc(int n)    { return allocate<IntCplx>(n); }
// clang-format on

void arkFree(void* block) { ark::freeAligned(block); }

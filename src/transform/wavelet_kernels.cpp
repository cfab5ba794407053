// The loops of the wavelet transform: a filter whose outputs lie side by side in registers. Compiled with
// -ffp-contract=fast.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

template <class T, int rows>
ARK_INLINE void add(Vec<T> (&sums)[rows], const HalfFilter<T>& h, std::ptrdiff_t i)
{
    const T* tap = h.tap;
    const T* x = h.x + i;
    for (std::ptrdiff_t j = 0; j < h.count; j++, tap -= 2, x++) {
        const Vec<T> factor = broadcast(*tap);
        ARK_UNROLL
        for (int row = 0; row < rows; row++)
            sums[row] += factor * load(x + row * lanes<T>);
    }
}

// Whole registers from output i on, as many rows of them at a time as fit. The first output not done.
template <class T, int rows>
ARK_INLINE std::ptrdiff_t tiles(const HalfFilter<T>& a, const HalfFilter<T>& b, T* dst, std::ptrdiff_t i,
                                std::ptrdiff_t n)
{
    for (; i + rows * lanes<T> <= n; i += rows * lanes<T>) {
        Vec<T> sums[rows] = {};
        add(sums, a, i);
        add(sums, b, i);
        ARK_UNROLL
        for (int row = 0; row < rows; row++)
            store(dst + i + row * lanes<T>, sums[row]);
    }
    return i;
}

template <class T>
void filter(const HalfFilter<T>& a, const HalfFilter<T>& b, T* dst, std::ptrdiff_t n)
{
#if defined(__x86_64__)
    std::ptrdiff_t i = tiles<T, 8>(a, b, dst, 0, n);
    i = tiles<T, 4>(a, b, dst, i, n);
#else // eight registers
    std::ptrdiff_t i = tiles<T, 4>(a, b, dst, 0, n);
#endif
    i = tiles<T, 2>(a, b, dst, i, n);
    i = tiles<T, 1>(a, b, dst, i, n);
    if (i < n) {
        Vec<T> sums[1] = {};
        add(sums, a, i);
        add(sums, b, i);
        storePart(dst + i, sums[0], n - i);
    }
}

template <class T>
void split(const T* src, T* even, T* odd, std::ptrdiff_t n)
{
    std::ptrdiff_t i = 0;
    for (; i + lanes<T> <= n; i += lanes<T>) {
        const Vec<T> a = load(src + 2 * i), b = load(src + 2 * i + lanes<T>);
        store(even + i, permute2<evenOfBoth>(a, b));
        store(odd + i, permute2<oddOfBoth>(a, b));
    }
    for (; i < n; i++) {
        even[i] = src[2 * i];
        odd[i] = src[2 * i + 1];
    }
}

template <class T>
void join(const T* even, const T* odd, T* dst, std::ptrdiff_t n)
{
    std::ptrdiff_t i = 0;
    for (; i + lanes<T> <= n; i += lanes<T>) {
        const Vec<T> a = load(even + i), b = load(odd + i);
        store(dst + 2 * i, permute2<lowOfBoth>(a, b));
        store(dst + 2 * i + lanes<T>, permute2<highOfBoth>(a, b));
    }
    for (; i < n; i++) {
        dst[2 * i] = even[i];
        dst[2 * i + 1] = odd[i];
    }
}

template <class T>
constexpr WaveletKernels<T> waveletTable{filter<T>, split<T>, join<T>};

} // namespace

extern const WaveletKernels<float> waveletS;
extern const WaveletKernels<double> waveletD;

constinit const WaveletKernels<float> waveletS = waveletTable<float>;
constinit const WaveletKernels<double> waveletD = waveletTable<double>;

} // namespace ark::ARK_SET

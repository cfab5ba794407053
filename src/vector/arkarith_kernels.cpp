// Floating-point arithmetic, conjugation and filling.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

template <class T>
struct Add {
    static ARK_INLINE Vec<Real<T>> apply(Vec<Real<T>> a, Vec<Real<T>> b) { return a + b; }
};

template <class T>
struct Sub {
    static ARK_INLINE Vec<Real<T>> apply(Vec<Real<T>> a, Vec<Real<T>> b) { return a - b; }
};

template <class T>
struct Mpy {
    static ARK_INLINE Vec<Real<T>> apply(Vec<Real<T>> a, Vec<Real<T>> b)
    {
        if constexpr (isComplex<T>)
            return multiplyComplex<Real<T>>(a, b);
        else
            return a * b;
    }
};

template <class T>
struct Conj {
    static ARK_INLINE Vec<Real<T>> apply(Vec<Real<T>> a) { return negateImaginary<Real<T>>(a); }
};

// -32768 stays: 0 - x in 16 bits.
template <>
struct Conj<ShortCplx> {
    static ARK_INLINE Vec<short> apply(Vec<short> a)
    {
        const Vec<unsigned short> imaginary = alternating<unsigned short>(0, 0xFFFF);
        return (Vec<short>)(((Vec<unsigned short>)a ^ imaginary) - imaginary);
    }
};

template <class Operation, class T>
void ofVectors(const T* srcA, const T* srcB, T* dst, std::ptrdiff_t n)
{
    const Real<T>*a = partsOf(srcA), *b = partsOf(srcB);
    Real<T>* d = partsOf(dst);
    downwards<lanes<Real<T>>, parts<T>, true>(d, n * parts<T>, [=](std::ptrdiff_t i, auto reach) {
        store(d + i, Operation::apply(load(a + i, reach), load(b + i, reach)), reach);
    });
}

template <class Operation, class T>
void withValue(T value, T* srcDst, std::ptrdiff_t n)
{
    const Real<T>* valueParts = partsOf(&value);
    const Vec<Real<T>> b = alternating(valueParts[0], valueParts[parts<T> - 1]);
    Real<T>* d = partsOf(srcDst);
    downwards<lanes<Real<T>>, parts<T>, true>(d, n * parts<T>, [=](std::ptrdiff_t i, auto reach) {
        store(d + i, Operation::apply(load(d + i, reach), b), reach);
    });
}

template <class T>
void conj(const T* src, T* dst, std::ptrdiff_t n)
{
    const Real<T>* a = partsOf(src);
    Real<T>* d = partsOf(dst);
    downwards<lanes<Real<T>>, parts<T>, true>(
        d, 2 * n, [=](std::ptrdiff_t i, auto reach) { store(d + i, Conj<T>::apply(load(a + i, reach)), reach); });
}

// One register of elements, in reversed order and conjugated.
template <class T>
ARK_INLINE Vec<Real<T>> flipped(const Real<T>* from)
{
    return Conj<T>::apply(permute<flippedPairs>(load(from)));
}

template <class T>
ARK_INLINE T conjugate(T a)
{
    using R = Real<T>;
    if constexpr (sizeof(R) == 2)
        return {a.re, R(-a.im)};
    else
        return {a.re, -a.im};
}

// Mirrors from both ends inwards: whole registers while two fit between the ends, then pairs of elements.
template <class T>
void flipInPlace(T* vec, std::ptrdiff_t n)
{
    constexpr std::ptrdiff_t width = lanes<Real<T>> / 2;
    std::ptrdiff_t first = 0, end = n;
    for (; end - first >= 2 * width; first += width, end -= width) {
        const Vec<Real<T>> front = flipped<T>(partsOf(vec + first)), back = flipped<T>(partsOf(vec + end - width));
        store(partsOf(vec + first), back);
        store(partsOf(vec + end - width), front);
    }
    for (; end - first >= 2; first++, end--) {
        const T front = conjugate(vec[first]);
        vec[first] = conjugate(vec[end - 1]);
        vec[end - 1] = front;
    }
    if (end > first)
        vec[first] = conjugate(vec[first]);
}

template <class T>
void conjFlip(const T* src, T* dst, std::ptrdiff_t n)
{
    if (src == dst)
        return flipInPlace(dst, n);
    constexpr std::ptrdiff_t width = lanes<Real<T>> / 2;
    std::ptrdiff_t i = 0;
    for (; i + width <= n; i += width)
        store(partsOf(dst + n - i - width), flipped<T>(partsOf(src + i)));
    for (; i < n; i++)
        dst[n - 1 - i] = conjugate(src[i]);
}

void fillBytes(const void* pattern, void* dst, std::size_t bytes)
{
    const auto v = (Vec<unsigned char>)repeatPiece(loadPiece<__m128i>(static_cast<const unsigned char*>(pattern)));
    auto* d = static_cast<unsigned char*>(dst);
    std::size_t i = 0;
    for (; i + sizeof v <= bytes; i += sizeof v)
        store(d + i, v);
    if (i < bytes)
        storePart(d + i, v, std::ptrdiff_t(bytes - i));
}

template <class T>
constexpr ArithKernels<T> arithTable{
    ofVectors<Add<T>, T>, ofVectors<Sub<T>, T>, ofVectors<Mpy<T>, T>,
    withValue<Add<T>, T>, withValue<Sub<T>, T>, withValue<Mpy<T>, T>,
};

} // namespace

extern const FillKernels fill;
extern const ArithKernels<float> arithS;
extern const ArithKernels<double> arithD;
extern const ArithKernels<FloatCplx> arithC;
extern const ArithKernels<DoubleCplx> arithZ;
extern const ConjKernels<FloatCplx> conjC;
extern const ConjKernels<DoubleCplx> conjZ;
extern const ConjKernels<ShortCplx> conjV;

constinit const FillKernels fill{fillBytes};
constinit const ArithKernels<float> arithS = arithTable<float>;
constinit const ArithKernels<double> arithD = arithTable<double>;
constinit const ArithKernels<FloatCplx> arithC = arithTable<FloatCplx>;
constinit const ArithKernels<DoubleCplx> arithZ = arithTable<DoubleCplx>;
constinit const ConjKernels<FloatCplx> conjC{conj, conjFlip};
constinit const ConjKernels<DoubleCplx> conjZ{conj, conjFlip};
constinit const ConjKernels<ShortCplx> conjV{conj, conjFlip};

} // namespace ark::ARK_SET

// The narrow vector layer: one native register of the instruction set that a kernel file is being compiled for.
//
// Arithmetic, comparisons and shifts are the compilers' own operators on vector types; this adds what operators cannot
// say. Everything is in an unnamed namespace inside the set's namespace and always inlined: nothing of it may become a
// function that the linker could share between sets.
#pragma once

#include <cstddef>
#include <immintrin.h>
#include <type_traits>
#include <utility>

#if defined(__AVX512F__) && defined(__AVX512BW__) && defined(__AVX512DQ__) && defined(__AVX512VL__)
#define ARK_MM(name) _mm512_##name
#define ARK_AVX512 1
#define ARK_AVX2 0
#elif defined(__AVX2__) && defined(__FMA__)
#define ARK_MM(name) _mm256_##name
#define ARK_AVX512 0
#define ARK_AVX2 1
#elif defined(__SSE2__)
#define ARK_MM(name) _mm_##name
#define ARK_AVX512 0
#define ARK_AVX2 0
#else
#error "kernels need at least SSE2"
#endif

#define ARK_INLINED __attribute__((always_inline)) // of lambdas
#define ARK_INLINE inline ARK_INLINED

// Before a loop over the registers of one step: all of it, so that indices become constants.
#ifdef __clang__
#define ARK_UNROLL _Pragma("clang loop unroll(full)")
#else
#define ARK_UNROLL _Pragma("GCC unroll 32")
#endif

namespace ark::ARK_SET {
namespace {

#if ARK_AVX512
using Bits = __m512i;
#elif ARK_AVX2
using Bits = __m256i;
#else
using Bits = __m128i;
#endif

template <class T>
inline constexpr int lanes = int(sizeof(Bits) / sizeof(T));

template <class T>
struct VectorOf {
    typedef T Type __attribute__((vector_size(sizeof(Bits))));
};

template <class T>
using Vec = typename VectorOf<T>::Type;

// ---- memory: any address ----

template <class T>
ARK_INLINE Vec<T> load(const T* from)
{
    Vec<T> v;
    __builtin_memcpy(&v, from, sizeof v);
    return v;
}

template <class T>
ARK_INLINE void store(T* to, Vec<T> v)
{
    __builtin_memcpy(to, &v, sizeof v);
}

template <class Piece>
ARK_INLINE Piece loadPiece(const unsigned char* from)
{
    Piece piece;
    __builtin_memcpy(&piece, from, sizeof piece);
    return piece;
}
template <class Piece>
ARK_INLINE void storePiece(unsigned char* to, Piece piece)
{
    __builtin_memcpy(to, &piece, sizeof piece);
}

// 16 bytes, again and again.
ARK_INLINE Bits repeatPiece(__m128i piece)
{
#if ARK_AVX512
    return _mm512_broadcast_i32x4(piece);
#elif ARK_AVX2
    return _mm256_broadcastsi128_si256(piece);
#else
    return piece;
#endif
}

// A register of zeros, then one of ones: from the middle on backwards, as many zeros as wanted.
[[maybe_unused]] alignas(64) inline constexpr Bits zerosThenOnes[]{Bits{}, ~Bits{}};

// The first n lanes, 0 < n < lanes<T>: nothing behind them is touched; the other lanes load as those of behind. Without
// masks the register is put together, and taken apart, in pieces of falling powers of two.
template <class T>
ARK_INLINE Vec<T> loadPart(const T* elements, std::ptrdiff_t n, Vec<T> behind = Vec<T>{})
{
    const std::size_t bytes = std::size_t(n) * sizeof(T);
#if ARK_AVX512
    return (Vec<T>)_mm512_mask_loadu_epi8((Bits)behind, ~0ull >> (64 - bytes), elements);
#else
    const auto* edge = reinterpret_cast<const unsigned char*>(zerosThenOnes + 1) - bytes;
    const Bits others = loadPiece<Bits>(edge) & (Bits)behind; // nothing is computed for zeros
    const auto* from = reinterpret_cast<const unsigned char*>(elements + n);
    unsigned few = 0;
    if (sizeof(T) <= 1 && (bytes & 1))
        few = *(from -= 1);
    if (sizeof(T) <= 2 && (bytes & 2))
        few = few << 16 | loadPiece<unsigned short>(from -= 2);
    __m128i v = _mm_cvtsi32_si128(int(few));
    if (sizeof(T) <= 4 && (bytes & 4))
        v = _mm_unpacklo_epi32(_mm_cvtsi32_si128(loadPiece<int>(from -= 4)), v);
    if (bytes & 8)
        v = _mm_unpacklo_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i_u*>(from -= 8)), v);
#if ARK_AVX2
    const Bits all = bytes & 16 ? _mm256_set_m128i(v, loadPiece<__m128i>(from - 16)) : _mm256_zextsi128_si256(v);
#else
    const Bits all = v;
#endif
    return (Vec<T>)(all | others);
#endif
}

template <class T>
ARK_INLINE void storePart(T* elements, Vec<T> all, std::ptrdiff_t n)
{
    const std::size_t bytes = std::size_t(n) * sizeof(T);
#if ARK_AVX512
    _mm512_mask_storeu_epi8(elements, ~0ull >> (64 - bytes), (Bits)all);
#else
    auto* to = reinterpret_cast<unsigned char*>(elements);
#if ARK_AVX2
    __m128i v = _mm256_castsi256_si128((Bits)all);
    if (bytes & 16) {
        storePiece(to, v);
        to += 16;
        v = _mm256_extracti128_si256((Bits)all, 1);
    }
#else
    __m128i v = (Bits)all;
#endif
    if (bytes & 8) {
        _mm_storel_epi64(reinterpret_cast<__m128i_u*>(to), v);
        to += 8;
        v = _mm_unpackhi_epi64(v, v);
    }
    if (sizeof(T) <= 4 && (bytes & 4)) {
        storePiece(to, _mm_cvtsi128_si32(v));
        to += 4;
        v = _mm_srli_epi64(v, 32);
    }
    unsigned few = unsigned(_mm_cvtsi128_si32(v));
    if (sizeof(T) <= 2 && (bytes & 2)) {
        storePiece(to, static_cast<unsigned short>(few));
        to += 2;
        few >>= 16;
    }
    if (sizeof(T) <= 1 && (bytes & 1))
        *to = static_cast<unsigned char>(few);
#endif
}

// ---- walking over vectors ----

// How far a loop's body reaches at one place: over whole registers, or over count elements. The body is written once,
// as body(i, reach), and hands reach to load and store.
struct Whole {};
struct Part {
    std::ptrdiff_t count;
};

template <class T>
ARK_INLINE Vec<T> load(const T* from, Whole, Vec<T> = Vec<T>{})
{
    return load(from);
}
template <class T>
ARK_INLINE Vec<T> load(const T* from, Part part, Vec<T> behind = Vec<T>{})
{
    return loadPart(from, part.count, behind);
}
template <class T>
ARK_INLINE void store(T* to, Vec<T> v, Whole)
{
    store(to, v);
}
template <class T>
ARK_INLINE void store(T* to, Vec<T> v, Part part)
{
    storePart(to, v, part.count);
}

// Walks n elements from the last to the first, step at a time, so that a destination that lies above its source never
// overwrites what is still to be read. Long walks begin with a part after which the stores to dst are aligned: those
// that cross cache lines cost twice as much. Every step begins at a multiple of unit, as n must be one. Unrolling pays
// for short bodies while the first cache holds what they read; in the second it was measured to cost up to half as much
// again.
template <std::ptrdiff_t step, std::size_t unit, bool unrolled, class T, class Body>
ARK_INLINE void downwards(const T* dst, std::ptrdiff_t n, Body body)
{
    if (n >= 16 * step) {
        const std::size_t beyond = reinterpret_cast<std::size_t>(dst + n) % sizeof(Bits) / (unit * sizeof(T)) * unit;
        if (beyond) {
            n -= std::ptrdiff_t(beyond);
            body(n, Part{std::ptrdiff_t(beyond)});
        }
    }
    constexpr std::size_t nearBytes = 16384;
    const bool isNear = std::size_t(n) * sizeof(T) <= nearBytes;
    for (; unrolled && isNear && n >= 4 * step; n -= 4 * step) {
        body(n - step, Whole{});
        body(n - 2 * step, Whole{});
        body(n - 3 * step, Whole{});
        body(n - 4 * step, Whole{});
    }
    for (; n >= step; n -= step)
        body(n - step, Whole{});
    if (n > 0)
        body(0, Part{n});
}

// dst[i] = f(src[i]) for n lanes, from the last to the first. Where a part of a register is left, f sees the lanes of
// behind after it.
template <class T, class Function>
ARK_INLINE void eachLane(const T* src, T* dst, std::ptrdiff_t n, Function f, Vec<T> behind = Vec<T>{})
{
    downwards<lanes<T>, 1, true>(
        dst, n, [=](std::ptrdiff_t i, auto reach) { store(dst + i, f(load(src + i, reach, behind)), reach); });
}

// ---- constants and permutations ----

template <class T, std::size_t... i>
ARK_INLINE Vec<T> alternatingIn(T even, T odd, std::index_sequence<i...>)
{
    return Vec<T>{(i % 2 ? odd : even)...};
}

template <class T>
ARK_INLINE Vec<T> alternating(T even, T odd)
{
    return alternatingIn(even, odd, std::make_index_sequence<lanes<T>>{});
}

template <class T>
ARK_INLINE Vec<T> broadcast(T value)
{
    return alternating(value, value);
}

template <class V>
inline constexpr int lanesOf = int(sizeof(V) / sizeof(V{}[0]));

template <int (*source)(int lane, int lanes), class V, std::size_t... i>
ARK_INLINE V permuteIn(V v, std::index_sequence<i...>)
{
    return __builtin_shufflevector(v, v, source(int(i), lanesOf<V>)...);
}

// Lane i of the result is lane source(i, number of lanes) of v.
template <int (*source)(int lane, int lanes), class V>
ARK_INLINE V permute(V v)
{
    // With SSE2 only the permutation of integers spares a copy.
    if constexpr (sizeof(V) == 16 && sizeof(v[0]) == 4)
        return (V)permuteIn<source>((__v4si)v, std::make_index_sequence<lanesOf<V>>{});
    return permuteIn<source>(v, std::make_index_sequence<lanesOf<V>>{});
}

template <int (*source)(int lane, int lanes), class V, std::size_t... i>
ARK_INLINE V permute2In(V a, V b, std::index_sequence<i...>)
{
    return __builtin_shufflevector(a, b, source(int(i), lanesOf<V>)...);
}

// Lane i of the result is lane source(i, number of lanes of a) of a followed by b.
template <int (*source)(int lane, int lanes), class V>
ARK_INLINE V permute2(V a, V b)
{
    return permute2In<source>(a, b, std::make_index_sequence<lanesOf<V>>{});
}

constexpr int lowOfBoth(int lane, int lanes) { return lane / 2 + (lane % 2) * lanes; }
constexpr int highOfBoth(int lane, int lanes) { return lanes / 2 + lowOfBoth(lane, lanes); }
constexpr int evenOfBoth(int lane, int) { return 2 * lane; }
constexpr int oddOfBoth(int lane, int) { return 2 * lane + 1; }

constexpr int evenThenOdd(int lane, int lanes) { return lane < lanes / 2 ? 2 * lane : 2 * lane - lanes + 1; }

// Permutations of complex pairs.
constexpr int realPart(int lane, int) { return lane & ~1; }
constexpr int imaginaryPart(int lane, int) { return lane | 1; }
constexpr int otherPart(int lane, int) { return lane ^ 1; }
constexpr int flippedPairs(int lane, int lanes) { return (lanes - 2 - (lane & ~1)) | (lane & 1); }

// ---- floating point ----

template <class T>
struct BitsOf;
template <>
struct BitsOf<float> {
    using Type = unsigned;
    static constexpr Type sign = 0x80000000u;
};
template <>
struct BitsOf<double> {
    using Type = unsigned long long;
    static constexpr Type sign = 0x8000000000000000ull;
};

// Changes the sign of the imaginary parts, or of the real parts.
template <class T>
ARK_INLINE Vec<T> negateImaginary(Vec<T> v)
{
    using B = BitsOf<T>;
    return (Vec<T>)((Vec<typename B::Type>)v ^ alternating<typename B::Type>(0, B::sign));
}
template <class T>
ARK_INLINE Vec<T> negateReal(Vec<T> v)
{
    using B = BitsOf<T>;
    return (Vec<T>)((Vec<typename B::Type>)v ^ alternating<typename B::Type>(B::sign, 0));
}

// a - b in the even lanes, a + b in the odd ones.
ARK_INLINE Vec<float> subtractAdd(Vec<float> a, Vec<float> b)
{
#if ARK_AVX512
    return (Vec<float>)_mm512_fmaddsub_ps(a, broadcast(1.0f), b);
#elif ARK_AVX2
    return (Vec<float>)_mm256_addsub_ps(a, b);
#else
    return a + negateReal<float>(b);
#endif
}
ARK_INLINE Vec<double> subtractAdd(Vec<double> a, Vec<double> b)
{
#if ARK_AVX512
    return (Vec<double>)_mm512_fmaddsub_pd(a, broadcast(1.0), b);
#elif ARK_AVX2
    return (Vec<double>)_mm256_addsub_pd(a, b);
#else
    return a + negateReal<double>(b);
#endif
}

// a * b for complex pairs: every product and sum rounded once.
template <class T>
ARK_INLINE Vec<T> multiplyComplex(Vec<T> a, Vec<T> b)
{
    return subtractAdd(permute<realPart>(a) * b, permute<imaginaryPart>(a) * permute<otherPart>(b));
}

// The second operand where either is not a number.
ARK_INLINE Vec<float> larger(Vec<float> a, Vec<float> b) { return (Vec<float>)ARK_MM(max_ps)(a, b); }
ARK_INLINE Vec<double> larger(Vec<double> a, Vec<double> b) { return (Vec<double>)ARK_MM(max_pd)(a, b); }
ARK_INLINE Vec<float> smaller(Vec<float> a, Vec<float> b) { return (Vec<float>)ARK_MM(min_ps)(a, b); }
ARK_INLINE Vec<double> smaller(Vec<double> a, Vec<double> b) { return (Vec<double>)ARK_MM(min_pd)(a, b); }

ARK_INLINE Vec<short> larger(Vec<short> a, Vec<short> b) { return (Vec<short>)ARK_MM(max_epi16)((Bits)a, (Bits)b); }
ARK_INLINE Vec<short> smaller(Vec<short> a, Vec<short> b) { return (Vec<short>)ARK_MM(min_epi16)((Bits)a, (Bits)b); }

ARK_INLINE Vec<double> squareRoot(Vec<double> x) { return (Vec<double>)ARK_MM(sqrt_pd)(x); }
ARK_INLINE Vec<float> squareRoot(Vec<float> x) { return (Vec<float>)ARK_MM(sqrt_ps)(x); }

// a * b + c: rounded once where the set has the instruction, else twice.
template <class T>
ARK_INLINE Vec<T> multiplyAdd(Vec<T> a, Vec<T> b, Vec<T> c)
{
#if ARK_AVX512 || ARK_AVX2
    if constexpr (sizeof(T) == 4)
        return (Vec<T>)ARK_MM(fmadd_ps)(a, b, c);
    else
        return (Vec<T>)ARK_MM(fmadd_pd)(a, b, c);
#else
    return a * b + c;
#endif
}

// Rounds to an integral value. direction is the processor's code: 0 to nearest even, 1 down, 2 up, 3 toward zero.
#if ARK_AVX512
template <int direction>
ARK_INLINE Vec<float> roundTo(Vec<float> x)
{
    return (Vec<float>)_mm512_roundscale_ps(x, direction | _MM_FROUND_NO_EXC);
}
template <int direction>
ARK_INLINE Vec<double> roundTo(Vec<double> x)
{
    return (Vec<double>)_mm512_roundscale_pd(x, direction | _MM_FROUND_NO_EXC);
}
#elif ARK_AVX2
template <int direction>
ARK_INLINE Vec<float> roundTo(Vec<float> x)
{
    return (Vec<float>)_mm256_round_ps(x, direction | _MM_FROUND_NO_EXC);
}
template <int direction>
ARK_INLINE Vec<double> roundTo(Vec<double> x)
{
    return (Vec<double>)_mm256_round_pd(x, direction | _MM_FROUND_NO_EXC);
}
#else
template <class T, int direction>
ARK_INLINE Vec<T> roundByAdding(Vec<T> x)
{
    using B = Vec<typename BitsOf<T>::Type>;
    const B signBit = B{} + BitsOf<T>::sign;
    const B sign = (B)x & signBit;
    // From here on every value is integral; adding and taking it away rounds to nearest even.
    const Vec<T> integral = broadcast<T>(sizeof(T) == 4 ? T(0x1p23) : T(0x1p52));
    const Vec<T> magnitude = (Vec<T>)((B)x & ~signBit);
    const B small = (B)(magnitude < integral);
    const Vec<T> nearest = (magnitude + integral) - integral;
    const Vec<T> one = broadcast(T(1));
    Vec<T> result = (Vec<T>)((B)nearest | sign);
    if (direction == 1)
        result -= (Vec<T>)((B)(result > x) & (B)one);
    if (direction == 2)
        result += (Vec<T>)((B)(result < x) & (B)one);
    if (direction == 3)
        result = (Vec<T>)((B)(nearest - (Vec<T>)((B)(nearest > magnitude) & (B)one)) | sign);
    return (Vec<T>)(((B)result & small) | ((B)x & ~small));
}
template <int direction>
ARK_INLINE Vec<float> roundTo(Vec<float> x)
{
    return roundByAdding<float, direction>(x);
}
template <int direction>
ARK_INLINE Vec<double> roundTo(Vec<double> x)
{
    return roundByAdding<double, direction>(x);
}
#endif

// x with 0 in the lanes that are not numbers.
#if ARK_AVX512
ARK_INLINE Vec<float> zeroUnlessNumber(Vec<float> x)
{
    return (Vec<float>)_mm512_maskz_mov_ps(_mm512_cmp_ps_mask(x, x, _CMP_ORD_Q), x);
}
ARK_INLINE Vec<double> zeroUnlessNumber(Vec<double> x)
{
    return (Vec<double>)_mm512_maskz_mov_pd(_mm512_cmp_pd_mask(x, x, _CMP_ORD_Q), x);
}
#else
template <class V>
ARK_INLINE V zeroUnlessNumber(V x)
{
    return (V)((Bits)(x == x) & (Bits)x);
}
#endif

// least <= x <= most in all lanes.
#if ARK_AVX512
ARK_INLINE bool allWithin(Vec<float> x, Vec<float> least, Vec<float> most)
{
    return _mm512_mask_cmp_ps_mask(_mm512_cmp_ps_mask(x, least, _CMP_GE_OQ), x, most, _CMP_LE_OQ) == 0xFFFF;
}
ARK_INLINE bool allWithin(Vec<double> x, Vec<double> least, Vec<double> most)
{
    return _mm512_mask_cmp_pd_mask(_mm512_cmp_pd_mask(x, least, _CMP_GE_OQ), x, most, _CMP_LE_OQ) == 0xFF;
}
#else
template <class V>
ARK_INLINE bool allWithin(V x, V least, V most)
{
    return ARK_MM(movemask_epi8)((Bits)(x >= least) & (Bits)(x <= most)) == int(~0u >> (32 - sizeof(Bits)));
}
#endif

// ---- integers ----

// True when any bit of the vector is set.
template <class V>
ARK_INLINE bool anySet(V v)
{
#if ARK_AVX512
    return _mm512_test_epi32_mask((Bits)v, (Bits)v) != 0;
#elif ARK_AVX2
    return !_mm256_testz_si256((Bits)v, (Bits)v);
#else
    return _mm_movemask_epi8(_mm_cmpeq_epi8((Bits)v, _mm_setzero_si128())) != 0xFFFF;
#endif
}

// Shifts every lane by one count; a count of the lane's width or more leaves sign bits or zeros.
ARK_INLINE Vec<int> shiftRight(Vec<int> v, int count)
{
    return (Vec<int>)ARK_MM(sra_epi32)((Bits)v, _mm_cvtsi32_si128(count));
}
ARK_INLINE Vec<short> shiftRight(Vec<short> v, int count)
{
    return (Vec<short>)ARK_MM(sra_epi16)((Bits)v, _mm_cvtsi32_si128(count));
}
ARK_INLINE Vec<int> shiftLeft(Vec<int> v, int count)
{
    return (Vec<int>)ARK_MM(sll_epi32)((Bits)v, _mm_cvtsi32_si128(count));
}

// Sums that wrap: the operators on signed lanes must not overflow.
ARK_INLINE Vec<int> addWrapping(Vec<int> a, Vec<int> b) { return (Vec<int>)((Vec<unsigned>)a + (Vec<unsigned>)b); }
ARK_INLINE Vec<int> subWrapping(Vec<int> a, Vec<int> b) { return (Vec<int>)((Vec<unsigned>)a - (Vec<unsigned>)b); }

// 32-bit results of 16-bit lanes: the low and the high half of every 128 bits. widen and its kin split a register so,
// packSaturated joins it again, hence the order never shows.
struct Wide {
    Vec<int> low, high;
};

ARK_INLINE Wide interleave16(Bits a, Bits b)
{
    return {(Vec<int>)ARK_MM(unpacklo_epi16)(a, b), (Vec<int>)ARK_MM(unpackhi_epi16)(a, b)};
}
ARK_INLINE Wide interleave32(Vec<int> a, Vec<int> b)
{
    return {(Vec<int>)ARK_MM(unpacklo_epi32)((Bits)a, (Bits)b), (Vec<int>)ARK_MM(unpackhi_epi32)((Bits)a, (Bits)b)};
}
ARK_INLINE Wide widen(Vec<short> v)
{
    const Wide doubled = interleave16((Bits)v, (Bits)v);
    return {doubled.low >> 16, doubled.high >> 16};
}
ARK_INLINE Vec<short> packSaturated(Wide w) { return (Vec<short>)ARK_MM(packs_epi32)((Bits)w.low, (Bits)w.high); }
ARK_INLINE Vec<short> packWrapped(Wide w)
{
    return packSaturated({shiftLeft(w.low, 16) >> 16, shiftLeft(w.high, 16) >> 16});
}
ARK_INLINE Wide multiplyWide(Vec<short> a, Vec<short> b)
{
    return interleave16((Bits)ARK_MM(mullo_epi16)((Bits)a, (Bits)b), (Bits)ARK_MM(mulhi_epi16)((Bits)a, (Bits)b));
}
// a[0] b[0] + a[1] b[1] for every pair of lanes; four times -32768 wraps.
ARK_INLINE Vec<int> multiplyAddPairs(Vec<short> a, Vec<short> b)
{
    return (Vec<int>)ARK_MM(madd_epi16)((Bits)a, (Bits)b);
}
ARK_INLINE Vec<short> addSaturated(Vec<short> a, Vec<short> b)
{
    return (Vec<short>)ARK_MM(adds_epi16)((Bits)a, (Bits)b);
}
ARK_INLINE Vec<short> subSaturated(Vec<short> a, Vec<short> b)
{
    return (Vec<short>)ARK_MM(subs_epi16)((Bits)a, (Bits)b);
}

// ---- between 8-, 16- and 32-bit integers in memory and 32-bit lanes in order ----

template <class Int>
inline constexpr bool isSigned = Int(-1) < Int(0);

// As many Ints as there are 32-bit lanes lie in the lowest bytes of a register: in all, a half, a quarter of it.
template <class Int>
inline constexpr int lowestBytes = lanes<int>* int(sizeof(Int));

template <class Int>
ARK_INLINE Bits loadLowest(const Int* from)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(from);
    if constexpr (sizeof(Int) == 4)
        return loadPiece<Bits>(bytes);
#if ARK_AVX512
    else if constexpr (sizeof(Int) == 2)
        return _mm512_castsi256_si512(loadPiece<__m256i>(bytes));
    else
        return _mm512_castsi128_si512(loadPiece<__m128i>(bytes));
#elif ARK_AVX2
    else if constexpr (sizeof(Int) == 2)
        return _mm256_castsi128_si256(loadPiece<__m128i>(bytes));
    else
        return _mm256_castsi128_si256(_mm_loadl_epi64(reinterpret_cast<const __m128i_u*>(bytes)));
#else
    else if constexpr (sizeof(Int) == 2)
        return _mm_loadl_epi64(reinterpret_cast<const __m128i_u*>(bytes));
    else
        return _mm_cvtsi32_si128(loadPiece<int>(bytes));
#endif
}
template <class Int>
ARK_INLINE void storeLowest(Int* to, Bits v)
{
    __builtin_memcpy(to, &v, lowestBytes<Int>);
}

template <class Int>
ARK_INLINE Vec<int> widenLowest(Bits v)
{
    if constexpr (sizeof(Int) == 4)
        return (Vec<int>)v;
#if ARK_AVX512 || ARK_AVX2
#if ARK_AVX512
    const __m256i half = _mm512_castsi512_si256(v);
    const __m128i quarter = _mm512_castsi512_si128(v);
#else
    const __m128i half = _mm256_castsi256_si128(v), quarter = half;
#endif
    if constexpr (sizeof(Int) == 2)
        return (Vec<int>)(isSigned<Int> ? ARK_MM(cvtepi16_epi32)(half) : ARK_MM(cvtepu16_epi32)(half));
    return (Vec<int>)(isSigned<Int> ? ARK_MM(cvtepi8_epi32)(quarter) : ARK_MM(cvtepu8_epi32)(quarter));
#else
    if constexpr (sizeof(Int) == 1)
        v = _mm_unpacklo_epi8(v, v);
    v = _mm_unpacklo_epi16(v, v);
    constexpr int unused = 32 - 8 * int(sizeof(Int)); // bits of a lane
    return (Vec<int>)(isSigned<Int> ? _mm_srai_epi32(v, unused) : _mm_srli_epi32(v, unused));
#endif
}

// Every lane must be representable in Int.
template <class Int>
ARK_INLINE Bits narrowToLowest(Vec<int> v)
{
    if constexpr (sizeof(Int) == 4)
        return (Bits)v;
#if ARK_AVX512
    if constexpr (sizeof(Int) == 2)
        return _mm512_castsi256_si512(_mm512_cvtepi32_epi16((Bits)v));
    return _mm512_castsi128_si512(_mm512_cvtepi32_epi8((Bits)v));
#else
    if constexpr (sizeof(Int) == 2 && !isSigned<Int>)
        v = shiftLeft(v, 16) >> 16; // the packing below saturates as signed
#if ARK_AVX2
    const __m128i low = _mm256_castsi256_si128((Bits)v), high = _mm256_extracti128_si256((Bits)v, 1);
#else
    const __m128i low = (Bits)v, high = low;
#endif
    __m128i packed = _mm_packs_epi32(low, high);
    if constexpr (sizeof(Int) == 1)
        packed = isSigned<Int> ? _mm_packs_epi16(packed, packed) : _mm_packus_epi16(packed, packed);
#if ARK_AVX2
    return _mm256_castsi128_si256(packed);
#else
    return packed;
#endif
#endif
}

template <class Int>
ARK_INLINE Vec<int> loadInts(const Int* from, Whole)
{
    return widenLowest<Int>(loadLowest(from));
}
template <class Int>
ARK_INLINE Vec<int> loadInts(const Int* from, Part part)
{
    return widenLowest<Int>((Bits)loadPart(from, part.count));
}
template <class Int>
ARK_INLINE void storeInts(Int* to, Vec<int> v, Whole)
{
    storeLowest(to, narrowToLowest<Int>(v));
}
// Two registers, of integers that narrow to one.
template <class Int>
ARK_INLINE void storeInts(Int* to, Vec<int> low, Vec<int> high)
{
#if ARK_AVX2
    if constexpr (sizeof(Int) == 2) {
        // Packing works by 128 bits.
        const Bits packed =
            isSigned<Int> ? ARK_MM(packs_epi32)((Bits)low, (Bits)high) : ARK_MM(packus_epi32)((Bits)low, (Bits)high);
        return store(to, (Vec<Int>)permute<evenThenOdd>((Vec<long long>)packed));
    }
#endif
    storeInts(to, low, Whole{});
    storeInts(to + lanes<int>, high, Whole{});
}
template <class Int>
ARK_INLINE void storeInts(Int* to, Vec<int> v, Part part)
{
    storePart(to, (Vec<Int>)narrowToLowest<Int>(v), part.count);
}

// Bytes in 16-bit lanes.
ARK_INLINE Vec<unsigned short> widenBytes(Bits v)
{
#if ARK_AVX512
    return (Vec<unsigned short>)_mm512_cvtepu8_epi16(_mm512_castsi512_si256(v));
#elif ARK_AVX2
    return (Vec<unsigned short>)_mm256_cvtepu8_epi16(_mm256_castsi256_si128(v));
#else
    return (Vec<unsigned short>)_mm_unpacklo_epi8(v, _mm_setzero_si128());
#endif
}
ARK_INLINE Vec<unsigned short> loadBytes(const unsigned char* from, Whole)
{
    return widenBytes(loadLowest(reinterpret_cast<const unsigned short*>(from)));
}
ARK_INLINE Vec<unsigned short> loadBytes(const unsigned char* from, Part part)
{
    return widenBytes((Bits)loadPart(from, part.count));
}

// As many floating-point lanes as a register has 32-bit lanes: one register of floats or two of doubles.
template <class T>
struct Lanes32 {
    static constexpr int registers = int(sizeof(T) / 4);
    Vec<T> part[registers];
};

template <class T>
ARK_INLINE Lanes32<T> loadLanes32(const T* from, Whole)
{
    Lanes32<T> x;
    for (int k = 0; k < x.registers; k++)
        x.part[k] = load(from + k * lanes<T>);
    return x;
}
template <class T>
ARK_INLINE Lanes32<T> loadLanes32(const T* from, Part part)
{
    Lanes32<T> x{};
    for (int k = 0; k < x.registers; k++, from += lanes<T>, part.count -= lanes<T>)
        if (part.count >= lanes<T>)
            x.part[k] = load(from);
        else if (part.count > 0)
            x.part[k] = load(from, part);
    return x;
}

template <class T>
ARK_INLINE void storeLanes32(T* to, Lanes32<T> x, Whole)
{
    for (int k = 0; k < x.registers; k++)
        store(to + k * lanes<T>, x.part[k]);
}
template <class T>
ARK_INLINE void storeLanes32(T* to, Lanes32<T> x, Part part)
{
    for (int k = 0; k < x.registers; k++, to += lanes<T>, part.count -= lanes<T>)
        if (part.count >= lanes<T>)
            store(to, x.part[k]);
        else if (part.count > 0)
            store(to, x.part[k], part);
}

template <class T>
Lanes32<T> fromInts(Vec<int> v);

// Rounds to integers; every lane within the range of int, or 2^31 after rounding, which gives the bits of the unsigned
// number. direction is the processor's code: 0 to nearest even (the mode that every thread starts in, where the
// instruction has none of its own), 1 down, 2 up, 3 toward zero.
#if ARK_AVX512
template <int direction>
ARK_INLINE Vec<int> roundToInts(Lanes32<float> x)
{
    return (Vec<int>)_mm512_cvt_roundps_epi32(x.part[0], direction | _MM_FROUND_NO_EXC);
}
template <int direction>
ARK_INLINE Vec<int> roundToInts(Lanes32<double> x)
{
    return (Vec<int>)_mm512_inserti64x4(
        _mm512_castsi256_si512(_mm512_cvt_roundpd_epi32(x.part[0], direction | _MM_FROUND_NO_EXC)),
        _mm512_cvt_roundpd_epi32(x.part[1], direction | _MM_FROUND_NO_EXC), 1);
}
#elif ARK_AVX2
template <int direction>
ARK_INLINE Vec<int> roundToInts(Lanes32<float> x)
{
    if constexpr (direction == 0)
        return (Vec<int>)_mm256_cvtps_epi32(x.part[0]);
    if constexpr (direction == 3)
        return (Vec<int>)_mm256_cvttps_epi32(x.part[0]);
    return (Vec<int>)_mm256_cvttps_epi32(roundTo<direction>(x.part[0]));
}
template <int direction>
ARK_INLINE __m128i roundToHalf(Vec<double> x)
{
    if constexpr (direction == 0)
        return _mm256_cvtpd_epi32(x);
    if constexpr (direction == 3)
        return _mm256_cvttpd_epi32(x);
    return _mm256_cvttpd_epi32(roundTo<direction>(x));
}
template <int direction>
ARK_INLINE Vec<int> roundToInts(Lanes32<double> x)
{
    return (Vec<int>)_mm256_set_m128i(roundToHalf<direction>(x.part[1]), roundToHalf<direction>(x.part[0]));
}
#else
ARK_INLINE Vec<int> nearestInts(Lanes32<float> x) { return (Vec<int>)_mm_cvtps_epi32(x.part[0]); }
ARK_INLINE Vec<int> nearestInts(Lanes32<double> x)
{
    return (Vec<int>)_mm_unpacklo_epi64(_mm_cvtpd_epi32(x.part[0]), _mm_cvtpd_epi32(x.part[1]));
}
ARK_INLINE Vec<int> truncatedInts(Lanes32<float> x) { return (Vec<int>)_mm_cvttps_epi32(x.part[0]); }
ARK_INLINE Vec<int> truncatedInts(Lanes32<double> x)
{
    return (Vec<int>)_mm_unpacklo_epi64(_mm_cvttpd_epi32(x.part[0]), _mm_cvttpd_epi32(x.part[1]));
}
// -1 in the lanes where a is greater than b.
ARK_INLINE Vec<int> greater(Lanes32<float> a, Lanes32<float> b) { return (Vec<int>)(a.part[0] > b.part[0]); }
ARK_INLINE Vec<int> greater(Lanes32<double> a, Lanes32<double> b)
{
    return (Vec<int>)_mm_shuffle_ps((__m128)(a.part[0] > b.part[0]), (__m128)(a.part[1] > b.part[1]), 0x88);
}
template <int direction, class T>
ARK_INLINE Vec<int> roundToInts(Lanes32<T> x)
{
    if constexpr (direction == 0)
        return nearestInts(x);
    const Vec<int> truncated = truncatedInts(x);
    if constexpr (direction == 1)
        return addWrapping(truncated, greater(fromInts<T>(truncated), x));
    if constexpr (direction == 2)
        return subWrapping(truncated, greater(x, fromInts<T>(truncated)));
    return truncated;
}
#endif

template <>
ARK_INLINE Lanes32<float> fromInts<float>(Vec<int> v)
{
    return {{(Vec<float>)ARK_MM(cvtepi32_ps)((Bits)v)}};
}
template <>
ARK_INLINE Lanes32<double> fromInts<double>(Vec<int> v)
{
#if ARK_AVX512
    return {{(Vec<double>)_mm512_cvtepi32_pd(_mm512_castsi512_si256((Bits)v)),
             (Vec<double>)_mm512_cvtepi32_pd(_mm512_extracti64x4_epi64((Bits)v, 1))}};
#elif ARK_AVX2
    return {{(Vec<double>)_mm256_cvtepi32_pd(_mm256_castsi256_si128((Bits)v)),
             (Vec<double>)_mm256_cvtepi32_pd(_mm256_extracti128_si256((Bits)v, 1))}};
#else
    return {
        {(Vec<double>)_mm_cvtepi32_pd((Bits)v), (Vec<double>)_mm_cvtepi32_pd(_mm_unpackhi_epi64((Bits)v, (Bits)v))}};
#endif
}

// Floats as doubles, and back, rounded.
ARK_INLINE Lanes32<double> fromFloats(Vec<float> v)
{
#if ARK_AVX512
    const __m256 high = (__m256)_mm512_extractf64x4_pd((__m512d)v, 1);
    return {{(Vec<double>)_mm512_cvtps_pd(_mm512_castps512_ps256((__m512)v)), (Vec<double>)_mm512_cvtps_pd(high)}};
#elif ARK_AVX2
    return {{(Vec<double>)_mm256_cvtps_pd(_mm256_castps256_ps128((__m256)v)),
             (Vec<double>)_mm256_cvtps_pd(_mm256_extractf128_ps((__m256)v, 1))}};
#else
    return {{(Vec<double>)_mm_cvtps_pd((__m128)v), (Vec<double>)_mm_cvtps_pd(_mm_movehl_ps((__m128)v, (__m128)v))}};
#endif
}
ARK_INLINE Vec<float> toFloats(Lanes32<double> x)
{
#if ARK_AVX512
    const __m512d low = _mm512_castpd256_pd512((__m256d)_mm512_cvtpd_ps((__m512d)x.part[0]));
    return (Vec<float>)_mm512_insertf64x4(low, (__m256d)_mm512_cvtpd_ps((__m512d)x.part[1]), 1);
#elif ARK_AVX2
    return (Vec<float>)_mm256_set_m128(_mm256_cvtpd_ps((__m256d)x.part[1]), _mm256_cvtpd_ps((__m256d)x.part[0]));
#else
    return (Vec<float>)_mm_movelh_ps(_mm_cvtpd_ps((__m128d)x.part[0]), _mm_cvtpd_ps((__m128d)x.part[1]));
#endif
}

// ---- narrower elements in memory and lanes of double ----

ARK_INLINE Vec<double> loadDoubles(const double* from) { return load(from); }
ARK_INLINE void storeDoubles(double* to, Vec<double> v) { store(to, v); }

#if ARK_AVX512
ARK_INLINE Vec<double> loadDoubles(const float* from) { return (Vec<double>)_mm512_cvtps_pd(_mm256_loadu_ps(from)); }
ARK_INLINE void storeDoubles(float* to, Vec<double> v) { _mm256_storeu_ps(to, _mm512_cvtpd_ps((__m512d)v)); }
ARK_INLINE Vec<double> loadDoubles(const short* from)
{
    const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(from));
    return (Vec<double>)_mm512_cvtepi32_pd(_mm256_cvtepi16_epi32(v));
}
#elif ARK_AVX2
ARK_INLINE Vec<double> loadDoubles(const float* from) { return (Vec<double>)_mm256_cvtps_pd(_mm_loadu_ps(from)); }
ARK_INLINE void storeDoubles(float* to, Vec<double> v) { _mm_storeu_ps(to, _mm256_cvtpd_ps((__m256d)v)); }
ARK_INLINE Vec<double> loadDoubles(const short* from)
{
    const __m128i v = _mm_loadl_epi64(reinterpret_cast<const __m128i_u*>(from));
    return (Vec<double>)_mm256_cvtepi32_pd(_mm_cvtepi16_epi32(v));
}
#else
ARK_INLINE Vec<double> loadDoubles(const float* from)
{
    const __m128i v = _mm_loadl_epi64(reinterpret_cast<const __m128i_u*>(from));
    return (Vec<double>)_mm_cvtps_pd(_mm_castsi128_ps(v));
}
ARK_INLINE void storeDoubles(float* to, Vec<double> v)
{
    _mm_storel_epi64(reinterpret_cast<__m128i_u*>(to), _mm_castps_si128(_mm_cvtpd_ps((__m128d)v)));
}
ARK_INLINE Vec<double> loadDoubles(const short* from)
{
    int pair;
    __builtin_memcpy(&pair, from, sizeof pair);
    const __m128i v = _mm_cvtsi32_si128(pair);
    return (Vec<double>)_mm_cvtepi32_pd(_mm_srai_epi32(_mm_unpacklo_epi16(v, v), 16));
}
#endif

// Truncated toward zero, low 16 bits; 0 for what is beyond 32 bits and for what is not a number.
ARK_INLINE void storeTruncated(short* to, Vec<double> v)
{
#if ARK_AVX512
    _mm_storeu_si128(reinterpret_cast<__m128i_u*>(to), _mm256_cvtepi32_epi16(_mm512_cvttpd_epi32((__m512d)v)));
#else
#if ARK_AVX2
    __m128i x = _mm256_cvttpd_epi32((__m256d)v);
#else
    __m128i x = _mm_cvttpd_epi32((__m128d)v);
#endif
    x = _mm_srai_epi32(_mm_slli_epi32(x, 16), 16);
    x = _mm_packs_epi32(x, x);
    __builtin_memcpy(to, &x, lanes<double> * sizeof(short));
#endif
}

} // namespace
} // namespace ark::ARK_SET

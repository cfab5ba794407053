// 16-bit arithmetic: every operation gives exact 32-bit results, every rule turns those into 16 bits.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

struct Add {
    static ARK_INLINE Wide exact(Vec<short> a, Vec<short> b)
    {
        const Wide x = widen(a), y = widen(b);
        return {x.low + y.low, x.high + y.high};
    }
    static ARK_INLINE Vec<short> saturated(Vec<short> a, Vec<short> b) { return addSaturated(a, b); }
};

struct Sub {
    static ARK_INLINE Wide exact(Vec<short> a, Vec<short> b)
    {
        const Wide x = widen(a), y = widen(b);
        return {x.low - y.low, x.high - y.high};
    }
    static ARK_INLINE Vec<short> saturated(Vec<short> a, Vec<short> b) { return subSaturated(a, b); }
};

struct Mpy {
    static ARK_INLINE Wide exact(Vec<short> a, Vec<short> b) { return multiplyWide(a, b); }
    static ARK_INLINE Vec<short> saturated(Vec<short> a, Vec<short> b) { return packSaturated(exact(a, b)); }
};

struct CplxMpy {
    static ARK_INLINE Wide exact(Vec<short> a, Vec<short> b)
    {
        // a.re b.re - a.im b.im as a.re b.re + a.im (-b.im - 1) + a.im: unlike -b.im, -b.im - 1 always fits.
        const Vec<short> inverted = b ^ alternating<short>(0, -1);
        const Vec<int> re = addWrapping(multiplyAddPairs(a, inverted), (Vec<int>)a >> 16);
        const Vec<int> im = multiplyAddPairs(a, permute<otherPart>(b));
        return interleave32(re, im);
    }
    static ARK_INLINE Vec<short> saturated(Vec<short> a, Vec<short> b) { return packSaturated(exact(a, b)); }
};

struct Wrap {
    template <class Operation>
    static ARK_INLINE Vec<short> result(Vec<short> a, Vec<short> b, int)
    {
        return packWrapped(Operation::exact(a, b));
    }
};

struct Saturate {
    template <class Operation>
    static ARK_INLINE Vec<short> result(Vec<short> a, Vec<short> b, int)
    {
        return Operation::saturated(a, b);
    }
};

template <bool saturate>
ARK_INLINE Vec<short> pack(Wide w)
{
    return saturate ? packSaturated(w) : packWrapped(w);
}

template <bool saturate>
struct Right {
    template <class Operation>
    static ARK_INLINE Vec<short> result(Vec<short> a, Vec<short> b, int count)
    {
        const Wide r = Operation::exact(a, b);
        return pack<saturate>({shiftRight(r.low, count), shiftRight(r.high, count)});
    }
};

struct Left {
    template <class Operation>
    static ARK_INLINE Vec<short> result(Vec<short> a, Vec<short> b, int count)
    {
        const Wide r = Operation::exact(a, b);
        return packWrapped({shiftLeft(r.low, count), shiftLeft(r.high, count)});
    }
};

struct LeftSaturate {
    template <class Operation>
    static ARK_INLINE Vec<short> result(Vec<short> a, Vec<short> b, int count)
    {
        const Wide r = Operation::exact(a, b);
        return packSaturated({shifted(r.low, count), shifted(r.high, count)});
    }

    // What would not fit becomes a value that the packing clamps on the right side.
    static ARK_INLINE Vec<int> shifted(Vec<int> r, int count)
    {
        const Vec<int> most = broadcast(32767 >> count), least = broadcast(count < 16 ? -32768 >> count : 0);
        const Vec<int> above = (Vec<int>)(r > most), below = (Vec<int>)(r < least);
        const Vec<int> clamped = (above & broadcast(0x7FFFFFFF)) | (below & broadcast(-0x7FFFFFFF - 1));
        return (shiftLeft(r, count) & ~(above | below)) | clamped;
    }
};

ARK_INLINE Vec<short> operand(ShortOperand b, std::ptrdiff_t i) { return load(b.data + i * b.step); }
ARK_INLINE Vec<short> operandPart(ShortOperand b, std::ptrdiff_t i, std::ptrdiff_t count)
{
    return loadPart(b.data + i * b.step, count);
}

template <class Operation, class Rule>
void apply(const short* a, ShortOperand b, short* dst, std::ptrdiff_t n, int count)
{
    constexpr int width = lanes<short>;
    std::ptrdiff_t i = 0;
    for (; i + width <= n; i += width)
        store(dst + i, Rule::template result<Operation>(load(a + i), operand(b, i), count));
    if (const std::ptrdiff_t rest = n - i; rest > 0)
        storePart(dst + i, Rule::template result<Operation>(loadPart(a + i, rest), operandPart(b, i, rest), count),
                  rest);
}

ARK_INLINE Vec<int> bitsBeyondSign(Vec<int> r) { return r ^ (r >> 31); }

ARK_INLINE Vec<int> bitsBeyondSign(Wide r) { return bitsBeyondSign(r.low) | bitsBeyondSign(r.high); }

ARK_INLINE bool fits(Wide r) { return !anySet(bitsBeyondSign(r) & broadcast(~0x7FFF)); }

template <class Operation>
std::ptrdiff_t applyWhileFitting(const short* a, ShortOperand b, short* dst, std::ptrdiff_t n)
{
    constexpr int width = lanes<short>;
    std::ptrdiff_t i = 0;
    for (; i + width <= n; i += width) {
        const Wide r = Operation::exact(load(a + i), operand(b, i));
        if (!fits(r))
            return i;
        store(dst + i, packSaturated(r));
    }
    if (const std::ptrdiff_t rest = n - i; rest > 0) {
        const Wide r = Operation::exact(loadPart(a + i, rest), operandPart(b, i, rest));
        if (!fits(r))
            return i;
        storePart(dst + i, packSaturated(r), rest);
    }
    return n;
}

template <class Operation>
unsigned magnitudeBits(const short* a, ShortOperand b, std::ptrdiff_t n)
{
    constexpr int width = lanes<short>;
    Vec<int> bits{};
    std::ptrdiff_t i = 0;
    for (; i + width <= n; i += width)
        bits |= bitsBeyondSign(Operation::exact(load(a + i), operand(b, i)));
    if (const std::ptrdiff_t rest = n - i; rest > 0)
        bits |= bitsBeyondSign(Operation::exact(loadPart(a + i, rest), operandPart(b, i, rest)));
    unsigned all = 0;
    for (int lane = 0; lane < lanes<int>; lane++)
        all |= unsigned(bits[lane]);
    return all;
}

void shiftVectorRight(short* srcDst, std::ptrdiff_t n, int count)
{
    constexpr int width = lanes<short>;
    std::ptrdiff_t i = 0;
    for (; i + width <= n; i += width)
        store(srcDst + i, shiftRight(load(srcDst + i), count));
    if (const std::ptrdiff_t rest = n - i; rest > 0)
        storePart(srcDst + i, shiftRight(loadPart(srcDst + i, rest), count), rest);
}

// In the order of ShortRule.
template <class Operation>
constexpr ShortArithKernels::Rules rules{{apply<Operation, Wrap>, apply<Operation, Saturate>,
                                          apply<Operation, Right<false>>, apply<Operation, Right<true>>,
                                          apply<Operation, Left>, apply<Operation, LeftSaturate>}};

} // namespace

extern const ShortArithKernels arithW;

// In the order of ShortOperation.
constinit const ShortArithKernels arithW{
    {rules<Add>, rules<Sub>, rules<Mpy>, rules<CplxMpy>},
    {applyWhileFitting<Add>, applyWhileFitting<Sub>, applyWhileFitting<Mpy>, applyWhileFitting<CplxMpy>},
    {magnitudeBits<Add>, magnitudeBits<Sub>, magnitudeBits<Mpy>, magnitudeBits<CplxMpy>},
    shiftVectorRight,
};

} // namespace ark::ARK_SET

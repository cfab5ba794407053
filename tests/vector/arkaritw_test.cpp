#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <optional>

namespace {

const BadCalls ofDst{"arkaritw",
                     {ZEROS(arkwbZero), ZEROS(arkvbZero), ZEROS(arkwbSet), ZEROS(arkvbSet), ZEROS(arkwbAdd1),
                      ZEROS(arkvbAdd1), ZEROS(arkwbSub1), ZEROS(arkvbSub1), ZEROS(arkwbMpy1), ZEROS(arkvbMpy1)},
                     {"n<=0", "dst==0"}};
const BadCalls ofSrc{"arkaritw",
                     {ZEROS(arkwbCopy), ZEROS(arkvbCopy), ZEROS(arkwbAdd2), ZEROS(arkvbAdd2), ZEROS(arkwbMpy2),
                      ZEROS(arkvbMpy2), ZEROS(arkvbConj2), ZEROS(arkvbConjFlip2), ZEROS(arkvbConjExtend2)},
                     {"n<=0", "src==0", "dst==0"}};
const BadCalls ofSources{"arkaritw",
                         {ZEROS(arkwbAdd3), ZEROS(arkvbAdd3), ZEROS(arkwbMpy3), ZEROS(arkvbMpy3)},
                         {"n<=0", "srcA==0", "srcB==0", "dst==0"}};
const BadCalls ofSub2{"arkaritw", {ZEROS(arkwbSub2), ZEROS(arkvbSub2)}, {"n<=0", "val==0", "dst==0"}};
const BadCalls ofSub3{"arkaritw", {ZEROS(arkwbSub3), ZEROS(arkvbSub3)}, {"n<=0", "src==0", "val==0", "dst==0"}};
const BadCalls ofVec{"arkaritw", {ZEROS(arkvbConj1), ZEROS(arkvbConjExtend1)}, {"n<=0", "vec==0"}};
const BadCalls ofDiv{"arkaritw", {ZEROS(arkvDiv)}, {"(b.re==0)&&(b.im==0)"}};
const NoBadCalls never{"arkvAdd", "arkvSub", "arkvMpy", "arkvConj", "arkvSet"};

enum Operation { add, sub, mpy };

// One type's forms of one operation.
template <class T>
struct Forms {
    Operation operation;
    void (*form1)(T, T*, int, int, int*);
    void (*form2)(const T*, T*, int, int, int*);
    void (*form3)(const T*, const T*, T*, int, int, int*);
};

template <class T>
std::vector<Forms<T>> members();
template <>
std::vector<Forms<short>> members()
{
    return {{add, arkwbAdd1, arkwbAdd2, arkwbAdd3},
            {sub, arkwbSub1, arkwbSub2, arkwbSub3},
            {mpy, arkwbMpy1, arkwbMpy2, arkwbMpy3}};
}
template <>
std::vector<Forms<ShortCplx>> members()
{
    return {{add, arkvbAdd1, arkvbAdd2, arkvbAdd3},
            {sub, arkvbSub1, arkvbSub2, arkvbSub3},
            {mpy, arkvbMpy1, arkvbMpy2, arkvbMpy3}};
}

// The exact results of one element, one or two of them, as 32-bit integers.
std::vector<long long> exact(Operation operation, short a, short b)
{
    const long long x = a, y = b;
    return {operation == add ? x + y : operation == sub ? x - y : x * y};
}
std::vector<long long> exact(Operation operation, ShortCplx a, ShortCplx b)
{
    if (operation != mpy)
        return {exact(operation, a.re, b.re)[0], exact(operation, a.im, b.im)[0]};
    const auto in32Bits = [](long long r) { return r == 1LL << 31 ? -r : r; };
    return {in32Bits(1LL * a.re * b.re - 1LL * a.im * b.im), in32Bits(1LL * a.re * b.im + 1LL * a.im * b.re)};
}

long long timesPowerOf2(long long r, int shift) // rounded down
{
    for (; shift < 0; shift++)
        r = (r - (r % 2 != 0 && r < 0)) / 2;
    for (; shift > 0; shift--)
        r *= 2;
    return r;
}
short low16(long long r)
{
    return short(((r % 65536) + 65536) % 65536 - ((((r % 65536) + 65536) % 65536) > 32767 ? 65536 : 0));
}
bool fits(long long r) { return r >= -32768 && r <= 32767; }
short clamp16(long long r) { return short(std::clamp(r, -32768LL, 32767LL)); }

// The rules of scaling as they are documented; the factor that the automatic mode writes.
std::vector<short> scaled(const std::vector<long long>& results, int mode, std::optional<int> factor, int* written)
{
    std::vector<short> out;
    if (mode == ARK_AUTO_SCALE) {
        int shift = 0;
        for (const long long r : results)
            while (!fits(timesPowerOf2(r, -shift)))
                shift++;
        for (const long long r : results)
            out.push_back(short(timesPowerOf2(r, -shift)));
        *written = shift;
        return out;
    }
    const int f = factor.value_or(0);
    for (const long long r : results)
        if (mode == ARK_WRAP)
            out.push_back(low16(r));
        else if (mode == ARK_SATURATE)
            out.push_back(clamp16(r));
        else {
            const int shift = f >= 0 ? -(f % 32) : int(-(1LL * f) % 32);
            const long long moved = timesPowerOf2(r, shift);
            out.push_back(mode == (ARK_FIXED_SCALE | ARK_SATURATE) ? clamp16(moved) : low16(moved));
        }
    return out;
}

template <class T>
std::vector<short> flat(const std::vector<T>& elements)
{
    const short* lanes = reinterpret_cast<const short*>(elements.data());
    return {lanes, lanes + elements.size() * sizeof(T) / sizeof(short)};
}

// Values of all magnitudes up to a power of two, the ends of the range among them.
short anyShort(int bits)
{
    if (randomInt(0, 15) == 0 && bits == 15)
        return randomInt(0, 1) ? short(-32768) : short(32767);
    return short(randomInt(-(1 << bits), (1 << bits) - 1));
}
template <class T>
std::vector<T> anyVector(int n, int bits)
{
    std::vector<T> values;
    for (int i = 0; i < n; i++)
        if constexpr (sizeof(T) == 2)
            values.push_back(anyShort(bits));
        else
            values.push_back({anyShort(bits), anyShort(bits)});
    return values;
}

template <class T>
void compareAllForms(int n, int mode, std::optional<int> factor, int bits)
{
    for (const Forms<T>& forms : members<T>()) {
        const std::vector<T> a = anyVector<T>(n, bits), b = anyVector<T>(n, bits);
        const T value = b[0];
        std::vector<long long> ofVectors, ofValue;
        for (std::size_t i = 0; i < a.size(); i++) {
            for (const long long r : exact(forms.operation, a[i], b[i]))
                ofVectors.push_back(r);
            for (const long long r : exact(forms.operation, a[i], value))
                ofValue.push_back(r);
        }
        const auto expect = [&](const std::vector<long long>& results, auto call, const char* form) {
            int expectedFactor = factor.value_or(0), usedFactor = expectedFactor;
            const std::vector<short> expected = scaled(results, mode, factor, &expectedFactor);
            const std::vector<short> got = flat(call(factor ? &usedFactor : nullptr));
            EXPECT_EQ(got, expected) << form << ", operation " << forms.operation << ", n " << n << ", mode " << mode
                                     << ", factor " << (factor ? std::to_string(*factor) : "null");
            EXPECT_EQ(usedFactor, expectedFactor);
        };
        const auto form3Into = [&](auto choose) {
            return [&, choose](int* f) {
                Guarded<T> srcA(a), srcB(b), dst(a.size());
                Guarded<T>& into = choose(srcA, srcB, dst);
                forms.form3(srcA.data(), srcB.data(), into.data(), n, mode, f);
                return into.values();
            };
        };
        expect(ofVectors, form3Into([](auto&, auto&, auto& dst) -> auto& { return dst; }), "form 3");
        expect(ofVectors, form3Into([](auto&, auto& b2, auto&) -> auto& { return b2; }), "form 3 into srcB");
        const auto form2 = [&](int* f) {
            Guarded<T> srcDst(a), src(b);
            forms.form2(src.data(), srcDst.data(), n, mode, f);
            return srcDst.values();
        };
        expect(ofVectors, form2, "form 2");
        const auto form1 = [&](int* f) {
            Guarded<T> srcDst(a);
            forms.form1(value, srcDst.data(), n, mode, f);
            return srcDst.values();
        };
        expect(ofValue, form1, "form 1");
    }
}

template <class T>
class ShortArithmetic : public testing::Test {};
using ShortTypes = testing::Types<short, ShortCplx>;
TYPED_TEST_SUITE(ShortArithmetic, ShortTypes);

TYPED_TEST(ShortArithmetic, EveryModeAndFactor)
{
    for (const int mode : {0, 1, 2, 3, 5, 6, 7, -1, 100})
        for (const std::optional<int> factor :
             {std::optional<int>{}, std::optional{0},   std::optional{1},   std::optional{7},   std::optional{15},
              std::optional{16},    std::optional{31},  std::optional{32},  std::optional{33},  std::optional{INT_MAX},
              std::optional{-1},    std::optional{-2},  std::optional{-14}, std::optional{-15}, std::optional{-16},
              std::optional{-17},   std::optional{-31}, std::optional{-32}, std::optional{-33}, std::optional{INT_MIN}})
            for (const int bits : {3, 9, 15})
                compareAllForms<TypeParam>(50, mode, factor, bits);
}

TYPED_TEST(ShortArithmetic, EveryLength)
{
    for (int n = 1; n <= 100; n++)
        for (const int mode : {0, 1, 2, 3, 4})
            compareAllForms<TypeParam>(n, mode, mode == 4 ? 99 : 3, 15);
}

// The first result that does not fit at every place of a long vector.
TYPED_TEST(ShortArithmetic, AutomaticModeRescalesWhatIsStored)
{
    using T = TypeParam;
    constexpr int n = 150;
    for (const int bits : {7, 8, 10, 15})
        for (int rounds = 0; rounds < 20; rounds++)
            compareAllForms<T>(n, ARK_AUTO_SCALE, 99, bits);
    for (int place = 0; place < n; place++) {
        std::vector<T> values(n, T{});
        short* const lanes = reinterpret_cast<short*>(values.data());
        for (std::size_t i = 0; i < n * sizeof(T) / 2; i++)
            lanes[i] = short(i % 50);
        lanes[place] = -30000;
        Guarded<T> vec(values);
        int factor = -1;
        const Forms<T> addition = members<T>()[add];
        addition.form2(values.data(), vec.data(), n, ARK_AUTO_SCALE, &factor);
        EXPECT_EQ(factor, 1);
        EXPECT_EQ(flat(vec.values()), flat(values)) << "misfit at lane " << place; // (x + x) >> 1
    }
}

TEST(ShortExamples, OfTheDocumentation)
{
    short twice[] = {200, 10000};
    int factor = -7;
    arkwbAdd1(30000, twice, 2, ARK_AUTO_SCALE, &factor);
    EXPECT_EQ(std::vector<short>(twice, twice + 2), (std::vector<short>{15100, 20000}));
    EXPECT_EQ(factor, 1);

    short products[] = {1, 200, 20000};
    arkwbMpy1(100, products, 3, ARK_AUTO_SCALE, &factor);
    EXPECT_EQ(std::vector<short>(products, products + 3), (std::vector<short>{1, 312, 31250}));
    EXPECT_EQ(factor, 6);

    factor = -2;
    short left[] = {9000, -8192, -8193, 8191, -1};
    arkwbMpy1(1, left, 5, ARK_FIXED_SCALE | ARK_SATURATE, &factor);
    EXPECT_EQ(std::vector<short>(left, left + 5), (std::vector<short>{32767, -32768, -32768, 32764, -4}));

    const ShortCplx least{-32768, -32768};
    const ShortCplx wrapped = arkvMpy(least, least, ARK_SATURATE, nullptr); // 0 and 2^31, which wraps
    EXPECT_EQ(wrapped.re, 0);
    EXPECT_EQ(wrapped.im, -32768);
}

TEST(ShortArithmetic, AutomaticModeNeedsAFactor)
{
    Reports reports;
    short w[] = {32767, 5};
    arkwbAdd1(1, w, 2, ARK_AUTO_SCALE, nullptr);
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusBadArgument);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"scalefactor==0"});
    EXPECT_EQ(w[0], 32767);
    // Only after the other checks have passed and under a good status.
    arkwbAdd1(1, w, 0, ARK_AUTO_SCALE, nullptr);
    arkwbAdd1(1, w, 2, ARK_AUTO_SCALE, nullptr);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"n<=0"});
}

TEST(ShortSingleValues, AreTheVectorOperationsOnOneElement)
{
    int factor = 0;
    const auto is = [](ShortCplx z, int re, int im) { return z.re == re && z.im == im; };
    EXPECT_TRUE(is(arkvAdd({30000, 5}, {30000, -7}, ARK_SATURATE, nullptr), 32767, -2));
    EXPECT_TRUE(is(arkvSub({30000, 5}, {-30000, 7}, ARK_AUTO_SCALE, &factor), 30000, -1));
    EXPECT_EQ(factor, 1);
    EXPECT_TRUE(is(arkvMpy({3, 4}, {1, -2}, ARK_WRAP, nullptr), 11, -2));
    EXPECT_TRUE(is(arkvConj({7, -32768}), 7, -32768));
    EXPECT_TRUE(is(arkvSet(8, 9), 8, 9));

    Reports reports;
    EXPECT_TRUE(is(arkvMpy({3, 4}, {1, -2}, ARK_AUTO_SCALE, nullptr), 0, 0));
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusBadArgument) << "the back-trace leaves the inner status";
    const std::vector<Report> made = reports.take();
    ASSERT_EQ(made.size(), 2u);
    EXPECT_EQ(made[0].function, "arkvbMpy3");
    EXPECT_EQ(made[0].message, "scalefactor==0");
    EXPECT_EQ(made[1].function, "arkvMpy");
    EXPECT_EQ(made[1].message, "<null>");
    EXPECT_EQ(made[1].status, ARK_StatusBacktrace);
    EXPECT_EQ(made[1].module, "arkaritw");
}

TEST(ShortSingleValues, DivisionTruncatesAndClamps)
{
    for (int round = 0; round < 20000; round++) {
        const int range = round % 2 ? 32767 : 20;
        const ShortCplx a{short(randomInt(-range, range)), short(randomInt(-range, range))};
        const ShortCplx b{short(randomInt(-range, range)), short(randomInt(1, range))};
        const long long norm = 1LL * b.re * b.re + 1LL * b.im * b.im;
        const ShortCplx q = arkvDiv(a, b); // integer division truncates toward zero, too
        EXPECT_EQ(q.re, clamp16((1LL * a.re * b.re + 1LL * a.im * b.im) / norm));
        EXPECT_EQ(q.im, clamp16((1LL * a.im * b.re - 1LL * a.re * b.im) / norm));
    }
    EXPECT_EQ(arkvDiv({-32768, 0}, {-1, 0}).re, 32767);
}

TEST(ShortVectors, ZeroSetCopy)
{
    for (int n = 1; n < 100; n++) {
        const std::vector<ShortCplx> source = anyVector<ShortCplx>(n, 15);
        Guarded<ShortCplx> src(source), dst(source.size());
        arkvbCopy(src.data(), dst.data(), n);
        EXPECT_EQ(flat(dst.values()), flat(source));
        arkvbSet(source[0], dst.data(), n);
        EXPECT_EQ(flat(dst.values()), flat(std::vector<ShortCplx>(source.size(), source[0])));
        arkvbZero(dst.data(), n);
        EXPECT_EQ(flat(dst.values()), flat(std::vector<ShortCplx>(source.size(), ShortCplx{})));
        Guarded<short> w(source.size());
        arkwbSet(source[0].re, w.data(), n);
        EXPECT_EQ(w.values(), std::vector<short>(source.size(), source[0].re));
        Guarded<short> copy(source.size());
        arkwbCopy(w.data(), copy.data(), n);
        EXPECT_EQ(copy.values(), w.values());
        arkwbZero(w.data(), n);
        EXPECT_EQ(w.values(), std::vector<short>(source.size()));
    }
}

} // namespace

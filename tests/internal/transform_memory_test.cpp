// Transforms and tables when memory is short.
#include "heap_control.hpp"

#include "support/reports.hpp"
#include "transform/roots.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

namespace {

using Messages = std::vector<std::string>;

// A few reports, without asking the heap.
struct Record {
    int status;
    const char* function;
    const char* message;
};
Record records[4];
int recorded;
int record(int status, const char* function, const char* message, const char*, int)
{
    if (recorded < 4)
        records[recorded++] = {status, function, message};
    return status;
}

class ShortMemory : public testing::Test {
protected:
    ShortMemory() { previous_ = arkRedirectError(record); }
    ~ShortMemory() override
    {
        arkRedirectError(previous_);
        arkSetErrStatus(0);
        arkcFreeTwdTbls();
        arkzFreeTwdTbls();
    }
    static void freeAll()
    {
        recorded = 0;
        arkSetErrStatus(0);
        arkcFreeTwdTbls();
        arkzFreeTwdTbls();
    }

private:
    ArkErrorHandler previous_;
};

constexpr int order = 9;
template <class T>
T* as(double* x)
{
    return reinterpret_cast<T*>(x);
}
struct Case {
    const char* name;
    void (*call)(double* x, double* y);
    Messages reports;           // "function: message" when there is no memory at all
    Messages laterReports = {}; // when the first request is granted, if these are others
};

const Case cases[] = {
    {"complex",
     [](double* x, double*) { arkcFft(reinterpret_cast<FloatCplx*>(x), order, ARK_Forw); },
     {"arkcFft: No working Twd memory"}},
    {"double real",
     [](double* x, double*) { arkdRealFft(x, order, ARK_Forw); },
     {"arkdRealFft: No working Twd memory"}},
    {"two signals",
     [](double* x, double* y) { arkdReal2Fft(x, y, order, ARK_Forw); },
     {"arkdReal2Fft: No working Twd memory"}},
    {"two signals, not in place",
     [](double* x, double* y) {
         arksReal2FftNip(reinterpret_cast<float*>(x), reinterpret_cast<float*>(y),
                         reinterpret_cast<FloatCplx*>(x + 300), reinterpret_cast<FloatCplx*>(y + 300), order, ARK_Forw);
     },
     {"arksReal2Fft: No working Twd memory", "arksReal2FftNip: out arksReal2Fft"}},
    {"two spectra, not in place",
     [](double* x, double* y) {
         arkzFreeTwdTbls();
         arkdCcs2FftNip(reinterpret_cast<DoubleCplx*>(x), reinterpret_cast<DoubleCplx*>(y), x, y, 5, ARK_Inv);
     },
     {"arkzrFft: No working Twd memory", "arkdCcs2FftNip: out arkzrFft"}},
    {"16-bit",
     [](double* x, double*) { arkvFft(reinterpret_cast<ShortCplx*>(x), order, ARK_Forw, ARK_SATURATE, nullptr); },
     {"arkvFft: No working memory"},
     {"arkcFft: No working Twd memory", "arkvFft: out arkcFft calc. FFT"}},
    {"16-bit real",
     [](double* x, double*) {
         arkwRealFftl(reinterpret_cast<short*>(x), order, ARK_Forw | ARK_OutRCPerm, ARK_WRAP, nullptr);
     },
     {"arkwRealFftl: No working memory"},
     {"arksRealFftl: No working Twd memory", "arkwRealFftl: out arksRealFftl calc. FFT"}},
};

// Each request in turn is refused: once, which the transform must get over by giving up its tables, and for good.
TEST_F(ShortMemory, IsRetriedOnceAndThenReported)
{
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        for (const long failing : {1L, -1L})
            for (long good = 0;; good++) {
                freeAll();
                arkcFft(nullptr, 6, ARK_Init); // tables that can give way
                arkzFft(nullptr, 6, ARK_Init);
                std::vector<double> x(2000, 1.0), y(2000, 2.0);
                bool failed;
                {
                    const FailingHeap heap(good, failing);
                    c.call(x.data(), y.data());
                    failed = heap.hasFailed();
                }
                if (!failed) {
                    EXPECT_GT(good, 0);
                    break;
                }
                const bool changed = x != std::vector<double>(2000, 1.0);
                EXPECT_EQ(changed, failing == 1) << "request " << good;
                EXPECT_EQ(arkGetErrStatus(), failing == 1 ? 0 : int{ARK_StatusOutOfMemory});
                Messages made;
                for (int i = 0; i < recorded; i++) {
                    EXPECT_EQ(records[i].status, i == 0 ? ARK_StatusOutOfMemory : ARK_StatusBacktrace);
                    made.push_back(std::string(records[i].function) + ": " + records[i].message);
                }
                const bool later = good > 0 && !c.laterReports.empty();
                EXPECT_EQ(made, failing == 1 ? Messages{} : later ? c.laterReports : c.reports) << "request " << good;
                arkSetErrStatus(0);
                recorded = 0;
                c.call(x.data(), y.data());
                EXPECT_EQ(recorded, 0) << "works again";
            }
    }
}

// The public table is there; what else the DFT and the DCT ask for is refused likewise, and found when they ask again.
struct OfAnyLength {
    const char* name;
    void (*call)(double* x);
    Messages reports;
};
const Messages noDctMemory{"arksDct: \nMemory allocation problem\n"};
const OfAnyLength anyLengths[] = {
    {"power of two",
     [](double* x) { arkcDft(as<FloatCplx>(x), as<FloatCplx>(x), 64, ARK_Forw); },
     {"arkcDft: NULL Pointer"}},
    {"small factors",
     [](double* x) { arkcDft(as<FloatCplx>(x), as<FloatCplx>(x), 100, ARK_Forw); },
     {"arkcDft: NULL Pointer"}},
    {"by the chirp",
     [](double* x) { arkcDft(as<FloatCplx>(x), as<FloatCplx>(x), 101, ARK_Forw); },
     {"arkcDft: NULL Pointer"}},
    {"DCT, power of two", [](double* x) { arksDct(as<float>(x), as<float>(x), 64, ARK_Forw); }, noDctMemory},
    {"DCT, odd", [](double* x) { arkdDct(x, x, 101, ARK_Forw); }, {"arkdDct: \nMemory allocation problem\n"}},
    {"DCT, even", [](double* x) { arksDct(as<float>(x), as<float>(x), 100, ARK_Inv); }, noDctMemory},
    {"DCT by the chirp", [](double* x) { arksDct(as<float>(x), as<float>(x), 94, ARK_Inv); }, noDctMemory},
    {"16-bit DCT",
     [](double* x) { arkwDct(as<short>(x), as<short>(x), 100, ARK_Forw); },
     {"arkwDct: \nMemory allocation problem\n"}},
};

TEST_F(ShortMemory, OfTransformsOfAnyLength)
{
    for (const OfAnyLength& c : anyLengths) {
        SCOPED_TRACE(c.name);
        for (long good = 0;; good++) {
            freeAll();
            arksDct(nullptr, nullptr, 0, ARK_Free);
            for (const int len : {64, 100, 101})
                arkcDft(nullptr, nullptr, len, ARK_Init);
            std::vector<double> x(200, 1.0);
            const std::vector<double> before = x;
            bool failed;
            {
                const FailingHeap heap(good);
                c.call(x.data());
                failed = heap.hasFailed();
            }
            if (!failed) {
                EXPECT_GT(good, 0);
                EXPECT_NE(x, before);
                break;
            }
            EXPECT_EQ(x, before);
            ASSERT_EQ(recorded, 1) << "request " << good;
            EXPECT_EQ(records[0].status, ARK_StatusOutOfMemory);
            EXPECT_EQ(Messages{std::string(records[0].function) + ": " + records[0].message}, c.reports);
            arkSetErrStatus(0);
            recorded = 0;
            c.call(x.data());
            EXPECT_NE(x, before);
            EXPECT_EQ(recorded, 0) << "works again";
        }
    }
}

// One refusal is got over by giving up the FFTs' tables, and a 16-bit DFT says where it failed.
TEST_F(ShortMemory, OfADft)
{
    DoubleCplx x[101]{};
    for (long good = 0; good < 3; good++) {
        freeAll();
        arkzDft(nullptr, nullptr, 101, ARK_Init);
        const FailingHeap heap(good, 1);
        arkzDft(x, x, 101, ARK_Forw);
        EXPECT_TRUE(heap.hasFailed());
        EXPECT_EQ(recorded, 0) << "request " << good;
    }
    freeAll();
    ShortCplx y[100]{};
    const FailingHeap heap(1); // the floats
    arkvDft(y, y, 100, ARK_Forw, ARK_SATURATE, nullptr);
    ASSERT_EQ(recorded, 3);
    EXPECT_STREQ(records[0].function, "arkcGetDftTwdTbl");
    EXPECT_STREQ(records[1].message, "tw==0");
    EXPECT_STREQ(records[2].message, "out arkcDft calc. DFT");
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusBadArgument);
    arkSetErrStatus(0);
    recorded = 0;
    {
        const FailingHeap empty(0);
        arkvDft(y, y, 100, ARK_Forw, ARK_SATURATE, nullptr);
    }
    ASSERT_EQ(recorded, 1);
    EXPECT_STREQ(records[0].message, "NULL Pointer");
}

TEST_F(ShortMemory, InsideA16BitTransformIsTracedBack)
{
    for (const bool init : {false, true}) {
        freeAll();
        short x[1026] = {7}, y[1026] = {9};
        arkwReal2Fft(x, y, 10, ARK_Forw, ARK_SATURATE, nullptr); // leaves the buffer of floats
        arkcFft(nullptr, 10, ARK_Init);
        {
            const FailingHeap empty(0);
            arkwReal2Fft(x, y, 9, init ? ARK_Init : ARK_Inv, ARK_SATURATE, nullptr);
        }
        ASSERT_EQ(recorded, 2);
        EXPECT_STREQ(records[0].function, "arksReal2Fft");
        EXPECT_STREQ(records[0].message, "No working Twd memory");
        EXPECT_STREQ(records[1].function, "arkwReal2Fft");
        EXPECT_STREQ(records[1].message, init ? "out arksReal2Fft ARK_Init" : "out arksReal2Fft calc. FFT");
        EXPECT_EQ(records[1].status, ARK_StatusBacktrace);
        EXPECT_EQ(arkGetErrStatus(), ARK_StatusOutOfMemory);
        EXPECT_EQ(x[0], 7);
    }
}

TEST_F(ShortMemory, LeavesPublicTablesAlone)
{
    freeAll();
    FloatCplx* const table = arkcGetFftTwdTbl(6);
    {
        const FailingHeap empty(0);
        FloatCplx x[512];
        arkcFft(x, order, ARK_Forw);
        arkSetErrStatus(0);
        EXPECT_EQ(arkcGetFftTwdTbl(7), nullptr);
        arkSetErrStatus(0);
        EXPECT_EQ(arkvGetDftTwdTbl(7), nullptr);
        arkSetErrStatus(0);
        EXPECT_EQ(arkGetBitRevTbl(7), nullptr);
        EXPECT_EQ(arkcGetFftTwdTbl(6), nullptr) << "the status";
        arkSetErrStatus(0);
        EXPECT_EQ(arkcGetFftTwdTbl(6), table);
    }
    ASSERT_EQ(recorded, 4);
    for (int i = 1; i < 4; i++)
        EXPECT_STREQ(records[i].message, "NULL Pointer");
    EXPECT_EQ(table[16].im, -1);
    ShortCplx* const seventh = arkvGetDftTwdTbl(7);
    EXPECT_EQ(arkvGetDftTwdTbl(7), seventh) << "the failure took no place in the list";
    arkvFreeTwdTbls();
}

// Order 31 ends in a report where there is no memory for it, and asks for no less than it needs.
TEST_F(ShortMemory, TheLargestOrder)
{
    freeAll();
    const FailingHeap empty(0);
    arkzFft(nullptr, 31, ARK_Init);
    arkSetErrStatus(0);
    arksRealFft(nullptr, 31, ARK_Init);
    arkSetErrStatus(0);
    arkvFft(nullptr, 31, ARK_Init, 0, nullptr);
    ASSERT_EQ(recorded, 3);
    EXPECT_STREQ(records[0].message, "No working Twd memory");
    EXPECT_STREQ(records[2].message, "No working memory");
}

template <class R>
void checkRecombinationTable()
{
    for (const int ofM : {1, 2, 3, 7, 12, 17}) {
        const std::size_t half = std::size_t{1} << (ofM - 1);
        std::vector<R> table(2 * half);
        ark::fillRecombinationTable(ofM, table.data());
        for (std::size_t k = 1; k <= half; k++) {
            const auto angle = [=](std::size_t steps) {
                return std::acos(-1.0L) * static_cast<long double>(steps) / static_cast<long double>(2 * half);
            };
            const auto ulps = [](R got, long double wanted) {
                return double(std::fabs(got - wanted) / (std::nextafter(got, R(2)) - got));
            };
            const bool mirrored = k > half / 2; // where a cosine would suffer from the rounding of its angle
            const long double cosine = mirrored ? std::sin(angle(half - k)) : std::cos(angle(k));
            const long double sine = mirrored ? std::cos(angle(half - k)) : std::sin(angle(k));
            if (k < half) {
                ASSERT_LE(ulps(table[2 * k - 2], cosine), 0.505) << k << " of " << half;
                ASSERT_LE(ulps(table[2 * k - 1], sine), 0.505) << k << " of " << half;
            }
        }
        EXPECT_EQ(table[2 * half - 2], 0);
        EXPECT_EQ(table[2 * half - 1], 1);
    }
}

TEST(RecombinationTable, IsRightToHalfAnUlp)
{
    checkRecombinationTable<float>();
    checkRecombinationTable<double>();
}

} // namespace

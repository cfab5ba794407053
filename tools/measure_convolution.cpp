// Measures what src/convolve/costs.hpp holds for double, complex and mixed convolution and prints it in the form that
// stands there: the costs of transforms and blocks of each order, and the limits of the direct way.
//
//   cmake -S . -B build/bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DARKPX_BENCH=ON
//   cmake --build build/bench --target measure_convolution && build/bench/bench/measure_convolution
#include "convolve/convolve.hpp"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

namespace {

using namespace ark;
using Clock = std::chrono::steady_clock;

// The least of many runs, in seconds.
template <class Work>
double timed(Work work)
{
    int runs = 1; // of a batch, long against the clock's own time
    double best = 0, total = 0;
    for (int batch = 0; batch < 5 || total < 2e-3;) {
        const Clock::time_point begin = Clock::now();
        for (int i = 0; i < runs; i++)
            work();
        const double time = std::chrono::duration<double>(Clock::now() - begin).count();
        if (time < 5e-6) {
            runs *= 2;
            continue;
        }
        best = batch++ ? std::min(best, time / runs) : time / runs;
        total += time;
    }
    return best;
}

// Fills rows of at most 120 columns.
class Rows {
public:
    void add(const char* text)
    {
        const int length = int(std::char_traits<char>::length(text)) + 2;
        column_ += length;
        if (column_ > 118) {
            std::printf("\n    ");
            column_ = length;
        }
        std::printf("%s, ", text);
    }

private:
    int column_ = 0;
};

template <class Y>
void printCosts(const char* name)
{
    constexpr int largest = 21;
    double fft[costOrders], mul[costOrders];
    for (int order = 1; order <= largest; order++) {
        const std::size_t size = std::size_t{1} << order;
        std::vector<Y> src(size, Y{}), dst(size, Y{}), filter(size, Y{});
        Spectra<Y>::buildTables(order);
        Workspace<Real<Y>> space;
        obtain(Spectra<Y>::kind, order, space);
        fft[order] = timed([&] { Spectra<Y>::forward(src.data(), dst.data(), order, space); });
        mul[order] = timed([&] {
            Spectra<Y>::multiply(filter.data(), dst.data(), order);
            Spectra<Y>::inverse(dst.data(), order, space);
            std::memcpy(src.data(), dst.data(), size / 2 * sizeof(Y));
        });
    }
    // Beyond what is measured: the bound is memory, and the work grows with the order.
    fft[0] = fft[1] / 2;
    mul[0] = mul[1] / 2;
    for (int order = largest + 1; order < costOrders; order++) {
        fft[order] = fft[order - 1] * 2 * order / (order - 1);
        mul[order] = mul[order - 1] * 2 * order / (order - 1);
    }
    std::printf("inline constexpr ConvCosts %s{\n    {", name);
    for (const double* costs : {fft, mul}) {
        Rows rows;
        for (int order = 0; order < costOrders; order++) {
            char text[32];
            std::snprintf(text, sizeof text, "%.3ef", costs[order] * 1000); // milliseconds
            rows.add(text);
        }
        std::printf(costs == fft ? "},\n    {" : "}};\n\n");
    }
    std::fflush(stdout);
}

constexpr int longest = 32768;

// How much longer direct sums take than transforms.
template <class X, class H>
double excess(int len, int n)
{
    using Y = FirOutput<X, H>;
    static const std::vector<X> x(longest, X{});
    static const std::vector<H> h(std::size_t(longestDirect), H{});
    static std::vector<Y> y(longest + std::size_t(longestDirect), Y{});
    const ConvShape shape{len, n};
    const ConvPlan plan = planOf(ConvTables<X, H>::costs, shape);
    const auto& kernel = kernels<ConvKernels<X, H>>();
    return timed([&] { kernel.direct(x.data(), len, h.data(), n, y.data()); }) - timed([&] {
               convolveBySpectra({"", "", 0}, plan, shape, x.data(), h.data(), y.data());
           });
}

// The least length from which on transforms are quicker; lengths beyond the longest measured count as none.
int limitOf(double (*excessOf)(int len, int n), int n)
{
    if (excessOf(longest, n) < 0)
        return 0;
    int direct = n - 1, transforms = longest; // of which the way is known
    while (transforms - direct > 1) {
        const int len = direct + (transforms - direct) / 2;
        (excessOf(len, n) < 0 ? direct : transforms) = len;
    }
    return transforms;
}

void printRule(const char* name, double (*excessOf)(int len, int n))
{
    std::vector<int> limits; // from the first n that has one
    int always = 0;
    for (int n = 8; n <= int(longestDirect); n++) {
        int limit = limitOf(excessOf, n);
        if (limit == 0) {
            limits.clear();
            always = n;
            continue;
        }
        if (!limits.empty())
            limit = std::min(limit, limits.back());
        if (limit <= n)
            break;
        limits.push_back(limit);
    }
    std::printf("inline constexpr int %sLimits[] = { // n = %d ... %d\n    ", name, always + 1,
                always + int(limits.size()));
    Rows rows;
    for (const int limit : limits) {
        char text[16];
        std::snprintf(text, sizeof text, "%d", limit);
        rows.add(text);
    }
    std::printf("};\ninline constexpr DirectRule %sRule{%d, %d, %sLimits};\n\n", name, always,
                always + int(limits.size()) + 1, name);
    std::fflush(stdout);
}

} // namespace

int main()
{
    printCosts<double>("realDoubleCosts");
    printCosts<FloatCplx>("cplxFloatCosts");
    printCosts<DoubleCplx>("cplxDoubleCosts");
    printRule("cplxDouble", excess<DoubleCplx, DoubleCplx>);
    printRule("mixedFloat",
              [](int len, int n) { return excess<float, FloatCplx>(len, n) + excess<FloatCplx, float>(len, n); });
    printRule("mixedDouble",
              [](int len, int n) { return excess<double, DoubleCplx>(len, n) + excess<DoubleCplx, double>(len, n); });
}

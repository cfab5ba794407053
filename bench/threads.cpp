// What two threads do in the time of one, on processors of their own: 2 where nothing is shared, also not in secret.
#include <arkpx.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int n = 4096, order = 12, repetitions = 9;
constexpr double longEnough = 0.03; // seconds, beside which the start of a thread counts for nothing

double seconds(const std::function<void(int)>& work, int threads, int calls)
{
    const auto begin = Clock::now();
    std::vector<std::thread> running;
    for (int t = 0; t < threads; t++)
        running.emplace_back([&, t] {
            work(t); // what a thread makes once belongs to the work: its tables
            for (int i = 0; i < calls; i++)
                work(t);
        });
    for (std::thread& thread : running)
        thread.join();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

void print(const char* name, const std::function<void(int)>& work)
{
    const int calls = 1 + int(100 * longEnough / seconds(work, 1, 100));
    double one = 1e9, two = 1e9;
    for (int i = 0; i < repetitions; i++) {
        one = std::min(one, seconds(work, 1, calls));
        two = std::min(two, seconds(work, 2, calls));
    }
    std::printf("| %-24s | %6.2f | %6.2f | %6.2f |\n", name, 1e6 * one / calls, 1e6 * two / calls, 2 * one / two);
}

} // namespace

int main()
{
    std::vector<float> a[] = {std::vector<float>(2 * n, 0.5f), std::vector<float>(2 * n, 0.5f)};
    std::vector<float> b[] = {std::vector<float>(2 * n), std::vector<float>(2 * n)};
    const std::vector<float> taps(64, 0.01f);
    FirState filters[2] = {};
    for (FirState& filter : filters)
        arksFirInit(taps.data(), 64, nullptr, &filter);
    const auto spectrum = [&](int t) { return reinterpret_cast<FloatCplx*>(b[t].data()); };
    const auto signal = [&](int t) { return reinterpret_cast<FloatCplx*>(a[t].data()); };

    std::printf(
        "\n## Two threads\n\nMicroseconds until all have done one piece of work; how much more two threads do in"
        " the same time.\n\n| %-24s | %6s | %6s | %6s |\n|%s|-------:|-------:|-------:|\n",
        "", "one", "two", "gain", std::string(26, '-').c_str());
    print("complex FFT, order 12", [&](int t) { arkcFftNip(signal(t), spectrum(t), order, ARK_Forw); });
    print("FIR, 64 taps, 4096", [&](int t) { arksbFir(&filters[t], a[t].data(), b[t].data(), n); });
    print("float exp, 8192", [&](int t) { arksbExp2(a[t].data(), b[t].data(), 2 * n); });
    for (FirState& filter : filters)
        arkFirFree(&filter);
}

// What two threads do in the time of one, on processors of their own: 2 where nothing is shared, also not in secret.
//
// Other programs take time from two threads more easily than from one. Hence short slices of work, of which the
// quickest counts, and beside each row, measured in turns with it, a loop that touches no memory: what it gains is what
// the machine had to give.
#include <arkpx.h>

#include <algorithm>
#include <atomic>
#include <barrier>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#ifdef __linux__
#include <sched.h>
#endif

namespace {

using Clock = std::chrono::steady_clock;
using Call = std::function<void()>;

constexpr double slice = 1e-3; // seconds
constexpr int rounds = 40;
constexpr double idle = 1.8; // of what the loop gains while nobody else uses a processor
constexpr int attempts = 8;  // to find it so

// Work on arrays of its own, which a thread prepares for itself.
struct Work {
    const char* name;
    std::function<Call()> prepare;
};

// Between pages that nobody uses: what a processor reads ahead is nobody else's. Arrays of one work do not lie at the
// same place in their pages, where a processor takes a load for dependent on a store.
template <class T>
T* array(int n, double value = 0.5)
{
    constexpr std::size_t page = 4096;
    static thread_local std::size_t place = 0;
    place = (place + 320) % page;
    const std::size_t bytes = (place + std::size_t(n) * sizeof(T) + page - 1) / page * page;
    // Kept to the end of the program.
    char* const pages = static_cast<char*>(std::aligned_alloc(page, bytes + 2 * page));
    T* const elements = reinterpret_cast<T*>(pages + page + place);
    std::fill_n(elements, n, T(value));
    return elements;
}

// A state, initialised by init(state).
template <class State, class Init>
State* state(Init init)
{
    State* const made = reinterpret_cast<State*>(array<char>(sizeof(State), 0));
    init(made);
    return made;
}

FloatCplx* cplx(float* parts) { return reinterpret_cast<FloatCplx*>(parts); }

void loopInRegisters()
{
    float x = 1;
    for (int i = 0; i < 500; i++) {
        x = x * 0.5f + 1;
        asm volatile("" : "+x"(x));
    }
}

double median(std::vector<double>& values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// The seconds of a call: by each thread while the other sleeps, and until both have done one at once.
struct Seconds {
    double alone[2] = {1e9, 1e9}, both = 1e9;
    std::vector<double> everyBoth;

    double one() const { return std::max(alone[0], alone[1]); } // where the arrays lie tells
    double gain() const { return 2 * one() / both; }
    double usualGain() { return 2 * one() / median(everyBoth); }
};

double secondsOf(const Call& call, int calls)
{
    const auto begin = Clock::now();
    for (int i = 0; i < calls; i++)
        call();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

int callsOfSlice(const Call& call)
{
    double least = 1e9;
    for (int i = 0; i < 20; i++)
        least = std::min(least, secondsOf(call, 1));
    const int some = 1 + int(0.1 * slice / least);
    return 1 + int(slice / secondsOf(call, some) * some);
}

// To a processor of its own: the system's choice may take both to one for a while.
void stay([[maybe_unused]] int thread)
{
#ifdef __linux__
    cpu_set_t allowed, one;
    sched_getaffinity(0, sizeof allowed, &allowed);
    int processor = 0;
    for (int left = thread; !CPU_ISSET(processor, &allowed) || left-- > 0;)
        processor++;
    CPU_ZERO(&one);
    CPU_SET(processor, &one);
    sched_setaffinity(0, sizeof one, &one);
#endif
}

// All works in turns, each by one thread, by the other, and by both, so that a disturbance meets all alike.
std::vector<Seconds> measure(const std::vector<Work>& works)
{
    std::vector<Seconds> best(works.size());
    std::vector<int> calls(works.size());
    std::barrier meeting(2); // sleeping: a processor that spins takes from the other's
    // Not within this function's frame, which the first thread writes to while the second looks at this.
    const auto arrived = std::make_unique<std::atomic<int>>(0);
    Clock::time_point begins[2], ends[2];
    const auto thread = [&](int t) {
        stay(t);
        int starts = 0;
        const auto startTogether = [&] {
            ++*arrived;
            for (starts++; *arrived < 2 * starts;)
                ;
        };
        std::vector<Call> mine;
        for (const Work& work : works) {
            mine.push_back(work.prepare());
            mine.back()(); // what a thread makes once
        }
        if (t == 0)
            std::transform(mine.begin(), mine.end(), calls.begin(), callsOfSlice);
        for (int round = 0; round < rounds; round++)
            for (std::size_t i = 0; i < works.size(); i++)
                for (const int first : {0, 1, 2}) { // 2: both
                    const bool both = first == 2, mineToDo = both || first == t;
                    meeting.arrive_and_wait();
                    if (both)
                        startTogether();
                    if (mineToDo) {
                        begins[t] = Clock::now();
                        secondsOf(mine[i], calls[i]);
                        ends[t] = Clock::now();
                    }
                    meeting.arrive_and_wait();
                    if (t == 0) {
                        const auto from = both ? std::min(begins[0], begins[1]) : begins[first];
                        const auto to = both ? std::max(ends[0], ends[1]) : ends[first];
                        const double seconds = std::chrono::duration<double>(to - from).count() / calls[i];
                        double& least = both ? best[i].both : best[i].alone[first];
                        least = std::min(least, seconds);
                        if (both)
                            best[i].everyBoth.push_back(seconds);
                    }
                }
    };
    std::thread other(thread, 1);
    std::thread own(thread, 0);
    own.join();
    other.join();
    return best;
}

void print(const Work& work)
{
    std::vector<Seconds> best;
    for (int attempt = 0; attempt < attempts && (best.empty() || best[0].usualGain() < idle); attempt++)
        best = measure({{"", [] { return loopInRegisters; }}, work});
    std::printf("| %-28s | %8.3f | %8.3f | %6.2f | %6.2f |\n", work.name, 1e6 * best[1].one(), 1e6 * best[1].both,
                best[1].gain(), best[0].usualGain());
    std::fflush(stdout);
}

constexpr int n = 4096, order = 12, many = 4000000;

// clang-format off
const Work works[] = {
    {"float add", [] {
         return [a = array<float>(n), b = array<float>(n), dst = array<float>(n)] { arksbAdd3(a, b, dst, n); };
     }},
    {"float add, 4000000", [] {
         return [a = array<float>(many), b = array<float>(many), dst = array<float>(many)] { arksbAdd3(a, b, dst, many); };
     }},
    {"copying 4000000 floats", [] {
         return [a = array<float>(many), dst = array<float>(many)] {
             std::memcpy(dst, a, many * sizeof(float));
             asm volatile("" : : "r"(dst) : "memory");
         };
     }},
    {"16-bit add, saturating", [] {
         return [a = array<short>(n, 20000), b = array<short>(n, 20000), dst = array<short>(n)] {
             arkwbAdd3(a, b, dst, n, ARK_SATURATE, nullptr);
         };
     }},
    {"one float's sum", [] { return [a = array<float>(1), dst = array<float>(1)] { arksbAdd3(a, a, dst, 1); }; }},
    {"float to 16-bit", [] {
         return [a = array<float>(n), dst = array<short>(n)] { arksbFloatToInt(a, dst, n, 16, ARK_RoundNearest); };
     }},
    {"float sqrt", [] { return [a = array<float>(n), dst = array<float>(n)] { arksbSqrt2(a, dst, n); }; }},
    {"float exp", [] { return [a = array<float>(n), dst = array<float>(n)] { arksbExp2(a, dst, n); }; }},
    {"float exp, 8192", [] { return [a = array<float>(2 * n), dst = array<float>(2 * n)] { arksbExp2(a, dst, 2 * n); }; }},
    {"A-law to 16-bit", [] {
         return [a = array<unsigned char>(n, 7), dst = array<short>(n)] { arkwbALawToLin(a, dst, n); };
     }},
    {"tone", [] {
         return [tone = state<ArksToneState>([](auto* s) { arksToneInit(0.01f, 0, 1, s); }), dst = array<float>(n)] {
             arksbTone(tone, dst, n);
         };
     }},
    {"Gaussian noise", [] {
         return [noise = state<ArksRandGausState>([](auto* s) { arksRandGausInit(1, 0, 1, s); }), dst = array<float>(n)] {
             arksbRandGaus(noise, dst, n);
         };
     }},
    {"Hamming window", [] { return [x = array<float>(n, 0)] { arksWinHamming(x, n); }; }},
    {"complex FFT, order 12", [] {
         return [a = array<float>(2 * n), dst = array<float>(2 * n)] { arkcFftNip(cplx(a), cplx(dst), order, ARK_Forw); };
     }},
    {"complex FFT, order 20", [] {
         return [a = array<float>(2 << 20), dst = array<float>(2 << 20)] { arkcFftNip(cplx(a), cplx(dst), 20, ARK_Forw); };
     }},
    {"real FFT, order 12", [] {
         return [a = array<float>(n), dst = array<float>(n + 2)] { arksRealFftNip(a, cplx(dst), order, ARK_Forw); };
     }},
    {"DFT of 1000", [] {
         return [a = array<float>(2000), dst = array<float>(2000)] { arkcDft(cplx(a), cplx(dst), 1000, ARK_Forw); };
     }},
    {"DCT of 1000", [] { return [a = array<float>(1000), dst = array<float>(1000)] { arksDct(a, dst, 1000, ARK_Forw); }; }},
    {"Goertzel, 205 samples", [] {
         return [goertz = state<ArksGoertzState>([](auto* s) { arksGoertzInit(0.1f, s); }), a = array<float>(205)] {
             arksGoertzReset(goertz);
             arksbGoertz(goertz, a, 205);
         };
     }},
    {"wavelet, 8 taps, 5 levels", [] {
         return [wavelet = state<wtState>([](auto* s) { arksWtInit(4, 0, order, 5, s, 2); }), a = array<float>(n),
                 dst = array<float>(n)] { arksWtDecompose(wavelet, a, dst); };
     }},
    {"FIR, 64 taps", [] {
         return [fir = state<FirState>([](auto* s) { arksFirInit(array<float>(64, 0.01), 64, nullptr, s); }),
                 a = array<float>(n), dst = array<float>(n)] { arksbFir(fir, a, dst, n); };
     }},
    {"biquad", [] {
         return [iir = state<IirState>([](auto* s) {
                     static const float section[] = {0.25f, 0.5f, 0.25f, 1, -0.5f, 0.25f};
                     arksIirInitBq(0, section, 1, s);
                 }),
                 a = array<float>(n), dst = array<float>(n)] { arksbIir(iir, a, dst, n); };
     }},
    {"LMS, 64 taps", [] {
         return [lms = state<LmsState>([](auto* s) { arksLmsInit(0, nullptr, 64, nullptr, 1e-4f, 0, 0, s); }),
                 a = array<float>(n), b = array<float>(n), dst = array<float>(n)] { arksbLmsDes(lms, a, b, dst, n); };
     }},
    {"convolution, 64 taps", [] {
         return [a = array<float>(n), h = array<float>(64), dst = array<float>(n + 63)] { arksConv(a, n, h, 64, dst); };
     }},
    {"convolution, 1024 taps", [] {
         return [a = array<float>(n), h = array<float>(1024), dst = array<float>(n + 1023)] { arksConv(a, n, h, 1024, dst); };
     }},
};
// clang-format on

} // namespace

int main(int argc, char** argv)
{
    const char* const only = argc > 1 ? argv[1] : ""; // a part of names

    if (std::thread::hardware_concurrency() < 2) {
        std::puts("\n## Two threads\n\nNot measured: there is one processor only.");
        return 0;
    }
    std::printf(
        "\n## Two threads\n\nMicroseconds until each thread has done one piece of work, on 4096 elements unless it"
        " says otherwise; gain: how much more two threads do in the same time; loop: the gain, measured in turns"
        " with it, of a loop that touches no memory, in the median slice (less than 1.8: another program had a "
        "processor).\n\n| %-28s | %8s "
        "| %8s | %6s | %6s |\n"
        "|%s|---------:|---------:|-------:|-------:|\n",
        "", "one", "two", "gain", "loop", std::string(30, '-').c_str());
    for (const Work& work : works)
        if (std::strstr(work.name, only))
            print(work);
}

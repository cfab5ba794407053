// The frame of the benchmarks: a case is one piece of work that several contenders, the library and its peers, do on
// the same arrays. All contenders of a case and size are measured in turns in one run, so that what disturbs the
// machine disturbs them alike; the fastest of many short repetitions counts.
//
//   const bench::Family arithmetic{"Vector arithmetic", {
//       {"float add", 12, [](int n) {
//            const bench::Array<float> a(n, noise), b(n, noise), dst(n);
//            return bench::Contenders{
//                {"arkpx", [=] { arksbAdd3(a, b, dst, n); }},
//                {"loop", [=] { plain::each(std::plus{}, n, dst, a, b); }},
//            };
//        }},
//   }};
//
// A further case is a further entry; a family is a file, listed in CMakeLists.txt with its subsystem's program.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace bench {

// The library's own contender has this name; every other one is a peer. Contenders of one name are variants: the faster
// one counts.
inline constexpr const char* own = "arkpx";

struct Contender {
    const char* name;
    std::function<void()> run;
};

// How far results are off, and in what unit.
struct Error {
    double value;
    const char* unit;
};

struct Contenders : std::vector<Contender> {
    using std::vector<Contender>::vector;

    // Says how far off is what the contender that ran last left behind; see accuracy.hpp.
    std::function<Error()> error;

    Contenders&& judgedBy(std::function<Error()> judge) &&
    {
        error = std::move(judge);
        return std::move(*this);
    }
};

struct Case {
    const char* name;
    double bytes;                             // read and written for each element
    std::function<Contenders(int n)> prepare; // makes arrays of n elements and whatever else a contender needs
    std::vector<int> sizes{1, 64, 1024, 1000000};
    double (*operations)(int n) =
        nullptr;                         // floating-point ones of the whole work: shown as a rate in place of the bytes
    double (*elements)(int n) = nullptr; // what a time is divided by where that is not n
};

// One table of results. Enters itself into the program's list.
class Family {
public:
    Family(const char* name, std::vector<Case> cases, const char* unit = "an element");

    const char* name;
    const char* unit; // what the times are of
    std::vector<Case> cases;
};

// Bytes at the address that --offset asks for: so far beyond a multiple of 64.
std::shared_ptr<void> allocate(std::size_t bytes);

// Shared by its copies, which a contender's lambda holds.
template <class T>
class Array {
public:
    template <class Generator>
    Array(int n, Generator generator) : Array{n}
    {
        for (int i = 0; i < n; i++)
            elements_[i] = T(generator());
    }
    explicit Array(int n) : memory_{allocate(std::size_t(n) * sizeof(T))}, elements_{static_cast<T*>(memory_.get())}
    {
        std::fill_n(elements_, n, T{});
    }
    T* data() const { return elements_; }
    operator T*() const { return elements_; }

private:
    std::shared_ptr<void> memory_;
    T* elements_;
};

// Numbers that are the same in every run.
double noise(); // uniform in -1 ... 1

} // namespace bench

// The choice of an instruction set.
#include "frame/kernels.hpp"

#include <cstring>

namespace ark {

constinit const Kernels* chosenKernels = nullptr;

namespace {

struct Set {
    const char* name;
    const Kernels& kernels;
    bool (*runsHere)();
};

// Best first. The last one runs everywhere.
const Set sets[] = {
    {"avx512", avx512::kernels,
     [] {
         return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl");
     }},
    {"avx2", avx2::kernels, [] { return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"); }},
    {"sse2", sse2::kernels, [] { return true; }},
};

void choose(const Set& set) { __atomic_store_n(&chosenKernels, &set.kernels, __ATOMIC_RELAXED); }

} // namespace

[[gnu::cold]] const Kernels& chooseKernels()
{
    __builtin_cpu_init();
    const Set* set = sets;
    while (!set->runsHere())
        set++;
    choose(*set);
    return set->kernels;
}

bool forceKernels(const char* name)
{
    __builtin_cpu_init();
    for (const Set& set : sets)
        if (std::strcmp(set.name, name) == 0 && set.runsHere()) {
            choose(set);
            return true;
        }
    return false;
}

} // namespace ark

// Inner loops that pay for a vector unit, as data.
//
// A family with such loops declares a table type, a struct of function pointers, in NAME_kernels.hpp and lists it
// below. NAME_kernels.cpp defines one constant of it and is compiled once per instruction set, each time in a namespace
// named after the set (ARK_SET: sse2, avx2, avx512). isa.cpp, compiled likewise, ties a set's tables together. The set
// is chosen once, on first use. The algorithm then calls
//
//   kernels<ArithKernels<float>>().add(a, b, dst, n);
//
// Kernel files include nothing but this header, simd.hpp and their table's header. An inline function of any other
// header would be emitted once per set under one name, and the linker would let the whole library run the copy that
// only the newest processors can.
#pragma once

#include "convolve/arkconv_kernels.hpp"
#include "filter/arkfir_kernels.hpp"
#include "filter/arkiir_kernels.hpp"
#include "filter/arklms_kernels.hpp"
#include "generate/arkrand_kernels.hpp"
#include "generate/arktone_kernels.hpp"
#include "generate/arkwin_kernels.hpp"
#include "transform/dft_kernels.hpp"
#include "transform/fft_kernels.hpp"
#include "transform/real_kernels.hpp"
#include "transform/wavelet_kernels.hpp"
#include "vector/arkarith_kernels.hpp"
#include "vector/arkaritw_kernels.hpp"
#include "vector/arkcvrt_kernels.hpp"
#include "vector/arklaw_kernels.hpp"
#include "vector/arklnexp_kernels.hpp"
#include "vector/arkvec_kernels.hpp"

namespace ark {

template <class Table>
struct KernelSlot {
    const Table& table;
};

struct Kernels : KernelSlot<FillKernels>,
                 KernelSlot<ArithKernels<float>>,
                 KernelSlot<ArithKernels<double>>,
                 KernelSlot<ArithKernels<FloatCplx>>,
                 KernelSlot<ArithKernels<DoubleCplx>>,
                 KernelSlot<ConjKernels<FloatCplx>>,
                 KernelSlot<ConjKernels<DoubleCplx>>,
                 KernelSlot<ConjKernels<ShortCplx>>,
                 KernelSlot<ShortArithKernels>,
                 KernelSlot<ConvertKernels<float>>,
                 KernelSlot<ConvertKernels<double>>,
                 KernelSlot<ConvKernels<float, float>>,
                 KernelSlot<ConvKernels<double, double>>,
                 KernelSlot<ConvKernels<FloatCplx, FloatCplx>>,
                 KernelSlot<ConvKernels<DoubleCplx, DoubleCplx>>,
                 KernelSlot<ConvKernels<float, FloatCplx>>,
                 KernelSlot<ConvKernels<FloatCplx, float>>,
                 KernelSlot<ConvKernels<double, DoubleCplx>>,
                 KernelSlot<ConvKernels<DoubleCplx, double>>,
                 KernelSlot<FirKernels<float, float>>,
                 KernelSlot<FirKernels<double, double>>,
                 KernelSlot<FirKernels<FloatCplx, FloatCplx>>,
                 KernelSlot<FirKernels<DoubleCplx, DoubleCplx>>,
                 KernelSlot<FirKernels<float, FloatCplx>>,
                 KernelSlot<FirKernels<FloatCplx, float>>,
                 KernelSlot<FirKernels<double, DoubleCplx>>,
                 KernelSlot<FirKernels<DoubleCplx, double>>,
                 KernelSlot<FirKernels<short, float>>,
                 KernelSlot<IirKernels>,
                 KernelSlot<LmsKernels<float, float>>,
                 KernelSlot<LmsKernels<double, double>>,
                 KernelSlot<LmsKernels<FloatCplx, FloatCplx>>,
                 KernelSlot<LmsKernels<DoubleCplx, DoubleCplx>>,
                 KernelSlot<LmsKernels<float, FloatCplx>>,
                 KernelSlot<LmsKernels<double, DoubleCplx>>,
                 KernelSlot<FftKernels<float>>,
                 KernelSlot<FftKernels<double>>,
                 KernelSlot<DftKernels<float>>,
                 KernelSlot<DftKernels<double>>,
                 KernelSlot<RealKernels<float>>,
                 KernelSlot<RealKernels<double>>,
                 KernelSlot<WaveletKernels<float>>,
                 KernelSlot<WaveletKernels<double>>,
                 KernelSlot<ToneKernels<float>>,
                 KernelSlot<ToneKernels<double>>,
                 KernelSlot<ToneKernels<FloatCplx>>,
                 KernelSlot<ToneKernels<DoubleCplx>>,
                 KernelSlot<GaussKernels<float>>,
                 KernelSlot<GaussKernels<double>>,
                 KernelSlot<WindowKernels<float>>,
                 KernelSlot<WindowKernels<double>>,
                 KernelSlot<WindowKernels<FloatCplx>>,
                 KernelSlot<WindowKernels<DoubleCplx>>,
                 KernelSlot<WindowKernels<short>>,
                 KernelSlot<WindowKernels<ShortCplx>>,
                 KernelSlot<LawKernels<short>>,
                 KernelSlot<LawKernels<int>>,
                 KernelSlot<LawKernels<float>>,
                 KernelSlot<LawKernels<double>>,
                 KernelSlot<LnExpKernels<float>>,
                 KernelSlot<LnExpKernels<double>>,
                 KernelSlot<LnExpKernels<short>>,
                 KernelSlot<VecKernels> {};

namespace sse2 {
extern const Kernels kernels;
}
namespace avx2 {
extern const Kernels kernels;
}
namespace avx512 {
extern const Kernels kernels;
}

// Null until chosen. Choosing twice in two threads at once is harmless: both store the same address.
extern constinit const Kernels* chosenKernels;
const Kernels& chooseKernels();

template <class Table>
inline const Table& kernels()
{
    const Kernels* chosen = __atomic_load_n(&chosenKernels, __ATOMIC_RELAXED);
    if (!chosen) [[unlikely]]
        chosen = &chooseKernels();
    return static_cast<const KernelSlot<Table>&>(*chosen).table;
}

// For tests and benchmarks, which link to the static library: makes the named set the chosen one. False when there is
// no such set or this machine cannot run it. The tables that a transform has cached are those of the set it was done
// with: force before the first transform.
bool forceKernels(const char* set);

} // namespace ark

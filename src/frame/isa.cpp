// The tables of one instruction set; compiled once per set.
#include "frame/kernels.hpp"

namespace ark::ARK_SET {

extern const FillKernels fill;
extern const ArithKernels<float> arithS;
extern const ArithKernels<double> arithD;
extern const ArithKernels<FloatCplx> arithC;
extern const ArithKernels<DoubleCplx> arithZ;
extern const ConjKernels<FloatCplx> conjC;
extern const ConjKernels<DoubleCplx> conjZ;
extern const ConjKernels<ShortCplx> conjV;
extern const ShortArithKernels arithW;
extern const ConvertKernels<float> convertS;
extern const ConvertKernels<double> convertD;
extern const FftKernels<float> fftC;
extern const FftKernels<double> fftZ;
extern const RealKernels<float> realS;
extern const RealKernels<double> realD;

// In the order of the bases of Kernels.
constinit const Kernels kernels{{fill},   {arithS},   {arithD},   {arithC}, {arithZ}, {conjC}, {conjZ}, {conjV},
                                {arithW}, {convertS}, {convertD}, {fftC},   {fftZ},   {realS}, {realD}};

} // namespace ark::ARK_SET

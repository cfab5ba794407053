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
extern const IirKernels iir;
extern const IirDataKernels<float> iirS;
extern const IirDataKernels<double> iirD;
extern const IirDataKernels<FloatCplx> iirC;
extern const IirDataKernels<DoubleCplx> iirZ;
extern const IirDataKernels<short> iirW;

// In the order of the bases of Kernels.
constinit const Kernels kernels{{fill},  {arithS}, {arithD}, {arithC},   {arithZ},  {conjC},
                                {conjZ}, {conjV},  {arithW}, {convertS}, {convertD}, {iir},   {iirS},   {iirD},     {iirC},   {iirZ},
                         {iirW}};

} // namespace ark::ARK_SET

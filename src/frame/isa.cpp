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
extern const LawKernels<short> lawW;
extern const LawKernels<int> lawI;
extern const LawKernels<float> lawS;
extern const LawKernels<double> lawD;
extern const LnExpKernels<float> lnExpS;
extern const LnExpKernels<double> lnExpD;
extern const LnExpKernels<short> lnExpW;
extern const VecKernels vec;

// In the order of the bases of Kernels.
constinit const Kernels kernels{{fill},  {arithS}, {arithD},   {arithC},   {arithZ}, {conjC}, {conjZ},
                                {conjV}, {arithW}, {convertS}, {convertD}, {lawW},   {lawI},  {lawS},
                                {lawD},  {lnExpS}, {lnExpD},   {lnExpW},   {vec}};

} // namespace ark::ARK_SET

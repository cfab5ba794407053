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
extern const ToneKernels<float> toneS;
extern const ToneKernels<double> toneD;
extern const ToneKernels<FloatCplx> toneC;
extern const ToneKernels<DoubleCplx> toneZ;
extern const GaussKernels<float> gaussS;
extern const GaussKernels<double> gaussD;
extern const WindowKernels<float> windowS;
extern const WindowKernels<double> windowD;
extern const WindowKernels<FloatCplx> windowC;
extern const WindowKernels<DoubleCplx> windowZ;
extern const WindowKernels<short> windowW;
extern const WindowKernels<ShortCplx> windowV;

// In the order of the bases of Kernels.
constinit const Kernels kernels{{fill},   {arithS},   {arithD},   {arithC},  {arithZ},  {conjC},   {conjZ},  {conjV},
                                {arithW}, {convertS}, {convertD}, {toneS},   {toneD},   {toneC},   {toneZ},  {gaussS},
                                {gaussD}, {windowS},  {windowD},  {windowC}, {windowZ}, {windowW}, {windowV}};

} // namespace ark::ARK_SET

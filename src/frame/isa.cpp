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
extern const ConvKernels<float, float> convS;
extern const ConvKernels<double, double> convD;
extern const ConvKernels<FloatCplx, FloatCplx> convC;
extern const ConvKernels<DoubleCplx, DoubleCplx> convZ;
extern const ConvKernels<float, FloatCplx> convSC;
extern const ConvKernels<FloatCplx, float> convCS;
extern const ConvKernels<double, DoubleCplx> convDZ;
extern const ConvKernels<DoubleCplx, double> convZD;
extern const FirKernels<float, float> firS;
extern const FirKernels<double, double> firD;
extern const FirKernels<FloatCplx, FloatCplx> firC;
extern const FirKernels<DoubleCplx, DoubleCplx> firZ;
extern const FirKernels<float, FloatCplx> firSC;
extern const FirKernels<FloatCplx, float> firCS;
extern const FirKernels<double, DoubleCplx> firDZ;
extern const FirKernels<DoubleCplx, double> firZD;
extern const FirKernels<short, float> firW;
extern const IirKernels iir;
extern const LmsKernels<float, float> lmsS;
extern const LmsKernels<double, double> lmsD;
extern const LmsKernels<FloatCplx, FloatCplx> lmsC;
extern const LmsKernels<DoubleCplx, DoubleCplx> lmsZ;
extern const LmsKernels<float, FloatCplx> lmsSC;
extern const LmsKernels<double, DoubleCplx> lmsDZ;
extern const FftKernels<float> fftC;
extern const FftKernels<double> fftZ;
extern const DftKernels<float> dftC;
extern const DftKernels<double> dftZ;
extern const RealKernels<float> realS;
extern const RealKernels<double> realD;
extern const WaveletKernels<float> waveletS;
extern const WaveletKernels<double> waveletD;

// In the order of the bases of Kernels.
// clang-format off
constinit const Kernels kernels{
    {fill},
    {arithS}, {arithD}, {arithC}, {arithZ}, {conjC}, {conjZ}, {conjV}, {arithW},
    {convertS}, {convertD},
    {convS}, {convD}, {convC}, {convZ}, {convSC}, {convCS}, {convDZ}, {convZD},
    {firS}, {firD}, {firC}, {firZ}, {firSC}, {firCS}, {firDZ}, {firZD}, {firW},
    {iir},
    {lmsS}, {lmsD}, {lmsC}, {lmsZ}, {lmsSC}, {lmsDZ},
    {fftC}, {fftZ},
    {dftC}, {dftZ},
    {realS}, {realD},
    {waveletS}, {waveletD},
    {toneS}, {toneD}, {toneC}, {toneZ},
    {gaussS}, {gaussD},
    {windowS}, {windowD}, {windowC}, {windowZ}, {windowW}, {windowV},
    {lawW}, {lawI}, {lawS}, {lawD},
    {lnExpS}, {lnExpD}, {lnExpW},
    {vec},
};
// clang-format on

} // namespace ark::ARK_SET

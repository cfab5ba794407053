// Work whose instructions callgrind counts, one part of the profile for each piece: bench/instructions runs it.
//
//   instructions sse2|avx2
#include "frame/kernels.hpp"

#include <arkpx.h>

#include <valgrind/callgrind.h>

#include <cstdio>
#include <numeric>
#include <vector>

namespace {

constexpr int n = 1024;

float* reals(int count)
{
    static std::vector<std::vector<float>> all;
    all.emplace_back(std::size_t(count), 0.25f);
    return all.back().data();
}
FloatCplx* complexes(int count) { return reinterpret_cast<FloatCplx*>(reals(2 * count)); }
short* shorts(int count) { return reinterpret_cast<short*>(reals(count)); }

// The second of two runs counts: tables exist then.
template <class Work>
void count(const char* name, Work work)
{
    work();
    CALLGRIND_ZERO_STATS;
    work();
    CALLGRIND_DUMP_STATS_AT(name);
}

void vectors()
{
    float *a = reals(n), *b = reals(n), *dst = reals(n);
    FloatCplx *x = complexes(n), *y = complexes(n), *z = complexes(n);
    short *s = shorts(n), *t = shorts(n);
    unsigned char* codes = reinterpret_cast<unsigned char*>(reals(n));
    count("add, one element", [=] { arksbAdd3(a, b, dst, 1); });
    count("add", [=] { arksbAdd3(a, b, dst, n); });
    count("complex multiply", [=] { arkcbMpy3(x, y, z, n); });
    count("add 16-bit, saturating", [=] { arkwbAdd2(s, t, n, ARK_SATURATE, nullptr); });
    count("add 16-bit, automatic scale", [=] {
        int factor;
        arkwbAdd2(s, t, n, ARK_AUTO_SCALE, &factor);
    });
    count("float to 16-bit", [=] { arksbFloatToInt(a, s, n, 16, ARK_RoundNearest); });
    count("16-bit to float", [=] { arksbIntToFloat(s, dst, n, 16, 0); });
    count("sqrt", [=] { arksbSqrt2(a, dst, n); });
    count("exp", [=] { arksbExp2(a, dst, n); });
    count("ln", [=] { arksbLn2(a, dst, n); });
    count("A-law encode", [=] { arkwbLinToALaw(s, codes, n); });
    count("A-law decode", [=] { arkwbALawToLin(codes, s, n); });
}

void generators()
{
    float* dst = reals(n);
    static ArksToneState tone;
    arksToneInit(0.01f, 0, 1, &tone);
    static ArksRandGausState noise;
    arksRandGausInit(1, 0, 1, &noise);
    count("tone", [=] { arksbTone(&tone, dst, n); });
    count("Gaussian noise", [=] { arksbRandGaus(&noise, dst, n); });
    count("Hamming window", [=] { arksWinHamming(dst, n); });
}

void transforms()
{
    FloatCplx *x = complexes(1 << 12), *y = complexes(1 << 12);
    DoubleCplx* z = reinterpret_cast<DoubleCplx*>(reals(4 << 10));
    short* s = shorts(2 << 10);
    float* r = reals((1 << 10) + 2);
    count("complex FFT, order 4", [=] { arkcFftNip(x, y, 4, ARK_Forw); });
    count("complex FFT, order 10", [=] { arkcFftNip(x, y, 10, ARK_Forw); });
    count("complex FFT, order 12", [=] { arkcFftNip(x, y, 12, ARK_Forw); });
    count("complex FFT, order 10, double", [=] { arkzFft(z, 10, ARK_Forw); });
    count("complex FFT, order 10, 16-bit",
          [=] { arkvFft(reinterpret_cast<ShortCplx*>(s), 10, ARK_Forw, ARK_SATURATE, nullptr); });
    ArksGoertzState goertz;
    arksGoertzInit(0.1f, &goertz);
    static wtState wavelet;
    arksWtInit(4, 0, 10, 5, &wavelet, 2);
    count("DCT, 1024", [=] { arksDct(r, r, 1024, ARK_Forw); });
    count("DFT, 1000", [=] { arkcDft(x, y, 1000, ARK_Forw); });
    count("Goertzel, 205 samples", [=]() mutable { arksbGoertz(&goertz, r, 205); });
    count("wavelet, 8 taps, 5 levels", [=] { arksWtDecompose(&wavelet, r, reinterpret_cast<float*>(y)); });
    arkWtFree(&wavelet);
    count("real FFT, order 10", [=] { arksRealFftNip(r, y, 10, ARK_Forw); });
}

void filters()
{
    constexpr int taps = 64;
    float *h = reals(taps), *x = reals(4 * n), *d = reals(n), *y = reals(8 * n);
    static FirState fir, decimator;
    static IirState iir;
    static LmsState lms;
    arksFirInit(h, taps, nullptr, &fir);
    arksFirInitMr(h, taps, nullptr, 1, 0, 4, 0, &decimator);
    const float section[] = {0.25f, 0.5f, 0.25f, 1, -0.5f, 0.25f};
    std::vector<float> cascade;
    for (int i = 0; i < 4; i++)
        cascade.insert(cascade.end(), section, section + 6);
    arksIirInitBq(0, cascade.data(), 4, &iir);
    arksLmsInit(0, nullptr, taps, nullptr, 1e-4f, 0, 0, &lms);
    count("FIR, 64 taps", [=] { arksbFir(&fir, x, y, n); });
    count("FIR, 64 taps, down 4", [=] { arksbFir(&decimator, x, y, n); });
    count("4 biquads", [=] { arksbIir(&iir, x, y, n); });
    count("LMS, 64 taps", [=] { arksbLmsDes(&lms, x, d, y, n); });
    count("convolution, 16 taps", [=] { arksConv(x, n, h, 16, y); });
    count("convolution, 512 taps with 4096", [=] { arksConv(x, 4 * n, x, 512, y); });
    arkFirFree(&fir);
    arkFirFree(&decimator);
    arkIirFree(&iir);
    arkLmsFree(&lms);
}

} // namespace

int main(int argc, char** argv)
{
    arkSetErrMode(ARK_ErrModeSilent);
    if (argc != 2 || !ark::forceKernels(argv[1])) {
        std::fprintf(stderr, "usage: %s sse2|avx2\n", argv[0]);
        return 2;
    }
    vectors();
    generators();
    transforms();
    filters();
    if (arkGetErrStatus() != ARK_StatusOk) {
        std::fputs("a call failed: its instructions are those of a report\n", stderr);
        return 1;
    }
}

// The built-in filter banks, in double.
#pragma once

#include "transform/wavelet_taps.hpp"

#include <cstddef>

namespace ark {

enum FilterOfBank { analysisLow, analysisHigh, synthesisLow, synthesisHigh };

struct FilterBank {
    int len[4], ofs[4];
    double taps[4][62];
};

// A low-pass filter under construction.
struct LowPass {
    int len = 0;
    double taps[62]{};

    LowPass() = default;
    LowPass(const double* given, int n) : len{n}
    {
        for (int k = 0; k < n; k++)
            taps[k] = given[k];
    }
};

inline LowPass reversed(const LowPass& h)
{
    LowPass out;
    out.len = h.len;
    for (int k = 0; k < h.len; k++)
        out.taps[k] = h.taps[h.len - 1 - k];
    return out;
}

inline LowPass product(const LowPass& a, const LowPass& b)
{
    LowPass out;
    out.len = a.len + b.len - 1;
    for (int k = 0; k < out.len; k++) {
        out.taps[k] = 0;
        for (int i = 0; i < a.len; i++)
            if (k - i >= 0 && k - i < b.len)
                out.taps[k] += a.taps[i] * b.taps[k - i];
    }
    return out;
}

// sqrt(2) ((1 + z) / 2)^moments times the sum over k < terms of C(terms - 1 + k, k) y^k, y = (2 - z - 1/z) / 4. All
// coefficients are multiples of 2^-19 and thus exact before they are scaled.
inline LowPass splineFilter(int moments, int terms)
{
    const double none[] = {1}, half[] = {0.5, 0.5}, y[] = {-0.25, 0.5, -0.25};
    double binomial[6] = {1};
    for (int k = 1; k < terms; k++)
        binomial[k] = binomial[k - 1] * (terms - 1 + k) / k;
    LowPass h{none, 1};
    h.taps[0] = binomial[terms - 1];
    for (int k = terms - 2; k >= 0; k--) {
        h = product(h, {y, 3});
        h.taps[h.len / 2] += binomial[k];
    }
    for (int k = 0; k < moments; k++)
        h = product(h, {half, 2});
    for (int k = 0; k < h.len; k++)
        h.taps[k] *= 1.4142135623730950488;
    return h;
}

inline LowPass symmetric(const double* firstHalf, int len)
{
    LowPass h{firstHalf, len / 2 + 1};
    h.len = len;
    for (int k = 0; k < len / 2; k++)
        h.taps[len - 1 - k] = h.taps[k];
    return h;
}

struct LowPassPair {
    LowPass analysis, synthesis; // of length 0 where there is no such wavelet
};

inline LowPassPair orthogonalPair(const double* table, int len) { return {reversed({table, len}), {table, len}}; }

inline LowPassPair biorthogonalPair(int synthesis, int analysis)
{
    constexpr int most[] = {0, 5, 8, 9}; // moments of the analysis wavelet
    if (synthesis >= 1 && synthesis <= 3 && analysis >= 1 && analysis <= most[synthesis] &&
        (synthesis + analysis) % 2 == 0)
        return {splineFilter(analysis, (synthesis + analysis) / 2), splineFilter(synthesis, 1)};
    const double* const halves = biorthogonalTaps;
    if (synthesis == 4 && analysis == 4)
        return {symmetric(halves, 9), symmetric(halves + 5, 7)};
    if (synthesis == 5 && analysis == 5)
        return {symmetric(halves + 9, 9), symmetric(halves + 14, 11)};
    if (synthesis == 6 && analysis == 8)
        return {symmetric(halves + 20, 17), symmetric(halves + 29, 11)};
    return {};
}

inline LowPassPair lowPassPair(int type, int par1, int par2)
{
    const int n = par1;
    const auto place = [=] { return std::ptrdiff_t{n} * (n - 1); }; // for an n in range: the taps of all before it
    switch (type) {
    case 1: return orthogonalPair(daubechiesTaps, 2);
    case 2: return n >= 1 && n <= 20 ? orthogonalPair(daubechiesTaps + place(), 2 * n) : LowPassPair{};
    case 3: // symlets of 2 and 3 moments are the Daubechies filters
        if (n == 2 || n == 3)
            return orthogonalPair(daubechiesTaps + place(), 2 * n);
        return n >= 4 && n <= 20 ? orthogonalPair(symletTaps + place() - 12, 2 * n) : LowPassPair{};
    case 4: return n >= 1 && n <= 5 ? orthogonalPair(coifletTaps + 3 * place(), 6 * n) : LowPassPair{};
    case 5: return biorthogonalPair(par1, par2);
    case 6: {
        const LowPassPair pair = biorthogonalPair(par1, par2);
        return {pair.synthesis, pair.analysis};
    }
    case 7: return orthogonalPair(meyerTaps, 62);
    case 8: return orthogonalPair(beylkinTaps, 18);
    case 9: return orthogonalPair(vaidyanathanTaps, 24);
    default: return {};
    }
}

// The high-pass filters are the low-pass ones with every second tap negated, moved by one sample against each other.
// The offsets are those with which synthesis restores the signal in its place; the first sign is the usual one.
inline bool makeBank(int type, int par1, int par2, FilterBank& bank)
{
    const auto [low, restoring] = lowPassPair(type, par1, par2);
    const int a = low.len, s = restoring.len, half = ((a > s ? a : s) + 1) / 2;
    if (!a)
        return false;
    bank = {{a, s, s, a}, {a / 2, (s + 1) / 2, (s - 1) / 2, a / 2 - 1}, {}};
    for (int k = 0; k < a; k++) {
        bank.taps[analysisLow][k] = low.taps[k];
        bank.taps[synthesisHigh][k] = (k + half - a / 2) % 2 ? -low.taps[k] : low.taps[k];
    }
    for (int k = 0; k < s; k++) {
        bank.taps[synthesisLow][k] = restoring.taps[k];
        bank.taps[analysisHigh][k] = (k + half - (s + 1) / 2) % 2 ? restoring.taps[k] : -restoring.taps[k];
    }
    return true;
}

} // namespace ark

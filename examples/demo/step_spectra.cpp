// The recording's spectrum over time, by the real FFT; and one of its blocks in each layout that a real signal's
// spectrum can be packed in: the same numbers in another order, and a way back to the signal from each.
#include "demo.hpp"
#include "spectrum.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>

namespace demo {
namespace {

constexpr int order = 10, length = 1 << order;

// The loudest block, where there is something to see.
std::vector<float> loudest(std::vector<short> samples)
{
    samples.resize(std::max<std::size_t>(samples.size(), length));
    std::vector<float> block(length);
    double most = -1;
    for (std::size_t at = 0; at + length <= samples.size(); at += length) {
        double power = 0;
        for (std::size_t i = 0; i < length; i++)
            power += double(samples[at + i]) * samples[at + i];
        if (power > most) {
            most = power;
            std::copy_n(samples.begin() + std::ptrdiff_t(at), length, block.begin());
        }
    }
    return block;
}

// The same transform in 16 bits: results are rounded and then shifted by a factor, toward minus infinity, so that what
// fits is off by half a step in the mean and by 1/sqrt(3) of a step in root mean squares.
void inShorts(Demo& demo, const std::vector<float>& signal)
{
    std::vector<double> exact(signal.begin(), signal.end());
    arkdRealFftl(exact.data(), order, ARK_Forw | ARK_OutRCPerm);
    double largest = 0, energy = 0;
    for (const double x : exact) {
        largest = std::max(largest, std::fabs(x));
        energy += x * x;
    }
    const int needed = std::max(0, int(std::ceil(std::log2(largest / 32767.5))));

    Table table({"mode", "factor", "outside 16 bits", "error/steps", "signal to noise/dB"});
    std::vector<double> ratios;
    const auto transformed = [&](const char* name, int mode, int factor) {
        // [code
        std::vector<short> spectrum(signal.begin(), signal.end());
        arkwRealFftl(spectrum.data(), order, ARK_Forw | ARK_OutRCPerm, mode, &factor);
        // code]
        double error = 0;
        long long outside = 0;
        for (std::size_t i = 0; i < length; i++) {
            const double wanted = std::ldexp(exact[i], -factor), difference = spectrum[i] - wanted;
            error += difference * difference;
            outside += std::fabs(wanted) > 32767;
        }
        const double steps = std::sqrt(error / length);
        ratios.push_back(10 * std::log10(energy / error) - 20 * std::log10(std::ldexp(1, factor)));
        table.row({name, text((long long)factor), text(outside), text(steps, 2), text(ratios.back(), 1)});
        if (outside == 0)
            demo.expect(std::string("error of the 16-bit spectrum, ") + name, steps, factor > 0 ? 0.45 : 0,
                        factor > 0 ? 0.7 : 0.5, "steps");
        return factor;
    };
    transformed("ARK_WRAP", ARK_WRAP, 0);
    transformed("ARK_SATURATE", ARK_SATURATE, 0);
    transformed("ARK_FIXED_SCALE by 1/N", ARK_FIXED_SCALE, order);
    const int chosen = transformed("ARK_AUTO_SCALE", ARK_AUTO_SCALE, 0);
    demo.show(table);
    demo.expect("factor of the automatic mode: the smallest with which everything fits", chosen, needed);
    demo.expect("what it gains over the fixed one, beside 6.02 dB a bit",
                ratios[3] - ratios[2] - decibels(std::ldexp(1, order - chosen)), -2, chosen > 0 ? 2 : 7, "dB");
}

} // namespace

void spectra(Demo& demo)
{
    demo.draw(spectrogram(demo.speech.name, demo.speech.samples, demo.speech.rate));

    const std::vector<float> signal = loudest(demo.speech.samples);
    // [code
    std::vector<float> ccs(signal), pack(signal), perm(signal);
    ccs.resize(length + 2); // re0 0 re1 im1 ... re512 0
    arksRealFft(ccs.data(), order, ARK_Forw);
    arksRealFftl(pack.data(), order, ARK_Forw | ARK_OutRCPack); // re0 re1 im1 ... re512
    arksRealFftl(perm.data(), order, ARK_Forw | ARK_OutRCPerm); // re0 re512 re1 im1 ...
    // code]

    long long different = ccs[1] != 0 || ccs[length + 1] != 0;
    for (std::size_t i = 0; i < length; i++) {
        different += pack[i] != ccs[i == 0 ? 0 : i + 1];
        different += perm[i] != ccs[i == 1 ? length : i];
    }
    demo.expect("elements that differ from one layout to another", different, 0);

    // By Parseval's theorem the spectrum has the signal's energy; the elements between the ends stand for two.
    double energy = 0, ofSpectrum = 0, largest = 0;
    for (const float x : signal) {
        energy += double(x) * x;
        largest = std::max(largest, std::fabs(double(x)));
    }
    for (std::size_t i = 0; i < ccs.size(); i++)
        ofSpectrum += double(ccs[i]) * ccs[i] * (i < 2 || i >= length ? 1 : 2) / length;
    const double ulp = std::ldexp(1, -23), near = order * ulp;
    demo.expect("energy of the spectrum over that of the signal, less 1", ofSpectrum / energy - 1, -near, near, "");

    const auto curve = [&](const char* name, const std::vector<float>& layout) {
        Curve out{name, {}, {}, "linespoints"};
        for (std::size_t i = 0; i < 66; i++) {
            out.x.push_back(double(i));
            out.y.push_back(layout[i]);
        }
        return out;
    };
    demo.draw(Picture{"The first 66 reals of the loudest block's spectrum in each layout",
                      "index of the real",
                      "",
                      {curve("CCS", ccs), curve("RCPack", pack), curve("RCPerm", perm)}});

    // [code
    arksCcsFft(ccs.data(), order, ARK_Inv);
    arksCcsFftl(pack.data(), order, ARK_Inv | ARK_InRCPack);
    arksCcsFftl(perm.data(), order, ARK_Inv | ARK_InRCPerm);
    // code]
    double off = 0;
    for (std::size_t i = 0; i < length; i++)
        for (const auto* back : {&ccs, &pack, &perm})
            off = std::max(off, std::fabs(double((*back)[i]) - signal[i]));
    demo.expect("largest difference there and back, in units in the last place of the largest sample",
                off / largest / ulp, 0, 2 * order, "");

    inShorts(demo, signal);
}

} // namespace demo

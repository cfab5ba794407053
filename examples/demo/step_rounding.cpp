// A float signal 3 dB over full scale becomes 16-bit integers: what each rounding rule adds, and what does not fit.
#include "demo.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace demo {
namespace {

struct Rule {
    const char* name;
    int flag;
    double (*rounded)(double);
    double mean, rms; // of the error in steps, when every fraction is equally likely
};

const double rmsAround = 1 / std::sqrt(12.0), rmsBeside = 1 / std::sqrt(3.0);
const Rule rules[] = {
    {"ARK_RoundNearest", ARK_RoundNearest, [](double x) { return std::nearbyint(x); }, 0, rmsAround},
    // Down for positive samples and up for negative ones: errors count as negative toward zero.
    {"ARK_RoundZero", ARK_RoundZero, [](double x) { return std::trunc(x); }, -0.5, rmsBeside},
    {"ARK_RoundDown", ARK_RoundDown, [](double x) { return std::floor(x); }, -0.5, rmsBeside},
    {"ARK_RoundUp", ARK_RoundUp, [](double x) { return std::ceil(x); }, 0.5, rmsBeside},
};

// In the silence between words the signal takes few values, and its fractions are not equally likely.
bool loudEnough(short sample) { return std::abs(int(sample)) >= 16; }

struct Outcome {
    std::vector<short> saturated;
    double mean = 0, rms = 0, least = 1, largest = -1; // of the error
    double tolerance = 0;                              // how far mean and RMS may be from theory
    long long tooLarge = 0;                            // rounded values that do not fit
    long long leftAlone = 0;                           // elements that a conversion without ARK_Saturate did not write
    long long wrong = 0;                               // elements that are not what the C++ library's rounding gives
};

Outcome converted(const std::vector<float>& signal, const std::vector<short>& samples, const Rule& rule)
{
    constexpr short before = -12345;
    Outcome out;
    out.saturated.resize(signal.size());
    std::vector<short> partial(signal.size(), before);
    const int n = lengthOf(signal);

    // [code
    arksbFloatToInt(signal.data(), out.saturated.data(), n, 16, rule.flag | ARK_Saturate);
    arksbFloatToInt(signal.data(), partial.data(), n, 16, rule.flag); // what does not fit is left as it was
    // code]

    double counted = 0, sum = 0, squares = 0;
    std::map<short, double> occurrences;
    for (std::size_t i = 0; i < signal.size(); i++) {
        const double rounded = rule.rounded(signal[i]), clamped = std::clamp(rounded, -32768.0, 32767.0);
        const bool fits = rounded == clamped;
        out.tooLarge += !fits;
        out.leftAlone += partial[i] == before && rounded != before;
        out.wrong += out.saturated[i] != clamped || partial[i] != (fits ? clamped : before);
        if (!fits || !loudEnough(samples[i]))
            continue;
        const double error = out.saturated[i] - double(signal[i]);
        const double seen = rule.flag == ARK_RoundZero && signal[i] < 0 ? -error : error;
        counted++;
        occurrences[samples[i]]++;
        sum += seen;
        squares += seen * seen;
        out.least = std::min(out.least, seen);
        out.largest = std::max(out.largest, seen);
    }
    counted = std::max(counted, 1.0);
    out.mean = sum / counted;
    out.rms = std::sqrt(squares / counted);

    // Equal samples have equal errors, so what counts is how many different ones there are, the frequent ones less:
    // five standard deviations of a mean over so many.
    double weights = 0;
    for (const auto& [value, count] : occurrences)
        weights += count * count;
    out.tolerance = 5 * rmsAround * std::sqrt(weights) / counted;
    return out;
}

} // namespace

void rounding(Demo& demo)
{
    const std::vector<short>& samples = demo.speech.samples;
    const int n = lengthOf(samples);

    // The recording as floats, times a gain that is no whole number.
    std::vector<float> loud(samples.size());
    arksbIntToFloat(samples.data(), loud.data(), n, 16, 0);
    arksbMpy1(float(ratioOf(3 - peakLevel(samples))), loud.data(), n);

    Table table({"rule", "mean/LSB", "theory", "RMS/LSB", "theory", "least", "largest", "too large", "left alone"});
    std::vector<Outcome> outcomes;
    for (const Rule& rule : rules) {
        const Outcome out = converted(loud, samples, rule);
        table.row({rule.name, text(out.mean, 4), text(rule.mean, 4), text(out.rms, 4), text(rule.rms, 4),
                   text(out.least, 3), text(out.largest, 3), text(out.tooLarge), text(out.leftAlone)});
        outcomes.push_back(out);
    }
    demo.show(table);

    for (std::size_t i = 0; i < outcomes.size(); i++) {
        const std::string name = rules[i].name;
        const Outcome& out = outcomes[i];
        const double near = out.tolerance;
        if (near > 0 && near < 0.2) {
            demo.expect(name + ", mean error", out.mean, rules[i].mean - near, rules[i].mean + near, "LSB");
            demo.expect(name + ", RMS error", out.rms, rules[i].rms - near, rules[i].rms + near, "LSB");
        } else {
            demo.say(name + ": this recording takes too few values for a comparison with theory");
        }
        demo.expect(name + ", samples that differ from the C++ library's rounding", out.wrong, 0);
        demo.expect(name + ", left alone without ARK_Saturate: what does not fit", out.leftAlone, out.tooLarge);
    }
    demo.write("rounded-saturated", outcomes.front().saturated, 1, demo.speech);

    // The same call can say that something did not fit. The status then tells of this call alone.
    std::vector<short> out(samples.size());
    arksbFloatToInt(loud.data(), out.data(), n, 16, ARK_RoundNearest | ARK_Saturate | ARK_ReportRange);
    demo.expect("status with ARK_ReportRange", arkErrorStr(arkGetErrStatus()), "Bad argument");
    arkSetErrStatus(ARK_StatusOk);
}

} // namespace demo

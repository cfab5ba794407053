// A telephone line carries 8 bits a sample: A-law and mu-law codes have steps that grow with the magnitude, so that
// loud and quiet speech suffer alike.
#include "demo.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>

namespace demo {
namespace {

struct Law {
    const char* name;
    void (*encode)(const short* src, unsigned char* dst, int n);
    void (*decode)(const unsigned char* src, short* dst, int n);
    double bias; // what a magnitude is raised by before its segment is looked up
};
const Law laws[] = {
    {"A-law", arkwbLinToALaw, arkwbALawToLin, 0},
    {"mu-law", arkwbLinToMuLaw, arkwbMuLawToLin, 132},
};

// The codes that differ from libsndfile's. A-law goes over lines with every other bit inverted. In mu-law samples on
// the border between two codes are left out: libsndfile gives them to the outer one.
long long otherCodes(const std::vector<short>& samples, const Law& law)
{
    const bool muLaw = law.bias > 0;
    std::vector<unsigned char> codes(samples.size());
    law.encode(samples.data(), codes.data(), lengthOf(samples));
    const std::vector<unsigned char> theirs = telephoneCodes(samples, muLaw);
    if (theirs.size() != codes.size())
        return lengthOf(codes);
    long long count = 0;
    for (std::size_t i = 0; i < codes.size(); i++) {
        const auto further = short(std::clamp(samples[i] + (samples[i] < 0 ? -1 : 1), -32768, 32767));
        unsigned char outer;
        law.encode(&further, &outer, 1);
        const int other = muLaw ? theirs[i] : theirs[i] ^ 0x55;
        count += codes[i] != other && !(muLaw && outer == other);
    }
    return count;
}

std::vector<short> thereAndBack(const std::vector<short>& samples, const Law& law)
{
    // [code
    std::vector<unsigned char> codes(samples.size());
    std::vector<short> heard(samples.size());
    law.encode(samples.data(), codes.data(), lengthOf(samples)); // arkwbLinToALaw, arkwbLinToMuLaw
    law.decode(codes.data(), heard.data(), lengthOf(codes));     // arkwbALawToLin, arkwbMuLawToLin
    // code]
    return heard;
}

double signalToNoise(const std::vector<short>& signal, const std::vector<short>& heard)
{
    double power = 0, noise = 0;
    for (std::size_t i = 0; i < signal.size(); i++) {
        power += double(signal[i]) * signal[i];
        noise += (double(heard[i]) - signal[i]) * (double(heard[i]) - signal[i]);
    }
    return 0.5 * decibels(power / noise);
}

// Half the step at a magnitude: 16 steps between two powers of two; the first two segments of A-law are one.
double halfStep(double magnitude, double bias)
{
    const double raised = std::max(magnitude + bias, bias > 0 ? bias : 256.0);
    return std::ldexp(1, std::ilogb(raised) - 5);
}

// Noise of a level as arksRandGaus makes it.
std::vector<short> noiseAt(double level)
{
    std::vector<short> samples(100000);
    ArkwRandGausState state;
    arkwRandGausInit(7, 0, short(std::lround(32768 * ratioOf(level))), &state);
    arkwbRandGaus(&state, samples.data(), lengthOf(samples));
    return samples;
}

} // namespace

void companding(Demo& demo)
{
    const std::vector<short>& speech = demo.speech.samples;
    Table table({"law", "signal-to-noise ratio/dB", "with equal errors/dB"});
    Picture picture{"Gaussian noise of each level", "level/dBFS", "signal-to-noise ratio/dB", {}, "set key bottom"};
    for (const Law& law : laws) {
        const std::vector<short> heard = thereAndBack(speech, law);
        const std::string name = law.name;

        // An error is half a step at most; within a step all are equally likely.
        double most = 0, power = 0, expected = 0;
        for (std::size_t i = 0; i < speech.size(); i++) {
            const double magnitude = std::min(std::abs(double(speech[i])), law.bias > 0 ? 32635.0 : 32767.0);
            const double half = halfStep(magnitude, law.bias);
            const double over = std::abs(double(speech[i])) - magnitude;
            most = std::max(most, std::abs(double(heard[i]) - speech[i]) / (half + over));
            power += double(speech[i]) * speech[i];
            expected += half * half / 3 + over * over;
        }
        const double ratio = signalToNoise(speech, heard), theory = 0.5 * decibels(power / expected);
        table.row({name, text(ratio, 2), text(theory, 2)});
        std::vector<short> all;
        for (int x = -32768; x < 32768; x++)
            all.push_back(short(x));
        demo.expect(name + ", codes of all 65536 values that differ from libsndfile's", otherCodes(all, law), 0LL);
        demo.expect(name + ", codes of the speech that do", otherCodes(speech, law), 0LL);
        demo.expect(name + ", largest error in half steps", most, 0, 1, "");
        // Whatever the recording is: were every error half a step, their power would be three times that.
        demo.expect(name + ", signal-to-noise ratio of " + demo.speech.name, ratio, theory - 0.5 * decibels(3),
                    INFINITY, "dB");

        Curve curve{name, {}, {}, "linespoints"};
        for (int level = -50; level <= -12; level += 2) {
            const std::vector<short> samples = noiseAt(level);
            curve.x.push_back(level);
            curve.y.push_back(signalToNoise(samples, thereAndBack(samples, law)));
        }
        // With 32 half steps to a power of two, errors are from 1/64 to 1/32 of a magnitude, uniform: 36 to 42 dB
        // for each sample, and between these for any mixture of them.
        demo.expect(name + ", noise at -20 dBFS", curve.y[15], decibels(32 * std::sqrt(3.0)),
                    decibels(64 * std::sqrt(3.0)), "dB");
        picture.curves.push_back(curve);
        demo.write("telephone-" + name, heard, 1, demo.speech);
    }
    demo.show(table);
    demo.draw(picture);
}

} // namespace demo

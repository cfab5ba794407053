// A telephone number dialled: each key is two tones at once, one of its row and one of its column. The spectrum of each
// key shows them again, as near as a transform of its length can tell frequencies apart. Where only these eight
// frequencies matter, Goertzel's algorithm looks at each alone, here while somebody speaks.
#include "demo.hpp"
#include "spectrum.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>

namespace demo {
namespace {

constexpr int rate = 8000, keyLength = 1024, order = 10;
constexpr double rows[] = {697, 770, 852, 941}, columns[] = {1209, 1336, 1477, 1633};
const std::string keys = "123A456B789C*0#D", number = "0123456789";

std::vector<float> dialled(char key)
{
    const std::size_t place = keys.find(key);
    const double low = rows[place / 4], high = columns[place % 4];
    // [code
    std::vector<float> key1(keyLength), key2(keyLength);
    ArksToneState tone;
    arksToneInit(float(low / rate), 0, 8000, &tone);
    arksbTone(&tone, key1.data(), keyLength);
    arksToneInit(float(high / rate), 0, 8000, &tone);
    arksbTone(&tone, key2.data(), keyLength);
    arksbAdd2(key1.data(), key2.data(), keyLength);
    // code]
    return key2;
}

// The frequency of the largest element between two frequencies.
double strongest(const std::vector<double>& level, double from, double to)
{
    const auto at = [&](double frequency) { return level.begin() + std::lround(frequency / rate * keyLength); };
    return double(std::max_element(at(from), at(to)) - level.begin()) * rate / keyLength;
}

std::size_t nearest(const double (&table)[4], double frequency)
{
    const auto closer = [&](double a, double b) { return std::fabs(a - frequency) < std::fabs(b - frequency); };
    return std::size_t(std::min_element(table, table + 4, closer) - table);
}

std::size_t strongest(const double (&frequencies)[4], const std::vector<float>& samples)
{
    double powers[4];
    for (std::size_t i = 0; i < 4; i++) {
        // [code
        ArksGoertzState state;
        arksGoertzInit(float(frequencies[i] / rate), &state);
        const FloatCplx value = arksbGoertz(&state, samples.data(), keyLength);
        powers[i] = double(value.re) * value.re + double(value.im) * value.im;
        // code]
    }
    return std::size_t(std::max_element(powers, powers + 4) - powers);
}

double rms(const std::vector<float>& samples)
{
    double sum = 0;
    for (const float x : samples)
        sum += double(x) * x;
    return std::sqrt(sum / double(samples.size()));
}

// The key with the speech from a place on, 6 dB weaker.
std::vector<float> underSpeech(const std::vector<float>& key, const std::vector<short>& speech, std::size_t from)
{
    std::vector<float> both(key.size());
    for (std::size_t i = 0; i < key.size(); i++)
        both[i] = speech[(from + i) % speech.size()];
    const double level = rms(both);
    arksbMpy1(float(level > 0 ? 0.5 * rms(key) / level : 0), both.data(), keyLength);
    arksbAdd2(key.data(), both.data(), keyLength);
    return both;
}

} // namespace

void digits(Demo& demo)
{
    Recording call{"dialled number", "made by this program", rate, {}, true};
    Picture picture{"The keys 1, 5 and 9", "Hz", "dB", {}, "set xrange [500:1800]\nset yrange [-60:3]"};
    std::string read, heardUnderSpeech;
    double furthest = 0;
    for (const char key : number) {
        std::vector<float> samples = dialled(key);
        const std::vector<float> both =
            underSpeech(samples, demo.speech.samples, heardUnderSpeech.size() * std::size_t(keyLength));
        heardUnderSpeech += keys[4 * strongest(rows, both) + strongest(columns, both)];
        std::vector<short> heard(samples.size());
        arksbFloatToInt(samples.data(), heard.data(), keyLength, 16, ARK_RoundNearest | ARK_Saturate);
        call.samples.insert(call.samples.end(), heard.begin(), heard.end());
        call.samples.insert(call.samples.end(), keyLength / 2, short(0));

        // [code
        arksWinHann(samples.data(), keyLength);
        const std::vector<double> level = levels(samples, order); // by arksRealFftNip
        // code]
        const double low = strongest(level, 600, 1075), high = strongest(level, 1075, 1800);
        const std::size_t row = nearest(rows, low), column = nearest(columns, high);
        furthest = std::max({furthest, std::fabs(low - rows[row]), std::fabs(high - columns[column])});
        read += keys[4 * row + column];
        if (std::string("159").find(key) != std::string::npos)
            picture.curves.push_back({std::string(1, key), frequencies(order, rate), level});
    }
    demo.draw(picture);
    demo.draw(spectrogram("The whole number", call.samples, rate));
    demo.expect("number read from the spectra", read, number);
    demo.expect("number read under speech, by Goertzel's algorithm", heardUnderSpeech, number);
    demo.expect("a peak is off by: half the distance of two elements at most", furthest, 0, 0.5 * rate / keyLength,
                "Hz");
    demo.write("dialled", call.samples, 1, call);
}

} // namespace demo

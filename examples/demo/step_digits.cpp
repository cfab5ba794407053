// A telephone number dialled: each key is two tones at once, one of its row and one of its column. The spectrum of each
// key shows them again, as near as a transform of its length can tell frequencies apart.
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

} // namespace

void digits(Demo& demo)
{
    Recording call{"dialled number", "made by this program", rate, {}, true};
    Picture picture{"The keys 1, 5 and 9", "Hz", "dB", {}, "set xrange [500:1800]\nset yrange [-60:3]"};
    std::string read;
    double furthest = 0;
    for (const char key : number) {
        std::vector<float> samples = dialled(key);
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
    demo.expect("a peak is off by: half the distance of two elements at most", furthest, 0, 0.5 * rate / keyLength,
                "Hz");
    demo.write("dialled", call.samples, 1, call);
}

} // namespace demo

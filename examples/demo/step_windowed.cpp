// What a window does to a tone's peak in a spectrum: the side lobes around it sink, and the peak becomes wider. The
// spectrum of the window itself shows both.
#include "demo.hpp"
#include "spectrum.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace demo {
namespace {

constexpr int length = 256, order = 13; // zeros behind the window make a smooth curve
constexpr double perElement = double(1 << order) / length;
constexpr double beta = 8.6;

const struct Window {
    const char* name;
    void (*apply)(float* samples);
    double width;    // from the peak to the first zero, in elements of a transform of the window's length
    double sideLobe; // the highest
} windows[] = {
    // Harris, On the use of windows for harmonic analysis with the discrete Fourier transform, table 1.
    {"none", [](float*) {}, 1, -13.26},
    {"Hann", [](float* x) { arksWinHann(x, length); }, 2, -31.47},
    // 0.42, 0.5 and 0.08 put another zero close behind the one at 3, with nothing to see between them.
    {"Blackman", [](float* x) { arksWinBlackmanStd(x, length); }, std::sqrt(28.0 / 3), -58.11},
    // The transform of Kaiser's window is sin(u) / u with u = sqrt((pi x)^2 - beta^2).
    {"Kaiser, beta 8.6", [](float* x) { arksWinKaiser(x, length, float(2 * beta / (length - 1))); },
     std::hypot(1.0, beta / std::numbers::pi), -13.26 - decibels(std::sinh(beta) / beta)},
};

} // namespace

void windowed(Demo& demo)
{
    Table table({"window", "first zero", "theory", "highest side lobe/dB", "theory"});
    Picture picture{"Four windows of 256 samples", "elements", "dB", {}, "set xrange [0:12]\nset yrange [-100:3]"};
    for (const Window& window : windows) {
        // [code
        std::vector<float> samples(length, 1.0f);
        window.apply(samples.data()); // arksWinHann, arksWinBlackmanStd, arksWinKaiser
        const std::vector<double> level = levels(samples, order);
        // code]
        auto zero = level.begin(); // the first minimum
        while (zero[1] < zero[0])
            ++zero;
        const double width = double(zero - level.begin()) / perElement;
        const double sideLobe = *std::max_element(zero, level.end());
        table.row({window.name, text(width, 2), text(window.width, 2), text(sideLobe, 2), text(window.sideLobe, 2)});
        // Theory is of continuous windows. A symmetric one of samples is a sample shorter than its length, and its two
        // ends count double: Kaiser's, 1/750 high, move a side lobe by 2%.
        const double near = window.width / length + 1 / perElement;
        demo.expect(std::string(window.name) + ", first zero", width, window.width - near, window.width + near,
                    "elements");
        demo.expect(std::string(window.name) + ", highest side lobe", sideLobe, window.sideLobe - 0.2,
                    window.sideLobe + 0.2, "dB");
        picture.curves.push_back({window.name, frequencies(order, length), level});
    }
    demo.show(table);
    demo.draw(picture);
}

} // namespace demo

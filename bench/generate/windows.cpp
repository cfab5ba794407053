// Windows. The arrays hold zeros: a window applied to its own result again and again would end in denormal numbers.
#include "driver.hpp"
#include "peers/liquid.hpp"

#include <arkpx.h>

#include <cmath>

namespace {

using bench::Array, bench::Contender, bench::Contenders;

constexpr double pi = 3.141592653589793;

// vec[k] *= weight(k)
template <class T, class Weight>
void multiply(const Array<T>& vec, int n, Weight weight)
{
    T* const to = vec.data();
    for (int k = 0; k < n; k++)
        if constexpr (std::is_same_v<T, FloatCplx>)
            to[k] = {float(to[k].re * weight(k)), float(to[k].im * weight(k))};
        else
            to[k] = T(to[k] * weight(k));
}

// The loop that one would write, with libm's functions in the element's own precision.
float cosine(int k, int n) { return std::cos(float(2 * pi) / float(n - 1) * float(k)); }
float hann(int k, int n) { return 0.5f - 0.5f * cosine(k, n); }
float blackman(int k, int n)
{
    const float c = cosine(k, n);
    return 0.42f - 0.5f * c + 0.08f * (2 * c * c - 1);
}

const std::vector<int> sizes{3, 64, 1024, 1000000};

// clang-format off
const bench::Family windows{
    "Windows",
    {
        {"Bartlett, float", 8,
         [](int n) {
             const Array<float> vec(n);
             return Contenders{
                 {"arkpx", [=] { arksWinBartlett(vec, n); }},
                 {"loop", [=] { // in floats, 1 - |2 k / (n-1) - 1| would have no correct digits at the ends of a long window
                      const double slope = 2.0 / (n - 1);
                      multiply(vec, n, [=](int k) { return std::min(k, n - 1 - k) * slope; }); }},
                 LIQUID(unsigned(n), multiply(vec, n, [q](int k) { return liquid_triangular(unsigned(k), q, q - 1); }))};
         }, sizes},
        {"Hann, float", 8,
         [](int n) {
             const Array<float> vec(n);
             return Contenders{
                 {"arkpx", [=] { arksWinHann(vec, n); }},
                 {"loop", [=] { multiply(vec, n, [=](int k) { return hann(k, n); }); }},
                 LIQUID(unsigned(n), multiply(vec, n, [q](int k) { return liquid_hann(unsigned(k), q); }))};
         }, sizes},
        {"Hann, complex float", 16,
         [](int n) {
             const Array<FloatCplx> vec(n);
             return Contenders{
                 {"arkpx", [=] { arkcWinHann(vec, n); }},
                 {"loop", [=] { multiply(vec, n, [=](int k) { return hann(k, n); }); }}};
         }, sizes},
        {"Hann, double", 16,
         [](int n) {
             const Array<double> vec(n);
             return Contenders{
                 {"arkpx", [=] { arkdWinHann(vec, n); }},
                 {"loop", [=] { multiply(vec, n, [=](int k) { return 0.5 - 0.5 * std::cos(2 * pi * k / (n - 1)); }); }}};
         }, sizes},
        {"Hann, 16-bit", 4,
         [](int n) {
             const Array<short> vec(n);
             return Contenders{
                 {"arkpx", [=] { arkwWinHann(vec, n); }},
                 {"loop", [=] { multiply(vec, n, [=](int k) { return hann(k, n); }); }}};
         }, sizes},
        {"Blackman, float", 8,
         [](int n) {
             const Array<float> vec(n);
             return Contenders{
                 {"arkpx", [=] { arksWinBlackmanStd(vec, n); }},
                 {"loop", [=] { multiply(vec, n, [=](int k) { return blackman(k, n); }); }}};
         }, sizes},
        {"Kaiser 8, float", 8,
         [](int n) {
             const Array<float> vec(n);
             return Contenders{
                 {"arkpx", [=] { arksWinKaiser(vec, n, 16.0f / float(n - 1)); }},
                 {"loop", [=] {
                      const double beta = 16.0 / (n - 1), scale = 1 / std::cyl_bessel_i(0.0, 8.0);
                      multiply(vec, n, [=](int k) { return std::cyl_bessel_i(0.0, beta * std::sqrt(double(k) * (n - 1 - k))) * scale; }); }},
                 LIQUID(unsigned(n), multiply(vec, n, [q](int k) { return liquid_kaiser(unsigned(k), q, 8.0f); }))};
         }, {3, 64, 1024, 100000}},
    }};
// clang-format on

} // namespace

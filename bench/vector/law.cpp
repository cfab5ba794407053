// A-law and mu-law companding.
#include "driver.hpp"
#include "peers/plain.hpp"
#include "peers/spandsp.hpp"

#include <arkpx.h>

#include <array>
#include <bit>

namespace {

using bench::Array, bench::Contender, bench::Contenders, bench::noise;
namespace plain = bench::plain;
using Code = unsigned char;

double speech() { return 32767 * noise() * noise() * noise(); }
double code() { return 127.5 + 127.5 * noise(); }

// What one would write: the segment from the position of the highest bit; decoding by table.
Code aLawOf(short x)
{
    const int m = x < 0 ? (x == -32768 ? 32767 : -x) : x;
    const int segment = m < 256 ? 0 : int(std::bit_width(unsigned(m))) - 8;
    return Code(segment << 4 | (m >> (segment ? segment + 3 : 4) & 15) | (x < 0 ? 0 : 128));
}
Code muLawOf(short x)
{
    const int m = (x < 0 ? (x < -32635 ? 32635 : -x) : (x > 32635 ? 32635 : x)) + 131;
    const int segment = int(std::bit_width(unsigned(m))) - 8;
    return Code((127 - (segment << 4 | (m >> (segment + 3) & 15))) | (x < 0 ? 0 : 128));
}
template <auto decode>
short decoded(Code c)
{
    static const auto table = [] {
        std::array<short, 256> values{};
        for (int i = 0; i < 256; i++) {
            const Code one = Code(i);
            decode(&one, &values[std::size_t(i)], 1);
        }
        return values;
    }();
    return table[c];
}

// SPANDSP brings its own comma.
// clang-format off
const bench::Family companding{
    "Companding",
    {
        {"16-bit to A-law", 3,
         [](int n) {
             const Array<short> src(n, speech);
             const Array<Code> dst(n);
             return Contenders{
                 {"arkpx", [=] { arkwbLinToALaw(src, dst, n); }},
                 {"loop", [=] { plain::each(aLawOf, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(aLawOf, n, dst, src); }},
                 SPANDSP(g711_encode(bench::spandspLaw(G711_ALAW), dst.data(), src.data(), n))};
         }},
        {"16-bit to mu-law", 3,
         [](int n) {
             const Array<short> src(n, speech);
             const Array<Code> dst(n);
             return Contenders{
                 {"arkpx", [=] { arkwbLinToMuLaw(src, dst, n); }},
                 {"loop", [=] { plain::each(muLawOf, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(muLawOf, n, dst, src); }},
                 SPANDSP(g711_encode(bench::spandspLaw(G711_ULAW), dst.data(), src.data(), n))};
         }},
        {"float to mu-law", 5,
         [](int n) {
             const Array<float> src(n, noise);
             const Array<Code> dst(n);
             const auto work = [](float x) { return muLawOf(short(x * 32767)); };
             return Contenders{
                 {"arkpx", [=] { arksbLinToMuLaw(src, dst, n); }},
                 {"loop", [=] { plain::each(work, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(work, n, dst, src); }}};
         }},
        {"A-law to 16-bit", 3,
         [](int n) {
             const Array<Code> src(n, code);
             const Array<short> dst(n);
             return Contenders{
                 {"arkpx", [=] { arkwbALawToLin(src, dst, n); }},
                 {"loop", [=] { plain::each(decoded<arkwbALawToLin>, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(decoded<arkwbALawToLin>, n, dst, src); }},
                 SPANDSP(g711_decode(bench::spandspLaw(G711_ALAW), dst.data(), src.data(), n))};
         }},
        {"mu-law to 16-bit", 3,
         [](int n) {
             const Array<Code> src(n, code);
             const Array<short> dst(n);
             return Contenders{
                 {"arkpx", [=] { arkwbMuLawToLin(src, dst, n); }},
                 {"loop", [=] { plain::each(decoded<arkwbMuLawToLin>, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(decoded<arkwbMuLawToLin>, n, dst, src); }},
                 SPANDSP(g711_decode(bench::spandspLaw(G711_ULAW), dst.data(), src.data(), n))};
         }},
        {"mu-law to float", 5,
         [](int n) {
             const Array<Code> src(n, code);
             const Array<float> dst(n);
             const auto work = [](Code c) { return float(decoded<arkwbMuLawToLin>(c)) * (1 / 32768.0f); };
             return Contenders{
                 {"arkpx", [=] { arksbMuLawToLin(src, dst, n); }},
                 {"loop", [=] { plain::each(work, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(work, n, dst, src); }}};
         }},
        {"mu-law to A-law", 2,
         [](int n) {
             const Array<Code> src(n, code), dst(n);
             return Contenders{
                 {"arkpx", [=] { arkMuLawToALaw(src, dst, n); }},
                 SPANDSP(g711_transcode(bench::spandspLaw(G711_ULAW), dst.data(), src.data(), n))};
         }},
    }};
// clang-format on

} // namespace

// Conversion between floating-point and integer vectors.
#include "driver.hpp"
#include "peers/eigen.hpp"
#include "peers/plain.hpp"
#include "peers/volk.hpp"

#include <arkpx.h>

#include <cmath>

namespace {

using bench::Array, bench::Case, bench::Contender, bench::Contenders, bench::noise;
namespace plain = bench::plain;

double loud() { return 33000 * noise(); } // one value in 140 is out of range

// rule rounds one float, array one of Eigen's arrays.
template <class Rule, class ArrayRule>
Case toShort(const char* name, int flag, Rule rule, [[maybe_unused]] ArrayRule array)
{
    return {name, 6, [=](int n) {
                const Array<float> src(n, loud);
                const Array<short> dst(n);
                const auto clamped = [=](float x) { return short(std::clamp(rule(x), -32768.0f, 32767.0f)); };
                Contenders contenders{
                    {"arkpx", [=] { arksbFloatToInt(src, dst, n, 16, flag | ARK_Saturate); }},
                    {"loop", [=] { plain::each(clamped, n, dst, src); }},
                    {"loop", [=] { plain::eachApart(clamped, n, dst, src); }},
                    EIGEN(eigen(dst, n) = array(eigen(src, n)).max(-32768.0f).min(32767.0f).template cast<short>())};
                if (flag == ARK_RoundNearest)
                    contenders.insert(contenders.end(), {VOLK(volk_32f_s32f_convert_16i(dst, src, 1.0f, unsigned(n)))});
                return contenders;
            }};
}

// EIGEN and VOLK bring their own commas.
// clang-format off
const bench::Family conversion{
    "Conversion",
    {
        toShort("float to 16-bit, to nearest", ARK_RoundNearest, [](float x) { return std::nearbyint(x); },
                [](auto x) { return x.rint(); }),
        toShort("float to 16-bit, toward zero", ARK_RoundZero, [](float x) { return std::trunc(x); },
                [](auto x) { return x; }),
        toShort("float to 16-bit, down", ARK_RoundDown, [](float x) { return std::floor(x); },
                [](auto x) { return x.floor(); }),
        toShort("float to 16-bit, up", ARK_RoundUp, [](float x) { return std::ceil(x); },
                [](auto x) { return x.ceil(); }),
        {"16-bit to float", 6,
         [](int n) {
             const Array<short> src(n, loud);
             const Array<float> dst(n);
             const auto value = [](short x) { return float(x); };
             return Contenders{
                 {"arkpx", [=] { arksbIntToFloat(src, dst, n, 16, 0); }},
                 {"loop", [=] { plain::each(value, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(value, n, dst, src); }},
                 EIGEN(eigen(dst, n) = eigen(src, n).cast<float>())
                 VOLK(volk_16i_s32f_convert_32f(dst, src, 1.0f, unsigned(n)))};
         }},
    }};
// clang-format on

} // namespace

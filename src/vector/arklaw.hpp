// A-law and mu-law companding.
#pragma once

#include "frame/kernels.hpp"
#include "frame/report.hpp"

#include <arkpx/vector.h>

#include <cstddef>

namespace ark {

struct ALaw {
    template <class Linear>
    static constexpr auto encode = &LawKernels<Linear>::toALaw;
    template <class Linear>
    static constexpr auto decode = &LawKernels<Linear>::fromALaw;
};

struct MuLaw {
    template <class Linear>
    static constexpr auto encode = &LawKernels<Linear>::toMuLaw;
    template <class Linear>
    static constexpr auto decode = &LawKernels<Linear>::fromMuLaw;
};

template <class From, class To>
bool lawArgumentsGood(Where at, const From* src, To* dst, int len)
{
    return allGood(at, {{len <= 0, "len<=0"}, {!src, "src==0"}, {!dst, "dst==0"}});
}

template <class Law, class Linear>
void encode(Where at, const Linear* src, unsigned char* dst, int len)
{
    if (lawArgumentsGood(at, src, dst, len))
        (kernels<LawKernels<Linear>>().*Law::template encode<Linear>)(src, dst, len);
}

template <class Law, class Linear>
void decode(Where at, const unsigned char* src, Linear* dst, int len)
{
    if (lawArgumentsGood(at, src, dst, len))
        (kernels<LawKernels<Linear>>().*Law::template decode<Linear>)(src, dst, len);
}

// Between the codes. These tables are an agreement of their own: where steps of the two laws overlap they do not always
// name the code nearest to the decoded value.
// clang-format off
inline constexpr unsigned char aLawOfMuLaw[256] = {
    127, 126, 125, 124, 123, 122, 121, 120, 119, 118, 117, 116, 115, 114, 113, 112,
    111, 110, 109, 108, 107, 106, 105, 104, 103, 102, 101, 100,  99,  98,  97,  96,
     95,  94,  93,  92,  91,  90,  89,  88,  87,  86,  85,  84,  83,  82,  81,  80,
     78,  77,  76,  75,  74,  73,  72,  71,  70,  69,  68,  67,  66,  65,  64,  63,
     61,  60,  59,  58,  57,  56,  55,  54,  53,  52,  51,  50,  49,  48,  47,  45,
     43,  42,  41,  40,  39,  38,  37,  36,  35,  34,  33,  32,  30,  28,  26,  24,
     23,  22,  21,  20,  19,  18,  17,  16,  15,  14,  13,  12,  11,  10,   9,   8,
      7,   7,   6,   6,   5,   5,   4,   4,   3,   3,   2,   2,   1,   1,   0,   0,
    255, 254, 253, 252, 251, 250, 249, 248, 247, 246, 245, 244, 243, 242, 241, 240,
    239, 238, 237, 236, 235, 234, 233, 232, 231, 230, 229, 228, 227, 226, 225, 224,
    223, 222, 221, 220, 219, 218, 217, 216, 215, 214, 213, 212, 211, 210, 209, 208,
    206, 205, 204, 203, 202, 201, 200, 199, 198, 197, 196, 195, 194, 193, 192, 191,
    189, 188, 187, 186, 185, 184, 183, 182, 181, 180, 179, 178, 177, 176, 175, 173,
    171, 170, 169, 168, 167, 166, 165, 164, 163, 162, 161, 160, 158, 156, 154, 152,
    151, 150, 149, 148, 147, 146, 145, 144, 143, 142, 141, 140, 139, 138, 137, 136,
    135, 135, 134, 134, 133, 133, 132, 132, 131, 131, 130, 130, 129, 129, 128, 128,
};

inline constexpr unsigned char muLawOfALaw[256] = {
    126, 124, 122, 120, 118, 116, 114, 112, 111, 110, 109, 108, 107, 106, 105, 104,
    103, 102, 101, 100,  99,  98,  97,  96,  95,  95,  94,  94,  93,  93,  92,  92,
     91,  90,  89,  88,  87,  86,  85,  84,  83,  82,  81,  80,  79,  79,  78,  78,
     77,  76,  75,  74,  73,  72,  71,  70,  69,  68,  67,  66,  65,  64,  63,  63,
     62,  61,  60,  59,  58,  57,  56,  55,  54,  53,  52,  51,  50,  49,  48,  48,
     47,  46,  45,  44,  43,  42,  41,  40,  39,  38,  37,  36,  35,  34,  33,  32,
     31,  30,  29,  28,  27,  26,  25,  24,  23,  22,  21,  20,  19,  18,  17,  16,
     15,  14,  13,  12,  11,  10,   9,   8,   7,   6,   5,   4,   3,   2,   1,   0,
    254, 252, 250, 248, 246, 244, 242, 240, 239, 238, 237, 236, 235, 234, 233, 232,
    231, 230, 229, 228, 227, 226, 225, 224, 223, 223, 222, 222, 221, 221, 220, 220,
    219, 218, 217, 216, 215, 214, 213, 212, 211, 210, 209, 208, 207, 207, 206, 206,
    205, 204, 203, 202, 201, 200, 199, 198, 197, 196, 195, 194, 193, 192, 191, 191,
    190, 189, 188, 187, 186, 185, 184, 183, 182, 181, 180, 179, 178, 177, 176, 176,
    175, 174, 173, 172, 171, 170, 169, 168, 167, 166, 165, 164, 163, 162, 161, 160,
    159, 158, 157, 156, 155, 154, 153, 152, 151, 150, 149, 148, 147, 146, 145, 144,
    143, 142, 141, 140, 139, 138, 137, 136, 135, 134, 133, 132, 131, 130, 129, 128,
};
// clang-format on

inline void recode(Where at, const unsigned char (&table)[256], const unsigned char* src, unsigned char* dst, int len)
{
    if (!lawArgumentsGood(at, src, dst, len))
        return;
    for (std::ptrdiff_t i = 0; i < len; i++)
        dst[i] = table[src[i]];
}

} // namespace ark

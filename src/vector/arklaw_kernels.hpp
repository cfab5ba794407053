#pragma once

#include <cstddef>

namespace ark {

// Linear samples: short, int, float or double. src and dst are apart.
template <class Linear>
struct LawKernels {
    using Encode = void (*)(const Linear* src, unsigned char* dst, std::ptrdiff_t n);
    using Decode = void (*)(const unsigned char* src, Linear* dst, std::ptrdiff_t n);

    Encode toALaw, toMuLaw;
    Decode fromALaw, fromMuLaw;
};

} // namespace ark

#pragma once

#include <cstddef>

namespace ark {

// The second operand of 16-bit arithmetic: a vector (step 1), or a value repeated in a block as long as the widest
// vector (step 0).
struct ShortOperand {
    const short* data;
    std::ptrdiff_t step;
};

// How a 32-bit result becomes 16 bits, with a shift count of 0 to 31.
enum ShortRule {
    wrapRule,          // low 16 bits; the count is ignored
    saturateRule,      // clamp; the count is ignored
    rightRule,         // r >> count, low 16 bits
    rightSaturateRule, // r >> count, clamped
    leftRule,          // r << count, low 16 bits
    leftSaturateRule,  // exact r * 2^count, clamped
    shortRules
};

enum ShortOperation { shortAdd, shortSub, shortMpy, shortCplxMpy, shortOperations };

// Lengths count 16-bit lanes, two for each complex element. dst may be a source.
struct ShortArithKernels {
    using Apply = void (*)(const short* a, ShortOperand b, short* dst, std::ptrdiff_t lanes, int count);
    struct Rules {
        Apply apply[shortRules];
    };
    Rules rules[shortOperations];

    // Stores results up to some place before the first that does not fit in 16 bits; returns how many it stored, an
    // even number unless all.
    std::ptrdiff_t (*applyWhileFitting[shortOperations])(const short* a, ShortOperand b, short* dst,
                                                         std::ptrdiff_t lanes);

    // The bits in which some result differs from its own sign bit: all results fit in 16 bits when it is below 2^15.
    unsigned (*magnitudeBits[shortOperations])(const short* a, ShortOperand b, std::ptrdiff_t lanes);

    void (*shiftRight)(short* srcDst, std::ptrdiff_t lanes, int count);
};

} // namespace ark

// The DFT of any length in double precision, in place and forward, for transforms that are made of it.
#pragma once

#include "transform/chirp.hpp"
#include "transform/mixedradix.hpp"

namespace ark {

// The doubles of the table. Of lengths for which AnyDft was obtained.
inline std::size_t anyDftSize(int length)
{
    return length <= longestShortDft ? 0 : hasSmallFactors(length) ? mixedSize(length) : chirpSize(length);
}

class AnyDft {
public:
    explicit AnyDft(int length)
        : length_{length},
          isShort_{length <= longestShortDft},
          isMixed_{!isShort_ && hasSmallFactors(length)}
    {}

    // False when there is no memory.
    bool obtain()
    {
        const bool isChirp = !isShort_ && !isMixed_;
        if (isMixed_ ? isTooLongForMixed(length_) : isChirp && !obtainChirpSpace(length_, space_))
            return false;
        const std::size_t elements = isChirp ? std::size_t{1} << chirpOrder(length_) : std::size_t(length_);
        z_ = context().caches.working.spectrum.buffer<DoubleCplx>(elements);
        return z_ != nullptr;
    }

    void fill(double* table) const
    {
        if (isMixed_)
            fillMixed(length_, table);
        else if (!isShort_)
            fillChirp(length_, space_, table);
    }

    DoubleCplx* elements() const { return z_; }

    // With the table that fill made. False when there is no memory.
    bool prepare(const double* table)
    {
        table_ = table;
        return !isMixed_ || mixed_.prepare(table);
    }
    void transform() const
    {
        double* const z = partsOf(z_);
        if (isShort_)
            kernels<DftKernels<double>>().transformShort[length_ - 1](z, z, 1, 1, 1);
        else if (isMixed_)
            mixed_.transform<double>(z, z, 1, 1, 1);
        else
            chirpDft(z_, length_, table_, space_);
    }

private:
    int length_;
    bool isShort_, isMixed_;
    MixedDft mixed_;
    Workspace<double> space_;
    const double* table_ = nullptr;
    DoubleCplx* z_ = nullptr;
};

} // namespace ark

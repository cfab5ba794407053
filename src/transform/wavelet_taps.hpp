// The scaling filters of the wavelets that are not built at run time, one after the other, shortest first.
#pragma once

namespace ark {

extern const double daubechiesTaps[];
extern const double symletTaps[];
extern const double coifletTaps[];
extern const double meyerTaps[];
extern const double beylkinTaps[];
extern const double vaidyanathanTaps[];
extern const double biorthogonalTaps[];

} // namespace ark

// Low-pass synthesis filters that cannot be built well in double: those of a family one after the other, shortest
// first.
#pragma once

namespace ark {

extern const double daubechiesTaps[];   // of 1 to 20 vanishing moments, 2 taps a moment
extern const double symletTaps[];       // of 4 to 20 vanishing moments, likewise
extern const double coifletTaps[];      // 6, 12, 18, 24, 30 taps
extern const double meyerTaps[];        // 62 taps
extern const double beylkinTaps[];      // 18 taps
extern const double vaidyanathanTaps[]; // 24 taps
// Analysis and synthesis filter of 4.4, 5.5 and 6.8, of 9, 7; 9, 11; 17, 11 taps. They are symmetric: the first halves,
// with the middle one.
extern const double biorthogonalTaps[];

} // namespace ark

#include "vector/arklnexp.hpp"

using namespace ark;

static constexpr Module here{"arklnexp"};

// clang-format off
void arksbLn1(float* vec, int len)  { form1<Ln<float>>(here(), vec, len); }
void arkdbLn1(double* vec, int len) { form1<Ln<double>>(here(), vec, len); }

void arksbLn2(const float* src, float* dst, int len)   { form2<Ln<float>>(here(), src, dst, len); }
void arkdbLn2(const double* src, double* dst, int len) { form2<Ln<double>>(here(), src, dst, len); }

void arksbExp1(float* vec, int len)  { form1<Exp<float>>(here(), vec, len); }
void arkdbExp1(double* vec, int len) { form1<Exp<double>>(here(), vec, len); }

void arksbExp2(const float* src, float* dst, int len)   { form2<Exp<float>>(here(), src, dst, len); }
void arkdbExp2(const double* src, double* dst, int len) { form2<Exp<double>>(here(), src, dst, len); }
// clang-format on

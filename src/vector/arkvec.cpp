#include "vector/arkvec.hpp"

using namespace ark;

static constexpr Module here{"arkvec"};

// clang-format off
void arksbSqr1(float* vec, int len)                                      { form1<Sqr>(here(), vec, len); }
void arkdbSqr1(double* vec, int len)                                     { form1<Sqr>(here(), vec, len); }
void arkcbSqr1(FloatCplx* vec, int len)                                  { form1<Sqr>(here(), vec, len); }
void arkzbSqr1(DoubleCplx* vec, int len)                                 { form1<Sqr>(here(), vec, len); }
void arkwbSqr1(short* vec, int len, int scaleMode, int* scaleFactor)     { form1<Sqr>(here(), vec, len, scaleMode, scaleFactor); }
void arkvbSqr1(ShortCplx* vec, int len, int scaleMode, int* scaleFactor) { form1<Sqr>(here(), vec, len, scaleMode, scaleFactor); }

void arksbSqr2(const float* src, float* dst, int len)                                          { form2<Sqr>(here(), src, dst, len); }
void arkdbSqr2(const double* src, double* dst, int len)                                        { form2<Sqr>(here(), src, dst, len); }
void arkcbSqr2(const FloatCplx* src, FloatCplx* dst, int len)                                  { form2<Sqr>(here(), src, dst, len); }
void arkzbSqr2(const DoubleCplx* src, DoubleCplx* dst, int len)                                { form2<Sqr>(here(), src, dst, len); }
void arkwbSqr2(const short* src, short* dst, int len, int scaleMode, int* scaleFactor)         { form2<Sqr>(here(), src, dst, len, scaleMode, scaleFactor); }
void arkvbSqr2(const ShortCplx* src, ShortCplx* dst, int len, int scaleMode, int* scaleFactor) { form2<Sqr>(here(), src, dst, len, scaleMode, scaleFactor); }

void arksbSqrt1(float* vec, int len)      { form1<Sqrt>(here(), vec, len); }
void arkdbSqrt1(double* vec, int len)     { form1<Sqrt>(here(), vec, len); }
void arkcbSqrt1(FloatCplx* vec, int len)  { form1<Sqrt>(here(), vec, len); }
void arkzbSqrt1(DoubleCplx* vec, int len) { form1<Sqrt>(here(), vec, len); }
void arkwbSqrt1(short* vec, int len)      { form1<Sqrt>(here(), vec, len); }
void arkvbSqrt1(ShortCplx* vec, int len)  { form1<Sqrt>(here(), vec, len); }

void arksbSqrt2(const float* src, float* dst, int len)           { form2<Sqrt>(here(), src, dst, len); }
void arkdbSqrt2(const double* src, double* dst, int len)         { form2<Sqrt>(here(), src, dst, len); }
void arkcbSqrt2(const FloatCplx* src, FloatCplx* dst, int len)   { form2<Sqrt>(here(), src, dst, len); }
void arkzbSqrt2(const DoubleCplx* src, DoubleCplx* dst, int len) { form2<Sqrt>(here(), src, dst, len); }
void arkwbSqrt2(const short* src, short* dst, int len)           { form2<Sqrt>(here(), src, dst, len); }
void arkvbSqrt2(const ShortCplx* src, ShortCplx* dst, int len)   { form2<Sqrt>(here(), src, dst, len); }

void arksbAbs1(float* vec, int len)  { form1<Abs>(here(), vec, len); }
void arkdbAbs1(double* vec, int len) { form1<Abs>(here(), vec, len); }
void arkwbAbs1(short* vec, int len)  { form1<Abs>(here(), vec, len); }

void arksbAbs2(const float* src, float* dst, int len)   { form2<Abs>(here(), src, dst, len); }
void arkdbAbs2(const double* src, double* dst, int len) { form2<Abs>(here(), src, dst, len); }
void arkwbAbs2(const short* src, short* dst, int len)   { form2<Abs>(here(), src, dst, len); }

void arksbThresh1(float* vec, int len, float level, int relOp)       { form1<Thresh>(here(), vec, len, level, relOp); }
void arkdbThresh1(double* vec, int len, double level, int relOp)     { form1<Thresh>(here(), vec, len, level, relOp); }
void arkcbThresh1(FloatCplx* vec, int len, float level, int relOp)   { form1<Thresh>(here(), vec, len, level, relOp, "thresh<0.0f"); }
void arkzbThresh1(DoubleCplx* vec, int len, double level, int relOp) { form1<Thresh>(here(), vec, len, level, relOp, "thresh<0.0"); }
void arkwbThresh1(short* vec, int len, short level, int relOp)       { form1<Thresh>(here(), vec, len, level, relOp); }
void arkvbThresh1(ShortCplx* vec, int len, short level, int relOp)   { form1<Thresh>(here(), vec, len, level, relOp, "thresh<0"); }

void arksbThresh2(const float* src, float* dst, int len, float level, int relOp)            { form2<Thresh>(here(), src, dst, len, level, relOp); }
void arkdbThresh2(const double* src, double* dst, int len, double level, int relOp)         { form2<Thresh>(here(), src, dst, len, level, relOp); }
void arkcbThresh2(const FloatCplx* src, FloatCplx* dst, int len, float level, int relOp)    { form2<Thresh>(here(), src, dst, len, level, relOp, "thresh<0.0f"); }
void arkzbThresh2(const DoubleCplx* src, DoubleCplx* dst, int len, double level, int relOp) { form2<Thresh>(here(), src, dst, len, level, relOp, "thresh<0.0"); }
void arkwbThresh2(const short* src, short* dst, int len, short level, int relOp)            { form2<Thresh>(here(), src, dst, len, level, relOp); }
void arkvbThresh2(const ShortCplx* src, ShortCplx* dst, int len, short level, int relOp)    { form2<Thresh>(here(), src, dst, len, level, relOp, "thresh<0"); }

void arksbInvThresh1(float* vec, int len, float level)       { form1<InvThresh>(here(), vec, len, level, "thresh<0.0f"); }
void arkdbInvThresh1(double* vec, int len, double level)     { form1<InvThresh>(here(), vec, len, level, "thresh<0.0"); }
void arkcbInvThresh1(FloatCplx* vec, int len, float level)   { form1<InvThresh>(here(), vec, len, level, "thresh<0.0f"); }
void arkzbInvThresh1(DoubleCplx* vec, int len, double level) { form1<InvThresh>(here(), vec, len, level, "thresh<0.0"); }

void arksbInvThresh2(const float* src, float* dst, int len, float level)            { form2<InvThresh>(here(), src, dst, len, level, "thresh<0.0f"); }
void arkdbInvThresh2(const double* src, double* dst, int len, double level)         { form2<InvThresh>(here(), src, dst, len, level, "thresh<0.0"); }
void arkcbInvThresh2(const FloatCplx* src, FloatCplx* dst, int len, float level)    { form2<InvThresh>(here(), src, dst, len, level, "thresh<0.0f"); }
void arkzbInvThresh2(const DoubleCplx* src, DoubleCplx* dst, int len, double level) { form2<InvThresh>(here(), src, dst, len, level, "thresh<0.0f"); }
// clang-format on

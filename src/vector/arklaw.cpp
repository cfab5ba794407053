#include "vector/arklaw.hpp"

using namespace ark;

static constexpr Module here{"arklaw"};

// clang-format off
void arkwbLinToALaw(const short* src, unsigned char* dst, int len)  { encode<ALaw>(here(), src, dst, len); }
void arkibLinToALaw(const int* src, unsigned char* dst, int len)    { encode<ALaw>(here(), src, dst, len); }
void arksbLinToALaw(const float* src, unsigned char* dst, int len)  { encode<ALaw>(here(), src, dst, len); }
void arkdbLinToALaw(const double* src, unsigned char* dst, int len) { encode<ALaw>(here(), src, dst, len); }

void arkwbALawToLin(const unsigned char* src, short* dst, int len)  { decode<ALaw>(here(), src, dst, len); }
void arkibALawToLin(const unsigned char* src, int* dst, int len)    { decode<ALaw>(here(), src, dst, len); }
void arksbALawToLin(const unsigned char* src, float* dst, int len)  { decode<ALaw>(here(), src, dst, len); }
void arkdbALawToLin(const unsigned char* src, double* dst, int len) { decode<ALaw>(here(), src, dst, len); }

void arkwbLinToMuLaw(const short* src, unsigned char* dst, int len)  { encode<MuLaw>(here(), src, dst, len); }
void arkibLinToMuLaw(const int* src, unsigned char* dst, int len)    { encode<MuLaw>(here(), src, dst, len); }
void arksbLinToMuLaw(const float* src, unsigned char* dst, int len)  { encode<MuLaw>(here(), src, dst, len); }
void arkdbLinToMuLaw(const double* src, unsigned char* dst, int len) { encode<MuLaw>(here(), src, dst, len); }

void arkwbMuLawToLin(const unsigned char* src, short* dst, int len)  { decode<MuLaw>(here(), src, dst, len); }
void arkibMuLawToLin(const unsigned char* src, int* dst, int len)    { decode<MuLaw>(here(), src, dst, len); }
void arksbMuLawToLin(const unsigned char* src, float* dst, int len)  { decode<MuLaw>(here(), src, dst, len); }
void arkdbMuLawToLin(const unsigned char* src, double* dst, int len) { decode<MuLaw>(here(), src, dst, len); }

void arkMuLawToALaw(const unsigned char* src, unsigned char* dst, int len) { recode(here(), aLawOfMuLaw, src, dst, len); }
void arkALawToMuLaw(const unsigned char* src, unsigned char* dst, int len) { recode(here(), muLawOfALaw, src, dst, len); }
// clang-format on

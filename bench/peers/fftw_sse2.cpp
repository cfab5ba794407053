// FFTW asks these whether it may use AVX. Linked in front of its archive they keep it to SSE2, for which it has no
// option.
extern "C" {
int fftw_have_simd_avx();
int fftwf_have_simd_avx();

int fftw_have_simd_avx() { return 0; }
int fftwf_have_simd_avx() { return 0; }
}

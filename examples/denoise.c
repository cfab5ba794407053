/* Noise taken out of a signal: in its wavelet coefficients a smooth signal is a few large numbers, and noise many small
 * ones. Those that noise alone explains become zero, the others move towards it by as much (soft thresholding). */
#include <arkpx.h>
#include <math.h>
#include <stdio.h>
#include <stdlib.h>

enum { order = 12, samples = 1 << order, levels = 6, symlets = 3, moments = 8 };

static float clean[samples], noisy[samples], bands[samples], sizes[samples / 2];

static int compare(const void* a, const void* b)
{
    const float x = *(const float*)a, y = *(const float*)b;
    return (x > y) - (x < y);
}

/* Signal to noise, in decibels. */
static double quality(const float* x)
{
    double signal = 0, noise = 0;
    int i;

    for (i = 0; i < samples; i++) {
        signal += (double)clean[i] * clean[i];
        noise += ((double)x[i] - clean[i]) * ((double)x[i] - clean[i]);
    }
    return 10 * log10(signal / noise);
}

int main(void)
{
    const double pi = 3.14159265358979323846;
    ArksRandGausState noise;
    wtState wavelet = {0};
    double before, after;
    float deviation, threshold;
    int i;

    arkSetErrMode(ARK_ErrModeSilent);

    /* A tone that rises, and steps. */
    arksRandGausInit(1, 0, 0.3f, &noise);
    arksbRandGaus(&noise, noisy, samples);
    for (i = 0; i < samples; i++) {
        const double t = (double)i / samples;
        clean[i] = (float)(sin(2 * pi * (4 * t + 16 * t * t)) + (t > 0.3 && t < 0.7 ? 2 : 0));
        noisy[i] += clean[i];
    }

    arksWtInit(moments, 0, order, levels, &wavelet, symlets);
    arksWtDecompose(&wavelet, noisy, bands);

    /* The finest band, the upper half, is nearly all noise: the median of its magnitudes tells the deviation. */
    for (i = 0; i < samples / 2; i++)
        sizes[i] = fabsf(bands[samples / 2 + i]);
    qsort(sizes, samples / 2, sizeof sizes[0], compare);
    deviation = sizes[samples / 4] / 0.6745f;
    threshold = deviation * sqrtf(2 * logf(samples));

    /* All bands but the low one of the last level, which comes first. */
    for (i = samples >> levels; i < samples; i++) {
        const float rest = fabsf(bands[i]) - threshold;
        bands[i] = rest > 0 ? copysignf(rest, bands[i]) : 0;
    }

    before = quality(noisy);
    arksWtReconstruct(&wavelet, bands, noisy);
    arkWtFree(&wavelet);
    after = quality(noisy);
    printf("noise of deviation %.3f: %.1f dB below the signal before, %.1f dB after\n", deviation, before, after);

    return arkGetErrStatus() == ARK_StatusOk && fabs(deviation - 0.3) < 0.03 && after > before + 6 ? 0 : 1;
}

/* A signal brought to a quarter of its rate: an FIR low-pass keeps what would otherwise come back as another tone. Then
 * a biquad that takes out a constant. */
#include <arkpx.h>
#include <math.h>
#include <stdio.h>

enum { inputs = 4096, tapsLen = 65, factor = 4, outputs = inputs / factor };

static float low[inputs], high[inputs], out[outputs];

/* Half the peak-to-peak value, once the filter is filled. */
static double swing(const float* x, int n)
{
    double least = x[100], most = x[100];
    int i;

    for (i = 100; i < n; i++) {
        least = fmin(least, x[i]);
        most = fmax(most, x[i]);
    }
    return (most - least) / 2;
}

static double decimated(const float* taps, const float* src)
{
    FirState state = {0};

    arksFirInitMr(taps, tapsLen, NULL, 1, 0, factor, 0, &state);
    arksbFir(&state, src, out, outputs); /* so many outputs, of four inputs each */
    arkFirFree(&state);
    return swing(out, outputs);
}

int main(void)
{
    const double pi = 3.14159265358979323846, cutoff = 0.11; /* cycles per sample; the new rate's limit is 1/8 */
    /* A pole just inside a zero at frequency 0: b0 b1 b2 a0 a1 a2. */
    const float blocker[6] = {1, -1, 0, 1, -0.99f, 0};
    float taps[tapsLen];
    ArksToneState tone;
    IirState iir = {0};
    double kept, removed, shift;
    int i;

    arkSetErrMode(ARK_ErrModeSilent);
    arksToneInit(0.03f, 0, 1, &tone);
    arksbTone(&tone, low, inputs);
    arksToneInit(0.23f, 0, 1, &tone); /* without a filter it would come back as 0.08 cycles per new sample */
    arksbTone(&tone, high, inputs);

    /* The ideal low-pass, cut off by a window. */
    for (i = 0; i < tapsLen; i++) {
        const double t = i - (tapsLen - 1) / 2;
        taps[i] = (float)(t == 0 ? 2 * cutoff : sin(2 * pi * cutoff * t) / (pi * t));
    }
    arksWinHamming(taps, tapsLen);
    kept = decimated(taps, low);
    removed = decimated(taps, high);
    printf("a tone below the cutoff keeps %.4f of its height, one above it %.4f\n", kept, removed);

    for (i = 0; i < inputs; i++)
        low[i] += 5;
    arksIirInitBq(0, blocker, 1, &iir);
    arksbIir(&iir, low, low, inputs);
    arkIirFree(&iir);
    shift = low[inputs - 1] - cos(2 * pi * 0.03 * (inputs - 1));
    printf("a constant of 5 is gone, to %.3f (the tone moved by a little phase)\n", shift);

    return arkGetErrStatus() == ARK_StatusOk && kept > 0.98 && kept < 1.02 && removed < 0.01 && fabs(shift) < 0.1 ? 0
                                                                                                                  : 1;
}

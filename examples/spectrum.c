/* A tone under noise, found in the spectrum of a windowed block: real FFT into RCPack order, squared magnitudes, the
   peak between two elements. */
#include <arkpx.h>
#include <math.h>
#include <stdio.h>

enum { order = 10, n = 1 << order, rate = 8000 };

static float window[n], block[n], noise[n], power[n / 2 + 1];

int main(void)
{
    const double frequency = 1234.5;
    ArksToneState tone;
    ArksRandGausState random;
    double a, b, c, found;
    int k, peak = 1;

    arkSetErrMode(ARK_ErrModeSilent);

    arksToneInit((float)(frequency / rate), 0, 1, &tone);
    arksbTone(&tone, block, n);
    arksRandGausInit(1, 0, 0.5f, &random);
    arksbRandGaus(&random, noise, n);
    arksbAdd2(noise, block, n);

    arksbSet(1, window, n); /* windows multiply what is there */
    arksWinHann(window, n);
    arksbMpy2(window, block, n);

    /* In place: element 0, then real and imaginary parts of the elements 1 ... n/2-1, then element n/2. */
    arksRealFftl(block, order, ARK_Forw | ARK_OutRCPack);
    power[0] = block[0] * block[0];
    for (k = 1; k < n / 2; k++)
        power[k] = block[2 * k - 1] * block[2 * k - 1] + block[2 * k] * block[2 * k];
    power[n / 2] = block[n - 1] * block[n - 1];

    for (k = 2; k < n / 2; k++)
        if (power[k] > power[peak])
            peak = k;
    /* Near its top the spectrum of the Hann window is nearly a parabola in decibels. */
    a = log10((double)power[peak - 1]), b = log10((double)power[peak]), c = log10((double)power[peak + 1]);
    found = (peak + 0.5 * (a - c) / (a - 2 * b + c)) * rate / n;

    printf("the largest element is %d, which stands for %.1f Hz\n", peak, (double)peak * rate / n);
    printf("the tone is at %.1f Hz, found at %.1f Hz\n", frequency, found);
    return arkGetErrStatus() == ARK_StatusOk && fabs(found - frequency) < 0.1 * rate / n ? 0 : 1;
}

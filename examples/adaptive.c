/* Echo cancelling: an LMS filter learns the path by which a loudspeaker's sound comes back to the microphone. */
#include <arkpx.h>
#include <math.h>
#include <stdio.h>

enum { n = 20000, tapsLen = 32, delay = 7 };

static float speaker[n], microphone[n], estimate[n];

static double power(const float* x, int count)
{
    double sum = 0;
    int i;

    for (i = 0; i < count; i++)
        sum += (double)x[i] * x[i];
    return sum / count;
}

int main(void)
{
    ArksRandGausState noise;
    LmsState lms = {0};
    float taps[tapsLen];
    double before, after;
    int i;

    arkSetErrMode(ARK_ErrModeSilent);
    arksRandGausInit(1, 0, 1, &noise); /* seed, mean, standard deviation */
    arksbRandGaus(&noise, speaker, n);
    for (i = delay; i < n; i++)
        microphone[i] = 0.6f * speaker[i - delay] - (i > 2 * delay ? 0.3f * speaker[i - 2 * delay] : 0);

    /* A step well below 2 / (taps * power), the bound of stability. */
    arksLmsInit(0, NULL, tapsLen, NULL, 0.005f, 0, 0, &lms);
    arksbLmsDes(&lms, speaker, microphone, estimate, n);
    arksLmsGetTaps(&lms, taps);
    arkLmsFree(&lms);

    arksbSub2(estimate, microphone, n); /* what is left of the echo */
    before = power(microphone, 1000);
    after = power(microphone + n - 1000, 1000);
    printf("learned %.4f after %d samples and %.4f after %d\n", taps[delay], delay, taps[2 * delay], 2 * delay);
    printf("echo return loss: %.0f dB in the first 1000 samples, %.0f dB in the last\n", 10 * log10(0.45 / before),
           10 * log10(0.45 / after));
    return arkGetErrStatus() == ARK_StatusOk && fabs(taps[delay] - 0.6) < 1e-3 && after < 1e-6 ? 0 : 1;
}

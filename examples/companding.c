/* A telephone line: 16-bit samples to A-law and mu-law bytes and back, and what that adds. */
#include <arkpx.h>
#include <math.h>
#include <stdio.h>

enum { n = 8000 };

static short voice[n], back[n];
static unsigned char line[n];

/* Decibels from the signal down to the error. */
static double noise(void)
{
    double signal = 0, error = 0;
    int i;

    for (i = 0; i < n; i++) {
        const double e = (double)back[i] - voice[i];
        signal += (double)voice[i] * voice[i];
        error += e * e;
    }
    return 10 * log10(signal / error);
}

int main(void)
{
    ArkwRandGausState noiseState;
    double aLaw, muLaw;
    short first;
    unsigned char file;

    arkSetErrMode(ARK_ErrModeSilent);
    arkwRandGausInit(1, 0, 3000, &noiseState);
    arkwbRandGaus(&noiseState, voice, n);

    arkwbLinToALaw(voice, line, n);
    arkwbALawToLin(line, back, n);
    aLaw = noise();
    file = line[0] ^ 0x55; /* files and lines carry A-law with every other bit inverted, this library does not */
    first = back[0];

    arkwbLinToMuLaw(voice, line, n);
    arkwbMuLawToLin(line, back, n);
    muLaw = noise();

    printf("%d goes as 0x%02X over an A-law line and arrives as %d\n", voice[0], file, first);
    printf("signal to noise: %.1f dB with A-law, %.1f dB with mu-law\n", aLaw, muLaw);
    return arkGetErrStatus() == ARK_StatusOk && aLaw > 36 && muLaw > 36 ? 0 : 1;
}

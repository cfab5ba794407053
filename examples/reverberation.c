/* Convolution: the echo of a room, given by its answer to one click, put on a sound. */
#include <arkpx.h>
#include <math.h>
#include <stdio.h>

enum { rate = 8000, soundLen = rate / 4, roomLen = rate, heardLen = soundLen + roomLen - 1 };

static float sound[soundLen], room[roomLen], heard[heardLen], again[heardLen];

static float level(const float* from, int n) /* rms, in dB of full scale */
{
    double sum = 0;
    int i;

    for (i = 0; i < n; i++)
        sum += (double)from[i] * from[i];
    return (float)(10 * log10(sum / n + 1e-20));
}

int main(void)
{
    unsigned noise = 1;
    int i, good;

    arkSetErrMode(ARK_ErrModeSilent);

    /* A quarter of a second of a tone; a room that answers at once, from a wall 17 m away, and with a tail that has
       faded by 60 dB after a second. */
    for (i = 0; i < soundLen; i++)
        sound[i] = 0.5f * (float)sin(6.283185307179586 * 440 * i / rate);
    for (i = 0; i < roomLen; i++) {
        noise = noise * 1664525u + 1013904223u;
        room[i] = 0.01f * ((float)(noise >> 16) / 32768.0f - 1.0f) * (float)pow(0.001, (double)i / rate);
    }
    room[0] += 1.0f;
    room[rate / 10] += 0.5f;

    arksConv(sound, soundLen, room, roomLen, heard);
    arksConv(room, roomLen, sound, soundLen, again); /* the order of the operands does not matter */
    good = arkGetErrStatus() == ARK_StatusOk;

    puts("time        dB");
    for (i = 0; i + rate / 8 <= heardLen; i += rate / 8)
        printf("%4.2f s  %6.1f\n", (double)i / rate, level(heard + i, rate / 8));

    for (i = 0; i < heardLen; i++)
        good &= heard[i] == again[i];
    good &= level(heard + rate / 4, rate / 10) > -20; /* the wall, after the tone has ended */
    good &= level(heard + rate, rate / 8) < -50;      /* the tail */
    puts(good ? "The echo fades as it should." : "Something is wrong.");
    return good ? 0 : 1;
}

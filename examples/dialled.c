/* A telephone's keys: each is a pair of tones, and eight trackers of one frequency each tell which pair a block of
 * 16-bit samples holds. */
#include <arkpx.h>
#include <math.h>
#include <stdio.h>
#include <string.h>

enum { rate = 8000, block = 205, tone = 3 * block, pause = 2 * block, most = 32 };

static const double rows[4] = {697, 770, 852, 941}, columns[4] = {1209, 1336, 1477, 1633};
static const char keys[4][5] = {"123A", "456B", "789C", "*0#D"};

/* The magnitude of one frequency in a block. */
static double magnitude(ArksGoertzState* tracker, const short* samps)
{
    int shift = 5; /* the sum of 205 samples of up to 10000 is brought to 16 bits */
    ShortCplx c;

    arkwGoertzReset(tracker);
    c = arkwbGoertz(tracker, samps, block, ARK_FIXED_SCALE | ARK_SATURATE, &shift);
    return sqrt((double)c.re * c.re + (double)c.im * c.im);
}

/* The strongest of four, or -1 when none stands out. */
static int strongest(ArksGoertzState* trackers, const short* samps)
{
    double all = 0, largest = 0;
    int i, found = -1;

    for (i = 0; i < 4; i++) {
        const double m = magnitude(&trackers[i], samps);
        all += m;
        if (m > largest) {
            largest = m;
            found = i;
        }
    }
    return largest > 2000 && largest > 0.6 * all ? found : -1;
}

int main(void)
{
    static const char number[] = "0170*9#D";
    static short line[most * (tone + pause)];
    ArksGoertzState row[4], column[4];
    ArkwRandGausState noise;
    char read[most + 1] = "", last = 0;
    int i, n, length = 0, count = 0;

    arkSetErrMode(ARK_ErrModeSilent);
    arkwRandGausInit(1, 0, 300, &noise);
    for (i = 0; number[i]; i++) {
        int r = 0, c = 0;

        for (n = 0; n < 16; n++)
            if (keys[n / 4][n % 4] == number[i]) {
                r = n / 4;
                c = n % 4;
            }
        for (n = 0; n < tone + pause; n++) {
            const double t = 6.283185307179586 * n / rate;
            const double sound = n < tone ? 5000 * (sin(rows[r] * t) + sin(columns[c] * t)) : 0;
            line[length++] = (short)(sound + arkwRandGaus(&noise));
        }
    }

    for (i = 0; i < 4; i++) {
        arkwGoertzInit((float)(rows[i] / rate), &row[i]);
        arkwGoertzInit((float)(columns[i] / rate), &column[i]);
    }
    for (n = 0; n + block <= length; n += block) {
        const int r = strongest(row, line + n), c = strongest(column, line + n);
        const char key = r >= 0 && c >= 0 ? keys[r][c] : 0;

        if (key && key != last)
            read[count++] = key;
        last = key;
    }

    printf("dialled %s, read %s\n", number, read);
    return arkGetErrStatus() == ARK_StatusOk && strcmp(read, number) == 0 ? 0 : 1;
}

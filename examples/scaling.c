/* Vector arithmetic on 16-bit elements: one product that does not fit, under each scale mode. */
#include <arkpx.h>
#include <stdio.h>

static int show(const char* mode, int scaleMode, int factor, int expected)
{
    short vec[3] = {-1, 200, 20000};

    arkwbMpy1(11, vec, 3, scaleMode, &factor);
    printf("%-32s %7d %7d %7d   factor %d\n", mode, vec[0], vec[1], vec[2], factor);
    return arkGetErrStatus() == ARK_StatusOk && vec[2] == expected;
}

int main(void)
{
    int good = 1;

    arkSetErrMode(ARK_ErrModeSilent);
    puts("{-1, 200, 20000} times 11 is     {    -11,    2200,  220000}");
    good &= show("ARK_WRAP", ARK_WRAP, 0, 220000 - 3 * 65536);
    good &= show("ARK_SATURATE", ARK_SATURATE, 0, 32767);
    /* A factor shifts to the right, rounding down: the value 11 with the factor 4 is a gain of 11/16. */
    good &= show("ARK_FIXED_SCALE", ARK_FIXED_SCALE, 4, 20000 * 11 / 16);
    /* The same gain with a factor that is too small for this vector. */
    good &= show("ARK_FIXED_SCALE | ARK_SATURATE", ARK_FIXED_SCALE | ARK_SATURATE, 2, 32767);
    /* The smallest factor that fits, found by the library and written to the caller's variable. */
    good &= show("ARK_AUTO_SCALE", ARK_AUTO_SCALE, 0, 220000 >> 3);
    return good ? 0 : 1;
}

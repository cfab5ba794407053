/* From floats to 16-bit integers and back: the four rounding rules, and values that do not fit. */
#include <arkpx.h>
#include <stdio.h>

static const float values[5] = {-2.5f, -0.25f, 1.5f, 2.5f, 40000};

static int show(const char* rule, int flags, int first, int last)
{
    short out[5] = {0, 0, 0, 0, 77}; /* without ARK_Saturate, what does not fit is left as it was: 77 */

    arksbFloatToInt(values, out, 5, 16, flags);
    printf("%-32s %6d %6d %6d %6d %6d\n", rule, out[0], out[1], out[2], out[3], out[4]);
    return out[0] == first && out[4] == last;
}

int main(void)
{
    short codes[5];
    float back[5];
    int good = 1;

    arkSetErrMode(ARK_ErrModeSilent);
    printf("%-32s %6g %6g %6g %6g %6g\n", "values", values[0], values[1], values[2], values[3], values[4]);
    good &= show("ARK_RoundNearest", ARK_RoundNearest, -2, 77);
    good &= show("ARK_RoundZero", ARK_RoundZero, -2, 77);
    good &= show("ARK_RoundDown", ARK_RoundDown, -3, 77);
    good &= show("ARK_RoundUp", ARK_RoundUp, -2, 77);
    good &= show("ARK_RoundNearest | ARK_Saturate", ARK_RoundNearest | ARK_Saturate, -2, 32767);

    /* The status tells of the last conversion alone. With ARK_ReportRange a value that does not fit is a mistake. */
    arksbFloatToInt(values, codes, 5, 16, ARK_RoundNearest | ARK_Saturate | ARK_ReportRange);
    printf("with ARK_ReportRange: %s\n", arkErrorStr(arkGetErrStatus()));
    good &= arkGetErrStatus() == ARK_StatusBadArgument;

    arksbIntToFloat(codes, back, 5, 16, 0);
    printf("%-32s %6g %6g %6g %6g %6g\n", "and back", back[0], back[1], back[2], back[3], back[4]);
    return good && arkGetErrStatus() == ARK_StatusOk && back[4] == 32767 ? 0 : 1;
}

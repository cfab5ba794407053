#include <arkpx.h>
#include <stdio.h>

int main(void)
{
    const short music[4] = {12000, -20000, 30000, 5}, voice[4] = {9000, -15000, 20000, 6};
    short mix[4];
    int factor;

    arkSetErrMode(ARK_ErrModeSilent); /* a mistake sets the status; it never asks to end the process */
    arkwbAdd3(music, voice, mix, 4, ARK_AUTO_SCALE, &factor);
    if (arkGetErrStatus() != ARK_StatusOk)
        return puts(arkErrorStr(arkGetErrStatus())), 1;
    printf("%d %d %d %d, each times %d\n", mix[0], mix[1], mix[2], mix[3], 1 << factor);
    return 0;
}

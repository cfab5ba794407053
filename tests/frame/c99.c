/* The public header and the library from C. */
#include <arkpx.h>

#include <stdio.h>
#include <string.h>

static int reports = 0;

static int count(int status, const char* function, const char* message, const char* file, int line)
{
    reports +=
        strcmp(function, "arkcbAdd3") == 0 && strcmp(message, "n<=0") == 0 && strcmp(file, "arkarith") == 0 && line > 0;
    return status;
}

int main(void)
{
    const FloatCplx a[3] = {{1, 2}, {3, 4}, {5, 6}}, b[3] = {{10, 20}, {30, 40}, {50, 60}};
    FloatCplx sum[3];
    ArkErrorHandler const before = arkRedirectError(count);

    arkcbAdd3(a, b, sum, 3);
    if (arkGetErrStatus() != ARK_StatusOk || sum[2].re != 55 || sum[2].im != 66)
        return puts("wrong sum"), 1;
    arkcbAdd3(a, b, sum, 0);
    if (arkGetErrStatus() != ARK_StatusBadArgument || reports != 1 || before != arkGuiBoxReport)
        return puts("wrong report"), 1;
    return 0;
}

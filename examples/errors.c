/* What a mistake does: a report to the thread's handler, a status, and no result until the status is cleared. */
#include <arkpx.h>
#include <stdio.h>

static int reports = 0;

/* A handler of one's own. It returns the status that it was given, or does what the program needs. */
static int print(int status, const char* function, const char* message, const char* module, int line)
{
    reports++;
    printf("%s: %s: \"%s\" (%s, line %d)\n", function, arkErrorStr(status), message ? message : "", module, line);
    return status;
}

int main(void)
{
    const float a[3] = {1, 2, 3};
    float sum[3] = {0, 0, 0};

    arkSetErrMode(ARK_ErrModeSilent); /* first of all: no report ends this process */
    arkRedirectError(print);

    arksbAdd3(a, NULL, sum, 0); /* two mistakes: the length and a pointer */
    if (reports != 2 || arkGetErrStatus() != ARK_StatusBadArgument)
        return 1;

    arksbAdd3(a, a, sum, 3); /* correct, but the status is sticky: nothing is computed */
    printf("with the failure still recorded: %g %g %g\n", sum[0], sum[1], sum[2]);
    if (sum[2] != 0)
        return 1;

    arkSetErrStatus(ARK_StatusOk);
    arksbAdd3(a, a, sum, 3);
    printf("after clearing it:               %g %g %g\n", sum[0], sum[1], sum[2]);
    return arkGetErrStatus() == ARK_StatusOk && sum[2] == 6 ? 0 : 1;
}

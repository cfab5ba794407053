/* C and C++: every header, and one call. */
#include <arkpx.h>

int main(void)
{
    const float a[2] = {1, 2};
    float sum[2];

    arksbAdd3(a, a, sum, 2);
    return arkGetErrStatus() == ARK_StatusOk && sum[1] > 3.5f ? 0 : 1;
}

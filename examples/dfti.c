/* A cosine and its spectrum, through the descriptor interface. */
#include <math.h>
#include <stdio.h>
#include <vor_dfti.h>

#define N 1000
#define TONE 60

static double magnitude(VOR_DCOMPLEX z) {
    return sqrt(z.re * z.re + z.im * z.im);
}

int main(void) {
    static VOR_DCOMPLEX x[N];
    const double pi = 3.14159265358979323846;
    DFTI_DESCRIPTOR_HANDLE h;
    int i, strongest = 0, status = 0;

    for (i = 0; i < N; ++i) {
        x[i].re = cos(2 * pi * TONE * i / N);
        x[i].im = 0;
    }
    status |= DftiCreateDescriptor(&h, DFTI_DOUBLE, DFTI_COMPLEX, 1, N);
    status |= DftiSetValue(h, DFTI_BACKWARD_SCALE, 1.0 / N);
    status |= DftiCommitDescriptor(h);
    status |= DftiComputeForward(h, x);
    for (i = 1; i < N / 2; ++i)
        if (magnitude(x[i]) > magnitude(x[strongest])) strongest = i;
    printf("strongest at %d, magnitude %.3f\n", strongest, magnitude(x[TONE]));
    status |= DftiComputeBackward(h, x);
    status |= DftiFreeDescriptor(&h);
    return status != 0 || strongest != TONE || fabs(x[0].re - 1) > 1e-14;
}

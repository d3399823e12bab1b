/* A wave in two dimensions: the spectrum of real data in a packed format, in place, and as one half of
   a complex array. */
#include <math.h>
#include <stdio.h>
#include <vor_dfti.h>

#define ROWS 10
#define COLUMNS 12
#define HALF (COLUMNS / 2 + 1)
#define DOWN 2   /* waves along a column */
#define ACROSS 3 /* waves along a row */

static void fill(double x[ROWS][COLUMNS]) {
    const double pi = 3.14159265358979323846;
    int i, j;
    for (j = 0; j < ROWS; ++j)
        for (i = 0; i < COLUMNS; ++i)
            x[j][i] = 1 + cos(2 * pi * (1.0 * ACROSS * i / COLUMNS + 1.0 * DOWN * j / ROWS));
}

static double furthest(double x[ROWS][COLUMNS], double y[ROWS][COLUMNS]) {
    double most = 0;
    int i, j;
    for (j = 0; j < ROWS; ++j)
        for (i = 0; i < COLUMNS; ++i)
            if (fabs(x[j][i] - y[j][i]) > most) most = fabs(x[j][i] - y[j][i]);
    return most;
}

int main(void) {
    static double given[ROWS][COLUMNS], x[ROWS][COLUMNS], back[ROWS][COLUMNS];
    static VOR_DCOMPLEX half[ROWS][HALF];
    const int lengths[] = {ROWS, COLUMNS}, half_strides[] = {0, HALF, 1};
    const int real_strides[] = {0, COLUMNS, 1};
    DFTI_DESCRIPTOR_HANDLE h;
    double mean, wave, off;
    int status = 0;

    fill(given);
    fill(x);
    /* Packed, in place: PACK takes the room of the data and no more. In row j, columns 2 t - 1 and 2 t
       hold the frequency (t, j). */
    status |= DftiCreateDescriptor(&h, DFTI_DOUBLE, DFTI_REAL, 2, lengths);
    status |= DftiSetValue(h, DFTI_PACKED_FORMAT, DFTI_PACK_FORMAT);
    status |= DftiSetValue(h, DFTI_BACKWARD_SCALE, 1.0 / (ROWS * COLUMNS));
    status |= DftiCommitDescriptor(h);
    status |= DftiComputeForward(h, x);
    mean = x[0][0] / (ROWS * COLUMNS);
    wave = x[DOWN][2 * ACROSS - 1] / (ROWS * COLUMNS);
    status |= DftiComputeBackward(h, x);
    status |= DftiFreeDescriptor(&h);
    off = furthest(given, x);
    printf("packed: mean %.3f, wave %.3f, back within %.1e\n", mean, wave, off);
    if (status != 0 || fabs(mean - 1) > 1e-14 || fabs(wave - 0.5) > 1e-14 || off > 1e-14) return 1;

    /* One half of the complex spectrum, in an array of its own. The other half is its mirror image. */
    status |= DftiCreateDescriptor(&h, DFTI_DOUBLE, DFTI_REAL, 2, lengths);
    status |= DftiSetValue(h, DFTI_CONJUGATE_EVEN_STORAGE, DFTI_COMPLEX_COMPLEX);
    status |= DftiSetValue(h, DFTI_PLACEMENT, DFTI_NOT_INPLACE);
    status |= DftiSetValue(h, DFTI_BACKWARD_SCALE, 1.0 / (ROWS * COLUMNS));
    status |= DftiSetValue(h, DFTI_OUTPUT_STRIDES, half_strides);
    status |= DftiCommitDescriptor(h);
    status |= DftiComputeForward(h, given, half);
    status |= DftiSetValue(h, DFTI_INPUT_STRIDES, half_strides);
    status |= DftiSetValue(h, DFTI_OUTPUT_STRIDES, real_strides);
    status |= DftiCommitDescriptor(h);
    status |= DftiComputeBackward(h, half, back);
    status |= DftiFreeDescriptor(&h);
    mean = half[0][0].re / (ROWS * COLUMNS);
    wave = half[DOWN][ACROSS].re / (ROWS * COLUMNS);
    off = furthest(given, back);
    printf("half:   mean %.3f, wave %.3f, back within %.1e\n", mean, wave, off);
    return status != 0 || fabs(mean - 1) > 1e-14 || fabs(wave - 0.5) > 1e-14 || off > 1e-14;
}

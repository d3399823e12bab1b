/* Two tones and their spectrum by a one-call transform: wsave is filled once and serves every transform of its
 * length. Build it with
 *
 *     gcc -m32 fft.c $(pkg-config --cflags --libs vor) -lm
 */
#include <math.h>
#include <stdio.h>
#include <vor_fft.h>

#define N 1024
#define LOW 60
#define HIGH 200

static double magnitude(VOR_DCOMPLEX z) {
    return sqrt(z.re * z.re + z.im * z.im);
}

int main(void) {
    static VOR_DCOMPLEX x[N];
    static double wsave[3 * N + 32];
    const double pi = 3.14159265358979323846;
    const int n = N, fill = 0, forward = -1, inverse = 1;
    double worst = 0;
    int i;

    for (i = 0; i < N; ++i) {
        x[i].re = cos(2 * pi * LOW * i / N) + 0.5 * cos(2 * pi * HIGH * i / N);
        x[i].im = 0;
    }
    zfft1d(x, &n, &fill, wsave);
    zfft1d(x, &n, &forward, wsave);
    printf("magnitude %.3f at %d, %.3f at %d\n", magnitude(x[LOW]), LOW, magnitude(x[HIGH]), HIGH);
    if (fabs(magnitude(x[LOW]) - N / 2) > 1e-9 || fabs(magnitude(x[HIGH]) - N / 4) > 1e-9) return 1;

    x[HIGH].re = x[HIGH].im = x[N - HIGH].re = x[N - HIGH].im = 0; /* take the high tone out */
    zfft1d(x, &n, &inverse, wsave);
    for (i = 0; i < N; ++i) {
        const double error = fabs(x[i].re - cos(2 * pi * LOW * i / N));
        if (error > worst) worst = error;
    }
    printf("the low tone is back, to %.1e\n", worst);
    return worst > 1e-13;
}

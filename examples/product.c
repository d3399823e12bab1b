/* A matrix product from C: the powers of a Fibonacci matrix, and the normal equations of a straight
 * line through measured points. Build it with
 *
 *     gcc -m32 product.c $(pkg-config --cflags --libs vor) -lm
 */
#include <math.h>
#include <stdio.h>
#include <vor_blas.h>

static int failures = 0;

static void show(const char* what, double got, double expected) {
    const int good = fabs(got - expected) <= 1e-12 * fabs(expected);
    printf("%-24s %12.6f%s\n", what, got, good ? "" : "  WRONG");
    failures += !good;
}

int main(void) {
    const double zero = 0, one = 1;
    const int two = 2, points = 5;

    /* Columns one after the other: f = (1 1; 1 0), and f^(2k) = f^k f^k. */
    double f[4] = {1, 1, 1, 0}, square[4];
    int k;
    for (k = 0; k < 5; ++k) {
        dgemm("N", "N", &two, &two, &two, &one, f, &two, f, &two, &zero, square, &two);
        f[0] = square[0], f[1] = square[1], f[2] = square[2], f[3] = square[3];
    }
    show("Fibonacci number 32", f[1], 2178309);

    /* X^T X and X^T y for y = 1 + 2 t in the columns 1 and t of X: three columns of (X y) at once. */
    {
        const double x[] = {1, 1, 1, 1, 1, 0, 1, 2, 3, 4, 1, 3, 5, 7, 9}; /* 1, t, y */
        const int three = 3;
        double normal[6], determinant;
        dgemm("T", "N", &two, &three, &points, &one, x, &points, x, &points, &zero, normal, &two);
        determinant = normal[0] * normal[3] - normal[1] * normal[2];
        show("intercept", (normal[4] * normal[3] - normal[2] * normal[5]) / determinant, 1);
        show("slope", (normal[0] * normal[5] - normal[1] * normal[4]) / determinant, 2);
    }
    return failures != 0;
}

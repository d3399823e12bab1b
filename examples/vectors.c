/* Vectors from C: the angle between two vectors, the distance of one from the line of the other, and
 * a complex product. Build it with
 *
 *     gcc -m32 vectors.c $(pkg-config --cflags --libs vor) -lm
 */
#include <math.h>
#include <stdio.h>
#include <vor_blas.h>

static int failures = 0;

static void show(const char* what, double got, double expected) {
    const int good = fabs(got - expected) <= 1e-14 * fabs(expected);
    printf("%-32s %10.6f%s\n", what, got, good ? "" : "  WRONG");
    failures += !good;
}

int main(void) {
    const double x[] = {3, 0, 4};
    double y[] = {1, 2, 2};
    const vor_dcomplex u[] = {{1, 2}, {0, 1}};
    const vor_dcomplex v[] = {{3, -1}, {2, 2}};
    vor_dcomplex product;
    const int three = 3, two = 2, one = 1; /* all scalars go by reference */
    double length, projection;

    length = dnrm2(&three, x, &one);
    show("length of x", length, 5);
    show("cosine of the angle of x and y",
         ddot(&three, x, &one, y, &one) / (length * dnrm2(&three, y, &one)), 11.0 / 15.0);

    /* y := y - (x.y / x.x) x is what of y stands at right angles to x. */
    projection = -ddot(&three, x, &one, y, &one) / (length * length);
    daxpy(&three, &projection, x, &one, y, &one);
    show("distance of y from the line of x", dnrm2(&three, y, &one), sqrt(9.0 - 121.0 / 25.0));

    /* A complex result comes through a pointer in front of the arguments. */
    zdotc(&product, &two, u, &one, v, &one);
    show("conj(u).v, real part", product.re, 3);
    show("conj(u).v, imaginary part", product.im, -9);
    return failures != 0;
}

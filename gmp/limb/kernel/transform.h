// Negacyclic transforms of complex numbers in double precision, for exact products of integers.
//
// z[0 .. m) is a polynomial, evaluated at the m roots of x^m = i in an order of its own. With
// z[j] = x[j] + i x[j + m] for 2m real numbers x, the product of two such polynomials modulo x^m - i is
// the negacyclic convolution of the real numbers, modulo x^(2m) + 1 (the right-angle convolution:
// Crandall and Fagin, Mathematics of Computation 62, 1994).
//
// One pass splits x^s = e^(2 pi i t) into r factors x^(s/r) = e^(2 pi i (t + k)/r), k = 0 .. r - 1. The
// arithmetic of a pass is in extended precision and rounds at its stores alone; roots are off by at most
// 2^-53 / sqrt(2). So every pass adds an error of at most
//
//     kPassError = 1.75 2^-53
//
// relative to the Euclidean length of what it holds. The caller sets the control word (ExactScope).
#pragma once

#include "gmp/limb/word.h"
#include "serv/bits.h"

namespace vor::limb {

struct Point {
    double re, im;
};

class Transform {
public:
    static constexpr long double kPassError = 1.75L * 0x1p-53L;
    static constexpr int kLongest = 1 << 26;

    // The least length of at least n points, 4 <= n <= kLongest: 1, 3 or 9 times a power of two.
    static int length_for(int n) {
        int power = 4;
        while (power < n) power *= 2;
        if (power < 16) return power;
        if (power / 16 * 9 >= n) return power / 16 * 9;
        return power / 4 * 3 >= n ? power / 4 * 3 : power;
    }
    static int passes_of(int m) {
        int count = 0;
        for (; m > 1; m /= radix_of(m)) ++count;
        return count;
    }
    // The numbers that the roots of all passes of length m take.
    static int table_size(int m);

    // `table` has table_size(m) points and lives as long as the transform.
    Transform(int m, Point* table);

    void forward(Point* z) const { forward(z, m_, 0, 0); }
    // Backward, times m.
    void backward(Point* z) const { backward(z, m_, 0, 0); }

private:
    static constexpr int kMostPasses = 16;

    // The radices from the top: threes, a two if one is left, then fours.
    static int radix_of(int size) {
        if (size % 3 == 0) return 3;
        return trailing_zeros(static_cast<unsigned>(size)) % 2 ? 2 : 4;
    }

    // A pass over blocks that end up in `radix` parts each, with radix - 1 powers of a root for each block.
    struct Pass {
        int radix, blocks;
        const Point* roots;
    };

    Point* roots_of_pass(int pass, Point* table) const;
    void forward(Point* z, int m, int pass, int block) const;
    void backward(Point* z, int m, int pass, int block) const;

    int m_, passes_;
    Pass pass_[kMostPasses];
};

#pragma GCC visibility push(hidden)
// x[k] *= y[k] * scale; y may be x.
void multiply_points(Point* x, const Point* y, int m, long double scale);
#pragma GCC visibility pop

} // namespace vor::limb

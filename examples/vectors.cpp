// Vectors from C++, with std::complex as the complex type: the coefficients of a periodic signal by
// its inner products with oscillations. Build it with
//
//     g++ -m32 vectors.cpp $(pkg-config --cflags --libs vor)
#include <complex>
#include <iostream>
#include <numbers>
#include <vector>

// The library's complex elements are pairs, real part first: any type of that layout will do.
#define VOR_SCOMPLEX std::complex<float>
#define VOR_DCOMPLEX std::complex<double>
#include <vor_blas.h>

using Complex = std::complex<double>;

static std::vector<Complex> oscillation(int n, int frequency) {
    std::vector<Complex> values;
    for (int t = 0; t < n; ++t)
        values.push_back(std::polar(1.0, 2 * std::numbers::pi * frequency * t / n));
    return values;
}

int main() {
    const int n = 48, one = 1;
    const Complex amplitudes[] = {{2, 0}, {0, -1}, {0.5, 0.25}};

    std::vector<Complex> signal(n);
    for (int k = 0; k < 3; ++k)
        zaxpy(&n, &amplitudes[k], oscillation(n, k).data(), &one, signal.data(), &one);

    int failures = 0;
    for (int k = 0; k < 4; ++k) {
        Complex coefficient;
        zdotc(&coefficient, &n, oscillation(n, k).data(), &one, signal.data(), &one);
        coefficient /= n;
        const bool good = std::abs(coefficient - (k < 3 ? amplitudes[k] : 0)) < 1e-14;
        std::cout << "frequency " << k << ": magnitude " << std::abs(coefficient)
                  << (good ? "\n" : "  WRONG\n");
        failures += !good;
    }
    return failures != 0;
}

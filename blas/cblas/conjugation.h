// Conjugated vectors. A row-major matrix lies in memory as its transpose does column-major, so that a
// conjugate transpose, or the conjugate that a Hermitian triangle turns into, is left to the vectors:
// conj(A) x = conj(A conj(x)).
#pragma once

#include "blas/cblas/interface.h"
#include "blas/level2/vector.h"
#include "serv/memory.h"

#include <stdlib.h>
#include <string.h>

namespace vor::cblas {

// z := conj(z): the sign bit of the imaginary part, so that twice is nothing at all, for NaNs too.
template <class T>
void conjugate(T& z) {
    unsigned top;
    char* const end = reinterpret_cast<char*>(&z + 1);
    memcpy(&top, end - sizeof top, sizeof top);
    top ^= 0x80000000u;
    memcpy(end - sizeof top, &top, sizeof top);
}

// conj(x) with step 1, in memory of its own until the end of the scope. An empty vector is handed on
// as it is. Without memory the call ends, the caller's arrays as they were: this has been reported
// then, as the internal condition 0.
template <class T>
class ConjugatedCopy {
public:
    ConjugatedCopy(const char* name, int n, const void* x, int inc)
        : x_(static_cast<const T*>(x)), inc_(inc) {
        if (n < 1) return;
        unsigned bytes;
        if (byte_count(static_cast<size_t>(n), sizeof(T), 0, &bytes))
            block_ = static_cast<T*>(malloc(bytes));
        failed_ = !block_;
        if (failed_)
            cblas_xerbla(name, kNoMemory);
        else
            take(n);
    }
    ~ConjugatedCopy() { free(block_); }
    ConjugatedCopy(const ConjugatedCopy&) = delete;
    ConjugatedCopy& operator=(const ConjugatedCopy&) = delete;

    explicit operator bool() const { return !failed_; }
    const T* data() const { return x_; }
    int inc() const { return inc_; }

private:
    static constexpr int kNoMemory = 0;

    void take(int n) {
        const T* from = walk_start(x_, n, inc_);
        for (int i = 0; i < n; ++i, from += inc_) conjugate(block_[i] = *from);
        x_ = block_;
        inc_ = 1;
    }

    const T* x_;
    int inc_;
    T* block_ = nullptr;
    bool failed_ = false;
};

// x := conj(x) until the end of the scope; only the elements of x are touched.
template <class T>
class ConjugatedInPlace {
public:
    ConjugatedInPlace(int n, void* x, int inc)
        : n_(n), gap_(inc > 0 ? inc : -inc), x_(static_cast<T*>(x)) {
        turn();
    }
    ~ConjugatedInPlace() { turn(); }
    ConjugatedInPlace(const ConjugatedInPlace&) = delete;
    ConjugatedInPlace& operator=(const ConjugatedInPlace&) = delete;

private:
    void turn() const {
        T* z = x_;
        for (int i = 0; i < n_; ++i, z += gap_) conjugate(*z);
    }
    int n_, gap_;
    T* x_;
};

// y := alpha * conj(A) * x + beta * y for a product(alpha, x, incx, beta) that calculates
// y := alpha * A * x + beta * y.
template <class T, class Product>
void conjugated_product(const char* name, const void* alpha, int nx, const void* x, int incx,
                        const void* beta, int ny, void* y, int incy, Product product) {
    const ConjugatedCopy<T> copy(name, nx, x, incx);
    if (!copy) return;
    const ConjugatedInPlace<T> turned(ny, y, incy);
    product(conjugated(*static_cast<const T*>(alpha)), copy.data(), copy.inc(),
            conjugated(*static_cast<const T*>(beta)));
}

} // namespace vor::cblas

// The block engine of cgemm: C := alpha * op(A) * op(B) + beta * C on the calling thread, op(A) m by k,
// op(B) k by n.
//
// m < 1 or n < 1: nothing is read or written. alpha = 0: A and B are not read. beta = 0: C is not read.
// Products with little arithmetic for their memory go to the plain loop vor_blas_cgemmpst; so does
// every product whose scratch cannot be had.
//
// Blocked, each block of C is copied to scratch times beta, in groups of 8 rows that the kernels can
// address in aligned vectors; the products of all k are added there; then it is copied back.
#include "blas/kernel/gemm_leaves.h"
#include "blas/level3/gemm_engines.h"
#include "serv/entry.h"
#include "serv/memory.h"

#include <algorithm>

namespace vor::blas {
namespace {

using Leaves = GemmLeaves<cfloat>;

// Below these the copies cost more than the kernels gain.
constexpr int kLeast = 4, kSmallSum = 50;
constexpr double kMostMemory = 0.08; // memory accesses for each operation

bool worth_blocking(int m, int n, int k) {
    if (m < kLeast || n < kLeast || k < kLeast) return false;
    if (m + n + k >= kSmallSum) return true;
    const double memory = n * (m + k) + m * k;
    const double arithmetic = 6 * m * n + 8 * m * n * (k + 1);
    return memory / arithmetic < kMostMemory;
}

// Rows i to i + m, columns j to j + n, steps l to l + k of the product.
struct Part {
    int i, m, j, n, l, k;
};

class Engine {
public:
    Engine(const char* transa, const char* transb, int k, const cfloat* alpha, const cfloat* a,
           int lda, const cfloat* b, int ldb, const cfloat* beta, cfloat* c, int ldc, void* scratch)
        : transa_(transa), transb_(transb), op_a_(op_of<cfloat>(*transa)),
          op_b_(op_of<cfloat>(*transb)), k_(k), alpha_(alpha), a_(op_a_, a, lda), lda_(lda),
          b_(op_b_, b, ldb), ldb_(ldb), beta_(beta), c_(c), ldc_(ldc) {
        const size_t base =
            (reinterpret_cast<size_t>(scratch) & ~(Leaves::alignment - 1)) + Leaves::alignment;
        a_panel_ = reinterpret_cast<float*>(base);
        b_panel_ = reinterpret_cast<float*>(base + Leaves::b_panel);
        c_block_ = reinterpret_cast<cfloat*>(base + Leaves::c_block);
    }

    void run(int m, int n) {
        for (int j = 0; j < n; j += Leaves::columns)
            for (int i = 0; i < m; i += Leaves::rows)
                block({i, std::min(Leaves::rows, m - i), j, std::min(Leaves::columns, n - j), 0,
                       Leaves::depth});
    }

private:
    void block(Part x) {
        const int full = x.m / Leaves::group * Leaves::group;
        copy_in(x, full);
        if (!is_zero(*alpha_)) {
            for (; x.l + Leaves::depth <= k_; x.l += Leaves::depth) step(x, full);
            x.k = k_ - x.l;
            if (x.k > 0) tail(x, full);
        }
        copy_out(x, full);
    }

    // A full step in k.
    void step(const Part& x, int full) {
        if (x.m >= Leaves::half) pack_b(x);
        int i = 0;
        for (; i < full; i += Leaves::group) panel(x, i, Leaves::group, Leaves::group_kernel);
        if (x.m - i >= Leaves::half) {
            panel(x, i, Leaves::half, Leaves::half_kernel);
            i += Leaves::half;
        }
        plain(x, i, x.m - i, 0);
    }

    // The last k mod 64 steps: a kernel for their multiple of 16, the plain loop for the rest.
    void tail(const Part& x, int full) {
        Part packed = x;
        packed.k = x.k / Leaves::tail_step * Leaves::tail_step;
        if (packed.k > 0 && full > 0) pack_b(packed);
        for (int i = 0; i < full; i += Leaves::group) {
            if (packed.k > 0)
                panel(packed, i, Leaves::group, Leaves::tails[packed.k / Leaves::tail_step]);
            plain(x, i, Leaves::group, packed.k);
        }
        plain(x, full, x.m - full, 0);
    }

    void pack_b(const Part& x) {
        Leaves::pack_b[index_of(op_b_)](&x.n, &x.k, &b_(x.l, x.j), &ldb_, b_panel_, &Leaves::depth);
    }

    // `rows` rows of the block from row i on, which begins a group, packed and multiplied.
    void panel(const Part& x, int i, int rows, Leaves::Kernel* kernel) {
        Leaves::pack_a[index_of(op_a_)](&a_(x.i + i, x.l), &lda_, &rows, &x.k, a_panel_, alpha_);
        kernel(&rows, &x.n, &x.k, a_panel_, b_panel_, &Leaves::depth, c_at(x, i), &Leaves::group);
    }

    // The same on the caller's A and B, without the first `skip` steps.
    void plain(const Part& x, int i, int rows, int skip) {
        constexpr cfloat kOne = {1, 0};
        const int depth = x.k - skip;
        if (rows < 1 || depth < 1) return;
        vor_blas_cgemmpst(transa_, transb_, &rows, &x.n, &depth, alpha_, &a_(x.i + i, x.l + skip),
                          &lda_, &b_(x.l + skip, x.j), &ldb_, &kOne, c_at(x, i), &Leaves::group);
    }

    cfloat* c_at(const Part& x, int i) const {
        return c_block_ + i / Leaves::group * Leaves::group * x.n + i % Leaves::group;
    }

    void copy_in(const Part& x, int full) {
        const cfloat* c = c_ + x.i + x.j * ldc_;
        const int edge = x.m - full;
        if (is_zero(*beta_)) {
            vor_blas_ccopycf0(&full, &x.n, c, &ldc_, c_block_, &Leaves::group);
            vor_blas_ccopycf0(&edge, &x.n, c + full, &ldc_, c_at(x, full), &Leaves::group);
        } else if (is_one(*beta_)) {
            vor_blas_ccopycf1(&full, &x.n, c, &ldc_, c_block_, &Leaves::group);
            vor_blas_ccopycf1(&edge, &x.n, c + full, &ldc_, c_at(x, full), &Leaves::group);
        } else {
            vor_blas_ccopycf(&full, &x.n, c, &ldc_, c_block_, &Leaves::group, beta_);
            vor_blas_ccopycf(&edge, &x.n, c + full, &ldc_, c_at(x, full), &Leaves::group, beta_);
        }
    }

    void copy_out(const Part& x, int full) {
        cfloat* c = c_ + x.i + x.j * ldc_;
        const int edge = x.m - full;
        vor_blas_ccopycr(&full, &x.n, c, &ldc_, c_block_, &Leaves::group);
        vor_blas_ccopycr(&edge, &x.n, c + full, &ldc_, c_at(x, full), &Leaves::group);
    }

    const char *transa_, *transb_;
    Op op_a_, op_b_;
    int k_;
    const cfloat* alpha_;
    Operand<cfloat> a_;
    int lda_;
    Operand<cfloat> b_;
    int ldb_;
    const cfloat* beta_;
    cfloat* c_;
    int ldc_;
    float *a_panel_, *b_panel_;
    cfloat* c_block_;
};

} // namespace

VOR_ENGINE void vor_blas_xcgemm PARAMS_XGEMM(cfloat) {
    if (*m < 1 || *n < 1) return;
    void* scratch = worth_blocking(*m, *n, *k) ? vor_serv_allocate(Leaves::bytes) : nullptr;
    if (!scratch) return vor_blas_cgemmpst ARGS_XGEMM;
    Engine(transa, transb, *k, alpha, a, *lda, b, *ldb, beta, c, *ldc, scratch).run(*m, *n);
    vor_serv_deallocate(scratch);
}

} // namespace vor::blas

// The block engines of sgemm, dgemm and zgemm: C := alpha * op(A) * op(B) + beta * C on the calling
// thread, op(A) m by k, op(B) k by n.
//
// m < 1 or n < 1: nothing is read or written. alpha = 0: A and B are not read. beta = 0: C is not read.
// k = 0: C := beta * C. If scratch cannot be had, the post-passes do the whole work.
//
// The main pass takes k in full steps of `depth`: a panel of A is packed, then one kernel call adds its
// product with all columns of the block to C. The tail pass does the last k mod depth steps over all of
// C. What fills no panel goes to a post-pass. No stage changes the order of an element's
// sum: ascending l, one rounding into C for each stage.
#include "blas/kernel/gemm_leaves.h"
#include "blas/kernel/gemm_scale.h"
#include "blas/level3/gemm_engines.h"
#include "serv/entry.h"
#include "serv/memory.h"

#include <algorithm>
#include <string.h>

namespace vor::blas {
namespace {

constexpr int kLeastDepth = 16; // of any panel

// The arguments of one call by value, with the letters decoded.
template <class T>
struct Product {
    Op op_a, op_b;
    int m, n, k;
    const T* alpha;
    const T* a;
    int lda;
    const T* b;
    int ldb;
    const T* beta;
    T* c;
    int ldc;

    const T* a_at(int i, int l) const { return &Operand<T>(op_a, a, lda)(i, l); }
    const T* b_at(int l, int j) const { return &Operand<T>(op_b, b, ldb)(l, j); }
    T* c_at(int i, int j) const { return c + i + j * ldc; }
};

// Rows i to i + m, columns j to j + n, steps l to l + k of a product.
struct Part {
    int i, m, j, n, l, k;
};

// ---- The leaves, by the letters of a product.

template <class T>
void pack_a(const Product<T>& p, const Part& x, int rows, T* panel) {
    const auto pack = GemmLeaves<T>::pack_a[index_of(p.op_a)];
    if constexpr (is_complex<T>)
        pack(p.a_at(x.i, x.l), &p.lda, &rows, &x.k, panel);
    else
        pack(p.a_at(x.i, x.l), &p.lda, &rows, &x.k, panel, p.alpha);
}

template <class T>
void pack_b(const Product<T>& p, const Part& x, T* panel, const int* ldp) {
    GemmLeaves<T>::pack_b[index_of(p.op_b)](&x.n, &x.k, p.b_at(x.l, x.j), &p.ldb, panel, ldp);
}

// The post-passes take the operands as the caller stored them.
template <class T, class Table>
void post_by(const Table& table, Op op_a, Op op_b, const int* m, const int* n, const int* k,
             const T* alpha, const T* a, const int* lda, const T* b, const int* ldb, T* c,
             const int* ldc) {
    const auto run = table[index_of(op_a)][index_of(op_b)];
    if constexpr (is_complex<T>)
        run("", "", m, n, k, alpha, a, lda, b, ldb, nullptr, c, ldc);
    else
        run(m, n, k, alpha, a, lda, b, ldb, c, ldc);
}

template <class T, class Table>
void post_by(const Table& table, const Product<T>& p, const Part& x) {
    post_by(table, p.op_a, p.op_b, &x.m, &x.n, &x.k, p.alpha, p.a_at(x.i, x.l), &p.lda,
            p.b_at(x.l, x.j), &p.ldb, p.c_at(x.i, x.j), &p.ldc);
}

template <class T>
void post(const Product<T>& p, const Part& x) {
    post_by(GemmLeaves<T>::post, p, x);
}

template <class T>
void edge(const Product<T>& p, const Part& x) {
    post_by(GemmLeaves<T>::edge, p, x);
}

// C := beta * C in front of a sum over k terms. The s engine multiplies by a beta of 1 as well, where that
// can be told from leaving C alone.
template <class T>
void scale(int m, int n, int, T beta, T* c, int ldc) {
    scale_matrix(m, n, beta, c, ldc);
}
template <>
void scale(int m, int n, int k, float beta, float* c, int ldc) {
    if (beta == 0) return vor_blas_sscalmz(&m, &n, c, &ldc);
    if (beta == 1 && k > 0 && one_is_neutral()) return;
    vor_blas_sscalm(&m, &n, &beta, c, &ldc);
}

// ---- The passes.

// The k loop of a kernel call: the columns of op(B) that it reads.
template <class T>
struct Columns {
    const T* at;
    const int* ld;
};

template <class T>
class Engine {
public:
    Engine(const Product<T>& product, T* a_panel, T* b_panel, const int* ldp)
        : p(product), a_panel_(a_panel), b_panel_(b_panel), ldp_(ldp) {}

    void run() {
        main_pass();
        const int done = p.k / Leaves::depth * Leaves::depth;
        if (done == p.k) return;
        if (p.k - done >= Leaves::padded_from) return padded_tail(done);
        tail_pass(done);
    }

private:
    using Leaves = GemmLeaves<T>;

    void main_pass() {
        for (int j = 0; j < p.n; j += Leaves::columns)
            for (int i = 0; i < p.m; i += Leaves::rows)
                block({i, std::min(Leaves::rows, p.m - i), j, std::min(Leaves::columns, p.n - j), 0,
                       Leaves::depth});
    }

    // All full steps in k of one block of C.
    void block(Part x) {
        scale(x.m, x.n, p.k, *p.beta, p.c_at(x.i, x.j), p.ldc);
        for (; x.l + x.k <= p.k; x.l += x.k) {
            Part rest = x;
            if (x.m >= Leaves::least_rows) {
                const Columns<T> b = columns(x);
                for (const auto& kernel : Leaves::panels) rest = panels(rest, kernel, b);
            }
            if (rest.m > 0) edge(p, rest);
        }
    }

    // The columns of op(B): in place if they are contiguous there, else packed.
    Columns<T> columns(const Part& x) {
        if (p.op_b == Op::plain) return {p.b_at(x.l, x.j), &p.ldb};
        pack_b(p, x, b_panel_, ldp_);
        return {b_panel_, ldp_};
    }

    // All full panels of one height; returns what is left below them.
    Part panels(Part x, const GemmKernel<T>& kernel, const Columns<T>& b) {
        for (; x.m >= kernel.rows; x.i += kernel.rows, x.m -= kernel.rows) {
            pack_a(p, x, kernel.rows, a_panel_);
            call(kernel, x, b);
        }
        return x;
    }

    void call(const GemmKernel<T>& kernel, const Part& x, const Columns<T>& b) {
        if constexpr (is_complex<T>)
            kernel.run(&x.n, a_panel_, b.at, b.ld, p.c_at(x.i, x.j), &p.ldc, p.alpha);
        else
            kernel.run(&x.n, a_panel_, b.at, b.ld, p.c_at(x.i, x.j), &p.ldc);
    }

    // Calls work(part) for all rows from i on and all steps from l to l + k, a chunk of columns each.
    template <class F>
    void chunks(int i, int l, int k, F work) {
        for (int j = 0; j < p.n; j += Leaves::tail_columns)
            work(Part{i, p.m - i, j, std::min(Leaves::tail_columns, p.n - j), l, k});
    }

    void tail_pass(int done) {
        int depth = 0;
        for (const auto& tail : Leaves::tails) {
            if (p.k - done < tail.from) continue;
            depth = tail.depth;
            const int edge_row = p.m - p.m % tail.kernel.rows;
            if (edge_row > 0)
                chunks(0, done, depth, [&](const Part& x) { panels(x, tail.kernel, columns(x)); });
            if (edge_row < p.m) chunks(edge_row, done, depth, [&](const Part& x) { post(p, x); });
            break;
        }
        if (done + depth < p.k)
            chunks(0, done + depth, p.k - done - depth, [&](Part x) {
                for (; x.i < p.m; x.i += Leaves::tail_rows) {
                    x.m = std::min(Leaves::tail_rows, p.m - x.i);
                    post(p, x);
                }
            });
    }

    // Few zeros are cheaper than a second kernel and a rest: the full kernel runs on padded panels.
    void padded_tail(int done) {
        if constexpr (!is_complex<T>) {
            const GemmKernel<T> kernel = Leaves::panels[0];
            const auto pack_a = Leaves::pack_a_padded[index_of(p.op_a)];
            const auto pack_b = Leaves::pack_b_padded[index_of(p.op_b)];
            const int k = p.k - done;
            if (p.m >= kernel.rows)
                memset(a_panel_, 0, sizeof(T) * static_cast<size_t>(kernel.rows * Leaves::depth));
            chunks(0, done, k, [&](Part x) {
                if (x.m >= kernel.rows)
                    pack_b(&x.n, &k, &Leaves::depth, p.b_at(x.l, x.j), &p.ldb, b_panel_, ldp_);
                for (; x.m >= kernel.rows; x.i += kernel.rows, x.m -= kernel.rows) {
                    pack_a(p.a_at(x.i, x.l), &p.lda, &kernel.rows, &k, &Leaves::depth, a_panel_,
                           p.alpha);
                    call(kernel, x, {b_panel_, ldp_});
                }
                if (x.m > 0) post(p, x);
            });
        }
    }

    const Product<T>& p;
    T* a_panel_;
    T* b_panel_;
    const int* ldp_;
};

// True if alpha is 0 or the product is empty: then all that is to be done is done.
template <class T>
bool trivial(int m, int n, T alpha, T beta, T* c, int ldc) {
    if (m < 1 || n < 1) return true;
    if (!is_zero(alpha)) return false;
    if (!is_one(beta)) scale(m, n, 0, beta, c, ldc);
    return true;
}

// A product without panels, of one chunk of rows: its passes come down to one post-pass.
template <class T>
bool small(int m, int k) {
    return k < kLeastDepth && m <= GemmLeaves<T>::tail_rows;
}

// The post-passes alone.
template <class T>
void multiply_plain PARAMS_XGEMM(T) {
    scale(*m, *n, *k, *beta, c, *ldc);
    if (*k > 0)
        post_by(GemmLeaves<T>::post, op_of<T>(*transa), op_of<T>(*transb), m, n, k, alpha, a, lda,
                b, ldb, c, ldc);
}

// Out of line: a small product does not wait for the preparations of a large one.
template <class T>
[[gnu::noinline]] void multiply_in_passes PARAMS_XGEMM_1(T) {
    const Op op_a = op_of<T>(*transa), op_b = op_of<T>(*transb);
    const Product<T> product = {op_a, op_b, *m, *n, *k, alpha, a, *lda, b, *ldb, beta, c, *ldc};
    Engine<T>(product, a_panel, b_panel, ldp).run();
}

// The passes, if they are any different from the post-passes and if there are panels for them.
template <class T>
void multiply_in_panels PARAMS_XGEMM_1(T) {
    if (trivial(*m, *n, *alpha, *beta, c, *ldc)) return;
    if (!a_panel || !b_panel || small<T>(*m, *k)) return multiply_plain<T> ARGS_XGEMM;
    multiply_in_passes<T> ARGS_XGEMM_1;
}

// The two scratch panels of one call.
template <class T>
class Panels {
public:
    Panels()
        : a_(vor_serv_allocate(GemmLeaves<T>::a_bytes)),
          b_(vor_serv_allocate(GemmLeaves<T>::b_bytes)) {}
    ~Panels() {
        if (b_) vor_serv_deallocate(b_);
        if (a_) vor_serv_deallocate(a_);
    }
    Panels(const Panels&) = delete;
    Panels& operator=(const Panels&) = delete;
    T* a() const { return aligned(a_); }
    T* b() const { return aligned(b_); }

private:
    static T* aligned(void* block) {
        constexpr size_t step = GemmLeaves<T>::alignment;
        return reinterpret_cast<T*>((reinterpret_cast<size_t>(block) + step - 1) & ~(step - 1));
    }
    void *a_, *b_;
};

} // namespace

// d and z take their panels before any test, and do the work in a routine that is given them.
#define ENGINE(name, inner, T)                                                                     \
    VOR_ENGINE void inner PARAMS_XGEMM_1(T) {                                                      \
        multiply_in_panels<T> ARGS_XGEMM_1;                                                        \
    }                                                                                              \
    VOR_ENGINE void name PARAMS_XGEMM(T) {                                                         \
        const Panels<T> panels;                                                                    \
        inner(transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc, panels.a(),            \
              panels.b(), &GemmLeaves<T>::depth);                                                  \
    }
ENGINE(vor_blas_xdgemm, vor_blas_xdgemm_1, double)
ENGINE(vor_blas_xzgemm, vor_blas_xzgemm_1, cdouble)

VOR_ENGINE void vor_blas_xsgemm PARAMS_XGEMM(float) {
    if (trivial(*m, *n, *alpha, *beta, c, *ldc)) return;
    // Without panels there is no need for scratch, and small products would mostly wait for it.
    if (small<float>(*m, *k)) return multiply_plain<float> ARGS_XGEMM;
    if (*m < GemmLeaves<float>::least_rows)
        return multiply_in_passes<float>(transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c,
                                         ldc, nullptr, nullptr, nullptr);
    const Panels<float> panels;
    multiply_in_panels(transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc, panels.a(),
                       panels.b(), &GemmLeaves<float>::depth);
}

} // namespace vor::blas

// The block engines of sgemm, dgemm and zgemm: C := alpha * op(A) * op(B) + beta * C on the calling
// thread, op(A) m by k, op(B) k by n.
//
// m < 1 or n < 1: nothing is read or written. alpha = 0: A and B are not read. beta = 0: C is not read.
// k = 0: C := beta * C. If scratch cannot be had, the post-passes do the whole work.
//
// The main pass takes k in full steps of Blocking::depth: a panel of A is packed, then one kernel call
// adds its product with all columns of the block to C. The tail pass does the last k mod depth steps
// over all of C. What fills no panel goes to a post-pass. No stage changes the order of an element's
// sum: ascending l, one rounding into C for each stage.
#include "blas/kernel/gemm_kernels.h"
#include "blas/kernel/gemm_operand.h"
#include "blas/kernel/gemm_scale.h"
#include "blas/level3/gemm_engines.h"
#include "blas/level3/gemm_pack.h"
#include "serv/entry.h"
#include "serv/memory.h"

#include <algorithm>

namespace {

using vor::cdouble;
using vor::Op;

template <class T>
struct Kernel {
    using Real = void PARAMS_GEMM_KERNEL(T);
    using Complex = void PARAMS_GEMM_KERNEL_Z(T);
    using Function = std::conditional_t<vor::is_complex<T>, Complex, Real>;
    int rows;
    Function* run;
};

// A tail of `from` or more steps (and fewer than the next row of the table says) runs `depth` of them
// in panels.
template <class T>
struct Tail {
    int from, depth;
    Kernel<T> kernel;
};

template <class T>
struct Blocking;

constexpr int kLeastDepth = 16; // of any panel

template <>
struct Blocking<float> {
    static constexpr int rows = 256, columns = 256, depth = 64, least_rows = 16;
    static constexpr int tail_columns = 256, tail_rows = 32, padded_from = 58;
    static constexpr unsigned a_bytes = 8320, b_bytes = 0x10080, alignment = 32;
    static constexpr Kernel<float> panels[] = {{32, vor_blas_sin32_64}, {16, vor_blas_sin16_64}};
    static constexpr Tail<float> tails[] = {{48, 48, {32, vor_blas_sin32_48}},
                                            {32, 32, {32, vor_blas_sin32_32}},
                                            {16, 16, {32, vor_blas_sin32_16}}};
};

template <>
struct Blocking<double> {
    static constexpr int rows = 128, columns = 128, depth = 64, least_rows = 4;
    static constexpr int tail_columns = 256, tail_rows = 32, padded_from = 58;
    static constexpr unsigned a_bytes = 8208, b_bytes = 0x20010, alignment = 1;
    static constexpr Kernel<double> panels[] = {
        {16, vor_blas_din16_64}, {8, vor_blas_din8_64}, {4, vor_blas_din4_64}};
    static constexpr Tail<double> tails[] = {{48, 48, {16, vor_blas_din16_48}},
                                             {32, 32, {32, vor_blas_din32_32}},
                                             {16, 16, {32, vor_blas_din32_16}}};
};

template <>
struct Blocking<cdouble> {
    static constexpr int rows = 128, columns = 64, depth = 32, least_rows = 4;
    static constexpr int tail_columns = 128, tail_rows = 32, padded_from = depth;
    static constexpr unsigned a_bytes = 8208, b_bytes = 0x10010, alignment = 1;
    static constexpr Kernel<cdouble> panels[] = {
        {16, vor_blas_zin16_32}, {8, vor_blas_zin8_32}, {4, vor_blas_zin4_32}};
    static constexpr Tail<cdouble> tails[] = {{24, 24, {16, vor_blas_zin16_24}},
                                              {16, 16, {32, vor_blas_zin32_16}}};
};

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

    const T* a_at(int i, int l) const { return &vor::Operand<T>(op_a, a, lda)(i, l); }
    const T* b_at(int l, int j) const { return &vor::Operand<T>(op_b, b, ldb)(l, j); }
    T* c_at(int i, int j) const { return c + i + j * ldc; }
};

// Rows i to i + m, columns j to j + n, steps l to l + k of a product.
struct Part {
    int i, m, j, n, l, k;
};

// ---- The leaves by type and letter.

void pack_a(const Product<float>& p, const Part& x, int rows, float* panel) {
    (p.op_a == Op::plain ? vor_blas_sgtran : vor_blas_sgtrat)(p.a_at(x.i, x.l), &p.lda, &rows, &x.k,
                                                              panel, p.alpha);
}
void pack_a(const Product<double>& p, const Part& x, int rows, double* panel) {
    (p.op_a == Op::plain ? vor_blas_dgtran : vor_blas_dgtrat)(p.a_at(x.i, x.l), &p.lda, &rows, &x.k,
                                                              panel, p.alpha);
}
void pack_a(const Product<cdouble>& p, const Part& x, int rows, cdouble* panel) {
    constexpr decltype(&vor_blas_zgtran) by_op[] = {vor_blas_zgtran, vor_blas_zgtrat,
                                                    vor_blas_zgtrac};
    by_op[static_cast<int>(p.op_a)](p.a_at(x.i, x.l), &p.lda, &rows, &x.k, panel);
}

void pack_a_padded(const Product<float>& p, const Part& x, int rows, int depth, float* panel) {
    (p.op_a == Op::plain ? vor_blas_sgtranp : vor_blas_sgtratp)(p.a_at(x.i, x.l), &p.lda, &rows,
                                                                &x.k, &depth, panel, p.alpha);
}
void pack_a_padded(const Product<double>& p, const Part& x, int rows, int depth, double* panel) {
    (p.op_a == Op::plain ? vor_blas_dgtranp : vor_blas_dgtratp)(p.a_at(x.i, x.l), &p.lda, &rows,
                                                                &x.k, &depth, panel, p.alpha);
}

void pack_b(const Product<float>& p, const Part& x, float* panel, const int* ldp) {
    vor_blas_sgtrbn(&x.n, &x.k, p.b_at(x.l, x.j), &p.ldb, panel, ldp);
}
void pack_b(const Product<double>& p, const Part& x, double* panel, const int* ldp) {
    vor_blas_dgtrbn(&x.n, &x.k, p.b_at(x.l, x.j), &p.ldb, panel, ldp);
}
void pack_b(const Product<cdouble>& p, const Part& x, cdouble* panel, const int* ldp) {
    (p.op_b == Op::transposed ? vor_blas_zgtrbt : vor_blas_zgtrbc)(&x.n, &x.k, p.b_at(x.l, x.j),
                                                                   &p.ldb, panel, ldp);
}

void pack_b_padded(const Product<float>& p, const Part& x, int depth, float* panel,
                   const int* ldp) {
    (p.op_b == Op::plain ? vor_blas_sgtrbnp : vor_blas_sgtrbtp)(
        &x.n, &x.k, &depth, p.b_at(x.l, x.j), &p.ldb, panel, ldp);
}
void pack_b_padded(const Product<double>& p, const Part& x, int depth, double* panel,
                   const int* ldp) {
    (p.op_b == Op::plain ? vor_blas_dgtrbnp : vor_blas_dgtrbtp)(
        &x.n, &x.k, &depth, p.b_at(x.l, x.j), &p.ldb, panel, ldp);
}

// The post-passes take the operands as the caller stored them: kPost[op_a][op_b], and kEdge for the edge
// rows of a full step in k.
using PostS = void PARAMS_GEMM_POST(float);
using PostD = void PARAMS_GEMM_POST(double);
using PostZ = void PARAMS_XGEMM(cdouble);
template <class T>
constexpr int kPost = 0;
template <>
constexpr PostS* kPost<float>[2][2] = {{vor_blas_spst_nnk, vor_blas_spst_ntk},
                                       {vor_blas_spst_tnk, vor_blas_spst_ttk}};
template <>
constexpr PostD* kPost<double>[2][2] = {{vor_blas_dpst_nnk, vor_blas_dpst_ntk},
                                        {vor_blas_dpst_tnk, vor_blas_dpst_ttk}};
template <>
constexpr PostZ* kPost<cdouble>[3][3] = {{vor_blas_zpst_nn, vor_blas_zpst_nt, vor_blas_zpst_nc},
                                         {vor_blas_zpst_tn, vor_blas_zpst_tt, vor_blas_zpst_tc},
                                         {vor_blas_zpst_cn, vor_blas_zpst_ct, vor_blas_zpst_cc}};
template <class T>
constexpr auto& kEdge = kPost<T>;
constexpr PostD* kFewRows[2][2] = {{vor_blas_dpst_nnm, vor_blas_dpst_ntm},
                                   {vor_blas_dpst_tnm, vor_blas_dpst_ttm}};
template <>
constexpr auto& kEdge<double> = kFewRows;

template <class T, class Table>
void post_by(const Table& table, Op op_a, Op op_b, const int* m, const int* n, const int* k,
             const T* alpha, const T* a, const int* lda, const T* b, const int* ldb, T* c,
             const int* ldc) {
    const auto run = table[static_cast<int>(op_a)][static_cast<int>(op_b)];
    if constexpr (vor::is_complex<T>)
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
    post_by(kPost<T>, p, x);
}

template <class T>
void edge(const Product<T>& p, const Part& x) {
    post_by(kEdge<T>, p, x);
}

// The s engine multiplies by a beta of 1 as well.
template <class T>
void scale(int m, int n, T beta, T* c, int ldc) {
    vor::scale_matrix(m, n, beta, c, ldc);
}
template <>
void scale(int m, int n, float beta, float* c, int ldc) {
    if (beta == 0)
        vor_blas_sscalmz(&m, &n, c, &ldc);
    else
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
        const int done = p.k / Block::depth * Block::depth;
        if (done == p.k) return;
        if (p.k - done >= Block::padded_from) return padded_tail(done);
        tail_pass(done);
    }

private:
    using Block = Blocking<T>;

    void main_pass() {
        for (int j = 0; j < p.n; j += Block::columns)
            for (int i = 0; i < p.m; i += Block::rows)
                block({i, std::min(Block::rows, p.m - i), j, std::min(Block::columns, p.n - j), 0,
                       Block::depth});
    }

    // All full steps in k of one block of C.
    void block(Part x) {
        scale(x.m, x.n, *p.beta, p.c_at(x.i, x.j), p.ldc);
        for (; x.l + x.k <= p.k; x.l += x.k) {
            Part rest = x;
            if (x.m >= Block::least_rows) {
                const Columns<T> b = columns(x);
                for (const auto& kernel : Block::panels) rest = panels(rest, kernel, b);
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
    Part panels(Part x, const Kernel<T>& kernel, const Columns<T>& b) {
        for (; x.m >= kernel.rows; x.i += kernel.rows, x.m -= kernel.rows) {
            pack_a(p, x, kernel.rows, a_panel_);
            call(kernel, x, b);
        }
        return x;
    }

    void call(const Kernel<T>& kernel, const Part& x, const Columns<T>& b) {
        if constexpr (vor::is_complex<T>)
            kernel.run(&x.n, a_panel_, b.at, b.ld, p.c_at(x.i, x.j), &p.ldc, p.alpha);
        else
            kernel.run(&x.n, a_panel_, b.at, b.ld, p.c_at(x.i, x.j), &p.ldc);
    }

    // Calls work(part) for all rows from i on and all steps from l to l + k, a chunk of columns each.
    template <class F>
    void chunks(int i, int l, int k, F work) {
        for (int j = 0; j < p.n; j += Block::tail_columns)
            work(Part{i, p.m - i, j, std::min(Block::tail_columns, p.n - j), l, k});
    }

    void tail_pass(int done) {
        int depth = 0;
        for (const auto& tail : Block::tails) {
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
                for (; x.i < p.m; x.i += Block::tail_rows) {
                    x.m = std::min(Block::tail_rows, p.m - x.i);
                    post(p, x);
                }
            });
    }

    // Few zeros are cheaper than a second kernel and a rest: the full kernel runs on padded panels.
    void padded_tail(int done) {
        if constexpr (!vor::is_complex<T>) {
            const Kernel<T> kernel = Block::panels[0];
            const int depth = p.k - done;
            if (p.m >= kernel.rows)
                memset(a_panel_, 0, sizeof(T) * static_cast<size_t>(kernel.rows * Block::depth));
            chunks(0, done, depth, [&](Part x) {
                if (x.m >= kernel.rows) pack_b_padded(p, x, Block::depth, b_panel_, ldp_);
                for (; x.m >= kernel.rows; x.i += kernel.rows, x.m -= kernel.rows) {
                    pack_a_padded(p, x, kernel.rows, Block::depth, a_panel_);
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
    if (!vor::is_zero(alpha)) return false;
    if (!vor::is_one(beta)) scale(m, n, beta, c, ldc);
    return true;
}

// A product without panels, of one chunk of rows: its passes come down to one post-pass.
template <class T>
bool small(int m, int k) {
    return k < kLeastDepth && m <= Blocking<T>::tail_rows;
}

// The post-passes alone.
template <class T>
void multiply_plain PARAMS_XGEMM(T) {
    scale(*m, *n, *beta, c, *ldc);
    if (*k > 0)
        post_by(kPost<T>, vor::op_of<T>(*transa), vor::op_of<T>(*transb), m, n, k, alpha, a, lda, b,
                ldb, c, ldc);
}

// Out of line: a small product does not wait for the preparations of a large one.
template <class T>
[[gnu::noinline]] void multiply_in_passes PARAMS_XGEMM_1(T) {
    const Product<T> product = {vor::op_of<T>(*transa),
                                vor::op_of<T>(*transb),
                                *m,
                                *n,
                                *k,
                                alpha,
                                a,
                                *lda,
                                b,
                                *ldb,
                                beta,
                                c,
                                *ldc};
    Engine<T>(product, a_panel, b_panel, ldp).run();
}

// The passes, if they are any different from the post-passes and if there are panels for them.
template <class T>
void multiply PARAMS_XGEMM_1(T) {
    if (trivial(*m, *n, *alpha, *beta, c, *ldc)) return;
    if (!a_panel || !b_panel || small<T>(*m, *k)) return multiply_plain<T> ARGS_XGEMM;
    multiply_in_passes<T> ARGS_XGEMM_1;
}

// The two scratch panels of one call.
template <class T>
class Panels {
public:
    Panels()
        : a_(vor_serv_allocate(Blocking<T>::a_bytes)), b_(vor_serv_allocate(Blocking<T>::b_bytes)) {
    }
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
        constexpr size_t step = Blocking<T>::alignment;
        return reinterpret_cast<T*>((reinterpret_cast<size_t>(block) + step - 1) & ~(step - 1));
    }
    void *a_, *b_;
};

template <class T>
constexpr int kPanelLd = Blocking<T>::depth;

} // namespace

// d and z take their panels before any test, and do the work in a routine that is given them.
#define ENGINE(p, T)                                                                               \
    VOR_ENGINE void vor_blas_x##p##gemm_1 PARAMS_XGEMM_1(T) {                                      \
        multiply<T> ARGS_XGEMM_1;                                                                  \
    }                                                                                              \
    VOR_ENGINE void vor_blas_x##p##gemm PARAMS_XGEMM(T) {                                          \
        const Panels<T> panels;                                                                    \
        vor_blas_x##p##gemm_1(transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc,        \
                              panels.a(), panels.b(), &kPanelLd<T>);                               \
    }
ENGINE(d, double)
ENGINE(z, cdouble)

VOR_ENGINE void vor_blas_xsgemm PARAMS_XGEMM(float) {
    if (trivial(*m, *n, *alpha, *beta, c, *ldc)) return;
    // Without panels there is no need for scratch, and small products would mostly wait for it.
    if (small<float>(*m, *k)) return multiply_plain<float> ARGS_XGEMM;
    if (*m < Blocking<float>::least_rows)
        return multiply_in_passes<float>(transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c,
                                         ldc, nullptr, nullptr, nullptr);
    const Panels<float> panels;
    multiply(transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc, panels.a(), panels.b(),
             &kPanelLd<float>);
}

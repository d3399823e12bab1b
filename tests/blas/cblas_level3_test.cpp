// The Level 3 routines for C, in both orders.
#include "tests/blas/cblas.h"

using namespace vor::test;

namespace {

template <class T>
class CblasLevel3 : public CblasTest<T> {};
TYPED_TEST_SUITE(CblasLevel3, Elements);

constexpr int kShapes[][2] = {{1, 1}, {3, 5}, {6, 2}, {4, 4}, {0, 3}, {3, 0}};

// op(A) m by n, as it is stored.
Ordered stored(CBLAS_TRANSPOSE trans, int m, int n) {
    return trans == CblasNoTrans ? in_order(m, n) : in_order(n, m);
}

TYPED_TEST(CblasLevel3, General) {
    using T = TypeParam;
    using D = Operands<T>;
    for (const CBLAS_TRANSPOSE transa : kTransposes)
        for (const CBLAS_TRANSPOSE transb : kTransposes)
            for (const auto& [m, n] : kShapes)
                for (const int k : {0, 1, 4})
                    this->compare(BOTH_ALL(gemm),
                                  {stored(transa, m, k), stored(transb, k, n), in_order(m, n)},
                                  transa, transb, m, n, k, &D::alpha, &D::a, &D::b, &D::beta,
                                  &D::c);
}

TYPED_TEST(CblasLevel3, SymmetricFactor) {
    using T = TypeParam;
    using D = Operands<T>;
    for (const CBLAS_SIDE side : kSides)
        for (const CBLAS_UPLO uplo : kTriangles)
            for (const auto& [m, n] : kShapes) {
                typename CblasTest<T>::Problem p{
                    in_order(Kind::full, uplo, side == CblasLeft ? m : n), in_order(m, n),
                    in_order(m, n)};
                this->compare(BOTH_ALL(symm), p, side, uplo, m, n, &D::alpha, &D::a, &D::b,
                              &D::beta, &D::c);
                p.adjust = this->poison_diagonal;
                if constexpr (vor::is_complex<T>)
                    this->compare(BOTH_COMPLEX(hemm), p, side, uplo, m, n, &D::alpha, &D::a, &D::b,
                                  &D::beta, &D::c);
            }
}

TYPED_TEST(CblasLevel3, SymmetricResult) {
    using T = TypeParam;
    using D = Operands<T>;
    for (const CBLAS_UPLO uplo : kTriangles)
        for (const CBLAS_TRANSPOSE trans : kTransposes)
            for (const auto& [n, k] : kShapes) {
                const typename CblasTest<T>::Problem p{stored(trans, n, k), stored(trans, n, k),
                                                       in_order(Kind::full, uplo, n)};
                if (!vor::is_complex<T> || trans != CblasConjTrans) {
                    this->compare(BOTH_ALL(syrk), p, uplo, trans, n, k, &D::alpha, &D::a, &D::beta,
                                  &D::c);
                    this->compare(BOTH_ALL(syr2k), p, uplo, trans, n, k, &D::alpha, &D::a, &D::b,
                                  &D::beta, &D::c);
                }
                if constexpr (vor::is_complex<T>) {
                    if (trans == CblasTrans) continue;
                    this->compare(BOTH_COMPLEX(herk), p, uplo, trans, n, k, &D::real_alpha, &D::a,
                                  &D::real_beta, &D::c);
                    this->compare(BOTH_COMPLEX(her2k), p, uplo, trans, n, k, &D::alpha, &D::a,
                                  &D::b, &D::real_beta, &D::c);
                }
            }
}

TYPED_TEST(CblasLevel3, TriangularFactor) {
    using T = TypeParam;
    using D = Operands<T>;
    for (const CBLAS_SIDE side : kSides)
        for (const CBLAS_UPLO uplo : kTriangles)
            for (const CBLAS_TRANSPOSE trans : kTransposes)
                for (const CBLAS_DIAG diag : kDiagonals)
                    for (const auto& [m, n] : kShapes) {
                        const typename CblasTest<T>::Problem p{
                            .a = in_order(Kind::full, uplo, side == CblasLeft ? m : n),
                            .b = in_order(m, n),
                            .adjust = this->pivots(diag)};
                        for (const auto& routine : {BOTH_ALL(trmm), BOTH_ALL(trsm)})
                            this->compare(routine, p, side, uplo, trans, diag, m, n, &D::alpha,
                                          &D::a, &D::b);
                    }
}

} // namespace

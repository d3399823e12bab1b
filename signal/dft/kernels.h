// The DFT kernels, tables and drivers by name.
//
// n, f, r, v, strides and counts are in elements. Scratch of the table radices holds f - 1 complex
// elements; that of a whole direct sum n. Source and destination may be the same array in the
// complex stages, the out-of-order kernels and the whole transforms.
#pragma once

#include "vor_signal.h"

namespace vor::dft::names {

// ---- Types of the complex kernels.

// In-order stages: `blocks` blocks of f * r elements, one after the other; by a table one block.
template <class C>
using Stage = void(const C* source, C* destination, int r, int blocks, const C* twiddle);
template <class C>
using TableStage = void(const C* source, C* destination, int f, int r, const C* table,
                        const C* twiddle, void* scratch);
// Leaves: c transforms of stride p * c and start t * p for each block; block b reads at offsets[b] and
// writes behind the block before it.
template <class E>
using Leaf = void(const E* source, int p, E* destination, int c, int blocks, const int* offsets);
template <class E, class C>
using TableLeaf = void(const E* source, int p, E* destination, int r, int c, const C* table,
                       void* scratch);
// Out-of-order stages: blocks `first` to `first + blocks - 1` of f * v elements, one set of twiddles each.
template <class C>
using OutStage = void(const C* source, C* destination, int v, int first, int blocks,
                      const C* twiddle);
template <class C>
using OutTableStage = void(const C* source, C* destination, int f, int v, int block, const C* table,
                           const C* twiddle, void* scratch);
template <class C>
using OutLeaf = void(const C* source, C* destination, int v);
template <class C>
using OutTableLeaf = void(const C* source, C* destination, int r, int v, const C* table,
                          void* scratch);

// ---- Real kernels, odd lengths. Half-complex form of length r: re X[0], then re X[k], im X[k] for k = 1
// to (r-1)/2. Forward stages combine f half-complex sub-blocks of length r, forward leaves read reals with
// strides; the inverse ones split and scatter. The arrays do not overlap.

template <class T, class C>
using RealStage = void(const T* source, T* destination, int r, int blocks, const C* twiddle);
template <class T, class C>
using RealTableStage = void(const T* source, T* destination, int f, int r, const C* table,
                            const C* twiddle, void* scratch);

// ---- Whole transforms (direction above 0: forward).

template <class E>
using Staged = void(const DftCtx* object, const E* source, E* destination, void* work);
template <class C>
using Direct = void(const C* source, C* destination, int n, int direction, const C* table,
                    void* scratch);
template <class T, class C>
using RealDirect = void(const T* source, T* destination, int n, const C* table, void* scratch);
template <class C>
using Chirp = TavStatus(const DftCtx* object, const C* source, C* destination, int n, int direction,
                        void* work);
template <class T>
using RealChirp = TavStatus(const DftCtx* object, const T* source, T* destination, void* work);

// ---- Operations on n elements, plans, tables. Tables that cannot be had are null.

template <class C>
using Product = void(const C* a, const C* b, C* c, int n);
template <class C>
using Conjugate = void(const C* a, C* b, int n);
template <class C>
using Zero = void(C* a, int n);
template <class C>
using InitPlan = TavStatus(DftCtx* object, int n, const C* base, int baseLength);
template <class C>
using BaseTable = C*(int n);
template <class C>
using DirectTable = C*(const C* base, int n, int step);
template <class C>
using RecombinationTable = C*(const C* base, int n);
template <class C>
using RecombineForward = void(C* data, int n, const C* table);
template <class C>
using RecombineInverse = void(const C* source, C* destination, int n, const C* table);

extern "C" {

Stage<VOR_SCOMPLEX> tavs_cDftFwd_Fact2_32fc, tavs_cDftFwd_Fact3_32fc, tavs_cDftFwd_Fact4_32fc,
    tavs_cDftFwd_Fact5_32fc, tavs_cDftInv_Fact2_32fc, tavs_cDftInv_Fact3_32fc,
    tavs_cDftInv_Fact4_32fc, tavs_cDftInv_Fact5_32fc;
TableStage<VOR_SCOMPLEX> tavs_cDftFwd_Fact_32fc, tavs_cDftInv_Fact_32fc;
Leaf<VOR_SCOMPLEX> tavs_cDftFwd_Prime3_32fc, tavs_cDftFwd_Prime5_32fc, tavs_cDftInv_Prime3_32fc,
    tavs_cDftInv_Prime5_32fc;
TableLeaf<VOR_SCOMPLEX, VOR_SCOMPLEX> tavs_cDftFwd_Prime_32fc, tavs_cDftInv_Prime_32fc;
OutStage<VOR_SCOMPLEX> tavs_cDftOutOrdFwd_Fact2_32fc, tavs_cDftOutOrdFwd_Fact3_32fc,
    tavs_cDftOutOrdFwd_Fact4_32fc, tavs_cDftOutOrdFwd_Fact5_32fc, tavs_cDftOutOrdInv_Fact2_32fc,
    tavs_cDftOutOrdInv_Fact3_32fc, tavs_cDftOutOrdInv_Fact4_32fc, tavs_cDftOutOrdInv_Fact5_32fc;
OutTableStage<VOR_SCOMPLEX> tavs_cDftOutOrdFwd_Fact_32fc, tavs_cDftOutOrdInv_Fact_32fc;
OutLeaf<VOR_SCOMPLEX> tavs_cDftOutOrdFwd_Prime3_32fc, tavs_cDftOutOrdFwd_Prime5_32fc,
    tavs_cDftOutOrdInv_Prime3_32fc, tavs_cDftOutOrdInv_Prime5_32fc;
OutTableLeaf<VOR_SCOMPLEX> tavs_cDftOutOrdFwd_Prime_32fc, tavs_cDftOutOrdInv_Prime_32fc;
RealStage<float, VOR_SCOMPLEX> tavs_rDftFwd_Fact3_32f, tavs_rDftFwd_Fact5_32f,
    tavs_rDftInv_Fact3_32f, tavs_rDftInv_Fact5_32f;
RealTableStage<float, VOR_SCOMPLEX> tavs_rDftFwd_Fact_32f, tavs_rDftInv_Fact_32f;
Leaf<float> tavs_rDftFwd_Prime3_32f, tavs_rDftFwd_Prime5_32f, tavs_rDftInv_Prime3_32f,
    tavs_rDftInv_Prime5_32f;
TableLeaf<float, VOR_SCOMPLEX> tavs_rDftFwd_Prime_32f, tavs_rDftInv_Prime_32f;
Staged<VOR_SCOMPLEX> tavs_cDftFwd_PrimeFact_32fc, tavs_cDftInv_PrimeFact_32fc,
    tavs_cDftFwd_OutOrd_32fc, tavs_cDftInv_OutOrd_32fc;
Staged<float> tavs_rDftFwd_PrimeFact_32f, tavs_rDftInv_PrimeFact_32f;
Direct<VOR_SCOMPLEX> tavs_cDft_Dir_32fc;
RealDirect<float, VOR_SCOMPLEX> tavs_rDftFwd_Dir_32f, tavs_rDftInv_Dir_32f;
Chirp<VOR_SCOMPLEX> tavs_cDft_Conv_32fc;
RealChirp<float> tavs_rDftFwd_Conv_32f, tavs_rDftInv_Conv_32f;
Product<VOR_SCOMPLEX> tavs_cbMpy3_32fc;
Conjugate<VOR_SCOMPLEX> tavs_cbConj2_32fc;
Zero<VOR_SCOMPLEX> tavs_cbZero_32fc;
InitPlan<VOR_SCOMPLEX> tavs_initDftPrimeFact_32f, tavs_initDftConv_32f;
BaseTable<VOR_SCOMPLEX> tavs_createTabDftBase_32f;
DirectTable<VOR_SCOMPLEX> tavs_createTabDftDir_32f;
RecombinationTable<VOR_SCOMPLEX> tavs_createTabDftFwdRec_32f, tavs_createTabDftInvRec_32f;
RecombineForward<VOR_SCOMPLEX> tavs_rDftFwdRecombine_32f;
RecombineInverse<VOR_SCOMPLEX> tavs_rDftInvRecombine_32f;

Stage<VOR_DCOMPLEX> tavs_cDftFwd_Fact2_64fc, tavs_cDftFwd_Fact3_64fc, tavs_cDftFwd_Fact4_64fc,
    tavs_cDftFwd_Fact5_64fc, tavs_cDftInv_Fact2_64fc, tavs_cDftInv_Fact3_64fc,
    tavs_cDftInv_Fact4_64fc, tavs_cDftInv_Fact5_64fc;
TableStage<VOR_DCOMPLEX> tavs_cDftFwd_Fact_64fc, tavs_cDftInv_Fact_64fc;
Leaf<VOR_DCOMPLEX> tavs_cDftFwd_Prime3_64fc, tavs_cDftFwd_Prime5_64fc, tavs_cDftInv_Prime3_64fc,
    tavs_cDftInv_Prime5_64fc;
TableLeaf<VOR_DCOMPLEX, VOR_DCOMPLEX> tavs_cDftFwd_Prime_64fc, tavs_cDftInv_Prime_64fc;
OutStage<VOR_DCOMPLEX> tavs_cDftOutOrdFwd_Fact2_64fc, tavs_cDftOutOrdFwd_Fact3_64fc,
    tavs_cDftOutOrdFwd_Fact4_64fc, tavs_cDftOutOrdFwd_Fact5_64fc, tavs_cDftOutOrdInv_Fact2_64fc,
    tavs_cDftOutOrdInv_Fact3_64fc, tavs_cDftOutOrdInv_Fact4_64fc, tavs_cDftOutOrdInv_Fact5_64fc;
OutTableStage<VOR_DCOMPLEX> tavs_cDftOutOrdFwd_Fact_64fc, tavs_cDftOutOrdInv_Fact_64fc;
OutLeaf<VOR_DCOMPLEX> tavs_cDftOutOrdFwd_Prime3_64fc, tavs_cDftOutOrdFwd_Prime5_64fc,
    tavs_cDftOutOrdInv_Prime3_64fc, tavs_cDftOutOrdInv_Prime5_64fc;
OutTableLeaf<VOR_DCOMPLEX> tavs_cDftOutOrdFwd_Prime_64fc, tavs_cDftOutOrdInv_Prime_64fc;
RealStage<double, VOR_DCOMPLEX> tavs_rDftFwd_Fact3_64f, tavs_rDftFwd_Fact5_64f,
    tavs_rDftInv_Fact3_64f, tavs_rDftInv_Fact5_64f;
RealTableStage<double, VOR_DCOMPLEX> tavs_rDftFwd_Fact_64f, tavs_rDftInv_Fact_64f;
Leaf<double> tavs_rDftFwd_Prime3_64f, tavs_rDftFwd_Prime5_64f, tavs_rDftInv_Prime3_64f,
    tavs_rDftInv_Prime5_64f;
TableLeaf<double, VOR_DCOMPLEX> tavs_rDftFwd_Prime_64f, tavs_rDftInv_Prime_64f;
Staged<VOR_DCOMPLEX> tavs_cDftFwd_PrimeFact_64fc, tavs_cDftInv_PrimeFact_64fc,
    tavs_cDftFwd_OutOrd_64fc, tavs_cDftInv_OutOrd_64fc;
Staged<double> tavs_rDftFwd_PrimeFact_64f, tavs_rDftInv_PrimeFact_64f;
Direct<VOR_DCOMPLEX> tavs_cDft_Dir_64fc;
RealDirect<double, VOR_DCOMPLEX> tavs_rDftFwd_Dir_64f, tavs_rDftInv_Dir_64f;
Chirp<VOR_DCOMPLEX> tavs_cDft_Conv_64fc;
RealChirp<double> tavs_rDftFwd_Conv_64f, tavs_rDftInv_Conv_64f;
Product<VOR_DCOMPLEX> tavs_cbMpy3_64fc;
Conjugate<VOR_DCOMPLEX> tavs_cbConj2_64fc;
Zero<VOR_DCOMPLEX> tavs_cbZero_64fc;
InitPlan<VOR_DCOMPLEX> tavs_initDftPrimeFact_64f, tavs_initDftConv_64f;
BaseTable<VOR_DCOMPLEX> tavs_createTabDftBase_64f;
DirectTable<VOR_DCOMPLEX> tavs_createTabDftDir_64f;
RecombinationTable<VOR_DCOMPLEX> tavs_createTabDftFwdRec_64f, tavs_createTabDftInvRec_64f;
RecombineForward<VOR_DCOMPLEX> tavs_rDftFwdRecombine_64f;
RecombineInverse<VOR_DCOMPLEX> tavs_rDftInvRecombine_64f;

} // extern "C"

} // namespace vor::dft::names

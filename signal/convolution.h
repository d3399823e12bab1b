// The floor of convolution and correlation.
#pragma once

#include "vor_signal.h"

extern "C" {

// dst[i + j] += longer[i] shorter[j], n and m elements.
void ownConv_32f(const float* longer, int n, const float* shorter, int m, float* dst);

// `dstLen` values of the correlation from its value number `offset` on, number 0 belonging to the lag
// 1 - len1, by one product of spectra.
TavStatus ownCrossByFFT_32f(const float* src1, int len1, const float* src2, int len2, float* dst,
                            int dstLen, int offset);
TavStatus ownCrossByFFT_64f(const double* src1, int len1, const double* src2, int len2, double* dst,
                            int dstLen, int offset);

} // extern "C"

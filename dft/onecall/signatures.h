// Argument lists of the one-call transforms, their checks, drivers and engines. R is the real type of the
// data, C the complex one. The stems that end in c take split data, and integers by value.
#pragma once

#define PARAMS_FFT1D(C, R) (C * r, const int* n, const int* isign, R* wsave)
#define ARGS_FFT1D (r, n, isign, wsave)
#define PARAMS_FFT1DC(R) (R * rr, R * ri, int n, int isign, R* wsave)
#define ARGS_FFT1DC (rr, ri, n, isign, wsave)
#define PARAMS_FFT2D(C) (C * r, const int* m, const int* n, const int* isign)
#define ARGS_FFT2D (r, m, n, isign)
#define PARAMS_FFT2DC(R) (R * rr, R * ri, int m, int n, int isign)
#define ARGS_FFT2DC (rr, ri, m, n, isign)
#define PARAMS_REAL_FFT1D(R) (R * r, const int* n, const int* isign, R* wsave)
#define ARGS_REAL_FFT1D (r, n, isign, wsave)
#define PARAMS_REAL_FFT1DC(R) (R * r, int n, int isign, R* wsave)
#define ARGS_REAL_FFT1DC (r, n, isign, wsave)
#define PARAMS_REAL_FFT2D(R) (R * r, const int* m, const int* n)
#define ARGS_REAL_FFT2D (r, m, n)
#define PARAMS_REAL_FFT2DC(R) (R * r, int m, int n)
#define ARGS_REAL_FFT2DC (r, m, n)

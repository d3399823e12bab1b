/* vor_dfti.h: Fourier transforms through descriptors: describe once, commit, compute many times.
 *
 * The life of a descriptor
 *
 *     DFTI_DESCRIPTOR_HANDLE h;
 *     DftiCreateDescriptor(&h, DFTI_DOUBLE, DFTI_COMPLEX, 1, 1000);   uncommitted, defaults
 *     DftiSetValue(h, DFTI_BACKWARD_SCALE, 1.0 / 1000);               any number of values
 *     DftiCommitDescriptor(h);                                        tables are built here
 *     DftiComputeForward(h, x);                                       any number of times
 *     DftiComputeBackward(h, x);
 *     DftiFreeDescriptor(&h);                                         h is null afterwards
 *
 * Every set call, also one that is refused, leaves the descriptor uncommitted: commit it again before
 * the next compute call. All calls but DftiErrorClass and DftiErrorMessage return a status.
 *
 * The transform, N points:
 *     forward   X[k] = forward_scale  * sum over n of x[n] exp(-2 pi i n k / N)
 *     backward  x[n] = backward_scale * sum over k of X[k] exp(+2 pi i n k / N)
 * In several dimensions the sum runs over all of them, with the product of their exponentials; the scale
 * is applied once.
 * (Method: Cooley, Tukey, Math. Comp. 19 (1965) 297-301; lengths with large prime factors by the
 * chirp convolution of Bluestein, IEEE Trans. Audio Electroacoust. 18 (1970) 451-455.)
 *
 * Parameters (numbers and values are 32-bit integers unless told otherwise)
 *
 *     parameter                    default        legal values, notes
 *     DFTI_FORWARD_DOMAIN          from create    read only (set gives 6)
 *     DFTI_DIMENSION               from create    read only; 1 to 7 (real data: 1 to 3)
 *     DFTI_LENGTHS                 from create    read only; a vector if there are several dimensions
 *     DFTI_PRECISION               from create    read only
 *     DFTI_FORWARD_SCALE           1.0            any number; C: pass a double, read in the precision
 *     DFTI_BACKWARD_SCALE          1.0            of the descriptor
 *     DFTI_NUMBER_OF_TRANSFORMS    1              transforms of one compute call
 *     DFTI_COMPLEX_STORAGE         COMPLEX_COMPLEX  that only
 *     DFTI_REAL_STORAGE            REAL_REAL      that only
 *     DFTI_CONJUGATE_EVEN_STORAGE  COMPLEX_REAL   or COMPLEX_COMPLEX (out of place only; sets the
 *                                                 packed format to CCE)
 *     DFTI_PLACEMENT               INPLACE        or NOT_INPLACE
 *     DFTI_INPUT_STRIDES           0, then packed the offset of the first element, then one step for
 *     DFTI_OUTPUT_STRIDES                         each dimension, in elements; C: slowest dimension
 *                                                 first, Fortran: fastest first
 *     DFTI_INPUT_DISTANCE          0              elements between the transforms of one call
 *     DFTI_OUTPUT_DISTANCE         0
 *     DFTI_ORDERING                ORDERED        or BACKWARD_SCRAMBLED (complex data only): the
 *                                                 spectrum in the order in which the engine leaves it
 *     DFTI_TRANSPOSE               NONE           read only
 *     DFTI_DESCRIPTOR_NAME         empty          exactly 10 characters are taken
 *     DFTI_PACKED_FORMAT           CCS            or PACK, PERM; the layouts are drawn below
 *     DFTI_COMMIT_STATUS           UNCOMMITTED    read only (set gives 3)
 *     DFTI_VERSION                                read only text, a buffer of 198 characters
 *     DFTI_NUMBER_OF_USER_THREADS  1              threads of the caller that compute at once
 *
 * In place, the input offset, strides and distance serve both sides. An element of a stride or a
 * distance is a complex number on a complex side and a real number on a real side (the packed formats
 * count as real).
 *
 * Real data, storage COMPLEX_REAL. With X[k] = R_k + i I_k the spectrum of N = 8 and N = 7 reals is
 *
 *     CCS   N = 8   R0 0  R1 I1 R2 I2 R3 I3 R4 0      N + 2 values
 *           N = 7   R0 0  R1 I1 R2 I2 R3 I3           N + 1 values
 *     PACK  N = 8   R0 R1 I1 R2 I2 R3 I3 R4           N values
 *           N = 7   R0 R1 I1 R2 I2 R3 I3
 *     PERM  N = 8   R0 R4 R1 I1 R2 I2 R3 I3           N values
 *           N = 7   R0 R1 I1 R2 I2 R3 I3
 *
 * Storage COMPLEX_COMPLEX (not in place): floor(N/2) + 1 complex numbers X[0], X[1], ...
 * In place with CCS the array must have room for the N + 2 (N + 1) values.
 *
 * Real data of two dimensions. M is the length of the fastest dimension, N of the other one; X[k,l] has
 * frequency k along the fastest dimension, and k from 0 to M/2 suffices. Element (i, j) of the array lies
 * i steps along the fastest dimension and j along the other one.
 *
 * Storage COMPLEX_REAL. Columns i = 0 and, for even M, i = q are packed along j as the N reals of a vector
 * are above: they hold X[0,l] and X[M/2,l]. All other columns come in pairs, with all N frequencies l:
 * X[t,l] = re at (p + 2(t-1), l), im at (p + 2(t-1) + 1, l), for t from 1 to floor((M-1)/2).
 *
 *              q      p                       room in place
 *     CCS      M      2                       M + 2 by N + 2 (odd lengths: + 1)
 *     PACK     M - 1  1                       M by N
 *     PERM     1      2 (odd M: 1)            M by N
 *
 *     PERM, M = 6, N = 4, with A[l] = X[0,l] and B[l] = X[3,l]; from left to right i = 0 to 5
 *           j = 0   A[0]     B[0]     re X[1,0]  im X[1,0]  re X[2,0]  im X[2,0]
 *           j = 1   A[2]     B[2]     re X[1,1]  im X[1,1]  re X[2,1]  im X[2,1]
 *           j = 2   re A[1]  re B[1]  re X[1,2]  im X[1,2]  re X[2,2]  im X[2,2]
 *           j = 3   im A[1]  im B[1]  re X[1,3]  im X[1,3]  re X[2,3]  im X[2,3]
 *
 * In CCS columns 1 and q + 1 of the first N rows are 0 after a forward transform, and not looked at before
 * a backward one. In place a backward transform clears what stands behind the M reals of a row; out of
 * place it needs room for M by N reals alone.
 *
 * Storage COMPLEX_COMPLEX, two or three dimensions (three are there for this storage only): a complex array
 * of floor(M/2) + 1 elements along the fastest dimension and as many as the real one along the others,
 * element (k, l) = X[k,l]. The default strides are those of the real array on both sides: set those of the
 * complex side, for instance 0, floor(M/2) + 1, 1 in C.
 *
 * Threads
 *     One caller, threads of the library: leave DFTI_NUMBER_OF_USER_THREADS at 1. Commit reads the
 *     number of threads (vor_in_serial, omp_get_max_threads). One call at a time on one descriptor.
 *     Threads of the caller: set DFTI_NUMBER_OF_USER_THREADS to their number T. Up to T compute calls
 *     may run at once on the committed descriptor; one more gets status 8 and may be repeated later.
 *     Distinct descriptors are independent.
 *
 * Status codes: 0 success; 1 memory; 2 not committed, or lengths of several dimensions read as one
 * integer; 3 null handle or data, or a parameter, value, length or dimension out of range; 5 the handle
 * is no descriptor; 6 legal but not provided; 7 internal; 8 more callers than user threads. (4 is in
 * the table for callers; nothing raises it.)
 */
#ifndef VOR_DFTI_H
#define VOR_DFTI_H

#include "vor_types.h"

VOR_BEGIN_C

enum DFTI_CONFIG_PARAM {
    DFTI_FORWARD_DOMAIN = 0,
    DFTI_DIMENSION = 1,
    DFTI_LENGTHS = 2,
    DFTI_PRECISION = 3,
    DFTI_FORWARD_SCALE = 4,
    DFTI_BACKWARD_SCALE = 5,
    DFTI_NUMBER_OF_TRANSFORMS = 7,
    DFTI_COMPLEX_STORAGE = 8,
    DFTI_REAL_STORAGE = 9,
    DFTI_CONJUGATE_EVEN_STORAGE = 10,
    DFTI_PLACEMENT = 11,
    DFTI_INPUT_STRIDES = 12,
    DFTI_OUTPUT_STRIDES = 13,
    DFTI_INPUT_DISTANCE = 14,
    DFTI_OUTPUT_DISTANCE = 15,
    DFTI_ORDERING = 18,
    DFTI_TRANSPOSE = 19,
    DFTI_DESCRIPTOR_NAME = 20,
    DFTI_PACKED_FORMAT = 21,
    DFTI_COMMIT_STATUS = 22,
    DFTI_VERSION = 23,
    DFTI_NUMBER_OF_USER_THREADS = 26
};

enum DFTI_CONFIG_VALUE {
    DFTI_COMMITTED = 30,
    DFTI_UNCOMMITTED = 31,
    DFTI_COMPLEX = 32,
    DFTI_REAL = 33,
    DFTI_SINGLE = 35,
    DFTI_DOUBLE = 36,
    DFTI_COMPLEX_COMPLEX = 39,
    DFTI_COMPLEX_REAL = 40,
    DFTI_REAL_REAL = 42,
    DFTI_INPLACE = 43,
    DFTI_NOT_INPLACE = 44,
    DFTI_ORDERED = 48,
    DFTI_BACKWARD_SCRAMBLED = 49,
    DFTI_NONE = 53,
    DFTI_CCS_FORMAT = 54,
    DFTI_PACK_FORMAT = 55,
    DFTI_PERM_FORMAT = 56,
    DFTI_CCE_FORMAT = 57
};

enum DFTI_STATUS {
    DFTI_NO_ERROR = 0,
    DFTI_MEMORY_ERROR = 1,
    DFTI_INVALID_CONFIGURATION = 2,
    DFTI_INCONSISTENT_CONFIGURATION = 3,
    DFTI_MULTITHREADED_ERROR = 4,
    DFTI_BAD_DESCRIPTOR = 5,
    DFTI_UNIMPLEMENTED = 6,
    DFTI_VOR_INTERNAL_ERROR = 7,
    DFTI_NUMBER_OF_THREADS_ERROR = 8
};

#define DFTI_MAX_NAME_LENGTH 10      /* characters of DFTI_DESCRIPTOR_NAME */
#define DFTI_VERSION_LENGTH 198      /* characters of DFTI_VERSION */
#define DFTI_ERROR_MESSAGE_LENGTH 40 /* characters of dfti_error_message_external */

typedef struct DftiRecord* DFTI_DESCRIPTOR_HANDLE;

/* ---- C entries ------------------------------------------------------------------------------- */

/* DftiCreateDescriptor: a new, uncommitted descriptor in *handle.
 *
 * precision DFTI_SINGLE or DFTI_DOUBLE, domain DFTI_COMPLEX or DFTI_REAL, dimension 1 to 7. The last
 * argument is the length itself (an int) if dimension is 1, else a pointer to the lengths, the slowest
 * dimension first; each at least 1. The product of the lengths must fit 31 bits.
 * 3: a null handle pointer, dimension or a length out of range (handle untouched), or domain or
 * precision unknown; 6: real data in more than 3 dimensions; 1: memory. In all of these but the first
 * *handle is null. */
int DftiCreateDescriptor(DFTI_DESCRIPTOR_HANDLE* handle, int precision, int domain, int dimension,
                         ...);

/* DftiCommitDescriptor: builds the tables and buffers; of a committed descriptor: builds them anew.
 * 3, 5: handle; 1, 7: the tables could not be built; 6: a combination that is not provided, which is
 * real data in three dimensions with storage COMPLEX_REAL, that storage with format CCE, and storage
 * COMPLEX_COMPLEX in place. After a failure the descriptor is uncommitted and holds no table. */
int DftiCommitDescriptor(DFTI_DESCRIPTOR_HANDLE handle);

/* DftiFreeDescriptor: releases everything and sets *handle to null. 3, 5: handle. */
int DftiFreeDescriptor(DFTI_DESCRIPTOR_HANDLE* handle);

/* DftiSetValue(handle, parameter, value): an int for most parameters; a double for the scales, in
 * either precision; a pointer to dimension + 1 ints for the strides (offset first, slowest dimension
 * first); a pointer to 10 characters for the name. 3, 5, 6 as told above; 1 and 2 are refused with 6
 * and leave a committed descriptor committed. */
int DftiSetValue(DFTI_DESCRIPTOR_HANDLE handle, int parameter, ...);

/* DftiGetValue(handle, parameter, place): place is a pointer to an int for most parameters; to a float
 * (DFTI_SINGLE) or a double for the scales; to dimension + 1 ints for the strides; to dimension ints,
 * fastest dimension first, for several lengths; to 11 characters for the name (terminated); to 198
 * characters for the version. Changes nothing. */
int DftiGetValue(DFTI_DESCRIPTOR_HANDLE handle, int parameter, ...);

/* DftiComputeForward(handle, data) in place, DftiComputeForward(handle, input, output) not in place;
 * DftiComputeBackward likewise. The arrays need only the alignment of their element. Not in place the
 * input is left as it was and must not overlap the output. 2: not committed; 3: null; 5: handle;
 * 1: memory; 8: more callers than user threads.
 * With several transforms a thread ends at its first failure, the earlier results in place; the other
 * threads of a team go on with theirs, and the first failure to arrive is the status. In several
 * dimensions the array is left between two stages unless the first of all allocations was the one that
 * failed: then it is what it was. */
int DftiComputeForward(DFTI_DESCRIPTOR_HANDLE handle, void* data, ...);
int DftiComputeBackward(DFTI_DESCRIPTOR_HANDLE handle, void* data, ...);

/* DftiErrorClass: 1 if status equals the class, else 0. */
int DftiErrorClass(int status, int error_class);

/* DftiErrorMessage: the constant text of a status, one blank for an unknown one. */
const char* DftiErrorMessage(int status);

/* ---- Fortran-style entries -------------------------------------------------------------------
 * Everything by reference. The module vor_dfti (vor_dfti.f90) has interfaces for them. Lengths and
 * strides are in the order of the record chain: fastest dimension first. */

VOR_SPELLINGS(int, dfti_create_descriptor_1d, DFTI_CREATE_DESCRIPTOR_1D,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* precision, const int* domain,
               const int* dimension, const int* lengths))
VOR_SPELLINGS(int, dfti_create_descriptor_highd, DFTI_CREATE_DESCRIPTOR_HIGHD,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* precision, const int* domain,
               const int* dimension, const int* lengths))
VOR_SPELLINGS(int, dfti_commit_descriptor_external, DFTI_COMMIT_DESCRIPTOR_EXTERNAL,
              (DFTI_DESCRIPTOR_HANDLE * handle))
VOR_SPELLINGS(int, dfti_free_descriptor_external, DFTI_FREE_DESCRIPTOR_EXTERNAL,
              (DFTI_DESCRIPTOR_HANDLE * handle))
VOR_SPELLINGS(int, dfti_error_class_external, DFTI_ERROR_CLASS_EXTERNAL,
              (const int* status, const int* error_class))
/* Fills result with exactly 40 characters, blanks behind the text, no terminator. result_length is not
 * read. */
VOR_SPELLINGS(void, dfti_error_message_external, DFTI_ERROR_MESSAGE_EXTERNAL,
              (char* result, int result_length, const int* status))

VOR_SPELLINGS(int, dfti_set_value_intval, DFTI_SET_VALUE_INTVAL,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* parameter, const int* value))
VOR_SPELLINGS(int, dfti_set_value_sglval, DFTI_SET_VALUE_SGLVAL,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* parameter, const float* value))
VOR_SPELLINGS(int, dfti_set_value_dblval, DFTI_SET_VALUE_DBLVAL,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* parameter, const double* value))
VOR_SPELLINGS(int, dfti_set_value_intvec, DFTI_SET_VALUE_INTVEC,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* parameter, const int* values))
VOR_SPELLINGS(int, dfti_set_value_chars, DFTI_SET_VALUE_CHARS,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* parameter, const char* text,
               int text_length))
VOR_SPELLINGS(int, dfti_get_value_intval, DFTI_GET_VALUE_INTVAL,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* parameter, int* value))
VOR_SPELLINGS(int, dfti_get_value_sglval, DFTI_GET_VALUE_SGLVAL,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* parameter, float* value))
VOR_SPELLINGS(int, dfti_get_value_dblval, DFTI_GET_VALUE_DBLVAL,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* parameter, double* value))
VOR_SPELLINGS(int, dfti_get_value_intvec, DFTI_GET_VALUE_INTVEC,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* parameter, int* values))
VOR_SPELLINGS(int, dfti_get_value_chars, DFTI_GET_VALUE_CHARS,
              (DFTI_DESCRIPTOR_HANDLE * handle, const int* parameter, char* text, int text_length))

/* Typed compute entries. forward_t, backward_t in place, _out not in place, with t the data: c, z
 * complex single and double; s, d real single and double (the spectrum in the packed format); sc, dz
 * real to complex and cs, zd complex to real (storage COMPLEX_COMPLEX). The descriptor must have been
 * committed for that placement; for data of another domain, precision or, in several dimensions, storage
 * the status is 3. Offsets are added here. */
VOR_SPELLINGS(int, dfti_compute_forward_c, DFTI_COMPUTE_FORWARD_C,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* data))
VOR_SPELLINGS(int, dfti_compute_forward_c_out, DFTI_COMPUTE_FORWARD_C_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))
VOR_SPELLINGS(int, dfti_compute_backward_c, DFTI_COMPUTE_BACKWARD_C,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* data))
VOR_SPELLINGS(int, dfti_compute_backward_c_out, DFTI_COMPUTE_BACKWARD_C_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))
VOR_SPELLINGS(int, dfti_compute_forward_z, DFTI_COMPUTE_FORWARD_Z,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* data))
VOR_SPELLINGS(int, dfti_compute_forward_z_out, DFTI_COMPUTE_FORWARD_Z_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))
VOR_SPELLINGS(int, dfti_compute_backward_z, DFTI_COMPUTE_BACKWARD_Z,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* data))
VOR_SPELLINGS(int, dfti_compute_backward_z_out, DFTI_COMPUTE_BACKWARD_Z_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))
VOR_SPELLINGS(int, dfti_compute_forward_s, DFTI_COMPUTE_FORWARD_S,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* data))
VOR_SPELLINGS(int, dfti_compute_forward_s_out, DFTI_COMPUTE_FORWARD_S_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))
VOR_SPELLINGS(int, dfti_compute_backward_s, DFTI_COMPUTE_BACKWARD_S,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* data))
VOR_SPELLINGS(int, dfti_compute_backward_s_out, DFTI_COMPUTE_BACKWARD_S_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))
VOR_SPELLINGS(int, dfti_compute_forward_d, DFTI_COMPUTE_FORWARD_D,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* data))
VOR_SPELLINGS(int, dfti_compute_forward_d_out, DFTI_COMPUTE_FORWARD_D_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))
VOR_SPELLINGS(int, dfti_compute_backward_d, DFTI_COMPUTE_BACKWARD_D,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* data))
VOR_SPELLINGS(int, dfti_compute_backward_d_out, DFTI_COMPUTE_BACKWARD_D_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))
VOR_SPELLINGS(int, dfti_compute_forward_sc_out, DFTI_COMPUTE_FORWARD_SC_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))
VOR_SPELLINGS(int, dfti_compute_forward_dz_out, DFTI_COMPUTE_FORWARD_DZ_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))
VOR_SPELLINGS(int, dfti_compute_backward_cs_out, DFTI_COMPUTE_BACKWARD_CS_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))
VOR_SPELLINGS(int, dfti_compute_backward_zd_out, DFTI_COMPUTE_BACKWARD_ZD_OUT,
              (DFTI_DESCRIPTOR_HANDLE * handle, void* input, void* output))

VOR_END_C

#endif

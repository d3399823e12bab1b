/* vor_service.h: settings, threads, memory and error reports of the Orbel Numeric Library. */
#ifndef VOR_SERVICE_H
#define VOR_SERVICE_H

#include "vor_types.h"

VOR_BEGIN_C

/* ---- Serial or parallel --------------------------------------------------------------------- */

/* vor_set_serial, vor_set_parallel: write "YES" or "NO" into the environment variable VOR_SERIAL of
 * this process and return what setenv returned (0 for success).
 *
 * They steer the decision below only until it is taken: by the first call of vor_in_serial or of a
 * routine that has a threaded driver. Later calls change the environment, not the library. Not to
 * be called while another thread reads or writes the environment. */
VOR_SPELLINGS(int, vor_set_serial, VOR_SET_SERIAL, (void))
VOR_SPELLINGS(int, vor_set_parallel, VOR_SET_PARALLEL, (void))

/* vor_in_serial: 1 if the library stays on the calling thread, 0 if it may use OpenMP threads.
 *
 * The first call decides from the environment and the answer holds for the life of the process:
 * parallel if VOR_SERIAL is set and not empty, or OMP_NUM_THREADS (or, where that is unset,
 * omp_num_threads) is set and not empty; serial otherwise, and always if VOR_SERIAL is "YES" or
 * "yes". The number of threads is that of omp_get_max_threads(). */
VOR_SPELLINGS(int, vor_in_serial, VOR_IN_SERIAL, (void))

/* VOR_ThreadID: the identity of the calling thread as 32 bits. */
unsigned VOR_ThreadID(void);

/* ---- Memory --------------------------------------------------------------------------------- */

/* VOR_FreeBuffers: gives the scratch memory that the library keeps for reuse back to the system.
 * Call it only while no other call of the library runs, on any thread. */
VOR_MIXED_SPELLINGS(void, VOR_FreeBuffers, vor_freebuffers, VOR_FREEBUFFERS, (void))

/* ---- Error reports -------------------------------------------------------------------------- */

/* xerbla_: prints one line about a wrong argument on stderr and returns. A program that defines its
 * own xerbla_ receives the reports of the library instead.
 *
 * name         the routine, not terminated; at most 12 characters are printed
 * code         at least 1: number of the wrong argument, counted from 1 (1000 and 1001 print an
 *              internal text instead); 0 or below: an internal condition, printed negated
 * name_length  characters in name, at least 0 */
void xerbla_(const char* name, const int* code, int name_length);

/* cblas_xerbla: the same for the C-level routines: a terminated name and the number by value. */
void cblas_xerbla(const char* name, int code);

VOR_END_C

#endif

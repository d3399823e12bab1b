/* vor_service.h: settings, threads, memory, error reports, inquiries, timers and scalar helpers of the
 * Orbel Numeric Library. */
#ifndef VOR_SERVICE_H
#define VOR_SERVICE_H

#include "vor_types.h"

VOR_BEGIN_C

/* ---- Configuration file ------------------------------------------------------------------------
 * The first call of a routine of the library reads it, once for the life of the process. (The mode
 * switches, VOR_ThreadID, xerbla_, cblas_xerbla, the C-level sparse-vector routines, the signal
 * primitives and the functions declared here under one spelling do not.) It is the first of these
 * that can be opened:
 *   1. $VOR_CFG_FILE, or "vor.cfg" if that is unset or empty;
 *   2. the file vor.cfg in the directory of that name;
 *   3. vor.cfg in the elements of $PATH, then in the current directory.
 * A directory does not count. Of a regular file up to 64 KiB are read, of a pipe, a terminal or a device
 * nothing. A process with more rights than its caller (set-user-ID and the like) looks for no file and
 * obeys none of the environment variables named in this header: it checks arguments, stays on one thread
 * and keeps scratch memory. The first call leaves errno as it was.
 *
 * One key a line, blanks, tabs and case do not matter, later lines override earlier ones, and a line
 * that holds no known key and value is passed over:
 *   vor_input_check = on | off       whether routines with argument checks run them (on)
 *   vor_serial      = yes | no | omp serial, parallel, or what the environment says (omp)
 */

/* vor_cfg_file: reads the file now, unless it has been read. keep_defaults 0 also takes the keys that
 * name libraries of the product family, which nothing reads; pass 1. Returns 0, or -1 if this call
 * looked for the file and found none: the defaults stand then. */
int vor_cfg_file(int keep_defaults);

/* The settings as they stand: they do not cause the file to be read. */
int get_cfg_check(void);  /* 1 arguments are checked, 0 they are not */
int get_cfg_serial(void); /* 1 serial, 0 parallel, 2 the environment decides */
int get_cfg_fpu(void);    /* 0: no key sets it */

/* SearchPath: finds the file `name` in the elements of $PATH, then in the current directory, and
 * writes its path, terminated, to buffer, which has 4096 bytes. Returns the length of the path; 0 if
 * there is no such file, with buffer untouched. The other arguments are not used. Directories do not
 * count as files; an element that ends in '.' or '/' gets no slash before the name; blanks and tabs
 * at the end of an element are dropped; empty elements and paths that are too long are passed over. */
unsigned SearchPath(const char* path, const char* name, const char* extension,
                    unsigned buffer_length, char* buffer, char** file_part);

/* ---- Serial or parallel ------------------------------------------------------------------------ */

/* vor_set_serial, vor_set_parallel: write "YES" or "NO" into the environment variable VOR_SERIAL of
 * this process, unless it has that value, and return what setenv returned (0 for success).
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

/* Threads, fork and signals.
 *
 * Threads. All routines may be called from several threads at once; the exceptions are told where they
 * stand. The threads of a team come from the OpenMP runtime and compute under the x87 control word and
 * the MXCSR of the thread that made the call, so that rounding, precision and flush-to-zero are the same
 * in all parts of a result.
 *
 * fork. A child may go on calling the library, whatever other threads of the parent were doing at the
 * fork; it computes on its own thread and vor_in_serial gives 1 there, since the OpenMP runtime of a
 * child waits for threads that are not there. (This holds from the first call in the parent that asks for
 * threads or scratch memory.) Scratch memory that other threads held stays lost to the child, and a
 * descriptor that another thread was computing with is not to be used there. vfork and exec are free.
 *
 * Signals. No routine may be called from a signal handler, and none may be left by longjmp from one: a
 * lock may be held. A handler that returns disturbs nothing.
 *
 * dlclose. The library stays in the process: threads of the OpenMP runtime and memory kept for reuse
 * outlive the handle. */

/* VOR_ThreadID: the identity of the calling thread as 32 bits. */
unsigned VOR_ThreadID(void);

/* ---- Memory ------------------------------------------------------------------------------------
 * The library keeps scratch memory for the next call of the same thread. Read once from the
 * environment: VOR_DISABLE_FAST_MM or VOR_MM_DISABLE, set to anything, switch that off;
 * VOR_MM_MAX_THREADS=n keeps up to n times 37 MiB instead of 4 times that (n from 1 to 110).
 *
 * What a thread leaves behind when it ends is kept too, and no other thread reuses it until it is
 * trimmed: where memory is short, a request can fail that would fit after VOR_FreeBuffers. */

/* VOR_FreeBuffers: gives the scratch memory that the library keeps for reuse back to the system.
 * Call it only while no other call of the library runs, on any thread. */
VOR_MIXED_SPELLINGS(void, VOR_FreeBuffers, vor_freebuffers, VOR_FREEBUFFERS, (void))

/* ---- Error reports ----------------------------------------------------------------------------- */

/* xerbla_: prints one line about a wrong argument on stderr and returns. A program that defines its
 * own xerbla_ receives the reports of the library instead. It may leave by a C++ exception or longjmp,
 * in place of returning: the call then ends with its outputs untouched. (Out of a report for want of
 * memory the scratch that the call held is lost.)
 *
 * name         the routine, not terminated; at most 12 characters are printed
 * code         at least 1: number of the wrong argument, counted from 1 (1000 and 1001 print an
 *              internal text instead); 0 or below: an internal condition, printed negated
 * name_length  characters in name; below 1: no name is printed */
void xerbla_(const char* name, const int* code, int name_length);

/* cblas_xerbla: the same for the C-level routines: a terminated name and the number by value. */
void cblas_xerbla(const char* name, int code);

/* ---- Version ----------------------------------------------------------------------------------- */

typedef struct vor_version {
    int major_version;
    int minor_version;
    int update_version;
    const char* product_status; /* texts of the library, terminated, valid while it is loaded */
    const char* build;
    const char* processor; /* the kernel level of this library */
} vor_version;

/* VORGetVersion: fills the record. */
VOR_MIXED_SPELLINGS(void, VORGetVersion, vorgetversion, VORGETVERSION, (vor_version * version))

/* VORGetVersionString: the version in one line of less than 100 characters, for Fortran: cut to
 * `length` characters or followed by blanks up to there, without a NUL. length below 1: nothing is
 * written. */
VOR_MIXED_SPELLINGS(void, VORGetVersionString, vorgetversionstring, VORGETVERSIONSTRING,
                    (char* buffer, int length))

/* VORGetVersionString_c: the same for C: at most length - 1 characters, then NULs up to `length`.
 * length below 1: nothing is written. */
VOR_MIXED_SPELLINGS(void, VORGetVersionString_c, vorgetversionstring_c, VORGETVERSIONSTRING_C,
                    (char* buffer, int length))

/* The processor text of the version record; the platform, "32-bit". */
const char* vor_serv_gettargetprocessor(void);
const char* vor_serv_gettargetplatform(void);

/* ---- Processor --------------------------------------------------------------------------------- */

/* 1 if the processor says that it has several logical processors (CPUID leaf 1), else 0. The second
 * asks once and keeps the answer. */
int VOR_getCPUHT(void);
int vor_serv_verifyht(void);

/* VOR_getCPUTLBcache: EAX, EBX, ECX, EDX of CPUID leaf 2; returns the low byte of EAX. */
int VOR_getCPUTLBcache(unsigned words[4]);

/* vor_serv_l2cache: class of the second-level cache by the descriptors of CPUID leaf 2: 0 none, 1 to
 * 5 for 128 KiB, 256 KiB, 512 KiB, 1 MiB, 2 MiB; -1 if the processor lists none of these. */
int vor_serv_l2cache(void);

/* ---- Timers ------------------------------------------------------------------------------------ */

/* dsecnd, second: seconds of wall-clock time from an origin of their own: only the difference of two
 * calls means something, and that of second is coarse once the processor has run for long, since a
 * float has 24 bits. The first call of either blocks for about a second of processor time, in which
 * the frequency is found (vor_serv_getcpufrequency). Time-stamp counters that run at another rate than the
 * processor, as all newer ones do, stretch the seconds by the ratio of the two. */
VOR_SPELLINGS(double, dsecnd, DSECND, (void))
VOR_SPELLINGS(float, second, SECOND, (void))
double vor_serv_dsecnd(void); /* the same without the configuration file */
float vor_serv_second(void);

/* vor_serv_tclock: the time-stamp counter. */
double vor_serv_tclock(void);

/* Frequency of the processor in hertz: measured against clock() over a second of processor time; from
 * "cpu MHz" in /proc/cpuinfo, -1.0 if it is not there; the latter if it is there, else the former
 * (which is measured in any case). */
double vor_serv_getcpufrequency_clock(void);
double GETCPUFREQUENCY_CPUINFO(void);
double vor_serv_getcpufrequency(void);

/* ---- Tuning ------------------------------------------------------------------------------------ */

/* ilaenv: tuning of block algorithms for LAPACK-style callers.
 * (Anderson et al.: LAPACK Users' Guide, 3rd ed., SIAM 1999, chapter 6.)
 *
 * ispec  1 block size, 2 smallest useful block, 3 crossover to the unblocked method; these three go
 *        by the name, whose first letter gives the type (1 if it is none of S, D, C, Z in either
 *        case). 4 number of shifts, 5 smallest dimension for blocking: 6 and 2. 6 crossover of the
 *        singular value decomposition: 1.6 * min(n1, n2). 7 number of processors: 1. 8 crossover of
 *        the multishift QR iteration: 50. 9 largest subproblem of divide and conquer: 25. 10, 11
 *        trust in NaN and infinity arithmetic: 0. 12 shifts of the multishift QR iteration. Any
 *        other: the result is -1.
 * name   six characters, in either case; a shorter name is to be padded with blanks
 * opts   only a first character 'P' (capital: tuned for several processors) makes a difference
 * n1..n4 problem sizes, in the order of the routine's arguments; n3 is not read
 * The two hidden lengths are not read. */
VOR_SPELLINGS(int, ilaenv, ILAENV,
              (const int* ispec, const char* name, const char* opts, const int* n1, const int* n2,
               const int* n3, const int* n4, int name_length, int opts_length))

/* ---- Characters -------------------------------------------------------------------------------- */

/* lsame: do the first characters agree? ASCII letters in either case. The hidden lengths are not
 * read. Logical result. */
VOR_SPELLINGS(int, lsame, LSAME, (const char* ca, const char* cb, int ca_length, int cb_length))

/* lsamen: do the first n characters agree? False if an argument is shorter than n by its hidden
 * length, else true for n below 1. Logical result. */
VOR_SPELLINGS(int, lsamen, LSAMEN,
              (const int* n, const char* ca, const char* cb, int ca_length, int cb_length))

/* Fortran-style copy, and concatenation of a and b: cut to to_length characters or followed by
 * blanks up to there, without a NUL. The strings must not overlap. */
void vor_serv_strcpy(char* to, const char* from, int to_length, int from_length);
void vor_serv_strcat2(char* to, const char* a, const char* b, int to_length, int a_length,
                      int b_length);

/* vor_serv_m_itoa: the digit of a value from 0 to 9, and a NUL. */
void vor_serv_m_itoa(int digit, char* text);

/* ---- Scalars ----------------------------------------------------------------------------------- */

/* |a| with the sign of b: -|a| if b < 0, else |a|, so that a b of -0 or NaN counts as positive. An a of
 * either zero comes back as it is, a NaN a negated if b < 0. */
float vor_serv_s_sign(const float* a, const float* b);
double vor_serv_d_sign(const double* a, const double* b);

/* x to the power n, in extended precision until the result is returned. n = 0 gives 1. */
float vor_serv_s_powi(const float* x, const int* n);
double vor_serv_d_powi(const double* x, const int* n);

/* x truncated toward zero. INT_MIN for what no int holds. */
int vor_serv_s_int(const float* x);
int vor_serv_d_int(const double* x);

/* The cosine of x in double precision. */
double vor_serv_s_cos(const float* x);

/* sqrt(a*a + b*b) and the moduli of complex numbers, by value in extended precision, whatever the
 * precision control of the caller; nothing in between overflows or underflows. An infinite argument
 * gives infinity, also beside a NaN. A result from 2^1024 on raises the overflow flag and is infinity
 * once it is rounded to a double. */
long double vor_serv_hypot(double a, double b);
long double vor_serv_z_abs(const VOR_DCOMPLEX* z);
long double vor_serv_c_abs(const VOR_SCOMPLEX* z);

/* The principal square root of x + iy (of z): its real part is not negative, and its imaginary part
 * is negative just for y < 0. out may be z. */
void vor_serv_sqrt(double* re_out, double* im_out, double x, double y);
void vor_serv_z_sqrt(VOR_DCOMPLEX* out, const VOR_DCOMPLEX* z);
void vor_serv_c_sqrt(VOR_SCOMPLEX* out, const VOR_SCOMPLEX* z);

VOR_END_C

#endif

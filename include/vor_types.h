/* vor_types.h: element types and calling convention shared by all headers of the Orbel Numeric
 * Library.
 *
 * Calling convention of the Fortran-style routines
 *   - Every routine stands under four spellings, name, name_, NAME and NAME_, all at one address.
 *   - Integers (32-bit signed), floating-point scalars and complex scalars are passed by reference.
 *   - Matrices are column-major, with a leading dimension counted in elements.
 *   - A character argument is a pointer to its characters. Its length follows by value behind the
 *     last declared argument, one length for each character argument, in their order. BLAS and
 *     sparse routines read the first character only and never read the length: C callers may leave
 *     the lengths out where a prototype declares none.
 *   - A routine with a complex result takes a pointer to the result as its first argument and
 *     returns nothing. (With gfortran: compile the caller with -ff2c.)
 *   - A logical result is an int: all bits set for true, 0 for false.
 */
#ifndef VOR_TYPES_H
#define VOR_TYPES_H

/* Complex elements: two parts, real first. A program with a complex type of its own and the same
 * layout (float _Complex, std::complex<float>) may define VOR_SCOMPLEX and VOR_DCOMPLEX to it
 * before it includes the first header of the library. */
#ifndef VOR_SCOMPLEX
typedef struct vor_scomplex {
    float re, im;
} vor_scomplex;
#define VOR_SCOMPLEX vor_scomplex
#endif
#ifndef VOR_DCOMPLEX
typedef struct vor_dcomplex {
    double re, im;
} vor_dcomplex;
#define VOR_DCOMPLEX vor_dcomplex
#endif

#ifdef __cplusplus
#define VOR_BEGIN_C extern "C" {
#define VOR_END_C }
#else
#define VOR_BEGIN_C
#define VOR_END_C
#endif

/* The hidden length of a character argument, behind the last declared one. The prototypes leave it
 * out; a program that passes lengths (translated Fortran) defines VOR_HIDDEN_LENGTHS. */
#ifdef VOR_HIDDEN_LENGTHS
#define VOR_LENGTH(name) , int name##_length
#else
#define VOR_LENGTH(name)
#endif

/* Declares one routine under its four spellings. */
#define VOR_SPELLINGS(result, lower, upper, arguments)                                             \
    result lower arguments;                                                                        \
    result lower##_ arguments;                                                                     \
    result upper arguments;                                                                        \
    result upper##_ arguments;

/* The same for a routine that has a mixed-case spelling besides. */
#define VOR_MIXED_SPELLINGS(result, mixed, lower, upper, arguments)                                \
    result mixed arguments;                                                                        \
    VOR_SPELLINGS(result, lower, upper, arguments)

#endif

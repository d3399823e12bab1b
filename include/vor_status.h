/* vor_status.h: the status codes of the signal primitives and of the big-number layer. */
#ifndef VOR_STATUS_H
#define VOR_STATUS_H

typedef int TavStatus; /* 0 is success, errors are negative */

enum {
    tavStsNoErr = 0,
    tavStsBadArgErr = -5,   /* big-number operand of the wrong sign, or zero where that is wrong */
    tavStsSizeErr = -6,     /* a length of 0 or below */
    tavStsNullPtrErr = -8,  /* a null pointer */
    tavStsMemAllocErr = -9, /* an allocation failed */
    tavStsDivByZeroErr = -10,    /* big-number division by zero */
    tavStsOutOfRangeErr = -11,   /* a big-number result has no room in its destination */
    tavStsOperandRangeErr = -13, /* big-number operand not below the modulus */
    tavStsFftOrderErr = -15,     /* FFT order outside 0 to 30 */
    tavStsFftFlagErr = -16,      /* scaling flag outside the four values */
    tavStsContextMatchErr = -17, /* the object is not of the kind expected */
    tavStsBadModulusErr = -118,  /* big-number modulus zero or even */
    tavStsLengthErr = -119       /* big-number length of 0 or below */
};

#endif

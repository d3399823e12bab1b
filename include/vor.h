/* vor.h: every public header of the Orbel Numeric Library. */
#ifndef VOR_H
#define VOR_H

#include "vor_bignum.h"
#include "vor_blas.h"
#include "vor_cblas.h"
#include "vor_dfti.h"
#include "vor_fft.h"
#include "vor_gmp.h"
#include "vor_service.h"
#include "vor_signal.h"
#include "vor_spblas.h"
#include "vor_status.h"
#include "vor_types.h"

#endif

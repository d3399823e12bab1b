// One-call transforms of complex vectors of n = 2^k points, interleaved (cfft1d, zfft1d) and split (cfft1dc,
// zfft1dc).
//
//   isign   0 fills wsave; -1 forward, -2 forward with the spectrum in bit-reversed order; +1, +2 the inverse
//           of these, divided by n
//   n < 2   nothing is done
//
// A long transform goes to a team, if there is one: a power of two of parts, none of which falls below a size.
#include "dft/onecall/check.h"
#include "dft/onecall/transform.h"
#include "serv/entry.h"
#include "vor_fft.h"

namespace vor::dfti::onecall {
namespace {

// Log2 of the least part.
template <class Form>
constexpr int kLeastPart = std::is_same_v<Form, Pairs<float>> ? 10 : 9;

// By a team of at most `threads`.
template <class Form>
void run(Form x, int n, int isign, typename Form::Real* wsave, int threads) {
    if (n < 2) return;
    const int k = order_of(n);
    if (isign == 0) return radix::fill_coefficients(wsave, k);
    transform(x, k, isign, wsave, radix::team_of(threads, k, kLeastPart<Form>));
}

// What a driver asks for. Threads are no question for the table or a short transform.
template <class Form>
void drive(Form x, int n, int isign, typename Form::Real* wsave) {
    const bool alone = isign == 0 || n <= 1 << kLeastPart<Form>;
    run(x, n, isign, wsave, alone ? 1 : team_size());
}

} // namespace
} // namespace vor::dfti::onecall

using vor::dfti::onecall::drive;
using vor::dfti::onecall::Pairs;
using vor::dfti::onecall::run;
using vor::dfti::onecall::Split;

// Engine on one thread, driver, entry.
#define FFT1D(serial, driver, check, lower, UPPER, C, R)                                           \
    extern "C" void serial(C* r, const int* n, const int* isign, R* wsave, const int*) {           \
        run(Pairs<R>{r}, *n, *isign, wsave, 1);                                                    \
    }                                                                                              \
    VOR_ENGINE void driver PARAMS_FFT1D(C, R) {                                                    \
        drive(Pairs<R>{r}, *n, *isign, wsave);                                                     \
    }                                                                                              \
    VOR_CHECKED_ENTRY(lower, UPPER, driver, check, PARAMS_FFT1D(C, R), ARGS_FFT1D)
#define FFT1DC(serial, driver, check, lower, UPPER, R)                                             \
    extern "C" void serial(R* rr, R* ri, const int* n, const int* isign, R* wsave, const int*) {   \
        run(Split<R>{rr, ri}, *n, *isign, wsave, 1);                                               \
    }                                                                                              \
    VOR_ENGINE void driver PARAMS_FFT1DC(R) {                                                      \
        drive(Split<R>{rr, ri}, n, isign, wsave);                                                  \
    }                                                                                              \
    VOR_CHECKED_ENTRY(lower, UPPER, driver, check, PARAMS_FFT1DC(R), ARGS_FFT1DC)

FFT1D(vor_dft_xcfft1d, vor_dft_cfft1d, vor_dft_errchk_cfft1d, cfft1d, CFFT1D, VOR_SCOMPLEX, float)
FFT1D(vor_dft_xzfft1d, vor_dft_zfft1d, vor_dft_errchk_zfft1d, zfft1d, ZFFT1D, VOR_DCOMPLEX, double)
FFT1DC(vor_dft_xcfft1dc, vor_dft_cfft1dc, vor_dft_errchk_cfft1dc, cfft1dc, CFFT1DC, float)
FFT1DC(vor_dft_xzfft1dc, vor_dft_zfft1dc, vor_dft_errchk_zfft1dc, zfft1dc, ZFFT1DC, double)

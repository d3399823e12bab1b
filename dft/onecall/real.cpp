// One-call transforms of n = 2^k reals and their conjugate-even spectra: scfft1d, dzfft1d forward, csfft1d,
// zdfft1d inverse, divided by n. The n/2 pairs of reals are transformed as complex numbers, and recombined.
//
//   r       n + 2 words: the reals, or X[0], X[1], .. X[n/2]: as CCS, or (split, names with a final c) the real
//           parts followed by the imaginary parts
//   isign   0 fills wsave; anything else transforms
//   n < 2   nothing is done
#include "dft/onecall/real.h"
#include "dft/onecall/check.h"
#include "serv/entry.h"
#include "vor_fft.h"

namespace vor::dfti::onecall {
namespace {

// Threads for the complex transform inside.
template <class R>
int threads_for(int n) {
    return n / 2 <= 1 << radix::kLeafOrder<R> ? 1 : team_size();
}

template <Direction D, class R>
void run(R* r, int n, int isign, R* wsave, int threads) {
    if (n < 2) return;
    if (isign == 0) return fill_real(wsave, n);
    real_transform<D>(r, n, wsave, radix::team_of(threads, order_of(n) - 1, radix::kLeafOrder<R>));
}

template <Direction D, int length, class R>
void run_split(R* r, int n, int isign, R* wsave, int threads, const char (&name)[length]) {
    if (n < 2) return;
    if (isign == 0) return fill_real(wsave, n);
    const Scratch<R> work(static_cast<size_t>(n) + 2);
    if (!work) return report_no_memory(name, length); // the name goes out with its terminator
    transform_apart<D, Storage::split>(
        r, 1, n, wsave, work.get(), radix::team_of(threads, order_of(n) - 1, radix::kLeafOrder<R>));
}

} // namespace
} // namespace vor::dfti::onecall

using namespace vor::dfti::onecall;
using vor::Direction;

#define REAL1D(serial, driver, check, lower, UPPER, R, direction)                                  \
    extern "C" void serial(R* r, const int* n, const int* isign, R* wsave, const int*) {           \
        run<Direction::direction>(r, *n, *isign, wsave, 1);                                        \
    }                                                                                              \
    VOR_ENGINE void driver PARAMS_REAL_FFT1D(R) {                                                  \
        run<Direction::direction>(r, *n, *isign, wsave, threads_for<R>(*n));                       \
    }                                                                                              \
    VOR_CHECKED_ENTRY(lower, UPPER, driver, check, PARAMS_REAL_FFT1D(R), ARGS_REAL_FFT1D)
#define REAL1DC(serial, driver, check, lower, UPPER, R, direction)                                 \
    extern "C" void serial(R* r, const int* n, const int* isign, R* wsave, const int*) {           \
        run_split<Direction::direction>(r, *n, *isign, wsave, 1, #UPPER);                          \
    }                                                                                              \
    VOR_ENGINE void driver PARAMS_REAL_FFT1DC(R) {                                                 \
        run_split<Direction::direction>(r, n, isign, wsave, threads_for<R>(n), #UPPER);            \
    }                                                                                              \
    VOR_CHECKED_ENTRY(lower, UPPER, driver, check, PARAMS_REAL_FFT1DC(R), ARGS_REAL_FFT1DC)

REAL1D(vor_dft_xscfft1d, vor_dft_scfft1d, vor_dft_errchk_scfft1d, scfft1d, SCFFT1D, float, forward)
REAL1D(vor_dft_xdzfft1d, vor_dft_dzfft1d, vor_dft_errchk_dzfft1d, dzfft1d, DZFFT1D, double, forward)
REAL1D(vor_dft_xcsfft1d, vor_dft_csfft1d, vor_dft_errchk_csfft1d, csfft1d, CSFFT1D, float, backward)
REAL1D(vor_dft_xzdfft1d, vor_dft_zdfft1d, vor_dft_errchk_zdfft1d, zdfft1d, ZDFFT1D, double,
       backward)
REAL1DC(vor_dft_xscfft1dc, vor_dft_scfft1dc, vor_dft_errchk_scfft1dc, scfft1dc, SCFFT1DC, float,
        forward)
REAL1DC(vor_dft_xdzfft1dc, vor_dft_dzfft1dc, vor_dft_errchk_dzfft1dc, dzfft1dc, DZFFT1DC, double,
        forward)
REAL1DC(vor_dft_xcsfft1dc, vor_dft_csfft1dc, vor_dft_errchk_csfft1dc, csfft1dc, CSFFT1DC, float,
        backward)
REAL1DC(vor_dft_xzdfft1dc, vor_dft_zdfft1dc, vor_dft_errchk_zdfft1dc, zdfft1dc, ZDFFT1DC, double,
        backward)

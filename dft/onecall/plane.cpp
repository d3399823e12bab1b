// One-call transforms of complex planes, n columns of m = 2^km points, n = 2^kn: interleaved (cfft2d, zfft2d)
// and split (cfft2dc, zfft2dc). Columns first, then rows.
//
//   isign      -1 forward, -2 forward with both dimensions left in bit-reversed order; +1, +2 the inverse of
//              these, divided by m n
//   m, n < 1   nothing is done
//
// The tables are scratch of the call: of one dimension first, then of the other one.
#include "dft/onecall/plane.h"
#include "dft/onecall/check.h"
#include "serv/entry.h"
#include "vor_fft.h"

namespace vor::dfti::onecall {
namespace {

constexpr int kSmallPlane = 11; // km + kn below it: not worth a team

template <class Form>
void run(Form x, int m, int n, int isign, int threads, Name name) {
    using R = typename Form::Real;
    if (m < 1 || n < 1) return;
    constexpr size_t kMargin = 64;
    const Scratch<R> wsave(3 * static_cast<size_t>(m > n ? m : n) + kMargin);
    if (!wsave) return report_no_memory(name.text, name.length);
    radix::fill_coefficients(wsave.get(), order_of(m));
    share(n, threads, [&](Share columns) {
        transform_columns(x.from(columns.first * m), m, m, columns.count, isign, wsave.get());
        return true;
    });
    if (n != m) radix::fill_coefficients(wsave.get(), order_of(n));
    if (!transform_rows(x, m, m, n, isign, wsave.get(), threads))
        report_no_memory(name.text, name.length);
}

template <class Form>
void drive(Form x, int m, int n, int isign, Name serial, Name driver) {
    if (m < 1 || n < 1) return;
    const int threads = order_of(m) + order_of(n) < kSmallPlane ? 1 : team_size();
    if (threads < 1) return report_condition(driver.text, driver.length, threads);
    run(x, m, n, isign, threads, threads == 1 ? serial : driver);
}

} // namespace
} // namespace vor::dfti::onecall

using namespace vor::dfti::onecall;

// The engine on one thread and what it reports as, the driver and the same, the entry.
#define FFT2D(serial, SERIAL, driver, DRIVER, check, lower, UPPER, C, R)                           \
    extern "C" void serial(C* r, const int* m, const int* n, const int* isign) {                   \
        run(Pairs<R>{r}, *m, *n, *isign, 1, {SERIAL, sizeof SERIAL - 1});                          \
    }                                                                                              \
    VOR_ENGINE void driver PARAMS_FFT2D(C) {                                                       \
        drive(Pairs<R>{r}, *m, *n, *isign, {SERIAL, sizeof SERIAL - 1},                            \
              {DRIVER, sizeof DRIVER - 1});                                                        \
    }                                                                                              \
    VOR_CHECKED_ENTRY(lower, UPPER, driver, check, PARAMS_FFT2D(C), ARGS_FFT2D)
// Split forms have one name for both.
#define FFT2DC(serial, driver, NAME, check, lower, UPPER, R)                                       \
    extern "C" void serial(R* rr, R* ri, const int* m, const int* n, const int* isign) {           \
        run(Split<R>{rr, ri}, *m, *n, *isign, 1, {NAME, sizeof NAME - 1});                         \
    }                                                                                              \
    VOR_ENGINE void driver PARAMS_FFT2DC(R) {                                                      \
        constexpr Name name = {NAME, sizeof NAME - 1};                                             \
        drive(Split<R>{rr, ri}, m, n, isign, name, name);                                          \
    }                                                                                              \
    VOR_CHECKED_ENTRY(lower, UPPER, driver, check, PARAMS_FFT2DC(R), ARGS_FFT2DC)

FFT2D(vor_dft_xcfft2d, "XCFFT2D ", vor_dft_cfft2d, "CFFT2D ", vor_dft_errchk_cfft2d, cfft2d, CFFT2D,
      VOR_SCOMPLEX, float)
FFT2D(vor_dft_xzfft2d, "XZFFT2D ", vor_dft_zfft2d, "ZFFT2D ", vor_dft_errchk_zfft2d, zfft2d, ZFFT2D,
      VOR_DCOMPLEX, double)
FFT2DC(vor_dft_xcfft2dc, vor_dft_cfft2dc, "CFFT2DC", vor_dft_errchk_cfft2dc, cfft2dc, CFFT2DC,
       float)
FFT2DC(vor_dft_xzfft2dc, vor_dft_zfft2dc, "ZFFT2DC", vor_dft_errchk_zfft2dc, zfft2dc, ZFFT2DC,
       double)

// Shares of a plane by name: `count` columns of m points, `count` rows of n points, m elements apart. The rows
// give 1 if there is no memory for them.
#define SHARES(columns, rows, C, R)                                                                \
    extern "C" void columns(C* r, const int* m, const int* count, const int* isign,                \
                            const R* wsave) {                                                      \
        transform_columns(Pairs<R>{r}, *m, *m, *count, *isign, wsave);                             \
    }                                                                                              \
    extern "C" int rows(C* r, const int* m, const int* count, const int* n, const int* isign,      \
                        const R* wsave) {                                                          \
        return !transform_rows(Pairs<R>{r}, *m, *count, *n, *isign, wsave);                        \
    }
SHARES(vor_dft_c2_c, vor_dft_c2_r, VOR_SCOMPLEX, float)
SHARES(vor_dft_z2_c, vor_dft_z2_r, VOR_DCOMPLEX, double)

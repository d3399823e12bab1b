// Argument checks of the one-call transforms. The tests of an argument list are a row of data.
#include "dft/onecall/check.h"
#include "serv/check.h"
#include "serv/entry.h"

namespace vor::dfti::onecall {
namespace {

// ---- What arguments must satisfy; `number` is the argument's.

template <int number>
bool is_power_of_two(Arguments a) {
    const int n = integer(a, number);
    return n > 0 && (n & (n - 1)) == 0;
}
template <int number>
bool is_present(Arguments a) {
    return a[number - 1] != nullptr;
}
// Between -2 and 2.
template <int number>
bool is_sign(Arguments a) {
    return integer(a, number) >= -2 && integer(a, number) <= 2;
}
template <int number>
bool is_sign_not_0(Arguments a) {
    return is_sign<number>(a) && integer(a, number) != 0;
}
// Whether a word of wsave, without its fraction, is `length`.
template <class R>
bool holds(R word, int length) {
    return word >= static_cast<R>(length) && word < static_cast<R>(length) + 1;
}
// wsave was filled for this length, or is to be filled now. Length, sign and wsave stand side by side.
template <int number, class R>
bool is_filled(Arguments a) {
    const auto* wsave = static_cast<const R*>(a[number - 1]);
    return integer(a, number - 1) == 0 || holds(wsave[0], integer(a, number - 2));
}
template <int number, class R>
bool is_filled_for_real(Arguments a) {
    const auto* wsave = static_cast<const R*>(a[number - 1]);
    const int n = integer(a, number - 2);
    return integer(a, number - 1) == 0 ||
           (holds(wsave[0], n / 2) && holds(wsave[2 * n - 1], n / 2));
}

// ---- One row for each argument list.

template <class R>
struct Tests {
    static constexpr Test fft1d[] = {predicate(2, is_power_of_two<2>), predicate(3, is_sign<3>),
                                     predicate(4, is_present<4>), predicate(4, is_filled<4, R>),
                                     predicate(1, is_present<1>)};
    static constexpr Test fft1dc[] = {
        predicate(3, is_power_of_two<3>), predicate(4, is_sign<4>),    predicate(5, is_present<5>),
        predicate(5, is_filled<5, R>),    predicate(1, is_present<1>), predicate(2, is_present<2>)};
    static constexpr Test fft2d[] = {predicate(2, is_power_of_two<2>),
                                     predicate(3, is_power_of_two<3>),
                                     predicate(4, is_sign_not_0<4>), predicate(1, is_present<1>)};
    static constexpr Test fft2dc[] = {predicate(3, is_power_of_two<3>),
                                      predicate(4, is_power_of_two<4>), predicate(5, is_sign<5>),
                                      predicate(1, is_present<1>), predicate(2, is_present<2>)};
    static constexpr Test real1d[] = {
        predicate(2, is_power_of_two<2>), predicate(3, is_sign<3>), predicate(4, is_present<4>),
        predicate(4, is_filled_for_real<4, R>), predicate(1, is_present<1>)};
    static constexpr Test real2d[] = {predicate(2, is_power_of_two<2>),
                                      predicate(3, is_power_of_two<3>),
                                      predicate(1, is_present<1>)};
};

bool is_trivial(int n) {
    return n == 0 || n == 1;
}

} // namespace
} // namespace vor::dfti::onecall

// One check: in one dimension with the length that may leave nothing to do.
#define CHECK_1D(name, NAME, R, length, PARAMS, ARGS, list)                                        \
    VOR_ENGINE int name PARAMS {                                                                   \
        using namespace vor::dfti::onecall;                                                        \
        return is_trivial(length) ? 1 : vor::Check{Tests<R>::list, NAME} ARGS;                     \
    }
#define CHECK_2D(name, NAME, R, PARAMS, ARGS, list)                                                \
    VOR_ENGINE int name PARAMS {                                                                   \
        using namespace vor::dfti::onecall;                                                        \
        return vor::Check{Tests<R>::list, NAME} ARGS;                                              \
    }
#define FFT1D(name, NAME, R, C) CHECK_1D(name, NAME, R, *n, PARAMS_FFT1D(C, R), ARGS_FFT1D, fft1d)
#define FFT1DC(name, NAME, R) CHECK_1D(name, NAME, R, n, PARAMS_FFT1DC(R), ARGS_FFT1DC, fft1dc)
#define FFT2D(name, NAME, R, C) CHECK_2D(name, NAME, R, PARAMS_FFT2D(C), ARGS_FFT2D, fft2d)
#define FFT2DC(name, NAME, R) CHECK_2D(name, NAME, R, PARAMS_FFT2DC(R), ARGS_FFT2DC, fft2dc)
#define REAL1D(name, NAME, R)                                                                      \
    CHECK_1D(name, NAME, R, *n, PARAMS_REAL_FFT1D(R), ARGS_REAL_FFT1D, real1d)
#define REAL1DC(name, NAME, R)                                                                     \
    CHECK_1D(name, NAME, R, n, PARAMS_REAL_FFT1DC(R), ARGS_REAL_FFT1DC, real1d)
#define REAL2D(name, NAME, R) CHECK_2D(name, NAME, R, PARAMS_REAL_FFT2D(R), ARGS_REAL_FFT2D, real2d)
#define REAL2DC(name, NAME, R)                                                                     \
    CHECK_2D(name, NAME, R, PARAMS_REAL_FFT2DC(R), ARGS_REAL_FFT2DC, real2d)

FFT1D(vor_dft_errchk_cfft1d, "CFFT1D  ", float, vor::cfloat)
FFT1D(vor_dft_errchk_zfft1d, "ZFFT1D  ", double, vor::cdouble)
FFT1DC(vor_dft_errchk_cfft1dc, "CFFT1DC", float)
FFT1DC(vor_dft_errchk_zfft1dc, "ZFFT1DC", double)
FFT2D(vor_dft_errchk_cfft2d, "CFFT2D  ", float, vor::cfloat)
FFT2D(vor_dft_errchk_zfft2d, "ZFFT2D  ", double, vor::cdouble)
FFT2DC(vor_dft_errchk_cfft2dc, "CFFT2DC", float)
FFT2DC(vor_dft_errchk_zfft2dc, "ZFFT2DC", double)
REAL1D(vor_dft_errchk_scfft1d, "SCFFT1D ", float)
REAL1D(vor_dft_errchk_dzfft1d, "DZFFT1D ", double)
REAL1D(vor_dft_errchk_csfft1d, "CSFFT1D ", float)
REAL1D(vor_dft_errchk_zdfft1d, "ZDFFT1D ", double)
REAL1DC(vor_dft_errchk_scfft1dc, "SCFFT1DC", float)
REAL1DC(vor_dft_errchk_dzfft1dc, "DZFFT1DC", double)
REAL1DC(vor_dft_errchk_csfft1dc, "CSFFT1DC", float)
REAL1DC(vor_dft_errchk_zdfft1dc, "ZDFFT1DC", double)
REAL2D(vor_dft_errchk_scfft2d, "SCFFT2D ", float)
REAL2D(vor_dft_errchk_dzfft2d, "DZFFT2D ", double)
REAL2D(vor_dft_errchk_csfft2d, "CSFFT2D ", float)
REAL2D(vor_dft_errchk_zdfft2d, "ZDFFT2D ", double)
REAL2DC(vor_dft_errchk_scfft2dc, "SCFFT2DC", float)
REAL2DC(vor_dft_errchk_dzfft2dc, "DZFFT2DC", double)
REAL2DC(vor_dft_errchk_csfft2dc, "CSFFT2DC", float)
REAL2DC(vor_dft_errchk_zdfft2dc, "ZDFFT2DC", double)

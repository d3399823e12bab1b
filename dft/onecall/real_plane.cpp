// One-call transforms of real planes, n columns of m reals, and their spectra: scfft2d, dzfft2d forward,
// csfft2d, zdfft2d inverse, divided by m n; with a final c the spectrum is split. m and n are powers of two.
//
// The array has n + 2 columns of m + 2 words. Forward, each column becomes its spectrum. Then the row of its
// first element and the row of its last, which hold reals, are transformed as real vectors of n and spread over
// n + 2 columns; all other rows hold complex numbers and are transformed as such. A row or column of one
// element stays as it is: with m = 1 there is no last row.
//
// m, n < 1   nothing is done
#include "dft/onecall/check.h"
#include "dft/onecall/plane.h"
#include "dft/onecall/real.h"
#include "serv/entry.h"
#include "vor_fft.h"

namespace vor::dfti::onecall {
namespace {

constexpr int kSmallPlane = 8; // km + kn below it: not worth a team

// The tables of both dimensions, and room for one row.
template <class R>
class Tables {
public:
    Tables(int m, int n) : memory_(2 * count(m) + 3 * count(n) + 2 * count(n)) {
        if (!memory_) return;
        columns = memory_.get();
        complex_rows = columns + 2 * count(m);
        real_rows = complex_rows + 3 * count(n);
        if (m > 1) fill_real(columns, m);
        if (n < 2) return;
        radix::fill_coefficients(complex_rows, order_of(n));
        fill_real(real_rows, n);
    }
    explicit operator bool() const { return static_cast<bool>(memory_); }

    R *columns = nullptr, *complex_rows = nullptr, *real_rows = nullptr;

private:
    static size_t count(int n) {
        return static_cast<size_t>(n) + 32;
    } // twice and thrice: 64 and more
    Scratch<R> memory_;
};

// The data by columns, rows of reals and complex rows.
template <Storage storage, class R>
struct RealPlane {
    R* r;
    int m, n;

    int ld() const { return m + 2; }
    R* column(int i) const { return ahead(r, i, ld()); }
    R* first_row() const { return r; }
    R* last_row() const { return r + (storage == Storage::pairs ? m : m / 2); }
    int complex_rows() const { return m / 2 - 1; }
    auto complex_row(int j) const {
        if constexpr (storage == Storage::pairs)
            return Pairs<R>{reinterpret_cast<complex_t<R>*>(r) + 1 + j};
        else
            return Split<R>{r + 1 + j, r + m / 2 + 2 + j};
    }
    int complex_ld() const { return storage == Storage::pairs ? ld() / 2 : ld(); }
};

// False if there is no memory.
template <Direction D, Storage storage, class R>
bool transform_columns(RealPlane<storage, R> plane, Share share, const R* wsave) {
    if (plane.m < 2) return true;
    if constexpr (storage == Storage::pairs) {
        for (int i = share.first; i < share.first + share.count; ++i)
            real_transform<D>(plane.column(i), plane.m, wsave);
        return true;
    } else {
        const Scratch<R> work(static_cast<size_t>(plane.ld()));
        if (!work) return false;
        for (int i = share.first; i < share.first + share.count; ++i)
            transform_apart<D, storage>(plane.column(i), 1, plane.m, wsave, work.get());
        return true;
    }
}

template <Direction D, Storage storage, class R>
bool transform_real_rows(RealPlane<storage, R> plane, const R* wsave) {
    if (plane.n < 2) return true;
    const Scratch<R> work(static_cast<size_t>(plane.n) + 2);
    if (!work) return false;
    transform_apart<D, storage>(plane.first_row(), plane.ld(), plane.n, wsave, work.get());
    if (plane.m > 1)
        transform_apart<D, storage>(plane.last_row(), plane.ld(), plane.n, wsave, work.get());
    return true;
}

template <Direction D, Storage storage, class R>
bool transform_plane(RealPlane<storage, R> plane, int threads) {
    constexpr bool forward = D == Direction::forward;
    const Tables<R> tables(plane.m, plane.n);
    if (!tables) return false;
    const auto columns = [&] {
        return share(plane.n, threads,
                     [&](Share part) { return transform_columns<D>(plane, part, tables.columns); });
    };
    const auto complex_rows = [&] {
        return transform_rows(plane.complex_row(0), plane.complex_ld(), plane.complex_rows(),
                              plane.n, forward ? -1 : 1, tables.complex_rows, threads);
    };
    if (forward)
        return columns() && transform_real_rows<D>(plane, tables.real_rows) && complex_rows();
    return complex_rows() && transform_real_rows<D>(plane, tables.real_rows) && columns();
}

template <Direction D, Storage storage, class R>
void run(R* r, int m, int n, int threads, Name name) {
    if (m < 1 || n < 1) return;
    if (!transform_plane<D>(RealPlane<storage, R>{r, m, n}, threads))
        report_no_memory(name.text, name.length);
}

template <Direction D, Storage storage, class R>
void drive(R* r, int m, int n, Name serial, Name driver) {
    if (m < 1 || n < 1) return;
    const int threads = order_of(m) + order_of(n) < kSmallPlane ? 1 : team_size();
    if (threads < 1) return report_condition(driver.text, driver.length, threads);
    run<D, storage>(r, m, n, threads, threads == 1 ? serial : driver);
}

} // namespace
} // namespace vor::dfti::onecall

using namespace vor::dfti::onecall;
using vor::Direction;

// The engine on one thread and what it reports as, the driver and the same, the entry.
#define REAL2D(serial, SERIAL, driver, DRIVER, check, lower, UPPER, R, direction)                  \
    extern "C" void serial(R* r, const int* m, const int* n) {                                     \
        run<Direction::direction, Storage::pairs>(r, *m, *n, 1, {SERIAL, sizeof SERIAL - 1});      \
    }                                                                                              \
    VOR_ENGINE void driver PARAMS_REAL_FFT2D(R) {                                                  \
        drive<Direction::direction, Storage::pairs>(r, *m, *n, {SERIAL, sizeof SERIAL - 1},        \
                                                    {DRIVER, sizeof DRIVER - 1});                  \
    }                                                                                              \
    VOR_CHECKED_ENTRY(lower, UPPER, driver, check, PARAMS_REAL_FFT2D(R), ARGS_REAL_FFT2D)
// Split forms have one name for both. Their entries give what the check gives.
#define REAL2DC(serial, driver, NAME, check, lower, UPPER, R, direction)                           \
    extern "C" void serial(R* r, const int* m, const int* n) {                                     \
        run<Direction::direction, Storage::split>(r, *m, *n, 1, {NAME, sizeof NAME - 1});          \
    }                                                                                              \
    VOR_ENGINE void driver PARAMS_REAL_FFT2DC(R) {                                                 \
        constexpr Name name = {NAME, sizeof NAME - 1};                                             \
        drive<Direction::direction, Storage::split>(r, m, n, name, name);                          \
    }                                                                                              \
    extern "C" int lower PARAMS_REAL_FFT2DC(R) {                                                   \
        vor::run_frame();                                                                          \
        if (vor::cfg_check == 1)                                                                   \
            if (const int refused = check ARGS_REAL_FFT2DC) return refused;                        \
        driver ARGS_REAL_FFT2DC;                                                                   \
        return 0;                                                                                  \
    }                                                                                              \
    VOR_ALIASES(int, lower, UPPER, lower, PARAMS_REAL_FFT2DC(R))

REAL2D(vor_dft_xscfft2d, "XSCFFT2D", vor_dft_scfft2d, "SCFFT2D ", vor_dft_errchk_scfft2d, scfft2d,
       SCFFT2D, float, forward)
REAL2D(vor_dft_xdzfft2d, "XDZFFT2D", vor_dft_dzfft2d, "DZFFT2D ", vor_dft_errchk_dzfft2d, dzfft2d,
       DZFFT2D, double, forward)
REAL2D(vor_dft_xcsfft2d, "XCSFFT2D", vor_dft_csfft2d, "CSFFT2D ", vor_dft_errchk_csfft2d, csfft2d,
       CSFFT2D, float, backward)
REAL2D(vor_dft_xzdfft2d, "XZDFFT2D", vor_dft_zdfft2d, "ZDFFT2D ", vor_dft_errchk_zdfft2d, zdfft2d,
       ZDFFT2D, double, backward)
REAL2DC(vor_dft_xscfft2dc, vor_dft_scfft2dc, "SCFFT2DC", vor_dft_errchk_scfft2dc, scfft2dc,
        SCFFT2DC, float, forward)
REAL2DC(vor_dft_xdzfft2dc, vor_dft_dzfft2dc, "DZFFT2DC", vor_dft_errchk_dzfft2dc, dzfft2dc,
        DZFFT2DC, double, forward)
REAL2DC(vor_dft_xcsfft2dc, vor_dft_csfft2dc, "CSFFT2DC", vor_dft_errchk_csfft2dc, csfft2dc,
        CSFFT2DC, float, backward)
REAL2DC(vor_dft_xzdfft2dc, vor_dft_zdfft2dc, "ZDFFT2DC", vor_dft_errchk_zdfft2dc, zdfft2dc,
        ZDFFT2DC, double, backward)

// Shares of a plane by name: its columns from `first` on, and complex rows from `first` on. They give 1 if
// there is no memory for them.
#define SHARES(columns, rows, R, direction, storage)                                               \
    extern "C" int columns(R* r, const int* m, const int* n, const int* first, const int* count,   \
                           const R* wsave) {                                                       \
        RealPlane<Storage::storage, R> plane{r, *m, *n};                                           \
        plane.r = plane.column(*first);                                                            \
        return !transform_columns<Direction::direction>(plane, {*count, 1, 0}, wsave);             \
    }                                                                                              \
    extern "C" int rows(R* r, const int* m, const int* n, const int* first, const int* count,      \
                        const R* wsave) {                                                          \
        const RealPlane<Storage::storage, R> plane{r, *m, *n};                                     \
        const int isign = Direction::direction == Direction::forward ? -1 : 1;                     \
        return !transform_rows(plane.complex_row(*first), plane.complex_ld(), *count, *n, isign,   \
                               wsave);                                                             \
    }
SHARES(vor_dft_sc2_c, vor_dft_sc2_r, float, forward, pairs)
SHARES(vor_dft_dz2_c, vor_dft_dz2_r, double, forward, pairs)
SHARES(vor_dft_cs2_c, vor_dft_cs2_r, float, backward, pairs)
SHARES(vor_dft_zd2_c, vor_dft_zd2_r, double, backward, pairs)
SHARES(vor_dft_sc2c_c, vor_dft_sc2c_r, float, forward, split)
SHARES(vor_dft_dz2c_c, vor_dft_dz2c_r, double, forward, split)
SHARES(vor_dft_cs2c_c, vor_dft_cs2c_r, float, backward, split)
SHARES(vor_dft_zd2c_c, vor_dft_zd2c_r, double, backward, split)

// 1-D functions of a record on the radix engine.
#include "dft/radix/adapters.h"
#include "dft/radix/engine.h"
#include "dft/routines.h"

namespace vor::dfti::radix {
namespace {

template <class R>
Tables<R> tables_of(const DftiRecord& record) {
    const auto* area = static_cast<const R*>(record.*Routines<R>::table);
    return {data_of(area), record.log2_length};
}

Order order_of(const DftiRecord& record) {
    return record.ordering == DFTI_ORDERED ? Order::natural : Order::reversed;
}

// In double precision the last sweep scales as well; in single precision a sweep of its own follows, unless the
// scale is 1.
template <class R>
void run_forward(Pairs<R> x, const DftiRecord& record, Team team) {
    const auto tables = tables_of<R>(record);
    const R scale = record.*Directed<R, Direction::forward>::scale;
    if (scale == 1) return forward(x, tables, order_of(record), team);
    if constexpr (kSingle<R>) {
        forward(x, tables, order_of(record), team);
        const int reals = 2 * record.length, step = 1;
        vor_blas_sscal(&reals, &scale, x.re(), &step);
    } else {
        forward_scaled(x, tables, order_of(record), scale, team);
    }
}

template <Direction D, class R>
int run(void* data, DftiRecord* record, Team team) {
    const Pairs<R> x{static_cast<complex_t<R>*>(data)};
    const R scale = record->*Directed<R, D>::scale;
    if (record->length == 1)
        x.set(0, x.get(0) * scale);
    else if constexpr (D == Direction::forward)
        run_forward(x, *record, team);
    else
        backward(x, tables_of<R>(*record), order_of(*record), scale, team);
    return DFTI_NO_ERROR;
}

template <Direction D, class R>
int adapter(void* input, void* output, DftiRecord* record) {
    using C = complex_t<R>;
    if (record->length < 1) return DFTI_NO_ERROR;
    if (input != output)
        Routines<R>::copy(record->length, static_cast<const C*>(input), 1, static_cast<C*>(output),
                          1);
    return run<D, R>(output, record, {});
}

// Parts of a team have a leaf at least.
template <Direction D, class R>
int by_team(void* data, int threads, DftiRecord* record) {
    return run<D, R>(data, record, team_of(threads, record->log2_length, kLeafOrder<R>));
}

} // namespace
} // namespace vor::dfti::radix

using vor::Direction;
using namespace vor::dfti::radix;

#define ADAPTER(name, team_name, R, direction)                                                     \
    extern "C" int name(void* input, void* output, DftiRecord* record, void*) {                    \
        return adapter<Direction::direction, R>(input, output, record);                            \
    }                                                                                              \
    extern "C" int team_name(void* data, int threads, DftiRecord* record) {                        \
        return by_team<Direction::direction, R>(data, threads, record);                            \
    }
ADAPTER(vor_dft_xcdft1df, vor_dft_c1d_forw_dft, float, forward)
ADAPTER(vor_dft_xcdft1db, vor_dft_c1d_back_dft, float, backward)
ADAPTER(vor_dft_xzdft1df, vor_dft_z1d_forw_dft, double, forward)
ADAPTER(vor_dft_xzdft1db, vor_dft_z1d_back_dft, double, backward)

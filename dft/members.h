// The members of the compute family: data kind, direction and placement of one transform.
#pragma once

#include "dft/columns.h"
#include "dft/precision.h"

namespace vor {

// complex: complex data. packed: real data, the spectrum in CCS, Pack or Perm, both sides counted in
// reals. half: real data, the first half of the spectrum as complex numbers, out of place only.
enum class Data { complex, packed, half };

template <class Real, Data kind, Direction direction, bool in_place>
struct Member {
    using R = Real;
    using C = typename Precision<R>::Complex;
    static constexpr Data kKind = kind;
    static constexpr bool kForward = direction == Direction::forward;
    static constexpr bool kInPlace = in_place;
    static constexpr bool kComplex = kind == Data::complex;
    // Elements of the sides: what strides, distances and offsets count.
    using In = std::conditional_t<kComplex || (kind == Data::half && !kForward), C, R>;
    using Out = std::conditional_t<kComplex || (kind == Data::half && kForward), C, R>;

    static Transform* function(const DftiRecord& record) {
        if constexpr (kComplex)
            return record.*Directed<R, direction>::function;
        else
            return record.*Directed<R, direction>::real_function;
    }
    static ParallelTransform* team_function(const DftiRecord& record) {
        return record.*Directed<R, direction>::parallel;
    }
    static int two_d(DftiRecord* head, In* in, Out* out) {
        DftiRecord* second = head->next;
        const int *is0 = &head->input_stride, *is1 = &second->input_stride;
        const int* os0 = in_place ? is0 : &head->output_stride;
        const int* os1 = in_place ? is1 : &second->output_stride;
        if constexpr (kComplex)
            return (head->*Precision<R>::two_d)(out, os0, os1, function(*head), function(*second),
                                                head, head->workspace);
        else
            return (head->*Directed<R, direction>::two_d_real)(in, out, is0, is1, os0, os1, head,
                                                               head->workspace);
    }

    // Elements of one vector that are read, and written.
    static int values_in(const DftiRecord& record) {
        return values(record, kForward, sizeof(In) / sizeof(R));
    }
    static int values_out(const DftiRecord& record) {
        // The backward transform clears the first value behind the reals of CCS in place.
        const bool clears = in_place && kind == Data::packed && !kForward &&
                            record.packed_format == DFTI_CCS_FORMAT;
        return values(record, !kForward, sizeof(Out) / sizeof(R)) + (clears ? 1 : 0);
    }
    // A vector can be copied to its place in the output and transformed there.
    static bool fits_output(const DftiRecord& record) {
        return values_in(record) * sizeof(In) <= values_out(record) * sizeof(Out);
    }

private:
    static int values(const DftiRecord& record, bool signal_side, int reals) {
        if (kComplex || signal_side || !has_half_spectrum(record)) return record.length;
        return half_spectrum(record.length) / reals;
    }
};

} // namespace vor

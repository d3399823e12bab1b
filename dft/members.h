// The members of the compute family: data kind, direction and placement of one transform.
#pragma once

#include "dft/member_list.h"
#include "dft/routines.h"

namespace vor::dfti {

// complex: complex data. packed: real data, the spectrum in CCS, Pack or Perm, both sides counted in
// reals. half: real data, the first half of the spectrum as complex numbers, out of place only.
enum class Data { complex, packed, half };

template <class Real, Data data, Direction direction, bool in_place>
struct Member {
    using R = Real;
    using C = complex_t<R>;
    static constexpr Data kData = data;
    static constexpr Direction kDirection = direction;
    static constexpr bool kForward = direction == Direction::forward;
    static constexpr bool kInPlace = in_place;
    static constexpr bool kComplex = data == Data::complex;
    // Elements of the sides: what strides, distances and offsets count.
    using In = std::conditional_t<kComplex || (data == Data::half && !kForward), C, R>;
    using Out = std::conditional_t<kComplex || (data == Data::half && kForward), C, R>;
    // The fields of the sides. In place both are the input's.
    static constexpr Side kIn = kInput;
    static constexpr Side kOut = in_place ? kInput : kOutput;

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
        const int *in0 = &(head->*kIn.stride), *in1 = &(second->*kIn.stride);
        const int *out0 = &(head->*kOut.stride), *out1 = &(second->*kOut.stride);
        if constexpr (kComplex)
            return (head->*Routines<R>::two_d)(out, out0, out1, function(*head), function(*second),
                                               head, head->workspace);
        else
            return (head->*Directed<R, direction>::two_d_real)(in, out, in0, in1, out0, out1, head,
                                                               head->workspace);
    }

    // Elements of one vector that are read, and written.
    static int values_in(const DftiRecord& record) {
        return values(record, kForward, sizeof(In) / sizeof(R));
    }
    static int values_out(const DftiRecord& record) {
        // The backward transform clears the first value behind the reals of CCS in place.
        const bool clears = in_place && data == Data::packed && !kForward &&
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

} // namespace vor::dfti

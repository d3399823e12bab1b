// The stages of a real plane, for one thread and for the shares of a team alike.
//
// Forward: rows, the one or two columns of real sequences, then all other columns. Backward the same in
// reverse. Out of place the rows of a backward transform have no room for CCS: they, and the columns of
// real sequences, are turned to Perm on the way.
#include "dft/real_plane.h"
#include "dft/by_row.h"
#include "serv/memory.h"
#include "signal/format.h"

namespace vor::dfti {

namespace {

using signal::Format;

// Storage 39 has the order of CCS in complex numbers.
Format format_of(const DftiRecord& head) {
    if (head.packed_format == DFTI_PACK_FORMAT) return Format::pack;
    return head.packed_format == DFTI_PERM_FORMAT ? Format::perm : Format::ccs;
}

// The conjugate-even vector in CCS at x, as reals or complex numbers, to Perm order at y.
template <class R>
void gather_perm(const R* x, int stride, R* y, int n) {
    signal::convert<Format::ccs, Format::perm>(signal::reals(x, stride), signal::reals(y), n);
}
template <class R>
void gather_perm(const complex_t<R>* x, int stride, R* y, int n) {
    signal::convert<Format::ccs, Format::perm>(signal::complexes(x, stride), signal::reals(y), n);
}

template <class R, Data data, Direction direction>
class RealPlane {
    using In = RealIn<R, data, direction>;
    using Out = RealOut<R, data, direction>;
    static constexpr bool kForward = direction == Direction::forward;
    static constexpr bool kHalf = data == Data::half;
    using Spectrum = std::conditional_t<kForward, Out, In>;
    static constexpr size_t kSlack = 32;

public:
    RealPlane(const PlaneSide<const In>& in, const PlaneSide<Out>& out, DftiRecord* head)
        : in_(in), out_(out), head_(head), second_(head->next), length0_(head->length),
          length1_(head->next->length),
          turns_(!kForward && head->placement == DFTI_NOT_INPLACE && has_half_spectrum(*head)),
          spectrum_(format_of(*head)), rows_(turns_ ? Format::perm : spectrum_) {}

    int serial(void* workspace) const {
        const size_t columns = group_reals(kPairGroup<R>);
        const Scratch<R> buffer(columns > vector_reals() ? columns : vector_reals());
        if (!buffer) return DFTI_MEMORY_ERROR;
        const auto whole_rows = [&] { return rows(Share(length1_), buffer.get(), workspace); };
        const auto whole_columns = [&] {
            return complex_columns(Share(column_count()), group(buffer.get(), kPairGroup<R>),
                                   workspace);
        };
        return in_order(whole_rows, whole_columns, buffer.get(), workspace);
    }

    int on_team() const {
        const Scratch<R> buffer(vector_reals());
        if (!buffer) return DFTI_MEMORY_ERROR;
        const auto shared_rows = [this] {
            return in_shares(length1_, head_->threads, [this](Share share, int i) {
                return share_of_rows(share, workspace_region(*head_, i));
            });
        };
        const auto shared_columns = [this] {
            return in_shares(column_count(), head_->threads, [this](Share share, int i) {
                return share_of_columns(share, workspace_region(*head_, i));
            });
        };
        return in_order(shared_rows, shared_columns, buffer.get(), head_->workspace);
    }

    int share_of_rows(Share share, void* workspace) const {
        if (out_.stride0 == 1) return rows(share, nullptr, workspace);
        const Scratch<R> buffer(vector_reals());
        return buffer ? rows(share, buffer.get(), workspace) : DFTI_MEMORY_ERROR;
    }

    int share_of_columns(Share share, void* workspace) const {
        const bool adjacent = spectrum().stride0 == 1 && out_.stride0 == 1;
        const int size = adjacent ? kPairGroup<R> : 1;
        const Scratch<R> buffer(group_reals(size));
        if (!buffer) return DFTI_MEMORY_ERROR;
        return complex_columns(share, group(buffer.get(), size), workspace);
    }

private:
    // The stages; the first failure ends the transform.
    template <class Rows, class Columns>
    int in_order(Rows rows_stage, Columns columns_stage, R* buffer, void* workspace) const {
        int status = DFTI_NO_ERROR;
        if (kForward) {
            status = rows_stage();
            if (status != DFTI_NO_ERROR || length1_ < 2) return status;
            status = real_columns(buffer, workspace);
            return status == DFTI_NO_ERROR && column_count() > 0 ? columns_stage() : status;
        }
        if (length1_ < 2) return single_row(buffer, workspace);
        if (column_count() > 0) status = columns_stage();
        if (status == DFTI_NO_ERROR) status = real_columns(buffer, workspace);
        return status == DFTI_NO_ERROR && length0_ > 1 ? rows_stage() : status;
    }

    size_t vector_reals() const { return static_cast<size_t>(head_->max_length) + 2 + kSlack; }
    size_t group_reals(int size) const {
        return static_cast<size_t>(size) * static_cast<size_t>(vector_distance<R>(2 * length1_));
    }
    VectorGroup<R> group(R* buffer, int size) const {
        return {buffer, vector_distance<R>(2 * length1_), size};
    }

    // Where the rows come from: backward the columns have brought them into the output.
    PlaneSide<const R> row_source() const {
        if constexpr (kForward)
            return in_;
        else
            return {out_.data, out_.stride0, out_.stride1};
    }
    // Where the columns come from: forward the rows have left them in the output.
    PlaneSide<const Spectrum> spectrum() const {
        if constexpr (kForward)
            return {out_.data, out_.stride0, out_.stride1};
        else
            return in_;
    }

    VectorTransform real_transform(DftiRecord* record, void* workspace) const {
        return {record->*Directed<R, direction>::real_function, record, workspace};
    }

    // Values of a row behind its transform. Backward in place the first one behind the reals held a part
    // of the spectrum in CCS: it is cleared.
    int row_values() const {
        if (kForward) return kHalf ? length0_ / 2 + 1 : stored_values(spectrum_, length0_);
        return length0_ + (rows_ == Format::ccs ? 1 : 0);
    }

    // The row in `vector`, of unit stride, to row j of the output, where it may stand already.
    int finish_row(R* vector, int j, const VectorTransform& transform) const {
        if (const int status = transform(vector, vector)) return status;
        auto* row = reinterpret_cast<Out*>(vector);
        if (row != out_.row(j)) Routines<R>::copy(row_values(), row, 1, out_.row(j), out_.stride0);
        return DFTI_NO_ERROR;
    }

    // Rows of a share; a buffer is needed where those of the output have no unit stride.
    int rows(Share share, R* buffer, void* workspace) const {
        const VectorTransform transform = real_transform(head_, workspace);
        const PlaneSide<const R> source = row_source();
        const int values = kForward ? length0_ : stored_values(rows_, length0_);
        int status = DFTI_NO_ERROR;
        for (int j = share.first; j < share.first + share.count && status == DFTI_NO_ERROR; ++j) {
            if (source.stride0 == 1 && out_.stride0 == 1) {
                status = transform(const_cast<R*>(source.row(j)), out_.row(j));
                continue;
            }
            R* vector = vector_for(j, buffer);
            Routines<R>::copy(values, source.row(j), source.stride0, vector, 1);
            status = finish_row(vector, j, transform);
        }
        return status;
    }
    R* vector_for(int j, R* buffer) const {
        return out_.stride0 == 1 ? reinterpret_cast<R*>(out_.row(j)) : buffer;
    }

    // The only row of a spectrum, backward.
    int single_row(R* buffer, void* workspace) const {
        R* vector = vector_for(0, buffer);
        if (turns_)
            gather_perm<R>(in_.data, in_.stride0, vector, length0_);
        else if (static_cast<const void*>(vector) != in_.data)
            Routines<R>::copy(stored_values(rows_, length0_), reinterpret_cast<const R*>(in_.data),
                              in_.stride0, vector, 1);
        return finish_row(vector, 0, real_transform(head_, workspace));
    }

    // Column `from` of the spectrum's side, a real sequence or its spectrum, to column `to` of the
    // output.
    int real_column(int from, int to, R* buffer, void* workspace) const {
        const PlaneSide<const Spectrum> source = spectrum();
        if (turns_)
            gather_perm<R>(source.column(from), source.stride1, buffer, length1_);
        else
            Routines<R>::copy(kForward ? length1_ : stored_values(spectrum_, length1_),
                              reinterpret_cast<const R*>(source.column(from)), source.stride1,
                              buffer, 1);
        const VectorTransform transform = real_transform(second_, workspace);
        if (const int status = transform(buffer, buffer)) return status;
        Routines<R>::copy(kForward ? stored_values(spectrum_, length1_) : length1_, buffer, 1,
                          reinterpret_cast<R*>(out_.column(to)), out_.stride1);
        return DFTI_NO_ERROR;
    }

    int real_columns(R* buffer, void* workspace) const {
        if (kForward && kHalf) return DFTI_NO_ERROR; // they are complex columns like any other
        const int status = real_column(0, 0, buffer, workspace);
        if (status != DFTI_NO_ERROR || length0_ % 2 != 0) return status;
        const int nyquist = kHalf ? length0_ / 2 : middle_value(spectrum_, length0_);
        return real_column(nyquist, middle_value(rows_, length0_), buffer, workspace);
    }

    int column_count() const { return kForward && kHalf ? length0_ / 2 + 1 : (length0_ - 1) / 2; }
    int complex_columns(Share share, const VectorGroup<R>& room, void* workspace) const {
        constexpr int in_step = is_complex<Spectrum> ? 1 : 2, out_step = is_complex<Out> ? 1 : 2;
        const int first_in = kHalf ? !kForward : first_pair(spectrum_, length0_);
        const int first_out = kHalf && kForward ? 0 : first_pair(rows_, length0_);
        return transform_pairs<R, Spectrum, Out>(
            spectrum(), first_in + in_step * share.first, out_, first_out + out_step * share.first,
            share.count, {second_->*Directed<R, direction>::function, second_, workspace}, room);
    }

    PlaneSide<const In> in_;
    PlaneSide<Out> out_;
    DftiRecord *head_, *second_;
    int length0_, length1_;
    bool turns_;      // the rows of the output are in Perm order, whatever the input has
    Format spectrum_; // of the rows and columns of the spectrum
    Format rows_;     // of the rows that the transform of dimension 0 writes or reads
};

} // namespace

template <class R, Data data, Direction direction>
int transform_real_plane(const PlaneSide<const RealIn<R, data, direction>>& in,
                         const PlaneSide<RealOut<R, data, direction>>& out, DftiRecord* head,
                         void* workspace) {
    return RealPlane<R, data, direction>(in, out, head).serial(workspace);
}

template <class R, Data data, Direction direction>
int transform_real_plane_on_team(const PlaneSide<const RealIn<R, data, direction>>& in,
                                 const PlaneSide<RealOut<R, data, direction>>& out,
                                 DftiRecord* head) {
    return RealPlane<R, data, direction>(in, out, head).on_team();
}

} // namespace vor::dfti

using namespace vor::dfti;
using vor::Direction;

// The engines by name; the shares of a team below: rows of dimension 0 and columns of dimension 1.
#define PLANE(name, R, data, direction)                                                            \
    template int vor::dfti::transform_real_plane_on_team<R, Data::data, Direction::direction>(     \
        const PlaneSide<const RealIn<R, Data::data, Direction::direction>>&,                       \
        const PlaneSide<RealOut<R, Data::data, Direction::direction>>&, DftiRecord*);              \
    template int vor::dfti::transform_real_plane<R, Data::data, Direction::direction>(             \
        const PlaneSide<const RealIn<R, Data::data, Direction::direction>>&,                       \
        const PlaneSide<RealOut<R, Data::data, Direction::direction>>&, DftiRecord*, void*);       \
    extern "C" int name(void* input, void* output, const int* input_stride0,                       \
                        const int* input_stride1, const int* output_stride0,                       \
                        const int* output_stride1, DftiRecord* head, void* workspace) {            \
        using M = Member<R, Data::data, Direction::direction, false>;                              \
        return transform_real_plane<R, Data::data, Direction::direction>(                          \
            {static_cast<const M::In*>(input), *input_stride0, *input_stride1},                    \
            {static_cast<M::Out*>(output), *output_stride0, *output_stride1}, head, workspace);    \
    }
PLANE(vor_dft_xdzdft2d, double, packed, forward)
PLANE(vor_dft_xscdft2d, float, packed, forward)
PLANE(vor_dft_xzddft2d, double, packed, backward)
PLANE(vor_dft_xcsdft2d, float, packed, backward)
PLANE(vor_dft_xdzzdft2d, double, half, forward)
PLANE(vor_dft_xsccdft2d, float, half, forward)
PLANE(vor_dft_xzzddft2d, double, half, backward)
PLANE(vor_dft_xccsdft2d, float, half, backward)

#define SHARE(name, stage, R, data, direction)                                                     \
    extern "C" int name(const RealIn<R, Data::data, Direction::direction>* input,                  \
                        int input_stride0, int input_stride1,                                      \
                        RealOut<R, Data::data, Direction::direction>* output, int output_stride0,  \
                        int output_stride1, int first, int count, DftiRecord* head,                \
                        void* workspace) {                                                         \
        Share share(count);                                                                        \
        share.first = first;                                                                       \
        return RealPlane<R, Data::data, Direction::direction>(                                     \
                   {input, input_stride0, input_stride1},                                          \
                   {output, output_stride0, output_stride1}, head)                                 \
            .stage(share, workspace);                                                              \
    }
#define IN_PLACE_SHARE(name, stage, R, direction)                                                  \
    extern "C" int name(R* data, int stride0, int stride1, int first, int count, DftiRecord* head, \
                        void* workspace) {                                                         \
        Share share(count);                                                                        \
        share.first = first;                                                                       \
        return RealPlane<R, Data::packed, Direction::direction>({data, stride0, stride1},          \
                                                                {data, stride0, stride1}, head)    \
            .stage(share, workspace);                                                              \
    }
SHARE(vor_dft_dz2_c_dft, share_of_rows, double, packed, forward)
SHARE(vor_dft_sc2_c_dft, share_of_rows, float, packed, forward)
SHARE(vor_dft_zd2_c_dft, share_of_rows, double, packed, backward)
SHARE(vor_dft_cs2_c_dft, share_of_rows, float, packed, backward)
IN_PLACE_SHARE(vor_dft_dz2_r_dft, share_of_columns, double, forward)
IN_PLACE_SHARE(vor_dft_sc2_r_dft, share_of_columns, float, forward)
IN_PLACE_SHARE(vor_dft_zd2_r_dft, share_of_columns, double, backward)
IN_PLACE_SHARE(vor_dft_cs2_r_dft, share_of_columns, float, backward)
SHARE(vor_dft_zd2_r_out_dft, share_of_columns, double, packed, backward)
SHARE(vor_dft_cs2_r_out_dft, share_of_columns, float, packed, backward)
SHARE(vor_dft_ddz2_c_out_dft, share_of_rows, double, half, forward)
SHARE(vor_dft_ssc2_c_out_dft, share_of_rows, float, half, forward)
SHARE(vor_dft_zzd2_c_dft, share_of_rows, double, half, backward)
SHARE(vor_dft_ccs2_c_dft, share_of_rows, float, half, backward)
SHARE(vor_dft_zzd2_r_out_dft, share_of_columns, double, half, backward)
SHARE(vor_dft_ccs2_r_out_dft, share_of_columns, float, half, backward)

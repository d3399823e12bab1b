// Three dimensions of real data: the real planes of dimensions 0 and 1, and the complex columns of
// dimension 2, forward in this order, backward in the other. A team shares out dimension 2 for the planes
// and dimension 1 for the columns. Columns of length 1 are passed over.
#include "dft/real_volume.h"
#include "dft/real_plane.h"
#include "dft/volume.h"
#include "serv/memory.h"

namespace vor::dfti {

namespace {

// A complex volume of half the rows' length: element (i, j, k) at i * stride[0] + ...
template <class T>
struct HalfVolume {
    T* data;
    int stride[3];
};

template <class R, Direction direction>
class RealVolume {
    using C = complex_t<R>;
    using M = Member<R, Data::half, direction, false>;
    using In = typename M::In;
    using Out = typename M::Out;

public:
    explicit RealVolume(DftiRecord* head)
        : head_(head), second_(head->next), third_(head->next->next), half_(head->length / 2 + 1) {}

    // The side of a record's strides, and the volume between the two stages, densely stored.
    template <class T>
    HalfVolume<T> side(T* data, const Side& side) const {
        return {data, {head_->*side.stride, second_->*side.stride, third_->*side.stride}};
    }
    HalfVolume<C> dense(C* data) const { return {data, {1, half_, half_ * second_->length}}; }
    size_t dense_size() const {
        return static_cast<size_t>(half_) * static_cast<size_t>(second_->length) *
               static_cast<size_t>(third_->length);
    }

    // The planes of a share of dimension 2.
    int planes(const HalfVolume<const In>& in, const HalfVolume<Out>& out, Share share,
               void* workspace) const {
        int status = DFTI_NO_ERROR;
        for (int k = share.first; k < share.first + share.count && status == DFTI_NO_ERROR; ++k)
            status = transform_real_plane<R, Data::half, direction>(
                {ahead(in.data, k, in.stride[2]), in.stride[0], in.stride[1]},
                {ahead(out.data, k, out.stride[2]), out.stride[0], out.stride[1]}, head_,
                workspace);
        return status;
    }

    // The columns of dimension 2 at a share of dimension 1.
    int columns(const HalfVolume<const C>& in, const HalfVolume<C>& out, Share share, int group,
                void* workspace) const {
        Tuples tuples;
        tuples.add(share.count, in.stride[1], out.stride[1]);
        return transform_columns_at<C>(
            tuples,
            {ahead(in.data, share.first, in.stride[1]), in.stride[2], in.stride[0], third_->length},
            {ahead(out.data, share.first, out.stride[1]), out.stride[2], out.stride[0],
             third_->length},
            half_, {third_->*Directed<R, direction>::function, third_, workspace}, group);
    }

    // Both stages, `over(total, body)` running body(share, workspace) over shares of `total`.
    template <class Over>
    int run(const In* in, Out* out, Over over, int group) const {
        const auto input = side(in, kInput);
        const auto output = side(out, kOutput);
        const auto planes_between = [&](const HalfVolume<const In>& from,
                                        const HalfVolume<Out>& to) {
            return over(third_->length, [&](Share share, void* workspace) {
                return planes(from, to, share, workspace);
            });
        };
        const auto columns_between = [&](const HalfVolume<const C>& from, const HalfVolume<C>& to) {
            return over(second_->length, [&](Share share, void* workspace) {
                return columns(from, to, share, group, workspace);
            });
        };
        if (third_->length == 1) return planes_between(input, output);
        if constexpr (M::kForward) {
            const int status = planes_between(input, output);
            if (status != DFTI_NO_ERROR) return status;
            return columns_between(side<const C>(out, kOutput), output);
        } else {
            const Scratch<C> between(dense_size());
            if (!between) return DFTI_MEMORY_ERROR;
            const auto target = dense(between.get());
            if (const int status = columns_between(input, target)) return status;
            return planes_between({target.data, {1, target.stride[1], target.stride[2]}}, output);
        }
    }

    int serial(const In* in, Out* out, void* workspace) const {
        const int group = volume_group<R>(column_stride(), half_, second_->length, third_->length);
        return run(
            in, out, [=](int total, auto body) { return body(Share(total), workspace); }, group);
    }
    int on_team(const In* in, Out* out) const {
        const auto over = [this](int total, auto body) {
            return in_shares(total, head_->threads, [&](Share share, int i) {
                return body(share, workspace_region(*head_, i));
            });
        };
        return run(in, out, over, team_group());
    }
    int team_group() const { return share_group<R>(column_stride(), half_); }

private:
    int column_stride() const { return M::kForward ? head_->output_stride : head_->input_stride; }

    DftiRecord *head_, *second_, *third_;
    int half_; // complex numbers of a row
};

} // namespace

template <class R, Direction direction>
int transform_real_volume(DftiRecord* head,
                          const typename Member<R, Data::half, direction, false>::In* in,
                          typename Member<R, Data::half, direction, false>::Out* out,
                          void* workspace) {
    return RealVolume<R, direction>(head).serial(in, out, workspace);
}

template <class R, Direction direction>
int transform_real_volume_on_team(DftiRecord* head,
                                  const typename Member<R, Data::half, direction, false>::In* in,
                                  typename Member<R, Data::half, direction, false>::Out* out) {
    return RealVolume<R, direction>(head).on_team(in, out);
}

#define INSTANTIATE(R, In, Out, direction)                                                         \
    template int transform_real_volume<R, direction>(DftiRecord*, const In*, Out*, void*);         \
    template int transform_real_volume_on_team<R, direction>(DftiRecord*, const In*, Out*);
INSTANTIATE(float, float, cfloat, Direction::forward)
INSTANTIATE(float, cfloat, float, Direction::backward)
INSTANTIATE(double, double, cdouble, Direction::forward)
INSTANTIATE(double, cdouble, double, Direction::backward)

namespace {

Share share_from(int first, int count) {
    Share share(count);
    share.first = first;
    return share;
}

} // namespace

} // namespace vor::dfti

using namespace vor::dfti;
using vor::Direction;

// The shares by name. Forward: the planes from input to output, then the columns in the output.
// Backward: the columns from the input into a dense volume, then the planes from there to the output.
#define SHARES(planes_forward, columns_forward, columns_backward, planes_backward, R, C)           \
    extern "C" int planes_forward(DftiRecord* head, const R* input, C* output, int first,          \
                                  int count, void* workspace) {                                    \
        const RealVolume<R, Direction::forward> v(head);                                           \
        return v.planes(v.side(input, kInput), v.side(output, kOutput), share_from(first, count),  \
                        workspace);                                                                \
    }                                                                                              \
    extern "C" int columns_forward(DftiRecord* head, C* output, int first, int count,              \
                                   void* workspace) {                                              \
        const RealVolume<R, Direction::forward> v(head);                                           \
        return v.columns(v.side<const C>(output, kOutput), v.side(output, kOutput),                \
                         share_from(first, count), v.team_group(), workspace);                     \
    }                                                                                              \
    extern "C" int columns_backward(DftiRecord* head, const C* input, C* between, int first,       \
                                    int count, void* workspace) {                                  \
        const RealVolume<R, Direction::backward> v(head);                                          \
        return v.columns(v.side(input, kInput), v.dense(between), share_from(first, count),        \
                         v.team_group(), workspace);                                               \
    }                                                                                              \
    extern "C" int planes_backward(DftiRecord* head, C* between, R* output, int first, int count,  \
                                   void* workspace) {                                              \
        const RealVolume<R, Direction::backward> v(head);                                          \
        const auto from = v.dense(between);                                                        \
        return v.planes({from.data, {1, from.stride[1], from.stride[2]}}, v.side(output, kOutput), \
                        share_from(first, count), workspace);                                      \
    }
SHARES(vor_dft_ssc2_nd_out_par, vor_dft_ssc1_nd_out_par, vor_dft_ccs1_nd_out_par,
       vor_dft_ccs2_nd_out_par, float, vor::cfloat)
SHARES(vor_dft_ddz2_nd_out_par, vor_dft_ddz1_nd_out_par, vor_dft_zzd1_nd_out_par,
       vor_dft_zzd2_nd_out_par, double, vor::cdouble)

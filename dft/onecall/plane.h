// Columns and rows of a plane, and their shares for the threads of a team. Columns are contiguous; element i
// of row j is element j + i ld of the data.
#pragma once

#include "dft/onecall/report.h"
#include "dft/onecall/transform.h"
#include "dft/row_copy.h"
#include "dft/walk.h"
#include "serv/memory.h"

namespace vor::dfti::onecall {

// The name under which a routine reports.
struct Name {
    const char* text;
    int length;
};

// body(share) for the shares of `total` on a power of two of threads, at most `threads` of them. False if one of
// the bodies is.
template <class Body>
bool share(int total, int threads, Body body) {
    const int shares = 1 << order_of(threads);
    if (shares == 1) return body(Share(total, 1, 0));
    return in_shares(total, shares, [&](Share part, int) { return body(part) ? 0 : 1; }) == 0;
}

template <class Form>
void transform_columns(Form x, int ld, int m, int count, int isign,
                       const typename Form::Real* wsave) {
    if (m < 2) return;
    for (int i = 0; i < count; ++i) transform(x.from(i * ld), order_of(m), isign, wsave);
}

// `rows` neighbouring rows of n elements to vectors that stand one behind the other, and back.
template <class R>
void gather(Pairs<R> x, int ld, int n, int rows, Pairs<R> work) {
    using C = complex_t<R>;
    gather_for<C, C>(rows)(x.x, ld, n, work.x, n);
}
template <class R>
void gather(Split<R> x, int ld, int n, int rows, Split<R> work) {
    gather_for<R, R>(rows)(x.x, ld, n, work.x, n);
    gather_for<R, R>(rows)(x.y, ld, n, work.y, n);
}
template <class R>
void scatter(Pairs<R> work, int n, int rows, Pairs<R> x, int ld) {
    using C = complex_t<R>;
    scatter_for<C, C>(rows)(x.x, ld, n, work.x, n);
}
template <class R>
void scatter(Split<R> work, int n, int rows, Split<R> x, int ld) {
    scatter_for<R, R>(rows)(x.x, ld, n, work.x, n);
    scatter_for<R, R>(rows)(x.y, ld, n, work.y, n);
}

template <class R>
Pairs<R> form_of(R* memory, int, Pairs<R>) {
    return {reinterpret_cast<complex_t<R>*>(memory)};
}
template <class R>
Split<R> form_of(R* memory, int n, Split<R>) {
    return {memory, memory + n};
}

// Four rows at a time if there are eight. False if there is no memory for them; then nothing is done.
template <class Form>
bool transform_rows(Form x, int ld, int count, int n, int isign, const typename Form::Real* wsave) {
    using R = typename Form::Real;
    constexpr int kGroup = 4, kLeast = 8;
    if (n < 2 || count < 1) return true;
    const Scratch<R> memory(2 * size_t{kGroup} * static_cast<size_t>(n));
    if (!memory) return false;
    const Form work = form_of(memory.get(), kGroup * n, x);
    const int last_group = count < kLeast ? 0 : count - kGroup + 1; // no group begins from here on
    for (int j = 0, rows; j < count; j += rows) {
        rows = j < last_group ? kGroup : 1;
        gather(x.from(j), ld, n, rows, work);
        transform_columns(work, n, n, rows, isign, wsave);
        scatter(work, n, rows, x.from(j), ld);
    }
    return true;
}

// The same in shares.
template <class Form>
bool transform_rows(Form x, int ld, int count, int n, int isign, const typename Form::Real* wsave,
                    int threads) {
    if (count < 1) return true;
    return share(count, threads, [&](Share rows) {
        return transform_rows(x.from(rows.first), ld, rows.count, n, isign, wsave);
    });
}

} // namespace vor::dfti::onecall

// The stage plan of a composite length L: its factors, the twiddles of each stage, the direct tables
// of radices above 5, and the order in which the leaves read the input.
//
// In order, stage i with radix f, block length f r and p = L / (f r) has the twiddles W^(j m p),
// W = exp(-2 pi i / L), for column j = 0 to r-1 and input m. Out of order the stages run from the
// last to the first and the column index is replaced by the frequency that block j has by then.
#include "signal/dft/engines.h"
#include "signal/dft/kernels.h"

namespace vor::dft {

template <class T>
bool factorise(Context<T>& ctx, int length) {
    DftFactorRec<T>* const fact = ctx.fact;
    int count = 0;
    for (; length % 4 == 0; length /= 4) fact[count++].factor = 4;
    if (length % 2 == 0) {
        fact[count++].factor = 4;
        fact[0].factor = 2;
        length /= 2;
    }
    for (int d = 3; length >= d * d;) {
        if (length % d == 0) {
            fact[count++].factor = d;
            length /= d;
        } else if ((d += 2) > kLargestRadix) {
            return false;
        }
    }
    if (count == 0 || length > kLargestRadix) return false;
    ctx.lastFactor = count - 1;
    fact[count].factor = length;
    return true;
}

namespace {

constexpr int kLargestFixed = 5; // larger radices have tables

// Direct tables as they are built one after the other: equal lengths share one.
template <class T>
struct DirectTables {
    Base<T>& base;
    int length = 0; // of the latest, and largest, table
    complex_t<T>* table = nullptr;

    complex_t<T>* of(int n) {
        if (n == length) return table;
        table = direct_table(base.values(), n, base.length() / n);
        length = n;
        return table;
    }
};

// order[j], or j itself without a table, is the index of column j.
template <class C>
void fill_twiddles(C* twiddle, int f, int r, const C* base, int step, const int* order) {
    const int first = f > kLargestFixed ? 0 : 1;
    for (int j = 0; j < r; ++j) {
        const int stride = (order ? order[j] : j) * step;
        for (int m = first; m < f; ++m) *twiddle++ = base[m * stride];
    }
}

// Products of the factors, block counts of the sweeps.
template <class T>
void lay_out(Context<T>& ctx, int length) {
    int before = 1, blocks = 1;
    for (int i = 0; i <= ctx.lastFactor; ++i) {
        DftFactorRec<T>& record = ctx.fact[i];
        const int block = length / before;
        record.prodBefore = before;
        record.rest = block / record.factor;
        record.nBlocks = blocks;
        blocks = block >= kSweepLimit<T> ? 1 : blocks * record.factor;
        before *= record.factor;
    }
}

// Source offset of each leaf block: its index with the digits reversed.
template <class T>
bool build_offsets(Context<T>& ctx) {
    const int count = ctx.last().nBlocks;
    int* const word = ctx.tabPerm = allocate<int>(static_cast<size_t>(count));
    if (!word) return false;
    word[0] = 0;
    int done = 1;
    for (int k = ctx.lastFactor - 1; k >= 0; --k) {
        const int f = ctx.fact[k].factor;
        if (done == count) {
            for (int j = 0; j < count; ++j) word[j] *= f;
            continue;
        }
        for (int m = f - 1; m >= 0; --m)
            for (int j = 0; j < done; ++j) word[done * m + j] = f * word[j] + m;
        done *= f;
    }
    return true;
}

// order := order with each entry expanded to the f frequencies of the next stage. `old` is scratch.
void expand(int* order, int* old, int r, int f) {
    __builtin_memcpy(old, order, sizeof(int) * static_cast<size_t>(r));
    for (int j = 0; j < r; ++j)
        for (int m = 0; m < f; ++m) order[j * f + m] = old[j] + m * r;
}

// Twiddles and block counts of the out-of-order plan.
template <class T>
bool plan_out_of_order(Context<T>& ctx, int length, const complex_t<T>* base, int step) {
    // The first record's frequencies are the longest list that a stage needs.
    const auto most = static_cast<size_t>(ctx.fact[0].rest);
    int* const order = allocate<int>(2 * most);
    if (!order) return false;
    for (int j = 0; j < ctx.last().rest; ++j) order[j] = j;
    int v = length / ctx.last().rest, blocks = 1;
    for (int k = ctx.lastFactor; k >= 0; --k) {
        DftFactorRec<T>& record = ctx.fact[k];
        const int f = record.factor;
        fill_twiddles(record.tabTwiddle, f, record.rest, base, step * record.prodBefore, order);
        if (k > 0) expand(order, order + most, record.rest, f);
        record.nBlocks = blocks;
        if (v < kSweepLimit<T> || k == 1) blocks *= f;
        v /= f;
    }
    tavsFree(order);
    return true;
}

// Twiddle tables, filled in the in-order plan, and direct tables. All large memory is taken first.
template <class T>
bool build_tables(Context<T>& ctx, DirectTables<T>& direct, int step) {
    for (int i = 0; i <= ctx.lastFactor; ++i) {
        const auto f = static_cast<size_t>(ctx.fact[i].factor);
        const auto r = static_cast<size_t>(ctx.fact[i].rest);
        if (!(ctx.fact[i].tabTwiddle = allocate<complex_t<T>>(f * r))) return false;
    }
    for (int i = 0; i <= ctx.lastFactor; ++i) {
        DftFactorRec<T>& record = ctx.fact[i];
        const int f = record.factor, r = record.rest;
        if (f > kLargestFixed && !(record.tabDirFactor = direct.of(f))) return false;
        if (i == ctx.lastFactor && r > kLargestFixed &&
            !(ctx.fact[i + 1].tabDirFactor = direct.of(r)))
            return false;
        if (!ctx.isOutOrd)
            fill_twiddles(record.tabTwiddle, f, r, direct.base.values(), step * record.prodBefore,
                          static_cast<const int*>(nullptr));
    }
    return true;
}

} // namespace

template <class T>
TavStatus init_stages(Context<T>& ctx, int length, Base<T>& base) {
    if (length < kOutOfOrderLimit<T>) ctx.isOutOrd = 0;
    const int step = base.length() / length;
    lay_out(ctx, length);
    DirectTables<T> direct{base};
    if (!build_tables(ctx, direct, step)) return tavStsMemAllocErr;
    using C = complex_t<T>;
    const auto scratch = static_cast<size_t>(direct.length);
    if (ctx.isOutOrd) {
        if (!plan_out_of_order(ctx, length, base.values(), step)) return tavStsMemAllocErr;
        return scratch ? set_buffer<C>(ctx, scratch) : tavStsNoErr;
    }
    if (!build_offsets(ctx)) return tavStsMemAllocErr;
    return set_buffer<C>(ctx, static_cast<size_t>(length) + scratch);
}

} // namespace vor::dft

#define INIT_STAGES(name, T, C)                                                                    \
    template bool vor::dft::factorise(Context<T>&, int);                                           \
    template TavStatus vor::dft::init_stages(Context<T>&, int, Base<T>&);                          \
    extern "C" TavStatus name(DftCtx* object, int n, const C* base, int baseLength) {              \
        using namespace vor::dft;                                                                  \
        Base<T> table(base, baseLength);                                                           \
        return init_stages(context_of<T>(object), n, table);                                       \
    }
INIT_STAGES(tavs_initDftPrimeFact_32f, float, VOR_SCOMPLEX)
INIT_STAGES(tavs_initDftPrimeFact_64f, double, VOR_DCOMPLEX)

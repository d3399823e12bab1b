#include "tests/gmp/big_number.h"
#include "tests/gmp/operations.h"

namespace vor::test {
namespace {

using Binary = TavStatus (*)(BigNumState*, BigNumState*, BigNumState*);

void expect_ok(TavStatus status) {
    EXPECT_EQ(status, tavStsNoErr);
}

// r = f(a, b) into an object apart, into a, into b, and for equal operands with all three the same.
Ints binary(const Binary f, const Int& a, const Int& b, int room) {
    Bn x(a, room), y(b, room), r(room);
    expect_ok(f(x, y, r));
    const Int result = r.value();
    EXPECT_EQ(x.value(), a);
    EXPECT_EQ(y.value(), b);
    expect_ok(f(x, y, x));
    EXPECT_EQ(x.value(), result) << "into the first operand";
    x.set(a);
    expect_ok(f(x, y, y));
    EXPECT_EQ(y.value(), result) << "into the second operand";
    if (a == b) {
        expect_ok(f(x, x, r));
        EXPECT_EQ(r.value(), result) << "one operand";
        expect_ok(f(x, x, x));
        EXPECT_EQ(x.value(), result) << "one object";
    }
    return {result};
}

template <auto F>
TavStatus call(BigNumState* a, BigNumState* b, BigNumState* r) {
    return F(a, b, r);
}

int longer(const Int& a, const Int& b) {
    return std::max({a.size(), b.size(), 1});
}

// r += a * b, also with r an operand when the values are equal.
Ints multiply_add(const Int& a, const Int& b, const Int& c) {
    const int room = std::max(a.size() + b.size(), c.size()) + 1;
    Bn x(a, room), y(b, room), r(c, room);
    expect_ok(tavsMAC_BN_I(x, y, r));
    const Int result = r.value();
    for (Bn* same : {&x, &y}) {
        if (!(same->value() == c)) continue;
        expect_ok(tavsMAC_BN_I(x, y, *same));
        EXPECT_EQ(same->value(), result);
        same->set(c);
    }
    return {result};
}

Ints divide(const Int& a, const Int& b) {
    const int room = longer(a, b);
    Bn x(a, room), y(b, room), q(room), r(room);
    expect_ok(tavsDiv_BN(x, y, q, r));
    const Ints result{q.value(), r.value()};
    EXPECT_EQ(x.value(), a);
    EXPECT_EQ(y.value(), b);
    const auto again = [&](Bn& to_q, Bn& to_r) {
        x.set(a), y.set(b);
        expect_ok(tavsDiv_BN(x, y, to_q, to_r));
        EXPECT_EQ((Ints{to_q.value(), to_r.value()}), result);
    };
    again(x, r), again(y, r), again(q, x), again(q, y), again(x, y), again(y, x);
    if (a == b) {
        x.set(a);
        expect_ok(tavsDiv_BN(x, x, q, r));
        EXPECT_EQ((Ints{q.value(), r.value()}), result);
    }
    return result;
}

Ints inverse(const Int& a, const Int& m) {
    Bn x(a), y(m), r(m.size());
    const TavStatus status = tavsModInv_BN(x, y, r);
    EXPECT_EQ(x.value(), a);
    EXPECT_EQ(y.value(), m) << "the modulus is rebuilt";
    if (status == tavStsBadModulusErr) return {Int(0)};
    expect_ok(status);
    return {r.value()};
}

Ints form(const Int& n, const Int& a) {
    Mont mont(n);
    Bn x(a, n.size()), r(n.size());
    expect_ok(tavsMontForm(x, mont, r));
    const Int result = r.value();
    expect_ok(tavsMontForm(x, mont, x));
    EXPECT_EQ(x.value(), result);
    return {result};
}

// f(x, y, mont, r) with r apart and as each operand.
template <auto F>
Ints residues(const Int& n, const Int& a, const Int& b) {
    Mont mont(n);
    Bn x(a, n.size()), y(b, n.size()), r(n.size());
    expect_ok(F(x, y, mont, r));
    const Int result = r.value();
    EXPECT_EQ(x.value(), a);
    EXPECT_EQ(y.value(), b);
    expect_ok(F(x, y, mont, x));
    EXPECT_EQ(x.value(), result);
    x.set(a);
    expect_ok(F(x, y, mont, y));
    EXPECT_EQ(y.value(), result);
    if (a == b) {
        expect_ok(F(x, x, mont, x));
        EXPECT_EQ(x.value(), result);
    }
    return {result};
}

} // namespace

void add_big_number_operations(Operations& all) {
    all["bn_add"] = [](const Ints& v) {
        return binary(call<tavsAdd_BN>, v[0], v[1], longer(v[0], v[1]) + 1);
    };
    all["bn_sub"] = [](const Ints& v) {
        return binary(call<tavsSub_BN>, v[0], v[1], longer(v[0], v[1]) + 1);
    };
    all["bn_mul"] = [](const Ints& v) {
        return binary(call<tavsMul_BN>, v[0], v[1], std::max(v[0].size() + v[1].size(), 2));
    };
    all["bn_mac"] = [](const Ints& v) { return multiply_add(v[0], v[1], v[2]); };
    all["bn_div"] = [](const Ints& v) { return divide(v[0], v[1]); };
    all["bn_mod"] = [](const Ints& v) {
        return binary(call<tavsMod_BN>, v[0], v[1], longer(v[0], v[1]));
    };
    all["bn_gcd"] = [](const Ints& v) {
        return binary(call<tavsGcd_BN>, v[0], v[1], longer(v[0], v[1]));
    };
    all["bn_modinv"] = [](const Ints& v) { return inverse(v[0], v[1]); };
    all["mont_form"] = [](const Ints& v) { return form(v[0], v[1]); };
    all["mont_mul"] = [](const Ints& v) { return residues<tavsMontMul>(v[0], v[1], v[2]); };
    all["mont_exp"] = [](const Ints& v) { return residues<tavsMontExp>(v[0], v[1], v[2]); };
}

} // namespace vor::test

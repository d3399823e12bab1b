// Powers modulo m. Moduli of up to 30 limbs go to the objects of the big-number layer, binary powers in
// Montgomery's form, all others to windows (powm_mary.cpp). r may be an operand.
#include "gmp/powm.h"
#include "gmp/bytes.h"
#include "gmp/integer.h"
#include "vor_bignum.h"

#include <stdio.h>
#include <stdlib.h>

using namespace vor::gmp;

namespace {

constexpr int kMontgomeryLimbs = 30;

// What the functions of the big-number layer return for a^e mod q. None of them fails for 0 < a < q,
// 0 < e <= q and an odd q; if one does, the process ends with a report.
class Calls {
public:
    Calls(const vor_mpz* a, const vor_mpz* e, const vor_mpz* q)
        : a_(limbs_of(a)), e_(limbs_of(e)), q_(limbs_of(q)) {}

    void check(TavStatus status, const char* call) const {
        if (status == tavStsNoErr) return;
        printf("error %d returned by %s\n", status, call);
        printf("ABSIZ(a) = %d\n", a_);
        printf("ABSIZ(e) = %d\n", e_);
        printf("ABSIZ(m) = %d\n", q_);
        exit(-1);
    }

private:
    int a_, e_, q_;
};

// The order of the calls is part of the contract, and so are their texts.
void odd_power_by_objects(vor_mpz* r, const vor_mpz* a, const vor_mpz* e, const vor_mpz* q) {
    const Calls calls(a, e, q);
    const int an = limbs_of(a), en = limbs_of(e), qn = limbs_of(q);
    int a_size, e_size, m_size, r_size, one_size, length;
    calls.check(tavsBigNumGetSize(an, &a_size),
                "tavsBigNumGetSize(CHUNKS_TO_TAVWORDS(ABSIZ(a)), &tav_a_sz)");
    calls.check(tavsBigNumGetSize(en, &e_size),
                "tavsBigNumGetSize(CHUNKS_TO_TAVWORDS(ABSIZ(e)), &tav_e_sz)");
    calls.check(tavsMontGetSize(TavsSlidingWindows, qn, &m_size),
                "tavsMontGetSize(TavsSlidingWindows, CHUNKS_TO_TAVWORDS(ABSIZ(q)), &tav_m_sz)");
    calls.check(tavsBigNumGetSize(qn, &r_size),
                "tavsBigNumGetSize(CHUNKS_TO_TAVWORDS(ABSIZ(q)), &tav_r_sz)");
    calls.check(tavsBigNumGetSize(1, &one_size), "tavsBigNumGetSize(1, &tav_one_sz)");
    const Bytes block(uint64_t(a_size) + e_size + m_size + r_size + one_size);
    unsigned char* next = block.get();
    const auto cut = [&](int size) {
        unsigned char* const part = next;
        next += size;
        return part;
    };
    auto* const tav_a = reinterpret_cast<BigNumState*>(cut(a_size));
    auto* const tav_e = reinterpret_cast<BigNumState*>(cut(e_size));
    auto* const tav_m = reinterpret_cast<MontState*>(cut(m_size));
    auto* const tav_r = reinterpret_cast<BigNumState*>(cut(r_size));
    auto* const tav_one = reinterpret_cast<BigNumState*>(cut(one_size));
    calls.check(tavsBigNumInit(an, tav_a), "tavsBigNumInit(CHUNKS_TO_TAVWORDS(ABSIZ(a)), tav_a)");
    calls.check(tavsBigNumInit(en, tav_e), "tavsBigNumInit(CHUNKS_TO_TAVWORDS(ABSIZ(e)), tav_e)");
    calls.check(tavsMontInit(TavsSlidingWindows, qn, tav_m),
                "tavsMontInit(TavsSlidingWindows, CHUNKS_TO_TAVWORDS(ABSIZ(q)), tav_m)");
    calls.check(tavsBigNumInit(qn, tav_r), "tavsBigNumInit(CHUNKS_TO_TAVWORDS(ABSIZ(q)), tav_r)");
    calls.check(tavsBigNumInit(1, tav_one), "tavsBigNumInit(1, tav_one)");
    calls.check(tavsSet_BN(TavsBigNumPOS, an, a->_mp_d, tav_a),
                "tavsSet_BN(TavsBigNumPOS, CHUNKS_TO_TAVWORDS(ABSIZ(a)), "
                "(const Tav32u *)PTR(a), tav_a)");
    calls.check(tavsSet_BN(TavsBigNumPOS, en, e->_mp_d, tav_e),
                "tavsSet_BN(TavsBigNumPOS, CHUNKS_TO_TAVWORDS(ABSIZ(e)), "
                "(const Tav32u *)PTR(e), tav_e)");
    calls.check(tavsMontSet(q->_mp_d, qn, tav_m),
                "tavsMontSet((const Tav32u *)PTR(q), CHUNKS_TO_TAVWORDS(ABSIZ(q)), tav_m)");
    const limb_t one = 1;
    calls.check(tavsSet_BN(TavsBigNumPOS, 1, &one, tav_one),
                "tavsSet_BN(TavsBigNumPOS, 1, oneData, tav_one)");
    calls.check(tavsMontForm(tav_a, tav_m, tav_r), "tavsMontForm(tav_a, tav_m, tav_r)");
    calls.check(tavsMontExp(tav_r, tav_e, tav_m, tav_r), "tavsMontExp(tav_r, tav_e, tav_m, tav_r)");
    // Times 1: out of Montgomery's form.
    calls.check(tavsMontMul(tav_r, tav_one, tav_m, tav_r),
                "tavsMontMul(tav_r, tav_one, tav_m, tav_r)");
    limb_t sign;
    calls.check(tavsGet_BN(&sign, &length, grow(r, qn), tav_r),
                "tavsGet_BN(&tav_sgn, &tav_r_length, PTR(rop), tav_r)");
    finish(r, length, false);
}

// The layer takes positive residues and exponents up to the modulus.
void odd_power(vor_mpz* r, const vor_mpz* a, const vor_mpz* e, const vor_mpz* q) {
    if (a->_mp_size == 0 || vor_gmp___gmpz_cmp(e, q) > 0)
        odd_power_by_windows(r, a, e, q);
    else
        odd_power_by_objects(r, a, e, q);
}

} // namespace

VOR_GMP(void, __gmpz_powm, __GMPZ_POWM, vor_gmp___gmpz_powm,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* e, const vor_mpz* m), (r, a, e, m)) {
    const auto positive = [](const vor_mpz* x) { return vor_gmp___gmpz_sgn(x) > 0; };
    if (!positive(a) || !positive(e) || !positive(m) || limbs_of(m) > kMontgomeryLimbs)
        return vor_gmp_mpz_powm_mary(r, a, e, m);
    power_modulo(r, a, e, m, odd_power);
}

VOR_GMP(void, __gmpz_powm_ui, __GMPZ_POWM_UI, vor_gmp___gmpz_powm_ui,
        (vor_mpz * r, const vor_mpz* a, unsigned e, const vor_mpz* m), (r, a, e, m)) {
    vor_gmp___gmpz_powm(r, a, WordValue(e), m);
}

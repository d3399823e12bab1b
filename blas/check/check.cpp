// Argument checks of Level 2 and Level 3 (Dongarra, Du Croz, Hammarling, Hanson, ACM TOMS 14 (1988)
// 1-17; Dongarra, Du Croz, Duff, Hammarling, ACM TOMS 16 (1990) 1-17).
//
// The tests of a routine are a row of data: the number of an argument, counted from 1, and what it
// must satisfy. They run in the order of the row; the first that fails is reported and ends the check.
#include "blas/check/routines.h"
#include "serv/entry.h"
#include "serv/lsame.h"

#include <iterator>
#include <utility>

namespace {

struct Test {
    enum Kind : char { letter, count, step, leading, leading_by, leading_band } kind;
    char argument;        // its number
    char letters[4] = {}; // letter: the allowed ones; leading_by: the one that chooses `first`
    char first = 0;       // leading: numbers of the arguments that bound it
    char second = 0;
    char option = 0; // leading_by: number of the letter that decides
};

// One of up to three letters.
template <int n>
constexpr Test letter(char argument, const char (&allowed)[n]) {
    Test test = {Test::letter, argument};
    for (int i = 0; i < n; ++i) test.letters[i] = allowed[i];
    return test;
}
// Not negative.
constexpr Test count(char argument) {
    return {Test::count, argument};
}
// Not zero.
constexpr Test step(char argument) {
    return {Test::step, argument};
}
// A leading dimension: at least 1 and at least the argument `rows`.
constexpr Test ld(char argument, char rows) {
    return {Test::leading, argument, {}, rows};
}
// The same with `rows` if the letter `option` is `choice`, with `others` if it is not.
constexpr Test ld_by(char argument, char option, char choice, char rows, char others) {
    return {Test::leading_by, argument, {choice}, rows, others, option};
}
// A leading dimension of a band: at least the diagonal and those below and above it.
constexpr Test ld_band(char argument, char lower, char upper = 0) {
    return {Test::leading_band, argument, {}, lower, upper};
}

constexpr char kUplo[] = "UL", kSide[] = "LR", kDiag[] = "UN", kTrans[] = "NTC";
// A complex symmetric update has no conjugated form, a Hermitian one no form without.
template <class T>
constexpr Test kSymmetricTrans = vor::is_complex<T> ? letter(2, "NT") : letter(2, kTrans);
constexpr Test kHermitianTrans = letter(2, "NC");

// One row for each argument list.
template <class T>
struct Tests {
    static constexpr Test gemm[] = {
        letter(1, kTrans),      letter(2, kTrans),       count(3), count(4), count(5),
        ld_by(8, 1, 'N', 3, 5), ld_by(10, 2, 'N', 5, 4), ld(13, 3)};
    static constexpr Test symm[] = {letter(1, kSide),       letter(2, kUplo), count(3), count(4),
                                    ld_by(7, 1, 'L', 3, 4), ld(9, 3),         ld(12, 3)};
    static constexpr Test syrk[] = {letter(1, kUplo), kSymmetricTrans<T>,     count(3),
                                    count(4),         ld_by(7, 2, 'N', 3, 4), ld(10, 3)};
    static constexpr Test herk[] = {letter(1, kUplo), kHermitianTrans,        count(3),
                                    count(4),         ld_by(7, 2, 'N', 3, 4), ld(10, 3)};
    static constexpr Test syr2k[] = {
        letter(1, kUplo),       kSymmetricTrans<T>,     count(3), count(4),
        ld_by(7, 2, 'N', 3, 4), ld_by(9, 2, 'N', 3, 4), ld(12, 3)};
    static constexpr Test her2k[] = {
        letter(1, kUplo),       kHermitianTrans,        count(3), count(4),
        ld_by(7, 2, 'N', 3, 4), ld_by(9, 2, 'N', 3, 4), ld(12, 3)};
    static constexpr Test trmm[] = {letter(1, kSide),       letter(2, kUplo), letter(3, kTrans),
                                    letter(4, kDiag),       count(5),         count(6),
                                    ld_by(9, 1, 'L', 5, 6), ld(11, 5)};
    static constexpr Test gemv[] = {letter(1, kTrans), count(2), count(3),
                                    ld(6, 2),          step(8),  step(11)};
    static constexpr Test gbmv[] = {letter(1, kTrans), count(2),         count(3), count(4),
                                    count(5),          ld_band(8, 4, 5), step(10), step(13)};
    static constexpr Test ger[] = {count(1), count(2), step(5), step(7), ld(9, 1)};
    static constexpr Test symv[] = {letter(1, kUplo), count(2), ld(5, 2), step(7), step(10)};
    static constexpr Test sbmv[] = {letter(1, kUplo), count(2), count(3),
                                    ld_band(6, 3),    step(8),  step(11)};
    static constexpr Test spmv[] = {letter(1, kUplo), count(2), step(6), step(9)};
    static constexpr Test syr[] = {letter(1, kUplo), count(2), step(5), ld(7, 2)};
    static constexpr Test syr2[] = {letter(1, kUplo), count(2), step(5), step(7), ld(9, 2)};
    static constexpr Test spr[] = {letter(1, kUplo), count(2), step(5)};
    static constexpr Test spr2[] = {letter(1, kUplo), count(2), step(5), step(7)};
    static constexpr Test trmv[] = {letter(1, kUplo), letter(2, kTrans), letter(3, kDiag),
                                    count(4),         ld(6, 4),          step(8)};
    static constexpr Test tbmv[] = {letter(1, kUplo), letter(2, kTrans), letter(3, kDiag), count(4),
                                    count(5),         ld_band(7, 5),     step(9)};
    static constexpr Test tpmv[] = {letter(1, kUplo), letter(2, kTrans), letter(3, kDiag), count(4),
                                    step(7)};
};

// The arguments of a call, by their numbers.
class Arguments {
public:
    explicit Arguments(const void* const* addresses) : addresses_(addresses) {}

    // Inlined, so that the branches of a known test are decided when it is compiled.
    [[gnu::always_inline]] bool pass(const Test& test) const {
        switch (test.kind) {
        case Test::letter:
            return is_one_of(test.argument, test.letters);
        case Test::count:
            return integer(test.argument) >= 0;
        case Test::step:
            return integer(test.argument) != 0;
        case Test::leading:
            return is_leading(test.argument, test.first);
        case Test::leading_by:
            return is_leading(test.argument,
                              is_one_of(test.option, test.letters) ? test.first : test.second);
        case Test::leading_band: {
            const long long upper = test.second ? integer(test.second) : 0;
            return integer(test.argument) > integer(test.first) + upper;
        }
        }
        return false;
    }

private:
    int integer(char number) const { return *static_cast<const int*>(addresses_[number - 1]); }
    bool is_one_of(char number, const char (&letters)[4]) const {
        const char given = vor::upper(*static_cast<const char*>(addresses_[number - 1]));
        const auto is = [given](char letter) { return letter && letter == given; };
        return is(letters[0]) || is(letters[1]) || is(letters[2]);
    }
    bool is_leading(char number, char rows) const {
        return integer(number) >= 1 && integer(number) >= integer(rows);
    }

    const void* const* addresses_;
};

// The number of the first argument that fails its test; 0 if none does.
template <const auto& tests, size_t... i>
__attribute__((noinline)) int first_unfit(const void* const* addresses, std::index_sequence<i...>) {
    const Arguments arguments(addresses);
    int number = 0;
    static_cast<void>(((arguments.pass(tests[i]) || (number = tests[i].argument, false)) && ...));
    return number;
}

// The check of one routine, by its name; called with the routine's own arguments.
template <const auto& tests>
struct Check {
    const char* name;

    template <class... Words>
    int operator()(Words... words) const {
        constexpr int kName = 6;
        const void* const addresses[] = {address(words)...};
        const int number =
            first_unfit<tests>(addresses, std::make_index_sequence<std::size(tests)>());
        if (number == 0) return 0;
        xerbla_(name, &number, kName);
        return 1;
    }

    static const void* address(const void* argument) { return argument; }
    static const void* address(int) { return nullptr; } // a hidden length
};

} // namespace

#define CHECK(p, P, T, op, OP, list, LIST)                                                         \
    VOR_ENGINE int vor_blas_errchk_##p##op PARAMS_##LIST(T) {                                      \
        return Check<Tests<T>::list>{#P #OP "  "} ARGS_##LIST;                                     \
    }
VOR_CHECKED_ROUTINES(CHECK)

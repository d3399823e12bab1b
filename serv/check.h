// Argument checks: the tests of a routine are a row of data, and one loop carries them out.
//
// A test names an argument by its number, counted from 1, and says what it must satisfy. Tests run in
// the order of the row; the first that fails is reported through xerbla_ and ends the check. Integers
// and first characters are read, arrays never.
#pragma once

#include "vor_service.h"

#include <stddef.h>

namespace vor {
inline namespace serv {

// The arguments of a call by address; argument number i stands at [i - 1].
using Arguments = const void* const*;

inline int integer(Arguments arguments, int number) {
    return *static_cast<const int*>(arguments[number - 1]);
}
// The upper-case first character of an option.
inline char option(Arguments arguments, int number) {
    const char c = *static_cast<const char*>(arguments[number - 1]);
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

struct Test {
    enum Kind : char { letter, count, step, leading, leading_by, leading_band, predicate } kind;
    char argument;        // its number, which is reported
    char letters[4] = {}; // letter: the allowed ones; leading_by: the one that chooses `first`
    char first = 0;       // leading: numbers of the arguments that bound it
    char second = 0;
    char choice = 0; // leading_by: number of the letter that decides
    bool (*fits)(Arguments arguments) = nullptr;
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
constexpr Test leading(char argument, char rows) {
    return {Test::leading, argument, {}, rows};
}
// The same with `rows` if the letter `choice` is `letter`, with `others` if it is not.
constexpr Test leading_by(char argument, char choice, char letter, char rows, char others) {
    return {Test::leading_by, argument, {letter}, rows, others, choice};
}
// A leading dimension of a band: at least the diagonal and those below and above it.
constexpr Test leading_band(char argument, char lower, char upper = 0) {
    return {Test::leading_band, argument, {}, lower, upper};
}
// Anything else that the arguments must satisfy.
constexpr Test predicate(char argument, bool (*fits)(Arguments)) {
    return {Test::predicate, argument, {}, 0, 0, 0, fits};
}

// The number of the first argument that fails its test; 0 if none does.
#pragma GCC visibility push(hidden)
int first_unfit(const Test* tests, size_t count, Arguments arguments);
#pragma GCC visibility pop

// 1 if an argument is unfit, which is then reported under `name` (of `length` characters); 0 if none is.
template <size_t count>
inline int check(const Test (&tests)[count], const char* name, int length, Arguments arguments) {
    const int number = first_unfit(tests, count, arguments);
    if (number == 0) return 0;
    xerbla_(name, &number, length);
    return 1;
}

} // namespace serv
} // namespace vor

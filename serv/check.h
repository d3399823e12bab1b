// Argument checks: the tests of a routine are a row of data, and one loop carries them out.
//
// A test names an argument by its number, counted from 1, and says what it must satisfy. Tests run in
// the order of the row; the first that fails is reported through xerbla_ and ends the check. Integers
// and first characters are read, arrays never.
#pragma once

#include "serv/lsame.h"
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
    return upper(*static_cast<const char*>(arguments[number - 1]));
}

struct Test {
    enum Kind : char { letter, value, count, leading, by_letter, by_value, step, band, predicate };

    Kind kind;
    char argument;   // its number, which is reported
    char first = 0;  // leading dimensions: numbers of the arguments that bound it
    char second = 0; // by_letter, by_value: bounds it instead where the option is not in the set
    char choice = 0; // by_letter, by_value: number of the option
    int lowest = 0;  // the set of values: what bit 0 stands for
    unsigned members = 0; // the set: bit i is letter i of the alphabet, or the value lowest + i
    bool (*fits)(Arguments arguments) = nullptr;
};

constexpr unsigned member(char letter) {
    return 1u << (letter - 'A');
}

// One of the letters, which are capitals here, in either case.
template <int n>
constexpr Test letter(char argument, const char (&allowed)[n]) {
    Test test = {.kind = Test::letter, .argument = argument};
    for (int i = 0; i < n - 1; ++i) test.members |= member(allowed[i]);
    return test;
}
// One of the values of an enumeration: `lowest` or one of the others, which are less than 32 above it.
template <class... Others>
constexpr Test value(char argument, int lowest, Others... others) {
    return {.kind = Test::value,
            .argument = argument,
            .lowest = lowest,
            .members = 1u | (0u | ... | (1u << (others - lowest)))};
}
// Not negative.
constexpr Test count(char argument) {
    return {.kind = Test::count, .argument = argument};
}
// Not zero.
constexpr Test step(char argument) {
    return {.kind = Test::step, .argument = argument};
}
// A leading dimension: at least 1 and at least the argument `rows`.
constexpr Test leading(char argument, char rows) {
    return {.kind = Test::leading, .argument = argument, .first = rows};
}
// The same with `rows` if the option `choice` is `letter`, with `others` if it is not.
constexpr Test leading_by(char argument, char choice, char letter, char rows, char others) {
    return {.kind = Test::by_letter,
            .argument = argument,
            .first = rows,
            .second = others,
            .choice = choice,
            .members = member(letter)};
}
// The same for an option that is an enumeration.
constexpr Test leading_by_value(char argument, char choice, int value, char rows, char others) {
    return {.kind = Test::by_value,
            .argument = argument,
            .first = rows,
            .second = others,
            .choice = choice,
            .lowest = value};
}
// A leading dimension of a band: at least the diagonal and those below and above it.
constexpr Test leading_band(char argument, char lower, char upper = 0) {
    return {.kind = Test::band, .argument = argument, .first = lower, .second = upper};
}
// Anything else that the arguments must satisfy.
constexpr Test predicate(char argument, bool (*fits)(Arguments)) {
    return {.kind = Test::predicate, .argument = argument, .fits = fits};
}

// The number of the first argument that fails its test; 0 if none does. (Called before every product,
// small ones included: its arguments go in registers.)
#pragma GCC visibility push(hidden)
[[gnu::regparm(3), gnu::aligned(64)]] int first_unfit(const Test* tests, size_t count,
                                                      Arguments arguments);
#pragma GCC visibility pop

// 1 if an argument is unfit, which is then reported under `name` (of `length` characters); 0 if none is.
template <size_t count>
inline int check(const Test (&tests)[count], const char* name, int length, Arguments arguments) {
    const int number = first_unfit(tests, count, arguments);
    if (number == 0) return 0;
    xerbla_(name, &number, length);
    return 1;
}

// The check of one routine by its row and its name in reports; called with the routine's own arguments.
// Integers that come by value, hidden lengths among them, are taken by their addresses.
template <size_t count, size_t length>
struct Check {
    const Test (&tests)[count];
    const char (&name)[length];

    template <class... Words>
    [[gnu::always_inline]] int operator()(const Words&... words) const {
        const void* const arguments[] = {address(words)...};
        return check(tests, name, static_cast<int>(length) - 1, arguments);
    }

    static const void* address(const void* argument) { return argument; }
    static const void* address(const int& argument) { return &argument; }
};

} // namespace serv
} // namespace vor

// The loop of the argument checks.
#include "serv/check.h"

namespace vor {
inline namespace serv {

namespace {

bool is_one_of(char given, const char (&letters)[4]) {
    for (const char letter : letters)
        if (letter && letter == given) return true;
    return false;
}

bool is_leading(int ld, int rows) {
    return ld >= 1 && ld >= rows;
}

bool passes(const Test& test, Arguments a) {
    switch (test.kind) {
    case Test::letter:
        return is_one_of(option(a, test.argument), test.letters);
    case Test::count:
        return integer(a, test.argument) >= 0;
    case Test::step:
        return integer(a, test.argument) != 0;
    case Test::leading:
        return is_leading(integer(a, test.argument), integer(a, test.first));
    case Test::leading_by: {
        const bool first = is_one_of(option(a, test.choice), test.letters);
        return is_leading(integer(a, test.argument), integer(a, first ? test.first : test.second));
    }
    case Test::leading_band: {
        const long long upper = test.second ? integer(a, test.second) : 0;
        return integer(a, test.argument) > integer(a, test.first) + upper;
    }
    case Test::predicate:
        return test.fits(a);
    }
    return false;
}

} // namespace

int first_unfit(const Test* tests, size_t count, Arguments arguments) {
    for (const Test* test = tests; test < tests + count; ++test)
        if (!passes(*test, arguments)) return test->argument;
    return 0;
}

} // namespace serv
} // namespace vor

// The loop of the argument checks.
#include "serv/check.h"

namespace vor {
inline namespace serv {

namespace {

constexpr unsigned kMembers = 32; // a set is one word

bool is_member(unsigned members, unsigned place) {
    return place < kMembers && members >> place & 1;
}

// The bit that folds the case of letters moves nothing else into their range.
bool is_one_of(unsigned letters, Arguments a, int number) {
    const unsigned char given = *static_cast<const unsigned char*>(a[number - 1]);
    return is_member(letters, (given | 0x20u) - 'a');
}

// A chain of branches, the common kinds in front: it costs less than a table of jumps.
[[gnu::always_inline]] inline bool passes(const Test& test, Arguments a) {
    if (test.kind == Test::letter) return is_one_of(test.members, a, test.argument);
    if (test.kind == Test::predicate) return test.fits(a);
    const int given = integer(a, test.argument);
    if (test.kind == Test::count) return given >= 0;
    if (test.kind == Test::value)
        return is_member(test.members,
                         static_cast<unsigned>(given) - static_cast<unsigned>(test.lowest));
    if (test.kind == Test::step) return given != 0;
    if (test.kind == Test::band) {
        const long long upper = test.second ? integer(a, test.second) : 0;
        return given > integer(a, test.first) + upper;
    }
    char rows = test.first;
    if (test.kind == Test::by_letter && !is_one_of(test.members, a, test.choice))
        rows = test.second;
    if (test.kind == Test::by_value && integer(a, test.choice) != test.lowest) rows = test.second;
    return given >= 1 && given >= integer(a, rows);
}

} // namespace

int first_unfit(const Test* tests, size_t count, Arguments arguments) {
    for (const Test* test = tests; test < tests + count; ++test)
        if (!passes(*test, arguments)) return test->argument;
    return 0;
}

} // namespace serv
} // namespace vor

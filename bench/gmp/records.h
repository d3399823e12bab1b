// Records of integers in the library that is timed, and how their operations are told.
#pragma once

#include "bench/common/families.h"
#include "vor_gmp.h"

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace vor::bench {

using Words = std::vector<unsigned>;

inline Words random_words(int n, unsigned seed) {
    std::mt19937 random(seed);
    Words words(static_cast<size_t>(n));
    for (unsigned& word : words) word = static_cast<unsigned>(random());
    words.back() |= 0x80000000;
    return words;
}

inline std::string of_size(const char* name, int n) {
    return std::string(name) + " n=" + std::to_string(n);
}

// Records over the library that is timed: it owns their memory.
class Record {
public:
    Record(const Library& library, int n, unsigned seed)
        : clear_(library.function<void(vor_mpz*)>("__gmpz_clear")) {
        library.function<void(vor_mpz*, unsigned)>("__gmpz_init2")(&x_,
                                                                   32u * static_cast<unsigned>(n));
        const Words words = random_words(n, seed);
        std::copy(words.begin(), words.end(), x_._mp_d);
        x_._mp_size = n;
    }
    ~Record() { clear_(&x_); }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    vor_mpz* get() { return &x_; }

private:
    vor_mpz x_;
    void (*clear_)(vor_mpz*);
};

using RecordPointer = std::shared_ptr<Record>;

inline RecordPointer record(const Library& library, int n, unsigned seed) {
    return std::make_shared<Record>(library, n, seed);
}

// `slower`: the most times that the call may take as long as the peer's; 0: reported only.
inline Case integer(const std::string& name, double products, double slower, Binder bind) {
    return {.name = name,
            .formula = "products of limbs",
            .work = products,
            .limit = Limit::none,
            .bind = std::move(bind),
            .rivals = {},
            .against_goal = slower > 0 ? 1 / slower : 0};
}

} // namespace vor::bench

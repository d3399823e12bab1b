// Arrays of words of `size` bytes whose top `nails` bits carry nothing: their bytes, from the least
// significant one of the least significant word up.
#pragma once

#include <stddef.h>
#include <stdint.h>

namespace vor::gmp {

class WordBytes {
public:
    // order 1: the most significant word first; endian 1 or 0: the most significant byte first
    WordBytes(unsigned size, int order, int endian, unsigned nails)
        : size_(size), nails_(nails), big_words_(order == 1),
          big_bytes_(endian == 0 || endian == 1) {}

    // Bits of a word that carry a value.
    uint64_t value_bits() const {
        const uint64_t all = uint64_t{8} * size_;
        return all > nails_ ? all - nails_ : 0;
    }

    // f(byte, number of its bits that carry a value, 0 to 8)
    template <class Byte, class F>
    void each(Byte* bytes, unsigned count, F f) const {
        for (unsigned i = 0; i < count; ++i) {
            Byte* const word = bytes + size_t{size_} * (big_words_ ? count - 1 - i : i);
            uint64_t left = value_bits();
            for (unsigned j = 0; j < size_; ++j) {
                const unsigned here = left < 8 ? static_cast<unsigned>(left) : 8;
                f(word[big_bytes_ ? size_ - 1 - j : j], here);
                left -= here;
            }
        }
    }

private:
    unsigned size_, nails_;
    bool big_words_, big_bytes_;
};

} // namespace vor::gmp

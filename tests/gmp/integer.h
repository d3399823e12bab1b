// Integers of the tests: a sign and words, the text forms that the oracle speaks, and a digest.
#pragma once

#include "tests/common/numbers.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace vor::test {

struct Int {
    bool negative = false;
    std::vector<uint32_t> words; // no zero on top, empty for 0

    Int() = default;
    Int(long long v) : negative(v < 0) {
        for (auto m = v < 0 ? 0 - static_cast<uint64_t>(v) : static_cast<uint64_t>(v); m; m >>= 32)
            words.push_back(static_cast<uint32_t>(m));
    }
    Int(const uint32_t* w, size_t n, bool minus = false) : negative(minus), words(w, w + n) {
        while (!words.empty() && words.back() == 0) words.pop_back();
        if (words.empty()) negative = false;
    }
    // An operand in one of the forms of oracle.py: hexadecimal, ones(n), bit(k), rnd(seed,bits),
    // each with a minus in front or not.
    explicit Int(std::string text) {
        const bool minus = text[0] == '-';
        if (minus) text.erase(0, 1);
        const auto argument = [&](size_t after) { return std::stoul(text.substr(after)); };
        if (text.starts_with("ones(")) {
            resize_bits(argument(5));
            for (size_t i = 0; i < bits_; ++i) words[i / 32] |= 1u << i % 32;
        } else if (text.starts_with("bit(")) {
            resize_bits(argument(4) + 1);
            words.back() |= 1u << (bits_ - 1) % 32;
        } else if (text.starts_with("rnd(")) {
            Random random(argument(4));
            resize_bits(argument(text.find(',') + 1));
            for (uint32_t& w : words) w = static_cast<uint32_t>(random.bits());
            if (bits_ % 32) words.back() &= (1u << bits_ % 32) - 1;
            words.back() |= 1u << (bits_ - 1) % 32;
        } else {
            resize_bits(4 * text.size());
            for (size_t i = 0; i < text.size(); ++i)
                words[i / 8] |= static_cast<uint32_t>(
                    std::stoul(text.substr(text.size() - 1 - i, 1), nullptr, 16) << 4 * (i % 8));
        }
        *this = Int(words.data(), words.size(), minus);
    }

    int size() const { return static_cast<int>(words.size()); }
    std::string hex() const {
        std::string text;
        for (uint32_t w : words)
            for (int i = 0; i < 8; ++i, w >>= 4) text += "0123456789abcdef"[w & 15];
        while (text.ends_with('0')) text.pop_back();
        std::reverse(text.begin(), text.end());
        return (negative ? "-" : "") + (text.empty() ? "0" : text);
    }
    uint32_t mod(uint32_t p) const {
        uint64_t rest = 0;
        for (size_t i = words.size(); i-- > 0;) rest = (rest << 32 | words[i]) % p;
        return static_cast<uint32_t>(rest);
    }
    // Small numbers in full; others as sign, length in bits and residues modulo three word primes.
    std::string digest() const {
        if (words.size() <= 2) return hex();
        const size_t bits = 32 * words.size() - static_cast<size_t>(__builtin_clz(words.back()));
        std::string text = (negative ? "-" : "+") + std::to_string(bits);
        for (const uint32_t p : {4294967291u, 4294967279u, 4294967231u})
            text += ":" + Int(static_cast<long long>(mod(p))).hex();
        return text;
    }
    bool operator==(const Int& other) const {
        return negative == other.negative && words == other.words;
    }

private:
    void resize_bits(size_t bits) {
        bits_ = bits;
        words.assign((bits + 31) / 32, 0);
    }
    size_t bits_ = 0;
};

inline std::ostream& operator<<(std::ostream& out, const Int& x) {
    return out << x.hex();
}

using Ints = std::vector<Int>;

} // namespace vor::test

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
    // An operand as oracle.py tells it: atom, atom*atom, each with +atom or -atom behind it or not,
    // the whole with a minus in front or not.
    explicit Int(const std::string& text) {
        const bool minus = text[0] == '-';
        const size_t star = text.find('*'), last = text.find_last_of("+-");
        const bool sum = last != std::string::npos && last > 0;
        const size_t end = sum ? last : text.size();
        *this = atom(text.substr(minus, std::min(star, end) - minus));
        if (star != std::string::npos) multiply(atom(text.substr(star + 1, end - star - 1)));
        if (sum) add(atom(text.substr(last + 1)), text[last] == '-');
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
    // A number of hexadecimal digits, ones(n), bit(k), rep(w,n), n words w, or rnd(seed,bits), in which
    // one word in four is zero and one all ones: they carry on what comes from below.
    static Int atom(const std::string& text) {
        const auto argument = [&](size_t from) { return std::stoul(text.substr(from)); };
        Int x;
        const auto with_bits = [&](size_t bits) { x.words.assign((bits + 31) / 32, 0); };
        const auto set = [&](size_t i, uint32_t value) { x.words[i / 32] |= value << i % 32; };
        if (text.starts_with("ones(")) {
            with_bits(argument(5));
            for (size_t i = 0; i < argument(5); ++i) set(i, 1);
        } else if (text.starts_with("bit(")) {
            with_bits(argument(4) + 1);
            set(argument(4), 1);
        } else if (text.starts_with("rep(")) {
            x.words.assign(argument(text.find(',') + 1),
                           static_cast<uint32_t>(std::stoul(text.substr(4), nullptr, 16)));
        } else if (text.starts_with("rnd(")) {
            Random random(argument(4));
            const size_t bits = argument(text.find(',') + 1);
            with_bits(bits);
            for (uint32_t& w : x.words) {
                const uint64_t z = random.bits();
                w = z >> 62 > 1 ? static_cast<uint32_t>(z) : 0 - static_cast<uint32_t>(z >> 62);
            }
            if (bits % 32) x.words.back() &= (1u << bits % 32) - 1;
            set(bits - 1, 1);
        } else {
            with_bits(4 * text.size());
            for (size_t i = 0; i < text.size(); ++i)
                set(4 * i, static_cast<uint32_t>(
                               std::stoul(text.substr(text.size() - 1 - i, 1), nullptr, 16)));
        }
        return x;
    }
    void multiply(const Int& y) {
        std::vector<uint32_t> r(words.size() + y.words.size());
        for (size_t i = 0; i < words.size(); ++i) {
            uint64_t carry = 0;
            for (size_t j = 0; j < y.words.size(); ++j) {
                carry += uint64_t{words[i]} * y.words[j] + r[i + j];
                r[i + j] = static_cast<uint32_t>(carry);
                carry >>= 32;
            }
            r[i + y.words.size()] = static_cast<uint32_t>(carry);
        }
        words = r;
    }
    // The sum or the difference, which is not negative.
    void add(const Int& y, bool subtract) {
        words.resize(std::max(words.size(), y.words.size()) + 1);
        int64_t carry = 0;
        for (size_t i = 0; i < words.size(); ++i) {
            const int64_t limb = i < y.words.size() ? y.words[i] : 0;
            carry += words[i] + (subtract ? -limb : limb);
            words[i] = static_cast<uint32_t>(carry);
            carry >>= 32;
        }
    }
};

inline std::ostream& operator<<(std::ostream& out, const Int& x) {
    return out << x.hex();
}

using Ints = std::vector<Int>;

} // namespace vor::test

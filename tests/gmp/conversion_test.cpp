// What the table of cases does not hold of the conversions: bad text, streams and their failures, edges
// of formats.
#include "tests/common/allocations.h"
#include "tests/gmp/boxes.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <unistd.h>

namespace vor::test {
namespace {

// ---- Text ---------------------------------------------------------------------------------------

struct Text {
    const char* text;
    int base, status;
    long long value; // of r, 77 before
};

TEST(Text, AsItIsRead) {
    constexpr Text kTexts[] = {
        {"  +12 ", 10, 0, 12},
        {"-12", 10, 0, -12},
        {"1 2", 10, -1, 2}, // the digits behind the bad one
        {"", 10, -1, 77},
        {"   ", 10, -1, 77},
        {"\t1", 10, -1, 1},
        {"1\n", 10, -1, 0},
        {"-", 10, 0, 0},
        {"+", 16, 0, 0},
        {"--5", 10, -1, 5},
        {"- 5", 10, -1, 5},
        {"0x1f", 0, 0, 31},
        {"0X1F", 0, 0, 31},
        {"-0x1f", 0, 0, -31},
        {"0x", 0, 0, 0},
        {"0x", 16, -1, 0},
        {"0x1g", 0, -1, 0},
        {"017", 0, 0, 15},
        {"018", 0, -1, 0},
        {"0", 0, 0, 0},
        {"00", 0, 0, 0},
        {"0b11", 0, -1, 9}, // base 8
        {"12", 0, 0, 12},
        {"zZ", 36, 0, 1295},
        {"zZ", 35, -1, 0},
        {"12345678901a23", 10, -1, 23},
        {"-9a9", 10, -1, 9},
        {"102", 2, -1, 0},
        {"2101", 2, -1, 5},
        {"0000000000000000000000000000000000000000000000000000000000000000000000000012", 10, 0, 12},
        {"1\xe4", 10, -1, 0},
        {"\xff", 36, -1, 0},
        {"5", 1, -1, 77},
        {"5", -10, -1, 77},
        {"5", 37, -1, 77},
        {"5", INT32_MIN, -1, 77},
        {"5", INT32_MAX, -1, 77},
    };
    for (const Text& t : kTexts) {
        SCOPED_TRACE(std::string("'") + t.text + "' in base " + std::to_string(t.base));
        Z r(Int(77));
        EXPECT_EQ(__gmpz_set_str(r, t.text, t.base), t.status);
        EXPECT_EQ(r.value(), Int(t.value));
        vor_mpz made;
        EXPECT_EQ(__gmpz_init_set_str(&made, t.text, t.base), t.status);
        __gmpz_clear(&made);
    }
    for (int c = -200; c < 400; ++c) {
        const int want = c >= '0' && c <= '9'   ? c - '0'
                         : c >= 'a' && c <= 'z' ? c - 'a' + 10
                         : c >= 'A' && c <= 'Z' ? c - 'A' + 10
                                                : -1;
        EXPECT_EQ(_impGetDigitValue(c), want) << c;
    }
}

// Long text with one bad digit: what stands behind it, by halves as well.
TEST(Text, BadDigitInALongText) {
    for (const int bad : {0, 1, 500, 1000, 2999}) {
        std::string text(3000, '7');
        text[static_cast<size_t>(bad)] = '.';
        Z r, want;
        EXPECT_EQ(__gmpz_set_str(r, text.c_str(), 10), -1);
        __gmpz_set_str(want, ("0" + text.substr(static_cast<size_t>(bad) + 1)).c_str(), 10);
        EXPECT_EQ(r.value(), want.value());
    }
}

TEST(Text, BasesThatAreNone) {
    Z x(Int(5));
    char buffer[40] = "untouched";
    for (const int base : {1, -1, 37, -37, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(__gmpz_get_str(buffer, base, x), nullptr) << base;
        EXPECT_EQ(__gmpz_get_str(nullptr, base, x), nullptr) << base;
        EXPECT_EQ(__gmpz_out_str(stdout, base, x), 0) << base;
    }
    EXPECT_STREQ(buffer, "untouched");
    EXPECT_STREQ(__gmpz_get_str(buffer, 0, x), "5");
    Z minus(Int(-255));
    EXPECT_STREQ(vor_gmp_get_hexstr(buffer, minus), "-FF");
    EXPECT_STREQ(__gmpz_get_str(buffer, -16, minus), "-FF");
}

// ---- Streams ------------------------------------------------------------------------------------

// A file in memory that fails after so many bytes, written or read.
class Stream {
public:
    explicit Stream(std::string text = "", size_t most = SIZE_MAX) : text_(text), most_(most) {
        const cookie_io_functions_t functions{read, write, seek, nullptr};
        file_ = fopencookie(this, "r+", functions);
        setvbuf(file_, nullptr, _IONBF, 0);
    }
    ~Stream() { fclose(file_); }
    operator FILE*() { return file_; }
    const std::string& text() const { return text_; }
    // What has not been read yet.
    std::string rest() {
        std::string rest;
        for (int c; (c = fgetc(file_)) != EOF;) rest += static_cast<char>(c);
        return rest;
    }

private:
    static ssize_t read(void* cookie, char* buffer, size_t size) {
        auto* const s = static_cast<Stream*>(cookie);
        if (s->place_ >= s->most_) return errno = EIO, -1;
        const size_t n = std::min({size, s->text_.size() - s->place_, s->most_ - s->place_});
        std::memcpy(buffer, s->text_.data() + s->place_, n);
        s->place_ += n;
        return static_cast<ssize_t>(n);
    }
    static ssize_t write(void* cookie, const char* buffer, size_t size) {
        auto* const s = static_cast<Stream*>(cookie);
        const size_t n = std::min(size, s->most_ - s->text_.size());
        s->text_.append(buffer, n);
        return n == 0 ? (errno = ENOSPC, 0) : static_cast<ssize_t>(n);
    }
    static int seek(void* cookie, off64_t* offset, int whence) {
        auto* const s = static_cast<Stream*>(cookie);
        if (whence == SEEK_SET) s->place_ = static_cast<size_t>(*offset);
        if (whence == SEEK_CUR) s->place_ += static_cast<size_t>(*offset);
        *offset = static_cast<off64_t>(s->place_);
        return 0;
    }

    std::string text_;
    size_t most_, place_ = 0;
    FILE* file_;
};

TEST(Streams, TextOut) {
    const Int value("-rnd(3,5000)");
    Z x(value);
    for (const int base : {2, 10, 16, 36, -10, 0}) {
        Stream stream;
        char* const text = __gmpz_get_str(nullptr, base, x);
        EXPECT_EQ(__gmpz_out_str(stream, base, x), static_cast<int>(std::strlen(text)));
        EXPECT_EQ(stream.text(), text);
        __gmp_default_free(text, 0);
    }
    Stream hexadecimal;
    EXPECT_EQ(__gmp_fprintf(hexadecimal, "%d %Zd %s %n", Z(Int(-255))), -1);
    EXPECT_EQ(__gmp_fprintf(hexadecimal, nullptr, Z(Int(10))), -1);
    EXPECT_EQ(hexadecimal.text(), "-FFA");
    Stream full("", 1); // the minus fits, the digits do not
    EXPECT_LT(__gmpz_out_str(full, 10, x), 2);
    EXPECT_EQ(full.text(), "-");
}

TEST(Streams, Fractions) {
    const auto written = [](const Int& numerator, const Int& denominator) {
        Z n(numerator), d(denominator);
        const vor_mpq q{*n.operator->(), *d.operator->()};
        Stream stream;
        EXPECT_EQ(__gmpq_out_str(stream, 10, &q), 0);
        return stream.text();
    };
    EXPECT_EQ(written(1, 3), "00000001 / 00000003");
    EXPECT_EQ(written(5, 1), "00000005");
    EXPECT_EQ(written(0, 1), "00000000");
    EXPECT_EQ(written(Int("-bit(64)"), Int("bit(32)")),
              "-000000010000000000000000 / 0000000100000000");
}

struct Token {
    const char *stream, *rest;
    int base, count;
    long long value; // of r, 77 before
};

TEST(Streams, TextIn) {
    constexpr Token kTokens[] = {
        {"12 34", " 34", 10, 2, 12},   {"   -12 34", " 34", 10, 6, -12},
        {"12", "", 10, 2, 12},         {"0x1f ", " ", 0, 4, 31},
        {"", "", 10, 0, 77},           {"   ", "", 10, 0, 77},
        {"12\n34 5", " 5", 10, 0, 34}, {"1z ", " ", 10, 0, 0},
        {"ff", "", 16, 2, 255},
    };
    for (const Token& t : kTokens) {
        SCOPED_TRACE(t.stream);
        Z r(Int(77));
        Stream stream(t.stream);
        EXPECT_EQ(__gmpz_inp_str(r, stream, t.base), t.count);
        EXPECT_EQ(r.value(), Int(t.value));
        EXPECT_EQ(stream.rest(), t.rest);
    }
    // A pipe cannot go back: the space is put back all the same.
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "123 456", 7), 7);
    close(ends[1]);
    FILE* const pipe_end = fdopen(ends[0], "r");
    Z r;
    EXPECT_EQ(__gmpz_inp_str(r, pipe_end, 10), 3);
    EXPECT_EQ(__gmpz_inp_str(r, pipe_end, 10), 4);
    EXPECT_EQ(r.value(), Int(456));
    fclose(pipe_end);
    // Two numbers, long ones, back from what was written.
    const Int a("rnd(4,9000)"), b("-rnd(5,70)");
    Stream both;
    __gmpz_out_str(both, 10, Z(a));
    fputc(' ', both);
    __gmpz_out_str(both, 10, Z(b));
    Stream again(both.text());
    EXPECT_GT(__gmpz_inp_str(r, again, 10), 2700);
    EXPECT_EQ(r.value(), a);
    EXPECT_GT(__gmpz_inp_str(r, again, 10), 20);
    EXPECT_EQ(r.value(), b);
    // A stream that fails: what has come is the token.
    Stream failing("123456", 3);
    EXPECT_EQ(__gmpz_inp_str(r, failing, 10), 3);
    EXPECT_EQ(r.value(), Int(123));
}

TEST(Streams, RawForm) {
    const std::pair<Int, std::string> forms[] = {
        {0, std::string(4, '\0')},
        {-1, std::string("\xff\xff\xff\xff\x01", 5)},
        {0x100, std::string("\0\0\0\2\1\0", 6)},
        {Int("-123456789a"), std::string("\xff\xff\xff\xfb\x12\x34\x56\x78\x9a", 9)},
    };
    for (const auto& [value, bytes] : forms) {
        Stream out, in(bytes + "x");
        EXPECT_EQ(__gmpz_out_raw(out, Z(value)), bytes.size());
        EXPECT_EQ(out.text(), bytes);
        Z r(Int("ones(400)"));
        EXPECT_EQ(__gmpz_inp_raw(r, in), bytes.size());
        EXPECT_EQ(r.value(), value);
        EXPECT_EQ(in.rest(), "x");
    }
    // Zeros on top are dropped; lengths around the pieces in which a number is read.
    Z r;
    Stream zeros(std::string("\0\0\0\6\0\0\0\0\0\7", 10));
    EXPECT_EQ(__gmpz_inp_raw(r, zeros), 10u);
    EXPECT_EQ(r.value(), Int(7));
    for (const unsigned bytes : {65535u, 65536u, 65537u, 131072u, 131073u, 300001u, 1100000u}) {
        const Int value("rnd(6," + std::to_string(8 * bytes) + ")");
        Stream stream;
        ASSERT_EQ(__gmpz_out_raw(stream, Z(value)), 4 + bytes);
        Stream back(stream.text());
        ASSERT_EQ(__gmpz_inp_raw(r, back), 4 + bytes);
        EXPECT_EQ(r.value(), value);
    }
}

TEST(Streams, RawFormsThatEnd) {
    const Int value("-rnd(7,800)"), before("rnd(8,300)");
    Stream whole;
    const unsigned size = __gmpz_out_raw(whole, Z(value));
    for (unsigned n = 0; n < size; ++n) {
        Z r(before);
        Stream cut(whole.text().substr(0, n)), failing(whole.text(), n), full("", n);
        EXPECT_EQ(__gmpz_inp_raw(r, cut), n);
        EXPECT_EQ(__gmpz_inp_raw(r, failing), n);
        EXPECT_EQ(r.value(), before) << "as it was";
        EXPECT_EQ(__gmpz_out_raw(full, Z(value)), n);
        EXPECT_EQ(full.text(), whole.text().substr(0, n));
    }
    // A length that only the header knows must not be believed.
#ifndef VOR_SANITIZED // which counts blocks itself
    Allocations allocations;
#endif
    for (const char* header : {"\x7f\xff\xff\xff", "\x80\0\0\0", "\x80\0\0\1"}) {
        Z r(before);
        Stream stream(std::string(header, 4) + "abcd");
        EXPECT_EQ(__gmpz_inp_raw(r, stream), 8u);
        EXPECT_EQ(r.value(), before);
    }
#ifndef VOR_SANITIZED
    EXPECT_EQ(allocations.live(), 0);
#endif
}

// ---- Doubles and words ------------------------------------------------------------------------

TEST(Doubles, NotNumbers) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double d : {kInfinity, -kInfinity, std::numeric_limits<double>::quiet_NaN()}) {
        Z r(Int(-5));
        __gmpz_set_d(r, d);
        EXPECT_EQ(r.value(), Int(-5));
        vor_mpz made;
        __gmpz_init_set_d(&made, d);
        EXPECT_EQ(made._mp_size, 0);
        __gmpz_clear(&made);
        __gmpz_init_set_d(&made, -2.75);
        EXPECT_EQ(__gmpz_cmp_si(&made, -3), 0);
        __gmpz_clear(&made);
    }
}

TEST(Doubles, PartsOfASignificand) {
    const unsigned hi = 0x00120001, lo = 0x40000001; // bits 0, 3, 20, 22 and 52
    for (int i = -3; i < 60; ++i) {
        const bool set = i == 0 || i == 3 || i == 20 || i == 22 || i == 52;
        EXPECT_EQ(_impGetFloatBit(hi, lo, i) != 0, set) << i;
        EXPECT_EQ(_impGetFloatTail(hi, lo, i) != 0, i < 52) << i;
        EXPECT_EQ(_impGetFloatTail(0x00100000, 0, i) != 0, i < 0) << i;
    }
    EXPECT_EQ(_impGetFloatTail(0xffe00000, 0, -1), 0u) << "above the significand";
}

TEST(Words, Edges) {
    Z x(Int(0xab)), zero, r(Int(-5));
    unsigned char bytes[] = {1, 2, 3, 4};
    unsigned count = 9;
    EXPECT_EQ(__gmpz_export(bytes, &count, 1, 1, 1, 0, zero), bytes);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(__gmpz_export(nullptr, &count, 1, 1, 1, 8, zero), nullptr) << "no word is needed";
    EXPECT_EQ(bytes[0], 1);
    __gmpz_import(r, 0, 1, 4, 1, 0, bytes);
    EXPECT_EQ(r.value(), Int(0));
    __gmpz_set_si(r, -5);
    __gmpz_import(r, 4, 1, 1, 1, 8, bytes); // not one bit
    EXPECT_EQ(r.value(), Int(0));
    __gmpz_import(r, 4, 1, 0, 1, 0, bytes);
    EXPECT_EQ(r.value(), Int(0));
    __gmpz_export(bytes, &count, 1, 1, 0, 4, x);
    EXPECT_TRUE(count == 2 && bytes[0] == 0xa && bytes[1] == 0xb);
}

} // namespace
} // namespace vor::test

// Integers and fractions on streams as text.
#include "gmp/bytes.h"

#include <string.h>

#include <stdio.h>

using namespace vor::gmp;

namespace {

constexpr unsigned kPiece = 10; // bytes by which the block of a short token grows

// |x| without its sign: the limbs stay where they are.
class Magnitude {
public:
    explicit Magnitude(const vor_mpz* x) : x_{x->_mp_alloc, limbs_of(x), x->_mp_d} {}
    operator const vor_mpz*() const { return &x_; }

private:
    vor_mpz x_;
};

void print_limbs(FILE* stream, const vor_mpz* x) {
    if (value_size(x) == 0) {
        fprintf(stream, "%08X", 0u);
        return;
    }
    if (negative(x)) fprintf(stream, "-");
    for (int i = limbs_of(x) - 1; i >= 0; --i) fprintf(stream, "%08X", x->_mp_d[i]);
}

// What stands between spaces, with a NUL behind; the characters read, those of the token and the spaces
// in front of it.
int read_token(FILE* stream, Bytes* token) {
    int c, count = 0;
    while ((c = fgetc(stream)) == ' ') ++count;
    unsigned length = 0;
    for (; c != EOF && c != ' '; c = fgetc(stream), ++count) {
        if (length + 1 == token->size())
            token->grow(uint64_t{token->size()} + (length / 2 > kPiece ? length / 2 : kPiece));
        token->text()[length++] = static_cast<char>(c);
    }
    if (c == ' ' && fseek(stream, -1, SEEK_CUR) != 0) ungetc(c, stream); // a pipe
    token->text()[length] = '\0';
    return count;
}

} // namespace

extern "C" int __gmpz_out_str(FILE* stream, int base, const vor_mpz* x) {
    if (!stream) stream = stdout;
    char* const text = vor_gmp___gmpz_get_str(nullptr, base, Magnitude(x));
    if (!text) return 0;
    int written = 0;
    if (vor_gmp___gmpz_sgn(x) < 0) written += fprintf(stream, "-");
    written += fprintf(stream, "%s", text);
    vor_gmp_vor_gmp_free(text, static_cast<unsigned>(strlen(text)) + 1);
    return written;
}

extern "C" int __gmpz_inp_str(vor_mpz* r, FILE* stream, int base) {
    Bytes token(kPiece);
    const int count = read_token(stream ? stream : stdin, &token);
    return vor_gmp___gmpz_set_str(r, token.text(), base) == 0 ? count : 0;
}

extern "C" int __gmp_fprintf(FILE* stream, const char*, const vor_mpz* x) {
    __gmpz_out_str(stream, 16, x);
    return -1;
}

VOR_GMP(int, __gmpq_out_str, __GMPQ_OUT_STR, vor_gmp___gmpq_out_str,
        (FILE * stream, int base, const vor_mpq* q), (stream, base, q)) {
    (void)base;
    if (!stream) stream = stdout;
    const vor_mpz *const numerator = &q->_mp_num, *const denominator = &q->_mp_den;
    print_limbs(stream, numerator);
    if (denominator->_mp_size == 1 && denominator->_mp_d[0] == 1) return 0;
    fprintf(stream, " / ");
    for (int i = limbs_of(denominator) - 1; i >= 0; --i)
        fprintf(stream, "%08X", denominator->_mp_d[i]);
    return 0;
}

// The raw form of an integer on a stream: a count of bytes with the sign of the number, in four bytes,
// and the magnitude, both with the most significant byte first.
#include "gmp/bytes.h"

#include <stdio.h>

using namespace vor::gmp;

namespace {

constexpr unsigned kHeader = 4;
constexpr unsigned kFirstPiece = 1 << 16; // of a length that is not to be trusted
// Up to so many bytes r gets a limb for each, of which it needs a quarter.
constexpr uint64_t kGenerous = 1 << 20;

unsigned char byte_at(const vor_mpz* x, unsigned i) {
    return static_cast<unsigned char>(x->_mp_d[i / 4] >> i % 4 * 8);
}

// r = the number in `bytes`.
void set_bytes(vor_mpz* r, const unsigned char* bytes, unsigned count, bool minus) {
    const uint64_t needed = (uint64_t{count} + 3) / 4;
    limb_t* const limbs = grow(r, count <= kGenerous ? count : needed);
    clear_above(r, 0);
    for (unsigned i = 0; i < count; ++i) limbs[i / 4] |= limb_t{bytes[count - 1 - i]} << i % 4 * 8;
    finish(r, static_cast<int>(needed), minus);
}

} // namespace

extern "C" unsigned __gmpz_out_raw(FILE* stream, const vor_mpz* x) {
    const uint64_t bytes = (bit_length(x) + 7) / 8;
    if (bytes > INT32_MAX) return 0;
    const unsigned count = static_cast<unsigned>(bytes);
    const unsigned header = negative(x) ? 0 - count : count;
    if (!stream) stream = stdout;
    unsigned written = 0;
    for (; written < kHeader; ++written)
        if (fputc(static_cast<int>(header >> (24 - 8 * written) & 0xff), stream) == EOF)
            return written;
    for (unsigned i = count; i-- > 0; ++written)
        if (fputc(byte_at(x, i), stream) == EOF) return written;
    return written;
}

// The length is what the stream says: the block grows with what has come.
extern "C" unsigned __gmpz_inp_raw(vor_mpz* r, FILE* stream) {
    if (!stream) stream = stdin;
    unsigned header = 0;
    for (unsigned read = 0; read < kHeader; ++read) {
        const int c = fgetc(stream);
        if (c == EOF) return read;
        header = header << 8 | static_cast<unsigned>(c);
    }
    const bool minus = header >> 31;
    const unsigned count = minus ? 0 - header : header;
    if (count == 0) {
        r->_mp_size = 0;
        return kHeader;
    }
    Bytes bytes(count < kFirstPiece ? count : kFirstPiece);
    unsigned read = 0;
    for (;;) {
        const size_t got = fread(bytes.get() + read, 1, bytes.size() - read, stream);
        read += static_cast<unsigned>(got);
        if (read < bytes.size()) return kHeader + read;
        if (read == count) break;
        bytes.grow(count / 2 < read ? count : 2 * read);
    }
    set_bytes(r, bytes.get(), count, minus);
    return kHeader + count;
}

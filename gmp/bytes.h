// Blocks of bytes from the current allocation functions.
#pragma once

#include "gmp/integer.h"

namespace vor::gmp {

#pragma GCC visibility push(hidden)
// n bytes with undefined contents; the block moved to n bytes. Without memory the process ends.
void* allocate_bytes(uint64_t n);
void* reallocate_bytes(void* block, unsigned old_size, uint64_t n);
#pragma GCC visibility pop

// A block for one call, which may grow.
class Bytes {
public:
    explicit Bytes(uint64_t n)
        : bytes_(static_cast<unsigned char*>(allocate_bytes(n))), size_(static_cast<unsigned>(n)) {}
    ~Bytes() { vor_gmp_vor_gmp_free(bytes_, size_); }
    Bytes(const Bytes&) = delete;
    Bytes& operator=(const Bytes&) = delete;

    unsigned char* get() const { return bytes_; }
    char* text() const { return reinterpret_cast<char*>(bytes_); }
    unsigned size() const { return size_; }
    void grow(uint64_t n) {
        bytes_ = static_cast<unsigned char*>(reallocate_bytes(bytes_, size_, n));
        size_ = static_cast<unsigned>(n);
    }

private:
    unsigned char* bytes_;
    unsigned size_;
};

} // namespace vor::gmp

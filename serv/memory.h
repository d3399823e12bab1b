// Scratch memory for the engines: a cache of whole blocks in front of malloc.
#pragma once

#include <stddef.h>

extern "C" {
// A block of at least `size` bytes with undefined contents, aligned as malloc aligns; null on
// failure. Any thread, parallel regions included. A thread that frees a block and asks for the same
// size again gets warm memory without a call of the system.
void* vor_serv_allocate(unsigned size);
void vor_serv_deallocate(void* block); // from vor_serv_allocate, on any thread

// Internal steps, exported for inspection. The last two run under vor_serv_lock.
void VOR_read_env();
void VOR_shrink_mem_slots();
void vor_free_extra_mem();
}

namespace vor {
inline namespace serv {

// count * size + extra in bytes; false if that does not fit 32 bits. Every size that depends on an
// argument goes through here before it reaches an allocator.
[[nodiscard]] inline bool byte_count(size_t count, size_t size, size_t extra, unsigned* bytes) {
    size_t product;
    return !__builtin_mul_overflow(count, size, &product) &&
           !__builtin_add_overflow(product, extra, bytes);
}

// Scratch of one call: `count` elements of T from the first 32-byte boundary of a block, given back
// at the end of the scope. Null inside if the memory cannot be had.
template <class T>
class Scratch {
public:
    static constexpr size_t kAlignment = 32;

    explicit Scratch(size_t count) {
        unsigned bytes;
        if (byte_count(count, sizeof(T), kAlignment, &bytes)) block_ = vor_serv_allocate(bytes);
    }
    ~Scratch() {
        if (block_) vor_serv_deallocate(block_);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    explicit operator bool() const { return block_ != nullptr; }
    T* get() const {
        const size_t address = reinterpret_cast<size_t>(block_);
        return block_ ? reinterpret_cast<T*>((address + kAlignment - 1) & ~(kAlignment - 1))
                      : nullptr;
    }

private:
    void* block_ = nullptr;
};

} // namespace serv
} // namespace vor

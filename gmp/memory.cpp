// Memory of the integers: the default allocator, the replaceable functions, the shared scratch
// block, and the end of a process that has no memory left.
//
// State, process-wide and without a lock: the three function pointers, to be set before the first
// record is made, and the scratch block with its size.
#include "serv/memory.h"
#include "gmp/bytes.h"

#include <string.h>

#include <stdio.h>
#include <stdlib.h>

namespace {

// A block of the default allocator is aligned to 32 bytes. Below the pointer p handed out stand the
// size asked for, at p - 4, and at p - 5 the distance of that byte from the start of the C library's
// block.
constexpr unsigned kBlockAlignment = 32;
constexpr unsigned kBlockOverhead = 69; // 64 to p at the most, and 5 bytes of header

unsigned char* bytes_at(void* block) {
    return static_cast<unsigned char*>(block);
}

unsigned block_size(void* block) {
    unsigned size;
    memcpy(&size, bytes_at(block) - 4, sizeof size);
    return size;
}

void* allocate(unsigned size) {
    unsigned bytes;
    if (!vor::byte_count(1, size, kBlockOverhead, &bytes)) return nullptr;
    auto* const start = static_cast<unsigned char*>(malloc(bytes));
    if (!start) return nullptr;
    const unsigned misalignment = reinterpret_cast<uintptr_t>(start) % kBlockAlignment;
    unsigned char* const block = start - misalignment + 2 * kBlockAlignment;
    block[-5] = static_cast<unsigned char>(59 - misalignment);
    memcpy(block - 4, &size, sizeof size);
    return block;
}

void deallocate(void* block) {
    if (block) free(bytes_at(block) - 5 - bytes_at(block)[-5]);
}

// Always moves. Null leaves the old block as it was.
void* reallocate(void* old, unsigned size) {
    void* const block = allocate(size);
    if (!block || !old) return block;
    const unsigned old_size = block_size(old);
    memcpy(block, old, old_size < size ? old_size : size);
    deallocate(old);
    return block;
}

// Reports that `bytes` bytes could not be had, and aborts.
[[noreturn]] void out_of_memory(uint64_t bytes) {
    fprintf(stderr, "vor: integers: out of memory, %llu bytes\n",
            static_cast<unsigned long long>(bytes));
    abort();
}

constexpr unsigned kGuardBelow = 0x27182818, kGuardAbove = 0x31415926;

} // namespace

extern "C" {
void* vor_gmp___gmp_default_allocate(unsigned size) {
    return allocate(size);
}

void vor_gmp___gmp_default_free(void* block, unsigned) {
    deallocate(block);
}

void* vor_gmp___gmp_default_reallocate(void* block, unsigned, unsigned size) {
    return reallocate(block, size);
}

void* __gmp_default_allocate(unsigned size) {
    return allocate(size);
}

void __gmp_default_free(void* block, unsigned) {
    deallocate(block);
}

void* __gmp_default_reallocate(void* block, unsigned, unsigned size) {
    return reallocate(block, size);
}

void* _impMalloc(unsigned size) {
    return allocate(size);
}

void _impFree(void* block) {
    deallocate(block);
}

void* _impRealloc(void* block, unsigned size) {
    return reallocate(block, size);
}

int _impCheckMemoryBlock(const void* block) {
    const auto* const p = static_cast<const unsigned char*>(block);
    unsigned below, size, above;
    memcpy(&below, p - 8, sizeof below);
    if (below != kGuardBelow) return -1;
    memcpy(&size, p - 4, sizeof size);
    memcpy(&above, p + size, sizeof above);
    return above != kGuardAbove;
}

vor_gmp_allocator vor_gmp_vor_gmp_allocate = vor_gmp___gmp_default_allocate;
vor_gmp_reallocator vor_gmp_vor_gmp_reallocate = vor_gmp___gmp_default_reallocate;
vor_gmp_deallocator vor_gmp_vor_gmp_free = vor_gmp___gmp_default_free;

void* vor_gmp___imp_tmp_storage;
unsigned vor_gmp___imp_tmp_storage_size;
}

VOR_GMP(vor_gmp_allocator, __gmp_allocate_func_ptr, __GMP_ALLOCATE_FUNC_PTR,
        vor_gmp___gmp_allocate_func_ptr, (), ()) {
    return vor_gmp_vor_gmp_allocate;
}

VOR_GMP(vor_gmp_reallocator, __gmp_reallocate_func_ptr, __GMP_REALLOCATE_FUNC_PTR,
        vor_gmp___gmp_reallocate_func_ptr, (), ()) {
    return vor_gmp_vor_gmp_reallocate;
}

VOR_GMP(vor_gmp_deallocator, __gmp_free_func_ptr, __GMP_FREE_FUNC_PTR, vor_gmp___gmp_free_func_ptr,
        (), ()) {
    return vor_gmp_vor_gmp_free;
}

VOR_GMP(void, __gmp_set_memory_functions, __GMP_SET_MEMORY_FUNCTIONS,
        vor_gmp___gmp_set_memory_functions,
        (vor_gmp_allocator allocate, vor_gmp_reallocator reallocate,
         vor_gmp_deallocator deallocate),
        (allocate, reallocate, deallocate)) {
    vor_gmp_vor_gmp_allocate = allocate;
    vor_gmp_vor_gmp_reallocate = reallocate;
    vor_gmp_vor_gmp_free = deallocate;
}

VOR_GMP_MIXED(void, _impTmpMark, _imptmpmark, _IMPTMPMARK, vor_gmp__imptmpmark, (), ()) {
    deallocate(vor_gmp___imp_tmp_storage);
    vor_gmp___imp_tmp_storage = nullptr;
}

VOR_GMP_MIXED(void*, _impTmpMalloc, _imptmpmalloc, _IMPTMPMALLOC, vor_gmp__imptmpmalloc,
              (unsigned bits), (bits)) {
    vor_gmp___imp_tmp_storage_size = bits;
    vor_gmp___imp_tmp_storage = allocate(bits);
    if (!vor_gmp___imp_tmp_storage) out_of_memory(bits);
    return vor_gmp___imp_tmp_storage;
}

VOR_GMP_MIXED(void, _impTmpFree, _imptmpfree, _IMPTMPFREE, vor_gmp__imptmpfree, (), ()) {
    vor_gmp__imptmpmark();
}

namespace vor::limb {

word* try_allocate(uint64_t n) {
    constexpr uint64_t kLargest = (UINT32_MAX - kBlockOverhead) / sizeof(word);
    static_assert(kLargest < INT32_MAX); // so every limb count that gets memory fits an int
    if (n > kLargest) return nullptr;
    return static_cast<word*>(vor_gmp_vor_gmp_allocate(static_cast<unsigned>(n * sizeof(word))));
}

word* allocate(uint64_t n) {
    word* const limbs = try_allocate(n);
    if (!limbs) out_of_memory(n * sizeof(word));
    return limbs;
}

void deallocate(word* limbs, int n) {
    vor_gmp_vor_gmp_free(limbs, static_cast<unsigned>(n) * sizeof(word));
}

} // namespace vor::limb

namespace vor::gmp {

void* allocate_bytes(uint64_t n) {
    void* const block =
        n <= UINT32_MAX ? vor_gmp_vor_gmp_allocate(static_cast<unsigned>(n)) : nullptr;
    if (!block) out_of_memory(n);
    return block;
}

void* reallocate_bytes(void* old, unsigned old_size, uint64_t n) {
    void* const block = n <= UINT32_MAX
                            ? vor_gmp_vor_gmp_reallocate(old, old_size, static_cast<unsigned>(n))
                            : nullptr;
    if (!block) out_of_memory(n);
    return block;
}

void move_limbs(vor_mpz* x, uint64_t n, int kept) {
    limb_t* const limbs = limb::allocate(n);
    limb::copy(limbs, x->_mp_d, kept);
    limb::clear(limbs + kept, static_cast<int>(n) - kept);
    if (x->_mp_d) limb::deallocate(x->_mp_d, x->_mp_alloc);
    x->_mp_d = limbs;
    x->_mp_alloc = static_cast<int>(n);
}

} // namespace vor::gmp

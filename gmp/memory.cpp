// Memory of the integers: the default allocator, the replaceable functions, the shared scratch
// block, and the end of a process that has no memory left.
//
// State, process-wide and without a lock: the three function pointers, to be set before the first
// record is made, and the scratch block with its size.
#include "serv/memory.h"
#include "gmp/integer.h"

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

VOR_ENGINE vor_gmp_allocator vor_gmp___gmp_allocate_func_ptr() {
    return vor_gmp_vor_gmp_allocate;
}

VOR_ENGINE vor_gmp_reallocator vor_gmp___gmp_reallocate_func_ptr() {
    return vor_gmp_vor_gmp_reallocate;
}

VOR_ENGINE vor_gmp_deallocator vor_gmp___gmp_free_func_ptr() {
    return vor_gmp_vor_gmp_free;
}

VOR_ENGINE void vor_gmp___gmp_set_memory_functions PARAMS_MEMORY {
    vor_gmp_vor_gmp_allocate = allocate;
    vor_gmp_vor_gmp_reallocate = reallocate;
    vor_gmp_vor_gmp_free = deallocate;
}

VOR_ENGINE void vor_gmp__imptmpmark() {
    deallocate(vor_gmp___imp_tmp_storage);
    vor_gmp___imp_tmp_storage = nullptr;
}

VOR_ENGINE void* vor_gmp__imptmpmalloc(unsigned bits) {
    vor_gmp___imp_tmp_storage_size = bits;
    vor_gmp___imp_tmp_storage = allocate(bits);
    if (!vor_gmp___imp_tmp_storage) vor::gmp::out_of_memory("_impTmpMalloc", bits);
    return vor_gmp___imp_tmp_storage;
}

VOR_ENGINE void vor_gmp__imptmpfree() {
    vor_gmp__imptmpmark();
}

namespace vor::gmp {

void out_of_memory(const char* function, uint64_t bytes) {
    fprintf(stderr, "vor: %s: out of memory, %llu bytes\n", function,
            static_cast<unsigned long long>(bytes));
    abort();
}

limb_t* allocate_limbs(uint64_t n, const char* function) {
    constexpr uint64_t kLargest = (UINT32_MAX - kBlockOverhead) / sizeof(limb_t);
    static_assert(kLargest < INT32_MAX); // so every limb count that gets memory fits an int
    const uint64_t bytes = n * sizeof(limb_t);
    void* const block =
        n <= kLargest ? vor_gmp_vor_gmp_allocate(static_cast<unsigned>(bytes)) : nullptr;
    if (!block) out_of_memory(function, bytes);
    return static_cast<limb_t*>(block);
}

void free_limbs(limb_t* limbs, int n) {
    vor_gmp_vor_gmp_free(limbs, static_cast<unsigned>(n) * sizeof(limb_t));
}

void move_limbs(vor_mpz* x, uint64_t n, int kept, const char* function) {
    limb_t* const limbs = allocate_limbs(n, function);
    copy_limbs(limbs, x->_mp_d, kept);
    clear_limbs(limbs + kept, static_cast<int>(n) - kept);
    if (x->_mp_d) free_limbs(x->_mp_d, x->_mp_alloc);
    x->_mp_d = limbs;
    x->_mp_alloc = static_cast<int>(n);
}

} // namespace vor::gmp

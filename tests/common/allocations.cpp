#include "tests/common/allocations.h"

#include <cstdint>
#include <cstring>
#include <link.h>

extern "C" {
void* __libc_malloc(size_t);
void __libc_free(void*);
}

namespace {

uintptr_t library_begin, library_end;

int find_library(dl_phdr_info* info, size_t, void*) {
    if (!std::strstr(info->dlpi_name, "libvor_k1.so")) return 0;
    for (int i = 0; i < info->dlpi_phnum; ++i) {
        const auto& segment = info->dlpi_phdr[i];
        if (segment.p_type != PT_LOAD || !(segment.p_flags & PF_X)) continue;
        library_begin = info->dlpi_addr + segment.p_vaddr;
        library_end = library_begin + segment.p_memsz;
    }
    return 1;
}

bool from_library(const void* caller) {
    const auto address = reinterpret_cast<uintptr_t>(caller);
    return address >= library_begin && address < library_end;
}

} // namespace

extern "C" void* malloc(size_t size) {
    return vor::test::Allocations::allocate(size, __builtin_return_address(0));
}

extern "C" void free(void* block) {
    vor::test::Allocations::release(block, __builtin_return_address(0));
}

namespace vor::test {

Allocations::Allocations() {
    if (!library_begin) dl_iterate_phdr(find_library, nullptr);
    calls_ = live_ = 0;
    last_size_ = 0;
    fail_at(0);
    watching_ = true;
}

void Allocations::fail(long first, long last) {
    failed_ = false;
    fail_first_ = first == 0 ? kNever : calls_ + first;
    fail_last_ = last == kNever ? kNever : calls_ + last;
}

void* Allocations::allocate(size_t size, const void* caller) {
    const bool counted = watching_ && from_library(caller);
    if (counted) {
        const long k = ++calls_;
        last_size_ = size;
        if (k >= fail_first_ && k <= fail_last_) {
            failed_ = true;
            return nullptr;
        }
    }
    void* block = __libc_malloc(size);
    if (counted && block) ++live_;
    return block;
}

void Allocations::release(void* block, const void* caller) {
    if (block && watching_ && from_library(caller)) --live_;
    __libc_free(block);
}

} // namespace vor::test

// Memory between two pages that cannot be touched: a read or a write outside ends the test.
#pragma once

#include <cstddef>
#include <sys/mman.h>

namespace vor::test {

// n elements that begin right behind the first fence, or end right before the second one.
template <class T>
class Fenced {
public:
    Fenced(size_t n, bool at_end)
        : inside_((n * sizeof(T) + kPage - 1) / kPage * kPage),
          base_(static_cast<char*>(
              mmap(nullptr, inside_ + 2 * kPage, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))) {
        mprotect(base_ + kPage, inside_, PROT_READ | PROT_WRITE);
        data_ = reinterpret_cast<T*>(base_ + kPage + (at_end ? inside_ - n * sizeof(T) : 0));
    }
    ~Fenced() { munmap(base_, inside_ + 2 * kPage); }
    Fenced(const Fenced&) = delete;
    Fenced& operator=(const Fenced&) = delete;
    T* data() { return data_; } // zeros

private:
    static constexpr size_t kPage = 4096;
    size_t inside_;
    char* base_;
    T* data_;
};

} // namespace vor::test

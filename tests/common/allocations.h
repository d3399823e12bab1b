// Counting and failing allocations of the library. The test program replaces malloc and free; calls
// that come from libvor_k1.so are counted, and some of them can be made to fail.
#pragma once

#include <atomic>
#include <cstddef>

namespace vor::test {

// While an object of this class lives, the library's calls of malloc and free are counted, on all
// threads. One object at a time.
class Allocations {
public:
    Allocations();
    ~Allocations() { watching_ = false; }
    Allocations(const Allocations&) = delete;
    Allocations& operator=(const Allocations&) = delete;

    // The k-th call from now on (from 1) returns null; 0: none.
    void fail_at(long k) { fail(k, k); }
    // The k-th and all later ones.
    void fail_from(long k) { fail(k, kNever); }
    long calls() const { return calls_; }           // since construction, failed ones included
    long live() const { return live_; }             // blocks taken and not given back since then
    size_t last_size() const { return last_size_; } // bytes of the latest call
    bool failed() const { return failed_; }         // a call since the latest fail_at or fail_from

    // For malloc and free alone.
    static void* allocate(size_t size, const void* caller);
    static void release(void* block, const void* caller);

private:
    static constexpr long kNever = 0x7fffffff;
    void fail(long first, long last);
    static inline std::atomic<bool> watching_{false}, failed_{false};
    static inline std::atomic<long> calls_{0}, live_{0}, fail_first_{0}, fail_last_{0};
    static inline std::atomic<size_t> last_size_{0};
};

} // namespace vor::test

// Counting and failing allocations of the library. The test program replaces malloc and free; calls
// that come from libvor_k1.so are counted, and one of them can be made to fail.
#pragma once

#include <cstddef>

namespace vor::test {

// While an object of this class lives, the library's calls of malloc, calloc and realloc are
// counted, on all threads, and its calls of free. One object at a time.
class Allocations {
public:
    Allocations();
    ~Allocations();
    Allocations(const Allocations&) = delete;
    Allocations& operator=(const Allocations&) = delete;

    void fail_at(long k);     // the k-th call from now on (from 1) returns null; 0: none
    void fail_from(long k);   // the k-th and all later ones
    long calls() const;       // since construction, failed ones included
    long live() const;        // blocks taken and not given back, since construction
    size_t last_size() const; // bytes of the latest call
    bool failed() const;      // a call was made to fail since the latest fail_at or fail_from
};

} // namespace vor::test

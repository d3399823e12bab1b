// Memory of the signal primitives: alignment, sizes at every change of path, all alignments.
#include "tests/common/allocations.h"
#include "tests/common/numbers.h"
#include "vor_signal.h"
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

namespace vor::test {
namespace {

TEST(SignalMemory, BlocksStandOn32Bytes) {
    for (int count = 1; count < 200; ++count) {
        void* const blocks[] = {tavsMalloc_8u(count), tavsMalloc_32f(count), tavsMalloc_64f(count)};
        for (int i = 0; i < 3; ++i) {
            ASSERT_TRUE(blocks[i]);
            EXPECT_EQ(reinterpret_cast<uintptr_t>(blocks[i]) % 32, 0u);
            std::memset(blocks[i], 0xff, static_cast<size_t>(count) * (i ? 4 * i : 1));
            tavsFree(blocks[i]);
        }
    }
}

TEST(SignalMemory, RequestsAndFailures) {
    Allocations allocations;
    EXPECT_EQ(tavsMalloc_8u(0), nullptr);
    EXPECT_EQ(tavsMalloc_32f(-1), nullptr);
    EXPECT_EQ(tavsMalloc_64f(INT32_MIN), nullptr);
    EXPECT_EQ(allocations.calls(), 0) << "nothing is asked of malloc";
    tavsFree(nullptr);
    void* const blocks[] = {tavsMalloc_64f(100), tavsMalloc_32f(100), tavsMalloc_8u(100)};
    EXPECT_EQ(allocations.last_size(), 136u);
    for (void* block : blocks) tavsFree(block);
    EXPECT_EQ(allocations.live(), 0);
    allocations.fail_at(1);
    EXPECT_EQ(tavsMalloc_32f(7), nullptr);
}

// The size in bytes is not cut to 32 bits.
TEST(SignalMemory, RequestsAboveTheAddressSpace) {
    Allocations allocations;
    EXPECT_EQ(tavsMalloc_32f(1 << 30), nullptr);
    EXPECT_EQ(tavsMalloc_64f(1 << 29), nullptr);
    EXPECT_EQ(tavsMalloc_64f((1 << 29) - 4), nullptr) << "36 bytes too many";
    EXPECT_EQ(tavsMalloc_64f(INT32_MAX), nullptr);
    EXPECT_EQ(allocations.calls(), 0);
}

TEST(SignalMemory, StatusesInOrder) {
    float f[2] = {1, 2};
    double d[2] = {1, 2};
    EXPECT_EQ(tavsZero_8u(nullptr, 0), tavStsNullPtrErr);
    EXPECT_EQ(tavsZero_32f(f, 0), tavStsSizeErr);
    EXPECT_EQ(tavsZero_64f(d, -1), tavStsSizeErr);
    EXPECT_EQ(tavsCopy_32f(nullptr, f, 0), tavStsNullPtrErr);
    EXPECT_EQ(tavsCopy_64f(d, nullptr, 0), tavStsNullPtrErr);
    EXPECT_EQ(tavsCopy_32f(f, f + 1, 0), tavStsSizeErr);
    EXPECT_EQ(f[1], 2);
    EXPECT_EQ(d[0], 1);
}

constexpr int kZeroSizes[] = {1,   2,   3,    7,    8,    15,    31,    63,    64,   65,
                              100, 127, 1000, 8191, 8192, 20479, 20480, 20481, 50001};

TEST(SignalMemory, ZeroClearsTheRangeAlone) {
    for (int bytes : kZeroSizes)
        for (size_t offset = 0; offset < 17; ++offset) {
            Guarded<unsigned char> block(bytes, offset);
            ASSERT_EQ(tavsZero_8u(block.data(), bytes), tavStsNoErr);
            ASSERT_EQ(std::count(block.begin(), block.end(), 0), bytes) << offset;
            ASSERT_TRUE(block.intact()) << bytes << " bytes at offset " << offset;
        }
    for (int count : {2559, 2560, 5119, 5120}) {
        Guarded<float> f(count, 4);
        Guarded<double> d(count, 4);
        EXPECT_EQ(tavsZero_32f(f.data(), count), tavStsNoErr);
        EXPECT_EQ(tavsZero_64f(d.data(), count), tavStsNoErr);
        EXPECT_EQ(std::count(f.begin(), f.end(), 0), count);
        EXPECT_EQ(std::count(d.begin(), d.end(), 0), count);
        EXPECT_TRUE(f.intact() && d.intact());
    }
}

// 2 GiB and more of address space over a little memory, mapped again and again, and one page of its own
// behind that.
class Vast {
public:
    static constexpr size_t kPart = size_t{1} << 25, kParts = 64, kPage = 4096;

    Vast() : file_(memfd_create("vast", 0)) {
        void* const room = mmap(nullptr, kParts * kPart + kPage, PROT_READ | PROT_WRITE,
                                MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (room == MAP_FAILED || ftruncate(file_, kPart) != 0) return;
        bytes_ = static_cast<unsigned char*>(room);
        for (size_t i = 0; i < kParts; ++i)
            mmap(bytes_ + i * kPart, kPart, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file_,
                 0);
        std::memset(bytes_, 0xff, kPart);
        std::memset(page(), 0xff, kPage);
    }
    ~Vast() {
        if (bytes_) munmap(bytes_, kParts * kPart + kPage);
        close(file_);
    }
    Vast(const Vast&) = delete;
    Vast& operator=(const Vast&) = delete;
    unsigned char* bytes() const { return bytes_; } // null if the address space is too small
    unsigned char* page() const {                   // beyond what a pointer of C++ can be moved by
        return reinterpret_cast<unsigned char*>(reinterpret_cast<uintptr_t>(bytes_) +
                                                kParts * kPart);
    }

private:
    int file_;
    unsigned char* bytes_ = nullptr;
};

TEST(SignalMemory, ZeroClearsMoreThan2GiB) {
    const Vast vast;
    if (!vast.bytes()) GTEST_SKIP() << "no 2 GiB of address space";
    constexpr int kCount = Vast::kParts * Vast::kPart / sizeof(double);
    ASSERT_EQ(tavsZero_64f(reinterpret_cast<double*>(vast.bytes()), kCount + 1), tavStsNoErr);
    EXPECT_EQ(std::count(vast.bytes(), vast.bytes() + Vast::kPart, 0), Vast::kPart);
    EXPECT_EQ(std::count(vast.page(), vast.page() + Vast::kPage, 0), 8);
}

// Random bits, signalling NaNs among them: a copy carries them unchanged.
template <class T>
void expect_exact_copy(TavStatus (*copy)(const T*, T*, int), int count, size_t from, size_t to) {
    Random random(count);
    Guarded<T> source(count, from), destination(count, to);
    const size_t bytes = count * sizeof(T);
    for (size_t i = 0; i < bytes; ++i)
        reinterpret_cast<unsigned char*>(source.data())[i] = random.bits() >> 33;
    const std::vector<unsigned char> before(reinterpret_cast<unsigned char*>(source.data()),
                                            reinterpret_cast<unsigned char*>(source.data()) +
                                                bytes);
    ASSERT_EQ(copy(source.data(), destination.data(), count), tavStsNoErr);
    ASSERT_EQ(std::memcmp(destination.data(), before.data(), bytes), 0)
        << count << " elements, offsets " << from << " and " << to;
    ASSERT_EQ(std::memcmp(source.data(), before.data(), bytes), 0);
    ASSERT_TRUE(destination.intact() && source.intact()) << count << ' ' << from << ' ' << to;
}

TEST(SignalMemory, CopyTakesTheRangeAloneAtEveryAlignment) {
    for (size_t from = 0; from < 16; ++from)
        for (size_t to = 0; to < 16; ++to) {
            for (int count : {1, 2, 3, 15, 16, 17, 20, 33, 2047, 2048, 4095, 4096, 5121, 9001})
                expect_exact_copy(tavsCopy_32f, count, from, to);
            for (int count : {1, 2, 8, 9, 1023, 1024, 2047, 2048, 6000})
                expect_exact_copy(tavsCopy_64f, count, from, to);
        }
}

TEST(SignalMemory, LeavesTheFloatingPointStateUsable) {
    std::vector<float> a(10000, 1.5f), b(10000);
    for (int count : {10, 2048, 10000}) {
        tavsCopy_32f(a.data(), b.data(), count);
        tavsZero_32f(a.data() + 1, count - 1);
        volatile long double x = count, y = 3;
        EXPECT_EQ(static_cast<double>(x * y), 3.0 * count);
    }
}

} // namespace
} // namespace vor::test

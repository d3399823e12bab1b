// Records and their memory: room, the replaceable allocator, what happens when memory ends, what is
// given back.
#include "tests/common/allocations.h"
#include "tests/gmp/boxes.h"
#include "tests/gmp/operations.h"
#include "vor_service.h"

#include <csetjmp>

namespace vor::test {
namespace {

TEST(Record, RoomAtTheStart) {
    const std::pair<unsigned, int> requests[] = {{0, 8}, {256, 8}, {257, 9}, {320, 10}, {321, 11}};
    for (const auto& [bits, limbs] : requests) {
        vor_mpz array[2];
        __gmpz_array_init(array, 2, bits);
        for (vor_mpz& x : array) {
            EXPECT_EQ(x._mp_alloc, limbs) << bits;
            EXPECT_EQ(x._mp_size, 0);
            EXPECT_EQ(std::count(x._mp_d, x._mp_d + limbs, 0u), limbs);
            EXPECT_EQ(reinterpret_cast<uintptr_t>(x._mp_d) % 32, 0u);
            __gmpz_clear(&x);
        }
    }
    EXPECT_TRUE(_impBits2Chars(0) == 1 && _impBits2Chars(8) == 1 && _impBits2Chars(9) == 2);
    EXPECT_TRUE(_impBits2Chunks(0) == 1 && _impBits2Chunks(32) == 1 && _impBits2Chunks(33) == 2);
}

TEST(Record, Realloc) {
    const Int twelve("-rnd(3,384)"), two("ffffffffffffffff");
    Z x(twelve), small(two);
    const auto expect = [](Z& z, int room, const Int& value) {
        EXPECT_EQ(z->_mp_alloc, room);
        EXPECT_EQ(z.value(), value);
    };
    EXPECT_EQ(__gmpz_realloc(x, 16), 0);
    expect(x, 16, twelve);
    __gmpz_realloc(x, 10); // cuts the value, keeps the room
    expect(x, 16, Int(twelve.words.data(), 10, true));
    for (int i = 10; i < 16; ++i) EXPECT_EQ(x->_mp_d[i], 0u);
    __gmpz_realloc(small, 3);
    expect(small, 8, two);
    // What stands above the value never becomes part of it.
    Z cut(Int("bit(288)"));
    cut->_mp_d[8] = 0;
    cut->_mp_d[3] = 7;
    __gmpz_realloc(cut, 8);
    EXPECT_EQ(cut.value(), Int("7*bit(96)"));
    cut->_mp_size = 5; // zero on top
    __gmpz_realloc2(cut, 640);
    expect(cut, 20, Int("7*bit(96)"));

    __gmpz_realloc2(x, 640);
    expect(x, 20, Int(twelve.words.data(), 10, true));
    __gmpz_realloc2(x, 320);
    expect(x, 10, Int(twelve.words.data(), 10, true));
    __gmpz_realloc2(x, 32); // does not fit
    expect(x, 8, Int(0));
    __gmpz_realloc2(small, 32);
    expect(small, 8, Int(0));
}

TEST(Record, ZerosAboveTheValue) {
    const auto expect = [](const std::function<void(vor_mpz*, vor_mpz*)>& f) {
        Z r(Int("ones(600)")), x(Int(5));
        f(r, x);
        for (int i = __gmpz_size(r); i < r->_mp_alloc; ++i) EXPECT_EQ(r->_mp_d[i], 0u) << i;
    };
    expect([](vor_mpz* r, vor_mpz* x) { __gmpz_set(r, x); });
    expect([](vor_mpz* r, vor_mpz* x) { __gmpz_neg(r, x); });
    expect([](vor_mpz* r, vor_mpz* x) { __gmpz_mul_2exp(r, x, 40); });
    expect([](vor_mpz* r, vor_mpz* x) { vor_gmp_divqr_2exp(r, x, x, 1); });
    expect([](vor_mpz* r, vor_mpz* x) { vor_gmp_divqr_2exp(x, r, x, 1); });
    vor_randstate state;
    __gmp_randinit_default(&state);
    expect([&](vor_mpz* r, vor_mpz*) { __gmpz_urandomb(r, &state, 40); });
    expect([&](vor_mpz* r, vor_mpz*) { __gmpz_rrandomb(r, &state, 40); });
    __gmp_randclear(&state);
}

TEST(Record, ToleratesASingleZeroLimb) {
    Z x, y(Int(-1));
    x->_mp_d[0] = 0;
    x->_mp_size = 1;
    EXPECT_EQ(__gmpz_sgn(x), 0);
    EXPECT_EQ(__gmpz_cmp(x, y), 1);
    EXPECT_EQ(__gmpz_cmp_ui(x, 0), 0);
    EXPECT_EQ(__gmpz_sizeinbase(x, 2), 1u);
    EXPECT_EQ(x->_mp_size, 0) << "dropped from the record";
}

TEST(Blocks, LayoutAndMoves) {
    auto* p = static_cast<unsigned char*>(__gmp_default_allocate(100));
    EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 32, 0u);
    uint32_t size;
    std::memcpy(&size, p - 4, 4);
    EXPECT_EQ(size, 100u);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(p - 5 - p[-5]) % 8, 0u) << "the C library's block";
    std::memset(p, 0x5a, 100);
    auto* q = static_cast<unsigned char*>(__gmp_default_reallocate(p, 1, 40)); // 1 is not read
    EXPECT_TRUE(std::all_of(q, q + 40, [](unsigned char c) { return c == 0x5a; }));
    q = static_cast<unsigned char*>(_impRealloc(q, 1000));
    EXPECT_TRUE(std::all_of(q, q + 40, [](unsigned char c) { return c == 0x5a; }));
    __gmp_default_free(q, 0);
    void* fresh = __gmp_default_reallocate(nullptr, 0, 8);
    EXPECT_NE(fresh, nullptr);
    _impFree(fresh);
    EXPECT_EQ(_impMalloc(~0u), nullptr) << "the size with its header does not fit 32 bits";

    uint32_t guarded[5] = {0x27182818, 8, 0, 0, 0x31415926};
    EXPECT_EQ(_impCheckMemoryBlock(guarded + 2), 0);
    guarded[4] = 0;
    EXPECT_EQ(_impCheckMemoryBlock(guarded + 2), 1);
    guarded[0] = 0;
    EXPECT_EQ(_impCheckMemoryBlock(guarded + 2), -1);
}

TEST(Blocks, Scratch) {
    Allocations allocations;
    for (const auto release : {_impTmpFree, _impTmpMark, _impTmpMark}) {
        EXPECT_NE(_impTmpMalloc(50), nullptr);
        EXPECT_EQ(allocations.live(), 1);
        release();
        EXPECT_EQ(allocations.live(), 0);
        release();
    }
}

// A program's own functions receive every block with the size it was asked for.
long blocks;
size_t bytes;

void* counted_allocate(unsigned size) {
    ++blocks;
    bytes += size;
    return std::malloc(size);
}

void* counted_reallocate(void* block, unsigned old_size, unsigned size) {
    bytes += size - old_size;
    return std::realloc(block, size);
}

void counted_free(void* block, unsigned size) {
    --blocks;
    bytes -= size;
    std::free(block);
}

TEST(Blocks, ReplacedFunctions) {
    const auto allocate = __gmp_allocate_func_ptr();
    const auto reallocate = __gmp_reallocate_func_ptr();
    const auto deallocate = __gmp_free_func_ptr();
    __gmp_set_memory_functions(counted_allocate, counted_reallocate, counted_free);
    EXPECT_EQ(__gmp_allocate_func_ptr(), counted_allocate);
    EXPECT_EQ(__gmp_reallocate_func_ptr(), counted_reallocate);
    EXPECT_EQ(__gmp_free_func_ptr(), counted_free);
    Allocations allocations;
    {
        Z a(Int("rnd(1,20000)")), b(Int("rnd(2,9000)")), q, r;
        __gmpz_tdiv_qr(q, r, a, b);
        __gmpz_mul(q, q, b);
        __gmpz_addmul_ui(q, r, 1);
        EXPECT_EQ(q.value(), a.value());
        EXPECT_GT(blocks, 0);
    }
    EXPECT_EQ(allocations.calls(), 0);
    EXPECT_EQ(blocks, 0);
    EXPECT_EQ(bytes, 0u);
    __gmp_set_memory_functions(allocate, reallocate, deallocate);
}

// ---- An allocator that leaves by a jump ------------------------------------------------------------

jmp_buf refusal;

void* refuse(unsigned) {
    longjmp(refusal, 1);
}

bool refused(const std::function<void()>& call) {
    __gmp_set_memory_functions(refuse, __gmp_default_reallocate, __gmp_default_free);
    const bool jumped = setjmp(refusal) != 0;
    if (!jumped) call();
    __gmp_set_memory_functions(__gmp_default_allocate, __gmp_default_reallocate,
                               __gmp_default_free);
    return jumped;
}

// It finds the operands, which are results at once, as they were.
TEST(Blocks, NothingIsWrittenBeforeTheRoomIsThere) {
    const std::pair<const char*, std::function<void(vor_mpz*)>> calls[] = {
        {"setbit of a negative", [](auto* x) { __gmpz_setbit(x, 1000); }},
        {"clrbit of a negative", [](auto* x) { __gmpz_clrbit(x, 1000); }},
        {"clrbit with a carry", [](auto* x) { __gmpz_clrbit(x, 0); }},
        {"fdiv_q_2exp", [](auto* x) { __gmpz_fdiv_q_2exp(x, x, 3); }},
        {"fdiv_r_2exp", [](auto* x) { __gmpz_fdiv_r_2exp(x, x, 1000); }},
        {"fdiv_q", [](auto* x) { __gmpz_fdiv_q(x, x, Z(Int(7))); }},
        {"fdiv_qr_ui",
         [](auto* x) {
             Z r;
             __gmpz_fdiv_qr_ui(x, r, x, 7);
         }},
        {"addmul_ui", [](auto* x) { __gmpz_addmul_ui(x, x, ~0u); }},
        {"com", [](auto* x) { __gmpz_com(x, x); }},
    };
    const Int value("-ones(256)"); // fills the room of 8 limbs
    for (const auto& [name, call] : calls) {
        SCOPED_TRACE(name);
        Z x(value);
        if (refused([&, &f = call] { f(x); })) {
            EXPECT_EQ(x.value(), value);
        }
    }
}

// One line names the size, and the process aborts.
using MemoryDeathTest = ::testing::Test;

TEST(MemoryDeathTest, NamesTheSize) {
    Z a(Int("ones(320)"));
    mpz_t x;
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"^vor: integers: out of memory, 32 bytes\n$", [&] { __gmpz_init(x); }},
        {" 536870912 bytes", [&] { __gmpz_init2(x, ~0u); }},
        {" 44 bytes", [&] { __gmpz_add(a, a, a); }},
        {" 536870952 bytes", [&] { __gmpz_mul_2exp(a, a, ~0u); }},
        {" 8589934588 bytes", [&] { __gmpz_realloc(a, INT32_MAX); }},
        {" 77 bytes", [&] { _impTmpMalloc(77); }},
    };
    for (const auto& [message, call] : cases) {
        const auto without_memory = [&, &f = call] {
            Allocations allocations;
            allocations.fail_from(1);
            f();
        };
        EXPECT_EXIT(without_memory(), ::testing::KilledBySignal(SIGABRT), message);
    }
    EXPECT_EXIT(__gmpz_random(a, INT32_MAX), ::testing::KilledBySignal(SIGABRT),
                " 8589934588 bytes");
}

// Whichever allocation of an operation fails, the process ends by the report, not by a fault.
TEST(MemoryDeathTest, AtEveryAllocation) {
    const Int n("rnd(1,20000)"), d("rnd(2,9000)");
    const std::function<void(vor_mpz*, vor_mpz*)> calls[] = {
        [](auto* x, auto* y) { __gmpz_fdiv_qr(x, y, x, y); },
        // A short quotient.
        [](auto* x, auto* y) { __gmpz_mul_2exp(y, y, 10900), __gmpz_tdiv_qr(x, y, x, y); },
        [](auto* x, auto* y) { __gmpz_mul(x, x, y); },
        [](auto* x, auto* y) { __gmpz_pow_ui(x, y, 3); },
        [](auto* x, auto* y) { __gmpz_hamdist(x, y); },
        [](auto* x, auto*) { __gmpz_random2(x, 900); },
        [](auto* x, auto* y) { __gmpz_gcdext(x, y, nullptr, x, y); },
        [](auto* x, auto* y) { __gmpz_setbit(y, 0), __gmpz_powm_ui(x, x, 5, y); },
        [](auto* x, auto* y) { __gmpz_set_ui(y, 96), __gmpz_powm_ui(x, x, 5, y); },
        [](auto* x, auto*) { __gmpz_set_ui(x, 4294967291u), __gmpz_probab_prime_p(x, 1); },
        [](auto* x, auto*) { __gmpz_root(x, x, 3); },
        [](auto* x, auto* y) { __gmpz_sqrtrem(x, y, x); },
        [](auto* x, auto*) { __gmpz_fac_ui(x, 2000); },
        [](auto* x, auto*) { __gmpz_bin_uiui(x, 2000, 700); },
        [](auto* x, auto*) { __gmpz_lucnum_ui(x, 3000); },
        [](auto* x, auto*) { __gmp_default_free(__gmpz_get_str(nullptr, 10, x), 0); },
        [](auto* x, auto*) { __gmpz_set_str(x, std::string(3000, '7').c_str(), 10); },
        [](auto* x, auto*) {
            __gmp_default_free(__gmpz_export(nullptr, nullptr, 1, 3, 1, 0, x), 0);
        },
        [](auto* x, auto*) {
            FILE* const file =
                fmemopen(const_cast<char*>("\0\0\0\3abc 12345678901234567890"), 28, "r");
            __gmpz_inp_raw(x, file);
            __gmpz_inp_str(x, file, 10);
            fclose(file);
        },
    };
    for (const auto& call : calls) {
        const auto allocated = [&](long failing) {
            Z x(n), y(d);
            Allocations allocations;
            allocations.fail_at(failing);
            call(x, y);
            return allocations.calls();
        };
        const long count = allocated(0);
        EXPECT_GT(count, 0);
        for (long k = 1; k <= count; ++k)
            EXPECT_EXIT(allocated(k), ::testing::KilledBySignal(SIGABRT),
                        "^vor: .*out of memory, [0-9]+ bytes\n$")
                << "call " << &call - calls << ", allocation " << k;
    }
}

// Whatever allocation of the transforms fails: another method gives the same product.
TEST(Blocks, WithoutMemoryForTransforms) {
    const int n = 4100;
    const Int a("ones(131200)"), b("rnd(1,131200)");
    std::vector<uint32_t> want(2 * n), got(2 * n);
    vor_gmp_mul_dft(a.words.data(), n, b.words.data(), n, want.data());
    for (long k = 1;; ++k) {
        vor_freebuffers();
        Allocations allocations;
        allocations.fail_at(k);
        vor_gmp_mul_dft(a.words.data(), n, b.words.data(), n, got.data());
        ASSERT_EQ(got, want) << "allocation " << k;
        if (!allocations.failed()) break;
        ASSERT_LT(k, 100);
    }
}

// Every operation of the table gives back what it takes, but for what the transforms keep.
TEST(Blocks, NothingIsKept) {
    std::map<std::string, int> runs;
    vor_freebuffers();
    Allocations allocations;
    for_each_case([&](const std::string& line) {
        const std::string name = line.substr(0, line.find(' '));
        if (name == "dft_product" || runs[name] == 100) return;
        ++runs[name];
        run_case(line);
        vor_freebuffers();
        ASSERT_EQ(allocations.live(), 0) << line.substr(0, 300);
    });
    __gmpz_random(Z(), 5);
    EXPECT_EQ(allocations.live(), 0);
}

} // namespace
} // namespace vor::test

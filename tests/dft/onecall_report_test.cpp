// Reports of the one-call transforms: each argument of each list, in the order of the tests; calls with nothing
// to do; lost memory. After a report the data are as they were.
#include "tests/blas/reports.h"
#include "tests/common/allocations.h"
#include "tests/dft/onecall.h"
#include "vor_service.h"

#include <functional>
#include <omp.h>

namespace {

using namespace vor::test;

enum Shape { vector, split_vector, plane, split_plane, real_vector, real_plane };

// What a call is given.
struct Given {
    int m = 8, n = 8, isign = -1;
    bool first = true, second = true, wsave = true; // present
    int filled_for = 8;                             // the length that wsave was filled for
};

// A routine with all arguments that any of them has. Split planes of reals give what their check gave.
using Call = std::function<int(void* a, void* b, const Given&, void* wsave)>;

struct Member {
    const char* name; // as it is reported
    Shape shape;
    size_t word;
    Call call;
};

#define MEMBER(name, shape, R, ...)                                                                \
    {                                                                                              \
        name, shape, sizeof(R),                                                                    \
            []([[maybe_unused]] void* a, [[maybe_unused]] void* b, const Given& g,                 \
               [[maybe_unused]] void* w) {                                                         \
                using Real [[maybe_unused]] = R;                                                   \
                return __VA_ARGS__;                                                                \
            }                                                                                      \
    }
#define REALS(p) static_cast<Real*>(p)
#define PAIRS(p) static_cast<vor::complex_t<Real>*>(p)
#define VECTOR(name, f, R) MEMBER(name, vector, R, (f(PAIRS(a), &g.n, &g.isign, REALS(w)), 0))
#define VECTORC(name, f, R)                                                                        \
    MEMBER(name, split_vector, R, (f(REALS(a), REALS(b), g.n, g.isign, REALS(w)), 0))
#define PLANE(name, f, R) MEMBER(name, plane, R, (f(PAIRS(a), &g.m, &g.n, &g.isign), 0))
#define PLANEC(name, f, R)                                                                         \
    MEMBER(name, split_plane, R, (f(REALS(a), REALS(b), g.m, g.n, g.isign), 0))
#define REAL(name, f, R) MEMBER(name, real_vector, R, (f(REALS(a), &g.n, &g.isign, REALS(w)), 0))
#define REALC(name, f, R) MEMBER(name, real_vector, R, (f(REALS(a), g.n, g.isign, REALS(w)), 0))
#define REAL_PLANE(name, f, R) MEMBER(name, real_plane, R, (f(REALS(a), &g.m, &g.n), 0))
#define REAL_PLANEC(name, f, R) MEMBER(name, real_plane, R, f(REALS(a), g.m, g.n))

const Member kMembers[] = {
    VECTOR("CFFT1D  ", cfft1d, float),         VECTOR("ZFFT1D  ", ZFFT1D, double),
    VECTORC("CFFT1DC", cfft1dc_, float),       VECTORC("ZFFT1DC", ZFFT1DC_, double),
    PLANE("CFFT2D  ", CFFT2D, float),          PLANE("ZFFT2D  ", zfft2d_, double),
    PLANEC("CFFT2DC", cfft2dc, float),         PLANEC("ZFFT2DC", zfft2dc, double),
    REAL("SCFFT1D ", scfft1d, float),          REAL("DZFFT1D ", dzfft1d, double),
    REAL("CSFFT1D ", csfft1d, float),          REAL("ZDFFT1D ", zdfft1d, double),
    REALC("SCFFT1DC", scfft1dc, float),        REALC("DZFFT1DC", dzfft1dc, double),
    REALC("CSFFT1DC", csfft1dc, float),        REALC("ZDFFT1DC", zdfft1dc, double),
    REAL_PLANE("SCFFT2D ", scfft2d, float),    REAL_PLANE("DZFFT2D ", dzfft2d, double),
    REAL_PLANE("CSFFT2D ", csfft2d, float),    REAL_PLANE("ZDFFT2D ", zdfft2d, double),
    REAL_PLANEC("SCFFT2DC", scfft2dc, float),  REAL_PLANEC("DZFFT2DC", dzfft2dc, double),
    REAL_PLANEC("CSFFT2DC", csfft2dc_, float), REAL_PLANEC("ZDFFT2DC", ZDFFT2DC, double),
};

// Faults in the order of the tests, with the argument that is reported.
struct Fault {
    std::function<void(Given&)> make;
    int number;
};
std::vector<Fault> faults_of(Shape shape) {
    const auto m = [](int value) { return [=](Given& g) { g.m = value; }; };
    const auto n = [](int value) { return [=](Given& g) { g.n = value; }; };
    const auto isign = [](int value) { return [=](Given& g) { g.isign = value; }; };
    const auto no_first = [](Given& g) { g.first = false; };
    const auto no_second = [](Given& g) { g.second = false; };
    const auto no_wsave = [](Given& g) { g.wsave = false; };
    const auto filled = [](int length) { return [=](Given& g) { g.filled_for = length; }; };
    switch (shape) {
    case vector:
    case real_vector:
        return {{n(3), 2},     {n(-8), 2},      {n(12), 2},     {isign(3), 3}, {isign(-3), 3},
                {no_wsave, 4}, {filled(16), 4}, {filled(4), 4}, {no_first, 1}};
    case split_vector:
        return {{n(3), 3},     {n(-8), 3},      {n(12), 3},     {isign(3), 4}, {isign(-3), 4},
                {no_wsave, 5}, {filled(16), 5}, {filled(4), 5}, {no_first, 1}, {no_second, 2}};
    case plane:
        return {{m(0), 2},  {m(-1), 2},    {m(7), 2},     {n(0), 3},      {n(-8), 3},
                {n(24), 3}, {isign(0), 4}, {isign(3), 4}, {isign(-5), 4}, {no_first, 1}};
    case split_plane:
        return {{m(0), 3},     {m(7), 3},      {n(0), 4},     {n(-8), 4},
                {isign(3), 5}, {isign(-3), 5}, {no_first, 1}, {no_second, 2}};
    case real_plane:
        return {{m(0), 2}, {m(-4), 2}, {m(6), 2}, {n(0), 3}, {n(9), 3}, {no_first, 1}};
    }
    return {};
}

class OneCallReports : public ::testing::Test {
protected:
    static constexpr size_t kBytes = 1 << 16;
    static constexpr char kData = 1; // small numbers in either precision

    int run(const Member& member, const Given& g) {
        std::vector<char> a(kBytes, kData), b(kBytes, kData), wsave(kBytes, 0);
        const bool has_wsave =
            member.shape == vector || member.shape == split_vector || member.shape == real_vector;
        if (has_wsave) member.call(a.data(), b.data(), {8, g.filled_for, 0}, wsave.data());
        const int result = member.call(g.first ? a.data() : nullptr, g.second ? b.data() : nullptr,
                                       g, g.wsave ? wsave.data() : nullptr);
        const auto untouched = [](char c) { return c == kData; };
        untouched_ = std::all_of(a.begin(), a.end(), untouched) &&
                     std::all_of(b.begin(), b.end(), untouched);
        return result;
    }
    Reports reports_;
    bool untouched_ = false;
};

TEST_F(OneCallReports, NameTheFirstOfTwoFaults) {
    omp_set_num_threads(1);
    for (const Member& member : kMembers) {
        SCOPED_TRACE(member.name);
        const bool gives_check = std::string(member.name).find("FFT2DC") != std::string::npos &&
                                 member.shape == real_plane;
        EXPECT_EQ(run(member, {}), 0);
        EXPECT_EQ(reports_.take(), std::vector<Report>{});
        EXPECT_FALSE(untouched_);
        const auto faults = faults_of(member.shape);
        for (size_t i = 0; i < faults.size(); ++i)
            for (size_t j = faults.size(); j-- > i;) {
                Given g;
                faults[j].make(g);
                faults[i].make(g);
                EXPECT_EQ(run(member, g), gives_check ? 1 : 0);
                EXPECT_EQ(reports_.take(), (std::vector<Report>{{member.name, faults[i].number}}))
                    << i << " " << j;
                EXPECT_TRUE(untouched_);
            }
    }
}

// Lengths 0 and 1 of a vector end the call before anything else is looked at.
TEST_F(OneCallReports, NothingToDo) {
    for (const Member& member : kMembers)
        for (int n : {0, 1}) {
            if (member.shape == plane || member.shape == split_plane || member.shape == real_plane)
                continue;
            EXPECT_EQ(member.call(nullptr, nullptr, {8, n, 9}, nullptr), 0);
            EXPECT_EQ(reports_.take(), std::vector<Report>{}) << member.name;
        }
}

// The k-th allocation fails, for every k: one report of condition 0, and nothing is kept. `silent` allocations
// make no call fail.
TEST_F(OneCallReports, LostMemory) {
    const auto lost = [&](const Member& member, const Given& g, const std::string& name) {
        SCOPED_TRACE(::testing::Message() << member.name << " " << g.m << " by " << g.n);
        std::vector<char> a(kBytes * 64, kData), b(a), wsave(kBytes * 8, 0);
        const bool has_wsave = member.shape == real_vector;
        if (has_wsave) member.call(a.data(), b.data(), {8, g.n, 0}, wsave.data());
        VOR_FreeBuffers();
        Allocations allocations;
        for (long k = 1; k == 1 || allocations.failed(); ++k) {
            VOR_FreeBuffers();
            allocations.fail_at(k);
            member.call(a.data(), b.data(), g, wsave.data());
            const auto reports = reports_.take();
            const auto want =
                allocations.failed() ? std::vector<Report>{{name, 0}} : std::vector<Report>{};
            EXPECT_EQ(reports, want) << k << " " << (reports.empty() ? "" : reports[0].name);
            ASSERT_LT(k, 20);
        }
        VOR_FreeBuffers();
        EXPECT_EQ(allocations.live(), 0);
    };
    for (const Member& member : kMembers) {
        const std::string name(member.name, std::char_traits<char>::length(member.name));
        const bool real = member.shape == real_vector || member.shape == real_plane;
        const bool split = name.back() == 'C';
        omp_set_num_threads(1);
        if (member.shape == real_vector && split) lost(member, {1, 8}, name + '\0');
        if (member.shape != plane && member.shape != split_plane && member.shape != real_plane)
            continue;
        std::string serial = split ? name : "X" + name; // the engine's name
        if (!split) serial.resize(8, ' ');
        lost(member, {8, 8}, serial);
        lost(member, {2, 4}, serial);
        omp_set_num_threads(2); // the team reports under the driver's name
        std::string driver = name;
        while (!split && !real && driver.size() > 7) driver.pop_back();
        lost(member, {64, 64}, driver);
        omp_set_num_threads(1);
    }
}

} // namespace

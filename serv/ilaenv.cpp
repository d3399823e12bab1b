// ilaenv: the tuning of block algorithms, by routine name and problem size.
//
// A name has six characters, T c2 c2 c3 c3 c3: element type, kind of matrix, operation. What a
// question is answered with stands in one table for each question; a name that no row matches gets
// the question's default, and a first letter that is no element type gets 1. The sizes are read only
// where an answer depends on them.
#include "serv/entry.h"
#include "serv/lsame.h"

#include <limits.h>
#include <string.h>

namespace {

struct Question {
    char type, c2[3], c3[4]; // the parts of the name in upper case, the last two terminated
    const char* opts;
    const int *n1, *n2, *n4;

    bool real() const { return type == 'S' || type == 'D'; }
    bool complex() const { return type == 'C' || type == 'Z'; }
};

// value for sizes up to limit
struct Step {
    int limit, value;
};

template <size_t n>
int step_value(int size, const Step (&steps)[n]) {
    const Step* step = steps;
    while (size > step->limit) ++step; // the last limit is INT_MAX
    return step->value;
}

// opts begins with a capital P: the options are for several processors.
bool parallel(const char* opts) {
    return *opts == 'P';
}

int qr_block(const Question& q) {
    static constexpr Step kSerial[] = {{300, 16},  {350, 24},  {800, 48},
                                       {1150, 64}, {3400, 96}, {INT_MAX, 128}};
    static constexpr Step kParallel[] = {{200, 8},  {400, 16},  {550, 32},
                                         {800, 48}, {1350, 64}, {INT_MAX, 96}};
    return parallel(q.opts) ? step_value(*q.n2, kParallel) : step_value(*q.n2, kSerial);
}

int qr_crossover(const Question& q) {
    const int n1 = *q.n1, n2 = *q.n2;
    if (n2 <= 8) return 128;
    // The product of the sizes wraps at 32 bits.
    const int area = static_cast<int>(static_cast<unsigned>(n1) * static_cast<unsigned>(n2));
    if (q.type == 'S' && n1 <= 4000 && area <= 25000) return 256;
    if (n1 <= 4000 && area <= 12500) return 128;
    return 8;
}

// The QR iteration on bidiagonal and tridiagonal matrices.
int qr_iteration_block(const Question& q) {
    static constexpr Step kOneVector[] = {{210, 4},    {260, 100},  {450, 120},    {1000, 140},
                                          {2200, 160}, {4000, 180}, {INT_MAX, 200}};
    static constexpr Step kVectors[] = {{210, 4},    {630, 100},  {1100, 140},
                                        {2500, 160}, {6200, 180}, {INT_MAX, 200}};
    return *q.n2 == 1 ? step_value(*q.n1, kOneVector) : step_value(*q.n1, kVectors);
}

int general_band_block(const Question& q) {
    return *q.n4 <= 64 ? 1 : 32;
}

int positive_band_block(const Question& q) {
    return *q.n2 <= 64 ? 1 : 32;
}

int auxiliary_qr_block(const Question& q) {
    return *q.n1 <= 350 ? *q.n2 : 16;
}

enum class Types { all, real, complex };

struct Row {
    const char* c2;
    const char* c3; // alternatives, separated by blanks; '?' is any character
    Types types;
    int value;
    int (*rule)(const Question&) = nullptr; // in place of the value
};

constexpr char kGenerateQ[] = "GQR GRQ GLQ GQL GHR GTR GBR";
constexpr char kMultiplyByQ[] = "MQR MRQ MLQ MQL MHR MTR MBR";
constexpr char kReductions[] = "RQF LQF QLF HRD BRD"; // those that go by a fixed block

constexpr Row kBlockSize[] = {
    {"GE", "QRF", Types::all, 0, qr_block},
    {"GE", kReductions, Types::all, 32},
    {"GE", "TRI TRF", Types::all, 64},
    {"PO", "TRF", Types::all, 64},
    {"SY", "TRF", Types::all, 64},
    {"SY", "TRD GST", Types::real, 64},
    {"HE", "TRF TRD GST", Types::complex, 64},
    {"OR", kGenerateQ, Types::real, 32},
    {"OR", kMultiplyByQ, Types::real, 32},
    {"UN", kGenerateQ, Types::complex, 32},
    {"UN", kMultiplyByQ, Types::complex, 32},
    {"GB", "TRF", Types::all, 0, general_band_block},
    {"PB", "TRF", Types::all, 0, positive_band_block},
    {"TR", "TRI", Types::all, 64},
    {"LA", "QRF", Types::all, 0, auxiliary_qr_block},
    {"LA", "UUM", Types::all, 64},
    {"BD", "?QR", Types::all, 0, qr_iteration_block},
    {"ST", "?QR", Types::all, 0, qr_iteration_block},
};

constexpr Row kSmallestBlock[] = {
    {"SY", "TRF", Types::all, 8},
};

constexpr Row kCrossover[] = {
    {"GE", "QRF", Types::all, 0, qr_crossover},
    {"GE", kReductions, Types::all, 32},
    {"SY", "TRD", Types::real, 32},
    {"HE", "TRD", Types::complex, 32},
    {"OR", kGenerateQ, Types::real, 32},
    {"UN", kGenerateQ, Types::complex, 32},
    {"BD", "?QR", Types::all, 210},
    {"ST", "?QR", Types::all, 210},
};

bool is_among(const char* c3, const char* alternatives) {
    const auto fits = [](char c, char pattern) { return pattern == '?' || c == pattern; };
    for (const char* a = alternatives;; a += 4) {
        if (fits(c3[0], a[0]) && fits(c3[1], a[1]) && fits(c3[2], a[2])) return true;
        if (a[3] == '\0') return false;
    }
}

bool matches(const Question& q, const Row& row) {
    if (row.types == Types::real && !q.real()) return false;
    if (row.types == Types::complex && !q.complex()) return false;
    return strcmp(q.c2, row.c2) == 0 && is_among(q.c3, row.c3);
}

template <size_t n>
int look_up(const Question& q, const Row (&table)[n], int otherwise) {
    if (!q.real() && !q.complex()) return 1;
    for (const Row& row : table)
        if (matches(q, row)) return row.rule ? row.rule(q) : row.value;
    return otherwise;
}

// How long the longer side must be for a singular value problem to start with a QR factorisation:
// 1.6 times the shorter one. The product is extended and the constant a little above 1.6: 5 gives 8.
int singular_value_crossover(int n1, int n2) {
    const int smaller = n1 < n2 ? n1 : n2;
    return static_cast<int>(static_cast<long double>(smaller) * 1.6f);
}

int many_shifts(const char* opts, const int* n2) {
    static constexpr Step kParallel[] = {{400, 24},  {550, 32},   {800, 48},
                                         {1350, 64}, {19000, 96}, {INT_MAX, 128}};
    return parallel(opts) ? step_value(*n2, kParallel) : 16;
}

} // namespace

VOR_ENGINE int vor_serv_ilaenv(const int* ispec, const char* name, const char* opts, const int* n1,
                               const int* n2, const int*, const int* n4, int, int) {
    const auto question = [&] {
        const auto u = [&](int i) { return vor::upper(name[i]); };
        return Question{u(0), {u(1), u(2)}, {u(3), u(4), u(5)}, opts, n1, n2, n4};
    };
    switch (*ispec) {
    case 1:
        return look_up(question(), kBlockSize, 1);
    case 2:
        return look_up(question(), kSmallestBlock, 2);
    case 3:
        return look_up(question(), kCrossover, 0);
    case 4:
        return 6;
    case 5:
        return 2;
    case 6:
        return singular_value_crossover(*n1, *n2);
    case 7:
        return 1;
    case 8:
        return 50;
    case 9:
        return 25;
    case 10:
    case 11:
        return 0;
    case 12:
        return many_shifts(opts, n2);
    default:
        return -1;
    }
}

VOR_ENTRY(int, ilaenv, ILAENV, vor_serv_ilaenv,
          (const int* ispec, const char* name, const char* opts, const int* n1, const int* n2,
           const int* n3, const int* n4, int name_length, int opts_length),
          (ispec, name, opts, n1, n2, n3, n4, name_length, opts_length))

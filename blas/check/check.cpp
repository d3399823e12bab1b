// Argument checks of Level 2 and Level 3 (Dongarra, Du Croz, Hammarling, Hanson, ACM TOMS 14 (1988)
// 1-17; Dongarra, Du Croz, Duff, Hammarling, ACM TOMS 16 (1990) 1-17): a row of tests for each argument
// list.
#include "serv/check.h"
#include "blas/check/routines.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

constexpr char kUplo[] = "UL", kSide[] = "LR", kDiag[] = "UN", kTrans[] = "NTC";
constexpr char kPlain[] = "NT", kConjugated[] = "NC";

constexpr Test kGemm[] = {letter(1, kTrans),
                          letter(2, kTrans),
                          count(3),
                          count(4),
                          count(5),
                          leading_by(8, 1, 'N', 3, 5),
                          leading_by(10, 2, 'N', 5, 4),
                          leading(13, 3)};
constexpr Test kSymm[] = {
    letter(1, kSide), letter(2, kUplo), count(3), count(4), leading_by(7, 1, 'L', 3, 4),
    leading(9, 3),    leading(12, 3)};
constexpr Test kTrmm[] = {
    letter(1, kSide), letter(2, kUplo), letter(3, kTrans),           letter(4, kDiag),
    count(5),         count(6),         leading_by(9, 1, 'L', 5, 6), leading(11, 5)};

// Updates of rank k and 2k. A complex symmetric one has no conjugated form, a Hermitian one no form
// without.
template <const auto& trans>
constexpr Test kRankK[] = {
    letter(1, kUplo), letter(2, trans), count(3), count(4), leading_by(7, 2, 'N', 3, 4),
    leading(10, 3)};
template <const auto& trans>
constexpr Test kRank2k[] = {letter(1, kUplo),
                            letter(2, trans),
                            count(3),
                            count(4),
                            leading_by(7, 2, 'N', 3, 4),
                            leading_by(9, 2, 'N', 3, 4),
                            leading(12, 3)};

constexpr Test kGemv[] = {letter(1, kTrans), count(2), count(3), leading(6, 2), step(8), step(11)};
constexpr Test kGbmv[] = {letter(1, kTrans),     count(2), count(3), count(4), count(5),
                          leading_band(8, 4, 5), step(10), step(13)};
constexpr Test kGer[] = {count(1), count(2), step(5), step(7), leading(9, 1)};

constexpr Test kSymv[] = {letter(1, kUplo), count(2), leading(5, 2), step(7), step(10)};
constexpr Test kSbmv[] = {letter(1, kUplo),   count(2), count(3),
                          leading_band(6, 3), step(8),  step(11)};
constexpr Test kSpmv[] = {letter(1, kUplo), count(2), step(6), step(9)};
constexpr Test kSyr[] = {letter(1, kUplo), count(2), step(5), leading(7, 2)};
constexpr Test kSyr2[] = {letter(1, kUplo), count(2), step(5), step(7), leading(9, 2)};
constexpr Test kSpr[] = {letter(1, kUplo), count(2), step(5)};
constexpr Test kSpr2[] = {letter(1, kUplo), count(2), step(5), step(7)};

constexpr Test kTrmv[] = {letter(1, kUplo), letter(2, kTrans), letter(3, kDiag),
                          count(4),         leading(6, 4),     step(8)};
constexpr Test kTbmv[] = {letter(1, kUplo), letter(2, kTrans),  letter(3, kDiag), count(4),
                          count(5),         leading_band(7, 5), step(9)};
constexpr Test kTpmv[] = {letter(1, kUplo), letter(2, kTrans), letter(3, kDiag), count(4), step(7)};

} // namespace

#define CHECK(letter, op, check, T, tests, LIST, report)                                           \
    VOR_ENGINE int check PARAMS_##LIST(T) {                                                        \
        return Check{tests, report} ARGS_##LIST;                                                   \
    }
VOR_CHECKED_ROUTINES(CHECK)

} // namespace vor::blas

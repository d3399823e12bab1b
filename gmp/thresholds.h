// Where one method of multiplication or division takes over from another, in limbs.
#pragma once

namespace vor::gmp {

constexpr int kSchoolbookFactor = 24; // a shorter factor up to here goes by schoolbook
constexpr int kSchoolbookLength = 16; // below, recursion costs more than the products it saves
constexpr int kToomLength = 300;      // from here on four parts are faster than two
constexpr int kToomSquare = 300;      // the same for squares
constexpr int kFourierLength = 1100;  // from here on transforms are faster than Karatsuba's method
constexpr int kFourierSum = 1500;     // of unequal lengths: the sum, where the shorter one has
constexpr int kFourierFactor = 300;   // at least so many
constexpr int kFourierPiece = 6;      // times the shorter factor: longer ones are cut
constexpr int kKaratsubaSquare = 32;  // from here on, the same for squares; at most 33
constexpr int kFourierSquare = 1300;

constexpr int kRecursiveDivisor = 48;  // shorter divisors go by schoolbook
constexpr int kRecursiveQuotient = 48; // and so do shorter quotients
constexpr int kNewtonDivisor = 3000;   // from here on, with quotients as long, by an inverse
constexpr int kNewtonInverse = 800;    // an inverse up to here comes from a division
constexpr int kShortQuotient = 8;      // the longest that mpl_divq_sq finds from the top limbs
constexpr int kBaseDivisor = 16;       // where the recursion of division ends in schoolbook

constexpr int kLocal = 256; // limbs of scratch that an operation takes on the stack

} // namespace vor::gmp

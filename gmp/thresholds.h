// Where one method of multiplication or division takes over from another, in limbs. Beside each limit
// the times that set it, in microseconds at 3.7 GHz: of the method below it, then of the one above.
#pragma once

namespace vor::gmp {

// ---- Products --------------------------------------------------------------------------------------

constexpr int kSchoolbookLength = 16; // n by n, then in two parts
constexpr int kSchoolbookFactor = 28; // 1000 by n, then pieces: 28, 15.4, 15.9; 32, 17.5, 16.0
constexpr int kToomLength = 280;      // two parts, then four: 250, 15.0, 14.8; 512, 46.7, 42.3
constexpr int kFourierLength = 1050;  // then transforms: 1024, 122, 131; 1100, 162, 123
// Unequal lengths by transforms: from this sum on, where the shorter factor has at least so many limbs:
// 1000 by 600, 124, 100. A factor is cut into pieces of at most so many times the shorter one.
constexpr int kFourierSum = 1500;
constexpr int kFourierFactor = 300;
constexpr int kFourierPiece = 6;

// Squares: schoolbook (up to 32), two parts, four parts, transforms.
constexpr int kKaratsubaSquare = 33; // 32 by schoolbook, 0.38, its product, 0.64
constexpr int kToomSquare = 300;     // 250, 12.0, 12.2; 300, 17.3, 16.6
constexpr int kFourierSquare = 850;  // 850, 75.2, 74.7; 1024, 102, 92

// ---- Quotients -------------------------------------------------------------------------------------

// Recursion where the divisor and the quotient have so many limbs.
constexpr int kRecursiveDivisor = 48;
constexpr int kRecursiveQuotient = 48;
constexpr int kNewtonDivisor = 3000; // an inverse for quotients as long: 8192 by 4096, 2290, 2040
constexpr int kNewtonInverse = 800;  // shorter inverses come from a division

// The limits of the exported methods.
constexpr int kShortQuotient = 8; // the longest that mpl_divq_sq finds from the top limbs
constexpr int kBaseDivisor = 16;  // where the recursion of mpl_divqr_dc ends in schoolbook

constexpr int kLocal = 256; // limbs of scratch that an operation takes on the stack

} // namespace vor::gmp

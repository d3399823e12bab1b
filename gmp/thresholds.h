// Where one method of multiplication or division takes over from another, in limbs.
#pragma once

namespace vor::gmp {

constexpr int kSchoolbookSum = 32;    // both factors together that go by schoolbook, of any lengths
constexpr int kSchoolbookLength = 16; // below, recursion costs more than the products it saves
constexpr int kFourierLength = 4096;  // from here on transforms are faster than Karatsuba's method

constexpr int kSchoolbookDivisor = 32; // divisors up to here go by schoolbook
constexpr int kShortQuotient = 8;      // of longer divisors: quotients found from the top limbs
constexpr int kBaseDivisor = 16;       // where the recursion of division ends in schoolbook

constexpr int kLocal = 256; // limbs of scratch that an operation takes on the stack

} // namespace vor::gmp

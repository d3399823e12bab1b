// Streams of uniform bits for the random integers: xoshiro128** (Blackman and Vigna, Scrambled linear
// pseudorandom number generators, ACM Transactions on Mathematical Software 47, 2021), period
// 2^128 - 1, seeded through SplitMix64 (Steele, Lea and Flood, OOPSLA 2014) as its authors advise.
// Not for secrets: the state follows from a few outputs.
#pragma once

#include "vor_gmp.h"

// One generator is provided; its code and the method are not read. All return 0.
extern "C" {
int rngNewStream(void** stream, unsigned generator,
                 unsigned seed); // its memory is that of integers
int rngDeleteStream(void** stream);
int rngUniformBits(int method, void* stream, int n, unsigned* words);
}

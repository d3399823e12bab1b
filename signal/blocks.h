// Block routines of the signal primitives: clearing and copying, counted in bytes. A block of
// 0 bytes or below is left alone. Blocks of a copy do not overlap.
#pragma once

extern "C" {
void ownsZero_8u(unsigned char* destination, int bytes);    // through the cache
void ownsZero_8u_A6(unsigned char* destination, int bytes); // around the cache
void ownsCopy_8u(const unsigned char* source, unsigned char* destination, int bytes);
void ownsCopy_8u_A6(const unsigned char* source, unsigned char* destination, int bytes);
// Around the cache, with a prefetch of each source page before it is copied.
void ownsPrefetchCopy_8u_A6(const unsigned char* source, unsigned char* destination, int bytes);
void ownsPrefetchnta_A6(const unsigned char* address, int bytes);
}

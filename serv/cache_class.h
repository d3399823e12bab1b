// The second-level cache as the descriptor bytes of CPUID leaf 2 tell it.
#pragma once

namespace vor {
inline namespace serv {

constexpr int kUnknownCache = -1;

// Class 0 has no second-level cache, class k from 1 to 5 has 64 KiB * 2^k.
struct CacheDescriptor {
    unsigned byte;
    int cache_class;
};

inline constexpr CacheDescriptor kCacheDescriptors[] = {
    {0x40, 0}, {0x41, 1}, {0x79, 1}, {0x42, 2}, {0x7a, 2}, {0x82, 2}, {0x43, 3},
    {0x7b, 3}, {0x44, 4}, {0x7c, 4}, {0x84, 4}, {0x45, 5}, {0x85, 5},
};

// The class that the words EAX, EBX, ECX, EDX of leaf 2 hold, kUnknownCache if they hold none. A word
// with bit 31 set holds no descriptors; the low byte of EAX is a count. The last listed byte wins.
inline int cache_class(const unsigned (&words)[4]) {
    constexpr unsigned kNoDescriptors = 0x80000000u;
    int found = kUnknownCache;
    for (int i = 0; i < 4; ++i) {
        if (words[i] & kNoDescriptors) continue;
        for (int byte = i == 0; byte < 4; ++byte)
            for (const CacheDescriptor& d : kCacheDescriptors)
                if (d.byte == (words[i] >> 8 * byte & 0xff)) found = d.cache_class;
    }
    return found;
}

} // namespace serv
} // namespace vor

// lsame, lsamen: do one, or n, characters agree without regard to the case of ASCII letters?
#include "serv/lsame.h"
#include "serv/entry.h"

namespace {

constexpr int kTrue = -1; // a logical with all bits set
constexpr int kFalse = 0;

} // namespace

VOR_ENGINE int vor_serv_lsame(const char* ca, const char* cb, int, int) {
    return vor::upper(*ca) == vor::upper(*cb) ? kTrue : kFalse;
}

VOR_ENGINE int vor_serv_lsamen(const int* n, const char* ca, const char* cb, int ca_length,
                               int cb_length) {
    if (ca_length < *n || cb_length < *n) return kFalse;
    for (int i = 0; i < *n; ++i)
        if (!vor_serv_lsame(ca + i, cb + i, 1, 1)) return kFalse;
    return kTrue;
}

VOR_ENTRY(int, lsame, LSAME, vor_serv_lsame,
          (const char* ca, const char* cb, int ca_length, int cb_length),
          (ca, cb, ca_length, cb_length))
VOR_ENTRY(int, lsamen, LSAMEN, vor_serv_lsamen,
          (const int* n, const char* ca, const char* cb, int ca_length, int cb_length),
          (n, ca, cb, ca_length, cb_length))

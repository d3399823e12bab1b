// The option letters that stand for the enumeration values of the C interface.
#include "blas/cblas/interface.h"

extern "C" {
const char* const vor_serv_ftrans[] = {"N", "T", "C"};
const char* const vor_serv_ftrans_r[] = {"T", "N", "N"};
const char* const vor_serv_ftrans_c[] = {"C", "N", "N"};
const char* const vor_serv_fside[] = {"L", "R"};
const char* const vor_serv_fuplo[] = {"U", "L"};
const char* const vor_serv_fdiag[] = {"N", "U"};
}

// A program with functions and data of its own under names of the library: only xerbla_ is to be
// taken by it. It prints the report that it received, then what the library answers. Its xerbla_ leaves
// the library by an exception where it is told to.
#include "vor.h"

#include <cstdio>

extern "C" {
int vor_serial = 7;
bool throwing = false;

void xerbla_(const char* name, const int* code, int name_length) {
    std::printf("report %.*s %d\n", name_length, name, *code);
    if (throwing) throw *code;
}
int vor_serv_lsame(const char*, const char*, int, int) {
    return 42;
}
int vor_cfg_file(int) {
    std::puts("vor_cfg_file taken");
    return 0;
}
}

int main() {
    cblas_xerbla("cblas_zsyr2k", 9);
    std::printf("lsame %d\n", lsame("x", "X", 1, 1));
    std::printf("in_serial %d\n", vor_in_serial());
    throwing = true;
    const int n = 1, bad = -1;
    const double x = 1;
    double y = 0;
    try {
        dgemm("N", "N", &n, &bad, &n, &x, &x, &n, &x, &n, &x, &y, &n);
    } catch (const int code) {
        std::printf("caught %d\n", code);
    }
    try {
        cblas_dgemv(CblasColMajor, CblasNoTrans, bad, n, x, &x, n, &x, n, x, &y, n);
    } catch (const int code) {
        std::printf("caught %d\n", code);
    }
}

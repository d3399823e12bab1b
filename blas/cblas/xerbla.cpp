// cblas_xerbla: the report of a C-level routine, in its own parameter numbers.
#include "vor_service.h"

#include <string.h>

extern "C" void cblas_xerbla(const char* name, int code) {
    xerbla_(name, &code, static_cast<int>(strlen(name)));
}

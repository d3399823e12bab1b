#!/usr/bin/env bash
# Rules of the tree that need no build: formatting, the list of exports, loose ends.
#
#   tests/lint.sh            report; exit status 1 if anything is wrong
#   tests/lint.sh --format   write the formatting
set -u
cd "$(dirname "$0")/.."
status=0

mapfile -t sources < <(git ls-files -co --exclude-standard '*.cpp' '*.h' '*.c')
if [ "${1:-}" = --format ]; then
    clang-format -i "${sources[@]}"
    exit
fi

fault() {
    echo "lint: $1" >&2
    status=1
}

clang-format --dry-run -Werror "${sources[@]}" || fault "formatting: run ./dev format"
LC_ALL=C sort -cu exports.txt || fault "exports.txt is not sorted, or holds a name twice"
if grep -nE '\b(TODO|FIXME|XXX)\b' "${sources[@]}"; then fault "loose ends in the code"; fi
if grep -nP '[ \t]+$' "${sources[@]}" CMakeLists.txt cmake/*.cmake dev docs/*.md README.md; then
    fault "blanks at the end of a line"
fi
# Kernels and engines: no heap but the managers', no streams, no C++ runtime.
if grep -nE '#include <(iostream|string|vector|memory|map|functional)>' \
    $(git ls-files -co --exclude-standard 'serv/*' 'blas/*' 'dft/*' 'spblas/*' 'signal/*' 'gmp/*'); then
    fault "the shared object does without the C++ runtime library"
fi
# What knows the processor, and what starts threads, keeps to its rooms.
level=$(grep -nE '#include <[a-z]mmintrin|\basm\b|__asm__|\b_mm_|#pragma omp' \
    $(git ls-files -co --exclude-standard '*.cpp' '*.h' |
        grep -E '^(serv|blas|dft|spblas|signal|gmp)/' |
        grep -vE '/kernel/|^serv/team\.h$'))
if [ -n "$level" ]; then
    cut -d: -f1 <<<"$level" | uniq -c >&2
    fault "vector code, assembler and parallel regions outside kernel/, arith/ and serv/team.h"
fi
tests/names.py missing || fault "exported names that no line defines whole"
for script in dev .ci/run tests/lint.sh; do bash -n "$script" || fault "$script"; done
exit $status

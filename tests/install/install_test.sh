#!/usr/bin/env bash
# install_test.sh CMAKE BUILD SOURCE GENERATOR: installs into a scratch folder, moves the tree, and is a user of
# it there: through pkg-config in C and Fortran, through find_package in C++, through the tool.
set -eu
cmake=$1 build=$2 source=$3
export CMAKE_GENERATOR=$4 # what builds this tree is there; what CMake would choose may not be
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
prefix=$scratch/moved

say() { echo "-- $*"; }
fail() {
    cat "$scratch/log"
    echo "$1"
    exit 1
}

"$cmake" --install "$build" --prefix "$scratch/first" >/dev/null
mv "$scratch/first" "$prefix"
examples=$prefix/share/doc/vor/examples
unset LD_LIBRARY_PATH CFLAGS CXXFLAGS LDFLAGS
export PKG_CONFIG_PATH=$prefix/lib/pkgconfig

say version
pkg-config --modversion vor
say pkg-config, C
gcc -m32 "$examples/vectors.c" $(pkg-config --cflags --libs vor) -lm -o "$scratch/c"
LD_LIBRARY_PATH=$prefix/lib "$scratch/c"
say pkg-config, Fortran
gfortran -m32 -ff2c "$examples/vectors.f90" $(pkg-config --libs vor) -o "$scratch/fortran"
LD_LIBRARY_PATH=$prefix/lib "$scratch/fortran"

say find_package
configure=("$cmake" -S "$source/tests/install/consumer" "-DCMAKE_PREFIX_PATH=$prefix"
    "-Dsource=$examples/vectors.cpp")
"${configure[@]}" -B "$scratch/consumer" -DCMAKE_CXX_FLAGS=-m32 >"$scratch/log" 2>&1 ||
    fail "the project does not configure"
"$cmake" --build "$scratch/consumer" >"$scratch/log" 2>&1 || fail "the project does not build"
"$scratch/consumer/consumer"

say find_package passes the package over in a 64-bit project
if "${configure[@]}" -B "$scratch/consumer64" >"$scratch/log" 2>&1; then
    fail "it was found"
fi
grep -q 'vor-config.cmake, version: .*32bit' "$scratch/log" || fail "another reason"

say tool
"$prefix/bin/vor" info
"$prefix/bin/vor" tour --output "$scratch"

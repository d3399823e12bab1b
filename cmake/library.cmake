# The shared object libvor_k1.so.
#
# It needs libc, libm and the OpenMP runtime, nothing else: no C++ runtime, no start files (nothing
# runs at load), libgcc linked in. exports.txt lists every name it exports; the version script made
# from it hides the rest. -Bsymbolic-functions binds calls inside the library, xerbla_ excepted, so
# that a program's own xerbla_ receives the reports.

file(GLOB_RECURSE vor_sources CONFIGURE_DEPENDS
    serv/*.cpp blas/*.cpp dft/*.cpp spblas/*.cpp signal/*.cpp gmp/*.cpp)

# Their lists of argument addresses are not worth a vector each.
file(GLOB vor_checks CONFIGURE_DEPENDS
    blas/check/*.cpp blas/cblas/*.cpp dft/onecall/check.cpp spblas/check.cpp)
set_source_files_properties(${vor_checks} PROPERTIES COMPILE_OPTIONS -fno-tree-slp-vectorize)

set(vor_exports ${PROJECT_SOURCE_DIR}/exports.txt)
set(vor_version_script ${PROJECT_BINARY_DIR}/exports.map)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${vor_exports})
file(STRINGS ${vor_exports} vor_names REGEX "^[^#]")
list(JOIN vor_names ";\n" vor_names)
file(CONFIGURE OUTPUT ${vor_version_script} CONTENT "{ global:\n@vor_names@;\nlocal: *; };\n" @ONLY)
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/interposable.list CONTENT "{ xerbla_; };\n" @ONLY)

add_library(vor_warnings INTERFACE)
target_compile_options(vor_warnings INTERFACE
    $<$<COMPILE_LANGUAGE:C,CXX>:-Wall -Wextra -Wshadow -Werror>)

add_library(vor_k1 SHARED ${vor_sources})
add_library(vor::vor ALIAS vor_k1)
target_include_directories(vor_k1
    PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:include>
    PRIVATE ${PROJECT_SOURCE_DIR})
# The compiler compares whole argument lists with the public prototypes.
target_compile_definitions(vor_k1 PRIVATE VOR_HIDDEN_LENGTHS)
target_compile_options(vor_k1 PRIVATE
    # The processor level. Callers may come with a stack aligned to 4 bytes only.
    -march=pentium3 -mfpmath=sse -mtune=generic -mstackrealign
    -O2 -ffp-contract=off -fno-math-errno -fopenmp
    -fno-exceptions -fno-rtti -fno-threadsafe-statics
    # No exceptions inside, but those of a program's own xerbla_ pass through, and so do backtraces.
    -fasynchronous-unwind-tables
    -fno-semantic-interposition -fno-stack-protector)
target_link_options(vor_k1 PRIVATE
    -nostartfiles -nostdlib -Wl,--version-script=${vor_version_script}
    -Wl,-Bsymbolic-functions -Wl,--dynamic-list=${PROJECT_BINARY_DIR}/interposable.list
    -Wl,-z,defs -Wl,-z,noexecstack -Wl,-z,text -Wl,-z,relro -Wl,-z,now
    # Threads of the OpenMP runtime and blocks kept for reuse outlive a dlclose: so does the object.
    -Wl,-z,nodelete)
target_link_libraries(vor_k1 PRIVATE $<BUILD_INTERFACE:vor_warnings> gomp m c gcc)
set_target_properties(vor_k1 PROPERTIES
    LINK_DEPENDS "${vor_version_script}"
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}
    LINKER_LANGUAGE CXX)

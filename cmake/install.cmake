# What a user gets: the library, the headers, the tool, vor.pc and the CMake package `vor`.
include(CMakePackageConfigHelpers)

install(TARGETS vor_k1 EXPORT vor-targets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})

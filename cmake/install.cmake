# What a user gets: the library, the headers, the tool with its data, the examples, vor.pc and the
# CMake package `vor` with the target vor::vor. The installed tree may be moved as a whole.
include(CMakePackageConfigHelpers)

set_target_properties(vor_k1 PROPERTIES EXPORT_NAME vor)
install(TARGETS vor_k1 EXPORT vor-targets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILES_MATCHING REGEX "\\.(h|f90)$")
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/LICENSE
    DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples
    FILES_MATCHING REGEX "\\.(c|cpp|f90)$")
if(TARGET vor_tool)
    install(TARGETS vor_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vor)
endif()

set(vor_package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/vor)
install(EXPORT vor-targets NAMESPACE vor:: DESTINATION ${vor_package_folder})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/vor-config.cmake.in
    ${PROJECT_BINARY_DIR}/vor-config.cmake INSTALL_DESTINATION ${vor_package_folder})
# The size of a pointer counts: find_package of a 64-bit program passes the package over.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vor-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vor-config.cmake ${PROJECT_BINARY_DIR}/vor-config-version.cmake
    DESTINATION ${vor_package_folder})

# pcfiledir lets vor.pc follow the tree.
file(RELATIVE_PATH vor_prefix_from_pc
    ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(${CMAKE_CURRENT_LIST_DIR}/vor.pc.in ${PROJECT_BINARY_DIR}/vor.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vor.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

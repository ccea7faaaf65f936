# Install rules: libraries, headers, the CMake package ztmath and the pkg-config file ztmath.pc.
#
# The installed tree may be moved as a whole: libraries find each other, and programs find them, from
# where they are themselves.
include(CMakePackageConfigHelpers)

file(RELATIVE_PATH lib_from_bin ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set(ZTMATH_RPATH_FROM_BIN "$ORIGIN/${lib_from_bin}")
set_target_properties(ztmath PROPERTIES INSTALL_RPATH "$ORIGIN")

install(TARGETS ztmath syss EXPORT ztmath-targets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h")

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ztmath)
install(EXPORT ztmath-targets NAMESPACE ztmath:: DESTINATION ${package_dir} FILE ztmath-config.cmake)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ztmath-config-version.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ztmath-config-version.cmake DESTINATION ${package_dir})

file(RELATIVE_PATH ZTMATH_PREFIX_FROM_PC
     ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/ztmath.pc.in ztmath.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ztmath.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

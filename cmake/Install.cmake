# Install rules: libraries, headers, the CMake package ztmath and the pkg-config file ztmath.pc.
include(CMakePackageConfigHelpers)

install(TARGETS ztmath syss EXPORT ztmath-targets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h")

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ztmath)
install(EXPORT ztmath-targets NAMESPACE ztmath:: DESTINATION ${package_dir} FILE ztmath-config.cmake)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ztmath-config-version.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ztmath-config-version.cmake DESTINATION ${package_dir})

configure_file(cmake/ztmath.pc.in ztmath.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ztmath.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

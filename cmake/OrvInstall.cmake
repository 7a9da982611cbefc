# What is installed, in two components as distributions part them: what a finished program needs (Runtime), and what
# compiling one needs besides (Development: headers, a CMake package that gives OrvLumGeom::OrvLumGeom, a pkg-config
# file). No installed file names a folder of this machine, so the tree may be moved as a whole.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/OrvLumGeom")
set(pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# The headers stand below a folder of their own, which the package puts on the include path before the system's:
# a widely installed C library has a folder gsl/ too, and <gsl/gsl.h> must be ours.
set(header_dir "${CMAKE_INSTALL_INCLUDEDIR}/OrvLumGeom")

install(TARGETS OrvLumGeom EXPORT OrvLumGeomTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Runtime NAMELINK_COMPONENT Development
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Development
    FILE_SET HEADERS DESTINATION "${header_dir}" COMPONENT Development)
install(EXPORT OrvLumGeomTargets NAMESPACE OrvLumGeom:: DESTINATION "${package_dir}" COMPONENT Development)

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/OrvLumGeomConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/OrvLumGeomConfig.cmake" INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/OrvLumGeomConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/OrvLumGeomConfig.cmake"
    "${PROJECT_BINARY_DIR}/OrvLumGeomConfigVersion.cmake"
    DESTINATION "${package_dir}" COMPONENT Development)

file(RELATIVE_PATH prefix_of_pkgconfig "/${pkgconfig_dir}" /)
string(REGEX REPLACE "/$" "" prefix_of_pkgconfig "${prefix_of_pkgconfig}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/OrvLumGeom.pc.in" "${PROJECT_BINARY_DIR}/OrvLumGeom.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/OrvLumGeom.pc" DESTINATION "${pkgconfig_dir}" COMPONENT Development)

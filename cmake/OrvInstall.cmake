# What is installed: the library, its public headers and a CMake package that gives OrvLumGeom::OrvLumGeom.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/OrvLumGeom")

# The headers stand below a folder of their own, which the package puts on the include path before the system's:
# a widely installed C library has a folder gsl/ too, and <gsl/gsl.h> must be ours.
install(TARGETS OrvLumGeom EXPORT OrvLumGeomTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/OrvLumGeom")
install(EXPORT OrvLumGeomTargets NAMESPACE OrvLumGeom:: DESTINATION "${package_dir}")

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/OrvLumGeomConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/OrvLumGeomConfig.cmake" INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/OrvLumGeomConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/OrvLumGeomConfig.cmake"
    "${PROJECT_BINARY_DIR}/OrvLumGeomConfigVersion.cmake"
    DESTINATION "${package_dir}")

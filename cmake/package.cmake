# What outside projects find the installed library with: a CMake package (find_package(wexcorin), target
# wexcorin::wexcorin) and a pkg-config file.
include(CMakePackageConfigHelpers)

set(package_directory "${CMAKE_INSTALL_LIBDIR}/cmake/wexcorin")
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/wexcorinConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/package/wexcorinConfig.cmake"
  INSTALL_DESTINATION "${package_directory}")
# The first number of the version is that of the interface.
write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/wexcorinConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/package/wexcorinConfig.cmake"
  "${PROJECT_BINARY_DIR}/package/wexcorinConfigVersion.cmake"
  DESTINATION "${package_directory}")
install(EXPORT wexcorinTargets NAMESPACE wexcorin:: DESTINATION "${package_directory}")

# Written when it is installed, since the prefix may be chosen only then.
install(CODE "set(PROJECT_DESCRIPTION \"${PROJECT_DESCRIPTION}\")
set(PROJECT_VERSION \"${PROJECT_VERSION}\")
set(CMAKE_INSTALL_INCLUDEDIR \"${CMAKE_INSTALL_INCLUDEDIR}\")
set(CMAKE_INSTALL_LIBDIR \"${CMAKE_INSTALL_LIBDIR}\")
configure_file(\"${CMAKE_CURRENT_LIST_DIR}/wexcorin.pc.in\" \"${PROJECT_BINARY_DIR}/package/wexcorin.pc\" @ONLY)")
install(FILES "${PROJECT_BINARY_DIR}/package/wexcorin.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

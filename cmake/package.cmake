# What is installed, in three components: `library` is what programs need at run time, `development` what
# clients are built with, `tool` the command-line tool with its manual page and completions, the documentation
# and the examples. Outside projects find the library with a CMake package (find_package(wexcorin), target
# wexcorin::wexcorin) or with pkg-config.
include(CMakePackageConfigHelpers)

set(WEXCORIN_ZSH_COMPLETIONS "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" CACHE STRING
  "Folder below the prefix where zsh looks for completions")

install(TARGETS wexcorin EXPORT wexcorinTargets
  LIBRARY COMPONENT library NAMELINK_COMPONENT development)
install(DIRECTORY include/wexcorin TYPE INCLUDE COMPONENT development
  FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
install(FILES pascal/wexcorin.pas DESTINATION "${CMAKE_INSTALL_DATADIR}/wexcorin/pascal" COMPONENT development)

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
  DESTINATION "${package_directory}" COMPONENT development)
install(EXPORT wexcorinTargets NAMESPACE wexcorin:: DESTINATION "${package_directory}" COMPONENT development)

# Written when it is installed, since the prefix may be chosen only then, and directly to its place, so that
# two installations at a time do not meet in one file.
install(CODE "set(PROJECT_DESCRIPTION \"${PROJECT_DESCRIPTION}\")
set(PROJECT_VERSION \"${PROJECT_VERSION}\")
set(CMAKE_INSTALL_INCLUDEDIR \"${CMAKE_INSTALL_INCLUDEDIR}\")
set(CMAKE_INSTALL_LIBDIR \"${CMAKE_INSTALL_LIBDIR}\")
set(pkgconfig \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig/wexcorin.pc\")
configure_file(\"${CMAKE_CURRENT_LIST_DIR}/wexcorin.pc.in\" \"\$ENV{DESTDIR}\${pkgconfig}\" @ONLY
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
list(APPEND CMAKE_INSTALL_MANIFEST_FILES \"\${pkgconfig}\")" COMPONENT development)

if(WEXCORIN_BUILD_TOOL)
  install(TARGETS wexcorin_tool RUNTIME COMPONENT tool)
  install(FILES man/wexcorin.1 DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT tool)
  install(FILES completion/wexcorin.bash RENAME wexcorin COMPONENT tool
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
  install(FILES completion/_wexcorin DESTINATION "${WEXCORIN_ZSH_COMPLETIONS}" COMPONENT tool)
  install(FILES README.md CHANGELOG.md TYPE DOC COMPONENT tool)
  # How the library is built inside goes with its sources.
  install(DIRECTORY docs examples TYPE DOC COMPONENT tool PATTERN architecture.md EXCLUDE)
endif()

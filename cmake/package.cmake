# What is installed, in three components. `library` is what programs need at run time, `development` is what clients
# are built with, `tool` is the command-line tool with its manual page and completion, the documentation and the
# examples, and `editors` is what Neovim and Emacs load to use the tool as their language server. Other projects find the installed library with a CMake package (find_package(wexcorin), target
# wexcorin::wexcorin) or with pkg-config.
include(CMakePackageConfigHelpers)

set(WEXCORIN_ZSH_COMPLETIONS "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" CACHE STRING
  "Folder below the prefix where zsh looks for completions")

# Installs the documentation and the examples in `folder`; further arguments go to install(). The inside of the library
# is described in its sources only.
function(wexcorin_install_documents folder)
  install(FILES README.md CHANGELOG.md SECURITY.md DESTINATION "${folder}" ${ARGN})
  install(DIRECTORY docs examples DESTINATION "${folder}" ${ARGN} PATTERN architecture.md EXCLUDE)
  install(FILES editors/README.md DESTINATION "${folder}/editors" ${ARGN})
endfunction()

install(TARGETS wexcorin EXPORT wexcorinTargets
  LIBRARY COMPONENT library NAMELINK_COMPONENT development)
install(DIRECTORY include/wexcorin TYPE INCLUDE COMPONENT development
  FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
install(FILES pascal/wexcorin.pas DESTINATION "${CMAKE_INSTALL_DATADIR}/wexcorin/pascal" COMPONENT development)

set(package_directory "${CMAKE_INSTALL_LIBDIR}/cmake/wexcorin")
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/wexcorinConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/package/wexcorinConfig.cmake"
  INSTALL_DESTINATION "${package_directory}")
# The first number of the version is the version of the interface.
write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/wexcorinConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/package/wexcorinConfig.cmake"
  "${PROJECT_BINARY_DIR}/package/wexcorinConfigVersion.cmake"
  DESTINATION "${package_directory}" COMPONENT development)
install(EXPORT wexcorinTargets NAMESPACE wexcorin:: DESTINATION "${package_directory}" COMPONENT development)

# The pkg-config file names the prefix, which may be chosen only at installation, so it is written then. It is written
# directly to its place, so that two installations at the same time do not write the same file.
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
  install(FILES completion/wexcorin.fish COMPONENT tool
    DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
  wexcorin_install_documents("${CMAKE_INSTALL_DOCDIR}" COMPONENT tool)
  # Both editors look in these folders below /usr and /usr/local. Emacs loads a package from a folder with its version.
  install(DIRECTORY editors/neovim/ DESTINATION "${CMAKE_INSTALL_DATADIR}/nvim/site" COMPONENT editors)
  install(DIRECTORY editors/emacs/ COMPONENT editors
    DESTINATION "${CMAKE_INSTALL_DATADIR}/emacs/site-lisp/elpa/wexcorin-mode-${PROJECT_VERSION}")
endif()

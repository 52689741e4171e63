# CPack runs this on the file trees of the packages. It strips the programs, finds the packages that they depend on, and
# compresses the manual page and the changelogs. CPack's own search for dependencies would also add maintainer scripts
# that call ldconfig, which the package system does by itself.
cmake_policy(VERSION 3.25)
file(GLOB_RECURSE files "${CPACK_TEMPORARY_DIRECTORY}/*")
set(texts ${files})
list(FILTER texts INCLUDE REGEX "/man1/[a-z]+\\.1$|/doc/[a-z0-9-]+/changelog$")
execute_process(COMMAND gzip --best --no-name ${texts} COMMAND_ERROR_IS_FATAL ANY)

set(work "${CPACK_TEMPORARY_DIRECTORY}/../needs")
file(WRITE "${work}/debian/control" "Source: wexcorin\n\nPackage: wexcorin\nArchitecture: any\n")

# The library is not installed yet. This says which package it will be in.
set(library ${files})
list(FILTER library INCLUDE REGEX "/libwexcorin\\.so\\.[0-9]+$")
cmake_path(GET library PARENT_PATH library_folder)
set(shlibs ${CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA})
list(FILTER shlibs INCLUDE REGEX "/shlibs$")
configure_file("${shlibs}" "${work}/debian/shlibs.local" COPYONLY)

# finish(COMPONENT PATTERN [NEEDED...]): strips the one file that matches, and sets the dependencies of the package of
# the component. Does nothing when no file matches.
function(finish component pattern)
  set(program ${files})
  list(FILTER program INCLUDE REGEX "${pattern}")
  execute_process(COMMAND strip --strip-unneeded --remove-section=.comment ${program}
    COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND dpkg-shlibdeps -O "-l${library_folder}" ${program} WORKING_DIRECTORY "${work}"
    OUTPUT_VARIABLE needed OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE "shlibs:Depends=" "" needed "${needed}")
  set(needed ${ARGN} "${needed}")
  list(JOIN needed ", " needed)
  set(CPACK_DEBIAN_${component}_PACKAGE_DEPENDS "${needed}" PARENT_SCOPE)
endfunction()
finish(LIBRARY "/libwexcorin\\.so\\.[0-9]+\\.[0-9.]+$")
finish(TOOL "/bin/wexcorin$")

# An extension module is for one version of Python, which its name tells.
if("${files}" MATCHES "/_core\\.cpython-3([0-9]+)-")
  math(EXPR next "${CMAKE_MATCH_1} + 1")
  finish(PYTHON "/_core\\.cpython-" "python3 (>= 3.${CMAKE_MATCH_1}~)" "python3 (<< 3.${next})")
endif()

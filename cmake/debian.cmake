# The Debian packages, one for each component: libwexcorin2, libwexcorin-dev, wexcorin, wexcorin-editors and, where the
# Python package is built, python3-wexcorin. CPack writes them to the folder in which it is called. scripts/package calls it for a build
# of the preset `package`, whose prefix is /usr.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME wexcorin)
set(CPACK_PACKAGE_VENDOR "wexcorin maintainers")
set(CPACK_PACKAGE_CONTACT "wexcorin maintainers <maintainers@wexcorin.example>")
set(CPACK_SET_DESTDIR ON)  # the pkg-config file names the prefix
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each description has a first line of its own
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/debian/finish.cmake")

set(library_package "libwexcorin${PROJECT_VERSION_MAJOR}")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "options of a solver, shared library
wexcorin reads a definition file that describes every option of a solver, and
the option files of modellers. It checks every value, reports problems as
numbered messages, answers queries about options and values, prints help and
writes the settings back.
.
This package holds the shared library for programs that use it.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libwexcorin-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library_package} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "wexcorin")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "options of a solver, files for development
wexcorin reads a definition file that describes every option of a solver, and
the option files of modellers, and checks every value.
.
This package holds what clients of the library are built with: the headers for
C and C++, a unit for Free Pascal, the link of the shared library, a CMake
package and a pkg-config file. It also holds the documentation and example
clients.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME wexcorin)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION math)
set(CPACK_DEBIAN_TOOL_DESCRIPTION "options of a solver, command-line tool
wexcorin checks the definition file that describes a solver's options, and the
option files of modellers, and reports mistakes with their lines. It shows the
resulting values, explains the options, writes settings as an option file, and
writes a definition as a header for programs or as a reference for readers.
.
This package holds the command-line tool, the documentation of the definition
file and the option file, and the examples.")

# Of its own, because wexcorin is also for machines on which nobody edits. The editors need no maintainer scripts: they
# find the files in these folders by themselves, and Emacs may compile them or not.
set(CPACK_DEBIAN_EDITORS_PACKAGE_NAME wexcorin-editors)
set(CPACK_DEBIAN_EDITORS_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_EDITORS_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_EDITORS_PACKAGE_DEPENDS "wexcorin (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_EDITORS_PACKAGE_SUGGESTS "elpa-eglot, emacs, neovim")
set(CPACK_DEBIAN_EDITORS_PACKAGE_ENHANCES "emacs, neovim")
set(CPACK_DEBIAN_EDITORS_DESCRIPTION "options of a solver, support in editors
wexcorin checks the definition file that describes a solver's options, and the
option files of modellers. It is a language server, too: editors show mistakes
while one types, complete names and values, and explain options.
.
This package holds the types of files, the colours and the start of the server
for Neovim and Emacs.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-wexcorin)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "wexcorin")
set(CPACK_DEBIAN_PYTHON_DESCRIPTION "options of a solver, Python package
wexcorin reads a definition file that describes every option of a solver, and
the option files of modellers, and checks every value.
.
This package holds the Python package wexcorin, which gives scripts the options
as a mapping from names to values, and mistakes as exceptions with their lines.")
# The Python of the system compiles the sources when the package is installed.
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
  "${CMAKE_CURRENT_LIST_DIR}/debian/postinst;${CMAKE_CURRENT_LIST_DIR}/debian/prerm")
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# --- what only packages hold: a copyright file and a changelog each, libwexcorin-dev also the documentation ---

set(debian_output "${PROJECT_BINARY_DIR}/debian")
configure_file("${CMAKE_CURRENT_LIST_DIR}/debian/copyright.in" "${debian_output}/copyright" @ONLY)
file(READ "${CMAKE_CURRENT_LIST_DIR}/debian/copyright.tool" tool_copyright)
file(READ "${debian_output}/copyright" common_copyright)
file(CONFIGURE OUTPUT "${debian_output}/tool/copyright" @ONLY
  CONTENT "${common_copyright}\n${tool_copyright}")

# The day of the week of the release, counted from Sunday. January and February count as months of the year before.
math(EXPR shifted_year "${release_year} - (14 - ${release_month}) / 12")
math(EXPR shifted_month "${release_month} + 12 * ((14 - ${release_month}) / 12) - 2")
math(EXPR weekday "(${release_day} + ${shifted_year} + ${shifted_year} / 4 - ${shifted_year} / 100
  + ${shifted_year} / 400 + 31 * ${shifted_month} / 12) % 7")
set(weekdays Sun Mon Tue Wed Thu Fri Sat)
list(GET weekdays ${weekday} weekday_name)
configure_file("${CMAKE_CURRENT_LIST_DIR}/debian/changelog.in" "${debian_output}/changelog" @ONLY)

set(components library development tool editors)
if(TARGET wexcorin_python)
  list(APPEND components python)
endif()
foreach(component IN LISTS components)
  string(TOUPPER ${component} upper)
  set(documentation "${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}")
  set(copyright "${debian_output}/copyright")
  if(component STREQUAL "tool")
    set(copyright "${debian_output}/tool/copyright")
  endif()
  set(overrides "${CMAKE_CURRENT_LIST_DIR}/debian/${component}.overrides")
  if(EXISTS "${overrides}")
    install(FILES "${overrides}" RENAME "${CPACK_DEBIAN_${upper}_PACKAGE_NAME}"
      DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides" COMPONENT ${component} EXCLUDE_FROM_ALL)
  endif()
  # excluded: not part of an installation without a package
  install(FILES "${copyright}" "${debian_output}/changelog"
    DESTINATION "${documentation}" COMPONENT ${component} EXCLUDE_FROM_ALL)
  # The author of a client need not install the tool, whose package has the same documents.
  if(component STREQUAL "development")
    wexcorin_install_documents("${documentation}" COMPONENT ${component} EXCLUDE_FROM_ALL)
  endif()
endforeach()

# --- what the package system needs to know about the shared library ---

file(STRINGS "${PROJECT_SOURCE_DIR}/api/exports.txt" names REGEX "^[a-z]")
list(SORT names)
list(TRANSFORM names REPLACE "(.+)" " \\1@Base ${PROJECT_VERSION}\n")
string(JOIN "" symbols "libwexcorin.so.${PROJECT_VERSION_MAJOR} ${library_package} #MINVER#\n"
  "* Build-Depends-Package: libwexcorin-dev\n" ${names})
file(CONFIGURE OUTPUT "${debian_output}/symbols" CONTENT "${symbols}" @ONLY)
file(CONFIGURE OUTPUT "${debian_output}/shlibs" @ONLY
  CONTENT "libwexcorin ${PROJECT_VERSION_MAJOR} ${library_package} (>= ${PROJECT_VERSION})\n")
file(CONFIGURE OUTPUT "${debian_output}/triggers" CONTENT "activate-noawait ldconfig\n" @ONLY)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA
  "${debian_output}/shlibs;${debian_output}/symbols;${debian_output}/triggers")

include(CPack)

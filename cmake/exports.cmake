# Makes the linker export exactly the names of an export list, which has one name on a line, from a shared library. The
# version script has no version name, because that would be another symbol in the dynamic symbol table.

function(wexcorin_export_only target list)
  file(STRINGS "${list}" names REGEX "^[a-z]")
  list(JOIN names ";\n    " global)
  set(script "${PROJECT_BINARY_DIR}/generated/${target}.map")
  file(CONFIGURE OUTPUT "${script}" CONTENT "{\n  global:\n    ${global};\n  local:\n    *;\n};\n" @ONLY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${list}")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${script}")
  target_link_options(${target} PRIVATE "LINKER:--version-script=${script}")
endfunction()

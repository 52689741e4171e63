# Helpers for the project's own targets: how they are compiled, and how their sources are found.

# Switches warnings on for a target of our own. Nothing of this affects a client's build. Warnings are errors when
# CMAKE_COMPILE_WARNING_AS_ERROR is set, as in all presets. GCC is asked for warnings of constants that nothing uses,
# because Clang does not see them when several sources are compiled as one. Then a name of one source may shadow that of
# another, so what hides names outside of functions is reported only where each source is compiled alone.
function(wexcorin_own_target target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion
    $<IF:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>,$<$<CXX_COMPILER_ID:GNU>:-Wshadow=local>,-Wshadow>
    $<$<CXX_COMPILER_ID:GNU>:-Wunused-const-variable=1>)
  set_target_properties(${target} PROPERTIES
    CXX_STANDARD 20
    CXX_STANDARD_REQUIRED ON
    CXX_EXTENSIONS OFF
    C_EXTENSIONS OFF
    UNITY_BUILD_MODE GROUP
    UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
endfunction()

# Hardens a target against attacks: the library and the tool read files that anybody may have written. Only optimised
# builds are hardened, because the checked functions of the C library need the optimiser.
function(wexcorin_harden target)
  set(optimised "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
  set(compile -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
    -fstack-protector-strong -fstack-clash-protection -fcf-protection)
  target_compile_options(${target} PRIVATE "$<${optimised}:${compile}>")
  get_target_property(type ${target} TYPE)
  if(NOT type STREQUAL "OBJECT_LIBRARY")
    target_link_options(${target} PRIVATE "$<${optimised}:LINKER:-z,relro,-z,now,-z,noexecstack>")
  endif()
endfunction()

# Sets `result` to the C++ sources of the given folders. The next build finds new files by itself. In a
# unity build the sources of each folder are compiled as one, by a file that includes them. `UnifiedSource` in
# its name tells Clang's static analyzer that it includes sources, which get more checks than headers.
function(wexcorin_sources result)
  set(all "")
  foreach(folder IN LISTS ARGN)
    file(GLOB sources CONFIGURE_DEPENDS "${folder}/*.cpp")
    string(MAKE_C_IDENTIFIER "${folder}" group)
    set_source_files_properties(${sources} PROPERTIES UNITY_GROUP ${group}_UnifiedSource)
    list(APPEND all ${sources})
  endforeach()
  set(${result} "${all}" PARENT_SCOPE)
endfunction()

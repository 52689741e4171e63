# Helpers for the project's own targets: how they are compiled, and how their sources are found.

# Warnings are a matter of our own targets: nothing of this reaches a client's build. They are errors where
# CMAKE_COMPILE_WARNING_AS_ERROR says so, as all presets do.
function(wexcorin_own_target target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  set_target_properties(${target} PROPERTIES
    CXX_STANDARD 20
    CXX_STANDARD_REQUIRED ON
    CXX_EXTENSIONS OFF
    C_EXTENSIONS OFF)
endfunction()

# What an attacker meets in the code that clients get: the library and the tool read files that anybody may
# have written. Only builds that optimise have it, since the checked functions of the C library need the
# optimiser.
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

# Sets `result` to the C++ sources of the given folders. A new file is noticed by the next build.
function(wexcorin_sources result)
  list(TRANSFORM ARGN APPEND "/*.cpp" OUTPUT_VARIABLE patterns)
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  set(${result} "${sources}" PARENT_SCOPE)
endfunction()

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

# Sets `result` to the C++ sources of the given folders. A new file is noticed by the next build.
function(wexcorin_sources result)
  list(TRANSFORM ARGN APPEND "/*.cpp" OUTPUT_VARIABLE patterns)
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  set(${result} "${sources}" PARENT_SCOPE)
endfunction()

# Embeds files in a program. In the sources they stay files of their own, which are read and edited as such.

# Sets `result` to the digest of a file in the form of a Content-Security-Policy.
function(wexcorin_digest file result)
  set(alphabet "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
  file(SHA256 "${file}" hex)
  string(REGEX MATCHALL "..." groups "${hex}00")  # 12 bits each: two digits of base 64
  set(digits "")
  foreach(group IN LISTS groups)
    math(EXPR high "0x${group} >> 6")
    math(EXPR low "0x${group} & 63")
    string(SUBSTRING "${alphabet}" ${high} 1 first)
    string(SUBSTRING "${alphabet}" ${low} 1 second)
    string(APPEND digits "${first}${second}")
  endforeach()
  string(REGEX REPLACE ".$" "=" digits "${digits}")
  set(${result} "sha256-${digits}" PARENT_SCOPE)
endfunction()

# Writes generated/HEADER with two constants in `namespace` for each file NAME.EXTENSION: NAMEEXTENSION is its text,
# NAMEEXTENSIONdigest its digest.
function(wexcorin_embed header namespace)
  set(constants "")
  foreach(file IN LISTS ARGN)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    get_filename_component(name "${file}" NAME)
    string(REPLACE "." "" name "${name}")
    get_filename_component(path "${file}" ABSOLUTE)
    file(READ "${path}" text)
    wexcorin_digest("${path}" digest)
    string(APPEND constants
      "inline constexpr std::string_view ${name} = R\"embedded(${text})embedded\";\n"
      "inline constexpr std::string_view ${name}digest = \"${digest}\";\n")
  endforeach()
  file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/generated/${header}" @ONLY CONTENT
    "#pragma once\n\n#include <string_view>\n\nnamespace @namespace@ {\n\n@constants@\n}\n")
endfunction()

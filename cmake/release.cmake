# The release data, which are filled in for each release. The version itself is that of the project in CMakeLists.txt.
# Everything else is derived from these values. The result is generated/release.h in the build tree.

set(release_status "GOLD")              # four characters; ALFA or BETA for a pre-release
set(release_day 21)
set(release_month 11)
set(release_year 2026)
set(release_build_code "DEB")           # three characters: the machine that builds releases
set(release_platform_code "LX8")        # three characters: Linux x86-64
set(release_build_numbers "0002.0001")  # interface version and number of the build
set(release_notice "Provided under the licence that accompanies this library.")  # at most 61 characters

# The version line has room for two digits, a point, one digit, a point and one digit.
if(NOT PROJECT_VERSION MATCHES "^[0-9][0-9]?\\.[0-9]\\.[0-9]$")
  message(FATAL_ERROR "Version ${PROJECT_VERSION} does not fit the version line: "
                      "at most two digits, one digit and one digit.")
endif()

# Sets `result` to a number of one or two digits, written with two digits.
function(wexcorin_two_digits number result)
  if(number LESS 10)
    string(PREPEND number "0")
  endif()
  set(${result} "${number}" PARENT_SCOPE)
endfunction()

wexcorin_two_digits(${PROJECT_VERSION_MAJOR} release_major)
set(release_minor "${PROJECT_VERSION_MINOR}")
set(release_gold "${PROJECT_VERSION_PATCH}")

set(months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
math(EXPR month_index "${release_month} - 1")
list(GET months ${month_index} month_name)
math(EXPR short_year "${release_year} % 100")
wexcorin_two_digits(${release_day} day)
wexcorin_two_digits(${short_year} short_year)
set(release_date "${day}${month_name}${short_year}")
set(release_build_date "${month_name} ${day}, ${release_year}")

string(LENGTH "${release_notice}" notice_length)
math(EXPR missing "61 - ${notice_length}")
string(REPEAT " " ${missing} padding)
string(APPEND release_notice "${padding}")

configure_file("${CMAKE_CURRENT_LIST_DIR}/release.h.in" "${PROJECT_BINARY_DIR}/generated/release.h" @ONLY)

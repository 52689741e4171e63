// A definition whose texts try to break out of whatever form they are written in.
#pragma once

#include <string_view>

namespace tooltest {

using namespace std::string_view_literals;

inline constexpr std::string_view hostile = R"(Normal lookup
comment eolcomm !<
basic group 1 1 A & B <b>"bold"</b>
other group 2 1 ]]> --> </script><script>pwned = 1</script>
gap integer 1 5 0 9 1 1 <script>pwned = 2</script> & "quoted" 'single' &amp;
 </p></article><img src=x onerror="pwned = 3">
)"
                                            " R\xE4tsel \x01\x1b[31m \x7f {{style}} nul:\0:end\n"sv
                                            R"(.gap double 2 1 0 2 1 1 A dot option
where string 4 "</style><script>pwned = 4</script>" 1 2 javascript:pwned=5
kind enumstr 5 "<A b>" 1 2 Kind
 "<a b>" 1 <i>first</i>
 a_value_with_a_very_long_name_that_does_not_fit_beside_its_help_on_the_screen_of_any_phone 1 Long
a_name_that_is_much_too_long_to_fit_on_the_screen_of_any_phone_that_is_around_these_days string 6 "" 1 2 Long
old integer 7 1 0 1 1 2 Old
gone integer 8 1 0 1 1 2 Gone
search integer 9 1 0 1 1 2 The name of an element
all macro 1 2 Several
 gap
 search
former synonym gap
names deprecated
 old <b>use</b> "gap"
 former & so on
names obsolete
 gone </article>use gap
)"sv;

}  // namespace tooltest

// Dot lines, which give a value to a symbol and its elements, and indicators, with an equation, a variable
// and a boolean word: brackets, what is rejected and counted, the limits of 20 elements and 63 characters,
// and where reading continues after an error.
#include "interface/script.h"

namespace testsupport::entriestest {

constexpr const char* options =
    "a integer 1 0 -100 100 1 1\n.prior double 2 1 0 100 1 1\n.level integer 3 1 0 9 1 1\n"
    ".keep boolean 4 0 1 1\n.kind enumint 5 1 1 1\n 1 1\n 5 1\n.note string 6 none 1 1\n"
    ".mark boolean.NV 7 1 1 1\nFree immediate NoBounds 0 0\nmarks eolcomm !\nInd indicator\n";

// The elements of entry nr, as "(a,b)".
template <class tshortform, class tcharform>
std::string elements(thandle& h, int nr, int count, tshortform shortform, tcharform charform) {
  std::string result, element;
  for (int position = 1; position <= count; ++position) {
    EXPECT_EQ(h.call(shortform, charform, nr, position, element), 1);
    result += (position > 1 ? "," : "(") + element;
  }
  return result + (count > 0 ? ")" : "");
}

// "name.option(element,...)=value" for each dot entry, "equation(element,...)$variable(element,...)=value"
// for each indicator, then "rejected n" if lines were rejected.
const taddedstep entries("entries", [](thandle& h, const std::string&) {
  std::ostringstream result;
  std::string name, other;
  std::int32_t rejected = -1, notaken = -1, option = 0, count = -1, othercount = -1, value = -1;
  double number = -1;
  for (int nr = 1; nr <= h.one(optdotoptcount, rejected); ++nr) {
    EXPECT_EQ(h.call(BOTH(getdotoptnr), nr, name, option, count, number), 1);
    EXPECT_EQ(h.call(BOTH(getnamenr), option, other), 1);
    result << ' ' << name << other << elements(h, nr, count, BOTH(getdotoptuel)) << '=' << number;
  }
  for (int nr = 1; nr <= h.one(optindicatorcount, notaken); ++nr) {
    EXPECT_EQ(h.call(BOTH(getindicatornr), nr, name, other, count, othercount, value), 1);
    result << ' ' << name << elements(h, nr, count, BOTH(getequindicatornr)) << '$' << other
           << elements(h, nr, othercount, BOTH(getvarindicatornr)) << '=' << value;
  }
  if (rejected + notaken > 0) result << " rejected " << rejected + notaken;
  return result.str().substr(result.str().empty() ? 0 : 1);
});

// A line, the entries that it adds, the options that it sets, and its messages.
const std::string endofline = "parameters $1 ; entries => $2 ; settings => $3 ; problems => $4";
const std::string normal = "eolonlyset 0 ; " + endofline;

// Dot lines are read in the same way in both modes of reading.
const ttable dotoptions = {__LINE__, R"~(
    // a dot option has a name, an option and a value
    X.PRIOR=10 y.level := 5, x.keep yes\na 1 => X.prior=10 y.level=5 x.keep=1
      => a=1 .prior=10 .level=5 .keep=1
    x.kind 5 x.note hi x.mark no => x.kind=5 x.note=0 x.mark=0 => .kind=5 .note=hi .mark=0

    // elements stand in brackets of any kind, with or without quotes
    x.prior('a','b') 2 x.prior[*] 3 x.prior {"c d" , 'e '} = 4 ! 5
      => x.prior(a,b)=2 x.prior(*)=3 x.prior(c d,e)=4 => .prior=4
    x.prior("it's",'',"'") 2 => x.prior(it's,,')=2 => .prior=2

    // a dot line cannot begin with a dash
    -a.5 => => => V1 Integer expected, for option "a" saw ".5"

    // the name of a dot option must follow the period
    x. 5 a 1\nx. a 1 => => a=1 => E1 .suffix expected for key "x" | E1 Option keyword expected, saw "5"
      | E2 .suffix expected for key "x"
    x.foo a 5\nx.foo 5 a 1 => => a=5
      => E1 E2 unknown .suffix ".foo" for key "x" | E2 Option keyword expected, saw "5"

    // a dot option without a value is rejected
    x.prior\nx.prior = ! 5\nx.prior "5\nx.mark => rejected 4 => => E1 E2 E3 E4 Value expected for .option "x"
    x.prior 5 6 a 1 => x.prior=5 => .prior=5 => E1 Option keyword expected, saw "6"

    // an element is a text in quotes or a star, never the name of a set
    x.prior('a',) 2\nx.prior( => rejected 2 => => E1 Element expected for .option "x"
      | E1 Option keyword expected, saw ")" | E2 Element expected for .option "x"
    x.prior(i) 1\nx.prior('a',i, a 1 => rejected 2 => a=1 => E1 Set name not allowed .option "x"
      | E1 Option keyword expected, saw ")" | E2 Set name not allowed .option "x"

    // the closing bracket is that of the opening one
    x.prior('a' 2 a 1\nx.prior('a) 3 => rejected 2 => a=1 .prior=2
      => E1 E2 Closing bracket ")" expected for .option "x" | E2 Value expected for .option "x"
    x.prior['a') 1 => rejected 1 => => E1 Closing bracket "]" expected for .option "x"
      | V1 Double expected for option ".prior" saw ")" | E1 Option keyword expected, saw "1"
    x.prior{'a' 2 => rejected 1 => .prior=2 => E1 Closing bracket "}" expected for .option "x"

    // the value has the type and the bounds of the option
    x.prior 101 a 1\nx.level 2.5\nx.prior 5 => x.prior=5 rejected 2 => a=1 .prior=5
      => V1 Double out of range for option ".prior" saw "101" | V1    Valid range is 0 to 100
      | V2 Integer expected, for option ".level" saw "2.5"
    free 1 x.prior 101 => x.prior=101 => .prior=101
      => W1 Double out of range for option ".prior" saw "101" | W1    Valid range is 0 to 100
    x.prior , a 1 => rejected 1 => a=1 => V1 Double expected for option ".prior" saw ""

    // a name of more than 63 characters is rejected, but its value is stored
    <63n>.prior 5\n<64n>.prior 6 a 1 => <63n>.prior=5 rejected 1 => a=1 .prior=6
      => E2 .Option ID too long "<64n>"

    // an element is cut at 253 characters, and more than twenty are rejected
    x.prior('<254i>jk', 'l') 5 => x.prior(<253i>,l)=5 => .prior=5
    x.prior(<19'x',>'y') 5 => x.prior(<19x,>y)=5 => .prior=5
    x.prior(<19'x',>'y',*,'22') 5 a 1 => rejected 1 => a=1 .prior=5
      => E1 E1 Too many dimensions for .option "x"
)~"};
const trules normaldotoptions("dotoptions", options, normal, dotoptions);
const trules dotoptionsatendofline("dotoptions_at_end_of_line", options, endofline, dotoptions);

const trules indicators("indicators", options, normal, {__LINE__, R"~(
    // an indicator has an equation, a variable and a boolean
    IND Equ $ Var = off, a 1 => Equ$Var=0 => a=1
    ind e$v 1 a 5 => e$v=1 => a=5

    // there may be any number of indicators
    <40ind e$v 1 >ind f$w 0 => <40e$v=1 >f$w=0

    // elements stand in brackets of any kind, with or without quotes
    ind e('i',"j k")$v["j k"] := T ind\t f {i , j} $w ( j ) N ! 1 => e('i',"j k")$v("j k")=1 f(i,j)$w(j)=0

    // after a dash the keyword is an option name, and before a period it is a symbol
    -ind 1 a 5\nind.prior 7 => ind.prior=7 => a=5 .prior=7 => E1 Unknown option "ind"

    // an equation must follow
    ind\nind 5 a 1\nind=e$v 1 => => => E1 E2 E3 Equation ID expected for indicator

    // a dollar sign and a variable must follow the equation
    ind e v 1\nind e('i')\nind e => rejected 3 => => E1 E2 E3 $ expected after equation identifier "e"
    ind e$ 1 a 1\nind e$ => rejected 2 => => E1 E2 Equation ID expected for indicator

    // a boolean word must follow
    ind e$v = \nind e$v "1 => rejected 2 => => E1 E2 Boolean value expected for equation indicator "e"
    ind e$v maybe a 1\nind e$v , a 1 => rejected 2 =>
      => E1 Boolean value expected for equation indicator "e", Saw "maybe"
      | E2 Boolean value expected for equation indicator "e", Saw ""

    // after an error in the elements reading continues with the next part of the line
    ind e('i',)$v 1\nind e($v 1 a 1 => rejected 2 => a=1 => E1 Unique element expected for indicator id "e"
      | E1 $ expected after equation identifier "e" | E2 Unique element expected for indicator id "e"
    ind e(*$v 1 a 1\nind e(i)$v(* 1 a 2 => rejected 2 => a=2
      => E1 Universe not allowed for indicator id "e" | E2 Universe not allowed for indicator id "v"
    ind e[i $v 1 a 1\nind e{'i'}$v{'i' 1 a 2 => rejected 2 => a=2
      => E1 Closing bracket "]" expected for id "e" | E2 Closing bracket "}" expected for id "v"
    ind e(i$v( => rejected 1 => => E1 Closing bracket ")" expected for id "e"
      | E1 Unique element expected for indicator id "v" | E1 Boolean value expected for equation indicator "e"

    // sets of the variable must be sets of the equation, but quoted elements need not be
    ind e(i,'j')$v(j,k) 1 a 1\nind e(i)$v(I) 1 => rejected 2 => a=1
      => E1 Index "j" not controled for variable "v" | E1 Index "k" not controled for variable "v"
      | E2 Index "I" not controled for variable "v"
    ind e(i,'j')$v(i,'k') 1 => e(i,'j')$v(i,'k')=1

    // equation and variable have at most twenty elements each
    ind e(<19i,>j)$v(<19i,>j) 1 => e(<19i,>j)$v(<19i,>j)=1
    ind e(<19i,>j)$v(j) 1\nind e(<19k,>l)$v(l) 1 => e(<19i,>j)$v(j)=1 e(<19k,>l)$v(l)=1
    ind e(<19i,>j,j,k)$v(i) 1 a 1 => rejected 1 => a=1 => E1 E1 Too many dimensions for equation "e"
    ind e(<19i,>j)$v(<19i,>j,'j') 1 => rejected 1 => => E1 Too many dimensions for variable "v"

    // names and elements have at most 63 characters
    ind <63n>('<63n>')$<63n>('<63n>') 1 => <63n>('<63n>')$<63n>('<63n>')=1
    ind <64n>$v 1\nind e$<64v> 1 a 1 => rejected 2 => a=1
      => E1 Not a good equation identifier "<64n>" | E2 Variable "<64v>" is not a good identifier
    ind e(<64n>,'<64n>')$v(<64n>,'<64v>') 1 => rejected 1 =>
      => E1 E1 Bad Equation index = "e" | E1 E1 Bad variable index = "v"
)~"});

const trules indicatorsatendofline("indicators_at_end_of_line", options, endofline, {__LINE__, R"(
    // another statement may follow an indicator, but not a rejected one
    ind e$v 1 a 5\nind e$v 0 ind f$w yes 1\nind e v a 6\nind e$v no ! a 7
      => e$v=1 e$v=0 f$w=1 e$v=0 rejected 1 => a=5
      => E2 Option keyword expected, saw "1" | E3 $ expected after equation identifier "e"
)"});

const trules keywords("indicators", "a integer 1 0 0 9 1 1\n", {__LINE__, R"(
    // without a keyword there are no indicators, and if there are several keywords, the last one counts
    readfromstr ind e$v 1 ; entries => ; clearmessages
    definition ind indicator\nwhen indicator\n ; messagecount => 1 ; clearmessages
    readfromstr when e$v 1 ; readfromstr ind e$v 0 ; problems => E Unknown option "ind" ; entries => e$v=1
)"});

// When the list of messages is full, errors are no longer counted.
const trules entriesthatstay("entries", options, {__LINE__, R"(
    // entries stay through a reset
    readfromstr x.prior 5 ; readfromstr ind e$v 1 ; resetall ; entries => x.prior=5 e$v=1

    // when the list of messages is full, a line with an error after its name adds an entry
    readfromstr y.prior 500 ; entries => rejected 1 ; fill 5001
    parameters ind\nind e\nind e$v 1\ny.prior\ny.prior 500\n
    entries => y.prior=0 y.prior=1 e$=0 e$v=1 rejected 1
)"});

}  // namespace testsupport::entriestest

// Files that read files: where reading goes on afterwards, what is passed on and what is not, and the limits;
// and files of every shape: what is no ordinary file, what changes while it is read.
#include <fcntl.h>
#include <unistd.h>

#include <thread>

#include "interface/script.h"

namespace testsupport::filestest {

using namespace std::string_literals;

constexpr const char* options =
    "a integer 1 0 0 9 1 1\nb integer 2 0 0 9 1 1\ns string 3 none 1 1\nLines immediate EolFlag 0 0\n"
    "Read immediate ReadFile 0 0\nFree immediate NoBounds 0 0\nSay immediate Message 0 0\n"
    "marks eolcomm !\nl strlist 4 1 1\n";

// The file "inner", the text that names it, what both set and say.
TEST(files, includes) {
  play(options, "file inner $1 ; parameters $2 => 0 ; settings => $3 ; told => $4", R"(
    a 1\n => read %DIR%/inner\r\nb 2 => a=1 b=2
    \e => read = "%DIR%/inner" b 2\na 1 => a=1 b=2
    // Line numbers are those of each file, before and after.
    \e\na x\n => * first\nread %DIR%/inner b y\nbad 1 =>
      => +OPT | +inner | V2 Integer expected, for option "a" saw "x" | -inner
      | V2 Integer expected, for option "b" saw "y" | E3 Unknown option "bad" | -OPT
    // The notes of a file with nothing to say go; those around it stay when there is something else to say.
    a 1 => say one\nread %DIR%/inner say two => a=1 => +OPT | E1 one | E2 two | -OPT
    say inside => read %DIR%/inner => => +OPT | +inner | E1 inside | -inner | -OPT
    // The reading mode is each reading's own, checking of bounds is not.
    s x, a 1\nlines off => lines off read %DIR%/inner b 2 a 3\nb 4 a 5 => a=5 b=4 s=x, a 1
    lines off a 1 b 2 => read %DIR%/inner s x, a 3 => a=1 b=2 s=x, a 3
    free on => read %DIR%/inner a 50 => a=50
      => +OPT | W1 Integer range error for option "a" saw "50" | W1    Valid range is 0 to 9 | -OPT
    // Failures are told where the including file stands.
    \e => \nread %DIR%/. a 1\nread %DIR%/inner/x => a=1
      => +OPT | E2 Cannot open parameter file "." | E2 Error code = 21; Is a directory
      | E3 Cannot open parameter file "inner/x" | E3 Error code = 20; Not a directory | -OPT
  )");
}

// A file that reads itself ends with the tenth; strings do not count, and the depth is back where it was.
TEST(files, tenfiles) {
  play(options, R"(
    file self --list x\nread %DIR%/self\na 2
    readfromstr $1 ; settings => a=2 --list=[x|x|x|x|x|x|x|x|x] ; told => $2 ; resetall
    readfromstr $1 ; settings => a=2 --list=[x|x|x|x|x|x|x|x|x] ; told => $2
  )",
       R"(
    read = %DIR%/self
      => +string<10 | +self> | E File nesting level too deep; file ignored<10 | -self> | -string
  )");
}

// Files that include each other several times over would otherwise be read many millions of times.
TEST(files, one_call_reads_ten_thousand_files) {
  play("read immediate ReadFile 1 1\nnote strlist 1 1 1\n", R"(
    eolonlyset 0 ; file f5 note x ; file f4 <11read %DIR%/f5 > ; file f3 <11read %DIR%/f4 >
    // would read f5 14,641 times
    file f2 <11read %DIR%/f3 > ; file f1 <11read %DIR%/f2 > ; parameters read %DIR%/f1
    listcountstr note => 9088 ; getmessage 7 => *** Error Too many parameter files; file ignored|9
    // the next call has its own count
    clearmessages ; parameters read %DIR%/f4 ; messages => ; listcountstr note => 9099
  )");
}

// What is no ordinary file: nothing is read.
TEST(files, noordinaryfiles) {
  play("", R"(
    readdefinition $1 => $2
    told => D Cannot open option file "$3" | D Error code = $2; $4
    readparameterfile $1 => $2
    told => E Cannot open parameter file "$3" | E Error code = $2; $4
  )",
       R"(
    %DIR%/ => 21 => => Is a directory
    %DIR%/none => 2 => none => No such file or directory
    \e => 2 => => No such file or directory
  )");
  play("", "readdefinition /dev/null => 0 ; readparameterfile /dev/null => 0 ; messages =>");
  // A name counts whole: the system would take it for the one before the NUL.
  thandle h;
  h.string("--any x");
  const std::string name = "/dev/null\0x"s;
  EXPECT_EQ(h.call(BOTH(readdefinition), name), ENOENT);
  EXPECT_EQ(h.call(BOTH(readparameterfile), name), ENOENT);
  EXPECT_EQ(h.call(BOTH(writeparameterfile), name), ENOENT);
  optclearmessages(h.get());
  // A device that has no end is too large.
  EXPECT_EQ(h.call(BOTH(readparameterfile), "/dev/zero"), 0);
  EXPECT_EQ(
      told(h),
      "+/dev/zero | E1 Option keyword expected, saw \"\0\" | E1 Cannot read parameter file \"/dev/zero\""
      " | E1 Error code = 27; File too large | -/dev/zero"s);
}

// Lines that are added during the reading are read or not, one by one; so are files that come and go.
TEST(files, changes) {
  constexpr int n = 1000;
  thandle h;
  h.definition(options);
  std::string text;
  for (int i = 0; i < n; ++i) text += "read %DIR%/inner\nread %DIR%/grows\n";
  h.file("grows", "");
  const std::string inner = h.directory().path("inner");
  const std::string grows = h.directory().path("grows");
  std::thread other([&] {
    const int descriptor = open(grows.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    for (int i = 0; i < n / 10; ++i) {
      close(open(inner.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
      EXPECT_EQ(write(descriptor, "l x\n", 4), 4);
      unlink(inner.c_str());
    }
    close(descriptor);
  });
  h.parameters(text);
  other.join();
  std::int32_t errors = 0, warnings = 0;
  opterrorcount(h.get(), &errors, &warnings);
  const std::regex expected("No such file or directory|Cannot open parameter file \"inner\"|\"OPT\"");
  for (const std::string& message : h.takemessages())
    EXPECT_TRUE(std::regex_search(message, expected)) << message;
  EXPECT_LE(errors, 2 * n);
  optresetall(h.get());
  h.call(BOTH(readparameterfile), grows);
  EXPECT_EQ(h.call(BOTH(listcountstr), "l"), n / 10);
}

}  // namespace testsupport::filestest

// What happens when memory runs out, or the system refuses a file, at every single point of a sequence of
// calls that touches every family of functions: no crash, no leak, the handle goes on answering, and nothing
// is lost without a word. The leaks are found by the sanitizer build.
#include "faults/injection.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#include "support/handle.h"

namespace {

using namespace faults;

constexpr std::string_view definition = R"(one group 1 1 Group
comment eolcomm !
limit integer.TWO 1 10 0 100 1 1 Limit
 More on it
tol double.OPT 2 1e-6 0 1 1 1 Tolerance
name string 3 "a name" 1 1 Name
flag boolean.NV 4 0 1 1 Flag
word enumstr 5 one 1 1 Word
 one 1 First
 two 1 Second
level enumint 6 1 1 1 Level
 1 1 Low
 2 1 High
texts strlist 7 1 1 Texts
both multilist 8 1 1 Two at once
 limit tol
every macro 1 1 Both
 limit level
include immediate ReadFile 1 1 Include
say immediate Message 1 1 Message
old integer 9 0 0 9 1 1 Old
.prior double 10 1 0 9 1 1 Priority
lim synonym limit
a deprecated
 old use limit
ind indicator
)";

constexpr std::string_view parameters = R"(limit 3 4
tol
name "one two"
flag
word two
level 2
texts a
texts b
--more c
both 5:0.5
every 2
include nested.opt
say hello
old 5
lim 101
nosuch 1
x.prior("a","b") 3
ind e("a") v("b") 1
)";

// The results of calls, and what they gave out; its own work is not counted and does not fail.
class ttranscript {
 public:
  template <class tcall>
  void result(tcall call) {
    long answer = 0;
    {
      const tarmed armed;
      answer = call();
    }
    ftext += std::to_string(answer) + "\n";
  }
  template <class tcall>
  void output(tcall call) {
    std::array<char, 256> text{};
    {
      const tarmed armed;
      call(text.data());
    }
    ftext += std::string(text.data()) + "\n";
  }
  template <class tcall>
  void silent(tcall call) {
    const tarmed armed;
    call();
  }
  void add(const std::string& text) { ftext += text; }
  const std::string& text() const { return ftext; }

 private:
  std::string ftext;
};

class tscene {
 public:
  tscene() {
    fdirectory.write("test.def", definition);
    fdirectory.write("test.opt", parameters);
    fdirectory.write("nested.opt", "tol 0.25\nname nested\n");
    std::filesystem::current_path(fdirectory.path("."));
  }

  // Everything a client does with a handle; null when there was no memory for one.
  static std::string play(tvksoptions*& handle) {
    ttranscript log;
    log.silent([&] { xcreate(&handle); });
    if (handle == nullptr) return "no handle";
    log.result([&] { return coptreaddefinition(handle, "test.def"); });
    log.silent([&] { optechoset(handle, 1); });
    log.result([&] { return coptreadparameterfile(handle, "test.opt"); });
    log.silent([&] { optechoset(handle, 0); });
    log.silent([&] { coptreadfromstr(handle, "limit 7 name=x"); });
    log.silent([&] { optreadfrompchar(handle, "texts d\nname \"from a long text\""); });
    log.result([&] { return coptsetstrnr(handle, 4, "a value that is set by number"); });
    log.result([&] { return optsetintnr(handle, 2, 200); });
    log.output([&](char* text) { coptgetvalstr(handle, "name", text); });
    log.output([&](char* text) { coptgetvalstr(handle, "lim", text); });
    log.output([&](char* text) { coptgetfromliststr(handle, "texts", text); });
    log.result([&] { return coptlookup(handle, "word"); });
    log.silent([&] { coptshowhelp(handle, "3"); });
    log.silent([&] { coptaddmessage(handle, "a client's own message"); });
    log.result([&] { return optresetnr(handle, 6); });
    log.result([&] { return coptwriteparameterfile(handle, "written.opt"); });
    log.silent([&] { optresetall(handle); });
    log.result([&] { return coptwriteparameterfile(handle, "reset.opt"); });
    log.add(testsupport::readfile("written.opt"));
    return log.text();
  }

  // All messages; one is added first, since a message that had no memory comes in front of the next.
  static std::string messages(tvksoptions* handle) {
    coptaddmessage(handle, "the end");
    std::string result;
    for (std::int32_t number = 1; number <= optmessagecount(handle); ++number) {
      std::array<char, 256> text{};
      std::int32_t kind = 0;
      coptgetmessage(handle, number, text.data(), &kind);
      result += std::string(text.data()) + "\n";
    }
    return result;
  }

 private:
  testsupport::ttempdir fdirectory;
};

struct toutcome {
  std::string results;
  std::string messages;
  bool operator==(const toutcome&) const = default;
};

// Plays once with the plan. The handle must go on working afterwards.
toutcome outcome(toperation operation, teffect effect, int which) {
  std::filesystem::remove("written.opt");
  plan(operation, effect, which);
  tvksoptions* handle = nullptr;
  toutcome result = {tscene::play(handle), {}};
  if (handle == nullptr) return result;
  std::int32_t errors = 0;
  std::int32_t warnings = 0;
  opterrorcount(handle, &errors, &warnings);
  result.messages = tscene::messages(handle);
  EXPECT_FALSE(errors == 0 && result.messages.find("Out of memory") != std::string::npos);
  optclearmessages(handle);
  EXPECT_EQ(coptreaddefinition(handle, "test.def"), 0);
  coptreadfromstr(handle, "limit 9");
  std::array<char, 256> value{};
  EXPECT_EQ(coptgetvalstr(handle, "limit", value.data()), 1);
  EXPECT_STREQ(value.data(), "9");
  xfree(&handle);
  return result;
}

// Plays with the effect at every point in turn until the sequence ends before it; `told` says whether an
// outcome that differs from the usual one was reported.
template <class tcheck>
void ateverypoint(toperation operation, teffect effect, tcheck told) {
  const tscene scene;
  const toutcome usual = outcome(operation, effect, 0);
  ASSERT_GT(met(), 0)
      << "the library's calls do not come here any more: see the linker options of this program";
  int which = 1;
  for (;; ++which) {
    const toutcome changed = outcome(operation, effect, which);
    if (!happened()) break;
    EXPECT_TRUE(changed == usual || told(changed))
        << "at number " << which << " something is lost and not reported\n"
        << changed.results << changed.messages;
  }
  EXPECT_GT(which, 1);
}

bool contains(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

TEST(faults, outOfMemoryAtEveryAllocation) {
  for (const teffect effect : {teffect::fails, teffect::failsforgood})
    ateverypoint(toperation::allocation, effect, [](const toutcome& outcome) {
      return outcome.results == "no handle" || contains(outcome.messages, "*** Error Out of memory\n");
    });
}

TEST(faults, filesThatCannotBeOpened) {
  ateverypoint(toperation::open, teffect::fails, [](const toutcome& outcome) {
    const bool named =
        contains(outcome.messages, "*** Definition Error Cannot open option file \"test.def\"\n") ||
        contains(outcome.messages, "Cannot open parameter file \"test.opt\"\n") ||
        contains(outcome.messages, "Cannot open parameter file \"nested.opt\"\n") ||
        contains(outcome.messages, "Cannot write parameter file \"written.opt\"\n") ||
        contains(outcome.messages, "Cannot write parameter file \"reset.opt\"\n");
    return named && contains(outcome.messages, "Error code = 24; Too many open files\n");
  });
}

TEST(faults, filesThatCannotBeReadToTheirEnd) {
  ateverypoint(toperation::read, teffect::fails, [](const toutcome& outcome) {
    const bool named = contains(outcome.messages, "option file \"test.def\"\n") ||
                       contains(outcome.messages, "parameter file \"test.opt\"\n") ||
                       contains(outcome.messages, "parameter file \"nested.opt\"\n");
    return named && contains(outcome.messages, "Error code = 5; Input/output error\n");
  });
}

TEST(faults, fullDisk) {
  for (const toperation operation : {toperation::write, toperation::close})
    ateverypoint(operation, teffect::fails, [](const toutcome& outcome) {
      return contains(outcome.messages, "Cannot write parameter file \"written.opt\"\n") ||
             contains(outcome.messages, "Cannot write parameter file \"reset.opt\"\n");
    });
}

// Signals and devices that do part of the work at a time change nothing.
TEST(faults, interruptions) {
  for (const toperation operation :
       {toperation::open, toperation::read, toperation::write, toperation::close})
    ateverypoint(operation, teffect::interrupted, [](const toutcome&) { return false; });
}

// A FIFO is waited for: not for ever, whatever interrupts the waiting, and longer when somebody is about to write.
TEST(faults, fifos) {
  struct trow {
    int where;
    teffect effect;
    bool isopen;         // for writing
    const char* before;  // written before the reading begins
    const char* later;   // and while it waits
    int result;
    const char* name;
  };
  const trow rows[] = {
      {__LINE__, teffect::fails, false, "", "", ETIMEDOUT, "a name"},
      {__LINE__, teffect::fails, true, "name x\n", "", 0, "x"},
      {__LINE__, teffect::fails, true, "", "name y\n", 0, "y"},
      {__LINE__, teffect::interrupted, true, "", "name z\n", 0, "z"},
  };
  for (const trow& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, "row");
    const tscene scene;
    ASSERT_EQ(mkfifo("fifo", 0600), 0);
    const int fifo = row.isopen ? open("fifo", O_RDWR | O_CLOEXEC) : -1;
    const auto put = [fifo](std::string_view text) {
      EXPECT_EQ(write(fifo, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    };
    if (row.isopen) put(row.before);
    std::thread writer([&] {
      usleep(50'000);
      if (row.isopen) put(row.later), close(fifo);
    });
    tvksoptions* handle = nullptr;
    xcreate(&handle);
    coptreaddefinition(handle, "test.def");
    plan(toperation::poll, row.effect, 1);
    {
      const tarmed armed;
      EXPECT_EQ(coptreadparameterfile(handle, "fifo"), row.result);
    }
    EXPECT_TRUE(happened());
    writer.join();
    std::array<char, 256> value{};
    coptgetvalstr(handle, "name", value.data());
    EXPECT_STREQ(value.data(), row.name);
    EXPECT_EQ(contains(tscene::messages(handle), "Error code = 110; Connection timed out"), row.result != 0);
    xfree(&handle);
  }
}

}  // namespace

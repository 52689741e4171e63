// Host programs with an unusual state: rounding modes, traps, small stacks, closed standard files, threads,
// forks. None of this may change a byte of what the library returns or writes. Each case is run in a process
// of its own.
#include <fcntl.h>
#include <fenv.h>
#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xmmintrin.h>

#include <array>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <utility>

#include "host/job.h"
#include "support/handle.h"

namespace {

#ifdef WEXCORIN_SANITIZED
constexpr std::size_t tinystack = 512 * 1024;  // stack frames are several times as large with sanitizers
#else
constexpr std::size_t tinystack = 64 * 1024;
#endif

class host : public testing::Test {
 private:
  testsupport::ttempdir fdirectory;

 protected:
  std::string file(const std::string& name) const { return fdirectory.path(name); }
  // The result of the job in the usual state.
  const std::string expected = ::host::dojob(file("expected"));
  // Does the job in the state that `enter` sets and `leave` ends.
  template <class tenter, class tleave>
  void same(tenter enter, tleave leave) {
    ASSERT_GT(expected.size(), 50'000u);
    enter();
    const std::string result = ::host::dojob(file("written"));
    leave();
    EXPECT_TRUE(result == expected) << result;
  }
};

// Numbers that only exact settings read and write correctly, in both text forms.
std::string numbers(testsupport::thandle& handle) {
  handle.definition(
      "tiny double 1 1e-310 4.9e-324 1e-300 1 1 Tiny\nthird double 2 0.3333333333333333 0 1 1 1 Third\n"
      "whole integer 3 1e3 0 maxint 1 1 Whole\none macro 1 1\n third\ngroup group 1 1 Group\n");
  std::string result = handle.value("tiny");
  handle.parameters("tiny 2.5e-320\nthird 0.30000000000000004\nthird nan\nwhole 2.5\nwhole 2e9\n");
  handle.one(optresetnr, 4);
  for (const char* name : {"tiny", "third", "whole"}) result += ' ' + handle.value(name);
  return result + '\n' + testsupport::joined(handle.messages()) + testsupport::joined(handle.help("3")) +
         handle.written();
}

// The settings of both floating-point units, with the flags of exceptions.
std::string floatsettings() {
  fenv_t settings{};
  fegetenv(&settings);
  fesetenv(&settings);  // the call before has switched traps off
  return {reinterpret_cast<const char*>(&settings), sizeof settings};
}

TEST_F(host, floatingpoint) {
  testsupport::thandle usual;
  const std::string expectednumbers = numbers(usual);
  EXPECT_EQ(usual.value("tiny"), "2.49997216795671E-320");
  constexpr unsigned notraps = _MM_MASK_MASK, flags = _MM_EXCEPT_DIV_ZERO;
  constexpr unsigned flushed = _MM_FLUSH_ZERO_ON | 0x40;  // results and operands: subnormal numbers become 0
  for (const unsigned settings :
       {notraps | _MM_ROUND_UP, notraps | _MM_ROUND_DOWN | flags, notraps | _MM_ROUND_TOWARD_ZERO,
        notraps | flushed, 0U | flags, flushed | _MM_ROUND_UP}) {
    testsupport::thandle handle;
    std::string before;
    same(
        [&] {
          fesetround(static_cast<int>(settings & _MM_ROUND_MASK) >> 3);
          if ((settings & notraps) == 0) feenableexcept(FE_ALL_EXCEPT);
          _mm_setcsr(settings);
          before = floatsettings();
        },
        [&] {
          const std::string result = numbers(handle);
          EXPECT_EQ(floatsettings(), before);
          fesetenv(FE_DFL_ENV);
          EXPECT_EQ(result, expectednumbers);
        });
  }
}

// The test makes a locale with a decimal comma.
TEST_F(host, decimalComma) {
  std::ofstream(file("source")) << "comment_char %\nescape_char /\nLC_NUMERIC\ndecimal_point \",\"\n"
                                   "thousands_sep \".\"\ngrouping 3;3\nEND LC_NUMERIC\n";
  const std::string command =
      "cd '" + file("") + "' && localedef -c --no-archive -f ANSI_X3.4-1968 -i source ./comma >out 2>&1";
  ASSERT_NE(std::system(command.c_str()), -1);
  setenv("LOCPATH", file("").c_str(), 1);
  if (std::setlocale(LC_NUMERIC, "comma") == nullptr)
    GTEST_SKIP() << "no localedef, or nothing to make it of";
  same([] { ASSERT_EQ(*std::localeconv()->decimal_point, ','); }, [] { std::setlocale(LC_ALL, "C"); });
}

// The files that the library opens then have the descriptors of the standard files, and are closed like all
// others; files of the host with these descriptors stay open. A listing for standard output finds it closed.
TEST_F(host, closedStandardFiles) {
  const auto isopen = [](int number) { return fcntl(number, F_GETFD) >= 0; };
  dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
  same([] {}, [&] { EXPECT_TRUE(isopen(STDIN_FILENO)); });
  for (const int first : {STDOUT_FILENO, STDIN_FILENO}) {
    int kept[] = {-1, -1, -1};
    same(
        [&] {
          std::fflush(nullptr);
          for (int number = first; number <= 2 - first; ++number) kept[number] = dup(number);
          for (int number = first; number <= 2 - first; ++number) close(number);
          wexcorin::options options = ::host::begin();
          options.showhelp("4");
          options.read("describe 4");
          for (int line = 0; line < 300; ++line) options.read("cut_file " + std::string(250, 'x'));
          EXPECT_EQ(options.writeparameterfile(file("long")), 0);
        },
        [&] {
          std::fflush(nullptr);
          std::clearerr(stdout);
          EXPECT_GT(std::filesystem::file_size(file("long")), 300u * 250);
          for (int number = first; number <= 2 - first; ++number) {
            const bool isleft = isopen(number);
            dup2(kept[number], number);
            close(kept[number]);
            EXPECT_FALSE(isleft) << number;
          }
        });
  }
}

// A host may put a stream of its own in the place of standard output.
TEST_F(host, standardOutputInMemory) {
  char* text = nullptr;
  std::size_t size = 0;
  wexcorin::options options = ::host::begin();
  options.clearmessages();
  FILE* const kept = std::exchange(stdout, open_memstream(&text, &size));
  options.showhelp("4");
  std::fclose(std::exchange(stdout, kept));
  testing::internal::CaptureStdout();
  options.showhelp("4");
  const std::string usual = testing::internal::GetCapturedStdout();
  EXPECT_EQ(std::string(text, size), usual);
  EXPECT_NE(usual.find("\nthreads \n"), std::string::npos) << usual;
  for (const auto& message : options.messages()) EXPECT_EQ(message.text.find("Cannot"), std::string::npos);
  std::free(text);
}

// Eight threads do the job at the same time.
TEST_F(host, threadsWithTinyStacks) {
  struct tjob {
    pthread_t thread{};
    std::string written, result;
    static void* run(void* argument) {
      auto& job = *static_cast<tjob*>(argument);
      for (int time = 0; time < 3; ++time) job.result = ::host::dojob(job.written);
      return nullptr;
    }
  };
  std::array<tjob, 8> jobs;
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, tinystack), 0);
  for (tjob& job : jobs) {
    job.written = file(std::to_string(&job - jobs.data()));
    ASSERT_EQ(pthread_create(&job.thread, &attributes, tjob::run, &job), 0);
  }
  pthread_attr_destroy(&attributes);
  for (tjob& job : jobs) {
    pthread_join(job.thread, nullptr);
    EXPECT_TRUE(job.result == expected) << job.result;
  }
}

// A thread that is to be cancelled finishes the calls of the library first.
TEST_F(host, cancelledThread) {
  struct twork {
    std::string file;
    wexcorin::options options = ::host::begin();
    bool isdone = false;
  } work{file("written")};
  pthread_t thread{};
  const auto run = [](void* argument) -> void* {
    auto& mine = *static_cast<twork*>(argument);
    pthread_cancel(pthread_self());
    mine.options.readparameterfile("examples/solver.opt");
    mine.isdone = mine.options.writeparameterfile(mine.file) == 0;
    pthread_testcancel();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, nullptr, run, &work), 0);
  void* result = nullptr;
  pthread_join(thread, &result);
  EXPECT_TRUE(work.isdone);
  EXPECT_EQ(result, PTHREAD_CANCELED);
}

// Both processes continue to use the handle.
TEST_F(host, fork) {
  wexcorin::options options = ::host::begin();
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) _exit(::host::finish(options, file("child")) == expected ? 0 : 1);
  EXPECT_TRUE(::host::finish(options, file("parent")) == expected);
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
}

}  // namespace

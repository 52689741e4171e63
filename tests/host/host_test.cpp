// Host programs with an unusual state: rounding modes, traps, small stacks, closed standard files, threads,
// forks. None of this may change a byte of what the library returns or writes. Each case is run in a process
// of its own.
#include <fenv.h>
#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <cstdlib>
#include <fstream>

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

TEST_F(host, roundingandtraps) {
  for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    same([&] { fesetround(mode); },
         [&] {
           EXPECT_EQ(fegetround(), mode);  // the mode is unchanged
           fesetround(FE_TONEAREST);
         });
  }
  constexpr int trapped = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;
  feclearexcept(FE_ALL_EXCEPT);
  feenableexcept(trapped);
  if (fegetexcept() != trapped) GTEST_SKIP() << "no trap can be set here, as under Valgrind";
  same([] {}, [&] { EXPECT_EQ(fedisableexcept(trapped), trapped); });
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

// The files that the library opens then have the descriptors of the standard files. A listing for standard
// output finds it closed.
TEST_F(host, closedStandardFiles) {
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
        },
        [&] {
          std::fflush(nullptr);
          std::clearerr(stdout);
          for (int number = first; number <= 2 - first; ++number)
            dup2(kept[number], number), close(kept[number]);
        });
  }
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

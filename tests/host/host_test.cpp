// What a host program may be like: how it rounds, what it traps, how little stack it gives, what it has
// closed, on how many threads it works, whether it forks. Nothing of it changes a byte of what the library
// answers or writes. Each case is a process of its own.
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
constexpr std::size_t tinystack = 512 * 1024;  // sanitizers have frames several times as large
#else
constexpr std::size_t tinystack = 64 * 1024;
#endif

class host : public testing::Test {
 private:
  testsupport::ttempdir fdirectory;

 protected:
  std::string file(const std::string& name) const { return fdirectory.path(name); }
  // What the job answers where nothing is unusual.
  const std::string expected = ::host::dojob(file("expected"));
  // The job in the state that `enter` makes.
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
           EXPECT_EQ(fegetround(), mode);  // left as it was
           fesetround(FE_TONEAREST);
         });
  }
  constexpr int trapped = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;
  feclearexcept(FE_ALL_EXCEPT);
  feenableexcept(trapped);
  if (fegetexcept() != trapped) GTEST_SKIP() << "no trap can be set here, as under Valgrind";
  same([] {}, [&] { EXPECT_EQ(fedisableexcept(trapped), trapped); });
}

// In a locale that is made here.
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

// The library's files then get the numbers of the standard files. A listing that goes to standard output
// finds none.
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

// All at once.
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

// Both processes go on with the handle.
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

// Writing that fails in the two ways that end a process which is not prepared for them: the reader of a pipe
// has left, or a file would exceed the limit of the process. The errors are reported, and the host's signals
// are as they were, whatever the host does with them. And a terminal that stops a process in the background.
#include <fcntl.h>
#include <stdio_ext.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <thread>
#include <utility>

#include "support/handle.h"
#include "wexcorin/wexcorin.hpp"

namespace {

int received = 0;
void receive(int) { ++received; }

// Of each signal the handler, and whether it is blocked and pending.
std::string signalstate() {
  sigset_t blocked, pending;
  pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
  sigpending(&pending);
  std::string result = std::to_string(received);
  for (int number = 1; number < NSIG; ++number) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    result += '\n' + std::to_string(number) + ' ' +
              std::to_string(reinterpret_cast<std::uintptr_t>(action.sa_handler)) +
              (sigismember(&blocked, number) == 1 ? " blocked" : "") +
              (sigismember(&pending, number) == 1 ? " pending" : "");
  }
  std::ifstream status("/proc/thread-self/status");  // says for whom signals are pending
  for (std::string line; std::getline(status, line);)
    if (line.find("Pnd:") != line.npos) result += '\n' + line;
  return result;
}

class signals : public testing::Test {
 protected:
  signals() {
    for (int line = 0; line < 300; ++line) foptions.read("list " + std::string(250, 'x'));
  }

  // Help that an option file and a call want, on a standard output without a reader.
  void brokenoutput() {
    std::fflush(stdout);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    const int kept = dup(STDOUT_FILENO);
    dup2(ends[1], STDOUT_FILENO);
    foptions.readparameterfile(fdirectory.write("help.opt", "\nhelp 4\n"));
    foptions.showhelp("4");
    std::fflush(stdout);  // would fail if a part of the help were left in the buffer
    std::fputs("what the host prints", stdout);
    foptions.showhelp("4");
    __fpurge(stdout);
    dup2(kept, STDOUT_FILENO);
    close(kept);
    close(ends[1]);
  }

  // More than fits in a pipe; the reader does not take any of it.
  void brokenpipe() {
    const std::string name = fdirectory.path("fifo");
    ASSERT_EQ(mkfifo(name.c_str(), 0600), 0);
    std::thread reader([&] { close(open(name.c_str(), O_RDONLY)); });
    foptions.writeparameterfile(name);
    reader.join();
    unlink(name.c_str());
  }

  void limitedfile() {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{1000, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    foptions.writeparameterfile(fdirectory.path("file"));
    setrlimit(RLIMIT_FSIZE, &limit);
  }

  // All that fails; the messages, with the names of files without their folder.
  std::string failures() {
    brokenoutput();
    brokenpipe();
    limitedfile();
    foptions.writeparameterfile(fdirectory.path("none/file"));
    foptions.writeparameterfile("/dev/full");
    std::string result;
    for (const auto& message : foptions.messages()) result += message.text + '\n';
    foptions.clearmessages();
    const std::string folder = fdirectory.path("");
    for (std::size_t at = 0; (at = result.find(folder)) != result.npos;) result.erase(at, folder.size());
    return result;
  }

 private:
  testsupport::ttempdir fdirectory;
  wexcorin::options foptions{fdirectory.write("DEF", "list strlist 1 1 1\ng group 1 1 Group\n")};
};

TEST_F(signals, areheldback) {
  const std::string expected =
      "Reading parameter(s) from \"help.opt\"\n"
      "*** Error line 2: Cannot write help to standard output\n*** Error line 2:    Error code = 32; Broken "
      "pipe\nFinished reading from \"help.opt\"\n"
      "*** Error Cannot write help to standard output\n*** Error    Error code = 32; Broken pipe\n"
      "*** Error Cannot write help to standard output\n*** Error    Error code = 32; Broken pipe\n"
      "*** Error Cannot write parameter file \"fifo\"\n*** Error    Error code = 32; Broken pipe\n"
      "*** Error Cannot write parameter file \"file\"\n*** Error    Error code = 27; File too large\n"
      "*** Error Cannot write parameter file \"none/file\"\n*** Error    Error code = 2; No such file or "
      "directory\n"
      "*** Error Cannot write parameter file \"/dev/full\"\n*** Error    Error code = 28; No space left on "
      "device\n";
  sigset_t both;
  sigemptyset(&both);
  sigaddset(&both, SIGPIPE);
  sigaddset(&both, SIGXFSZ);
  sigset_t other;
  sigemptyset(&other);
  sigaddset(&other, SIGHUP);
  pthread_sigmask(SIG_BLOCK, &other, nullptr);
  raise(SIGHUP);  // stays pending
  const auto unchanged = [&](const char* host) {
    const std::string before = signalstate();
    EXPECT_EQ(failures(), expected) << host;
    EXPECT_EQ(signalstate(), before) << host;
  };
  for (const auto handler : {SIG_DFL, SIG_IGN, receive}) {
    for (const int number : {SIGPIPE, SIGXFSZ}) std::signal(number, handler);
    unchanged("a handler");
  }
  pthread_sigmask(SIG_BLOCK, &both, nullptr);
  unchanged("blocked");
  const auto arrive = [&] {
    pthread_sigmask(SIG_UNBLOCK, &both, nullptr);
    pthread_sigmask(SIG_BLOCK, &both, nullptr);
    return std::exchange(received, 0);
  };
  const auto forthread = [&] {
    for (const int number : {SIGPIPE, SIGXFSZ}) raise(number);
    unchanged("pending for the thread");
    EXPECT_EQ(arrive(), 2);
  };
  forthread();
  std::thread(forthread).join();
  for (const int number : {SIGPIPE, SIGXFSZ}) kill(getpid(), number);
  unchanged("pending for the process");
  EXPECT_EQ(arrive(), 2);
  for (const int number : {SIGPIPE, SIGXFSZ}) {
    kill(getpid(), number);
    raise(number);
  }
  unchanged("pending for both");
  EXPECT_EQ(arrive(), 4);
  pthread_sigmask(SIG_UNBLOCK, &both, nullptr);
  std::signal(SIGHUP, SIG_IGN);  // takes it
  pthread_sigmask(SIG_UNBLOCK, &other, nullptr);
  std::signal(SIGHUP, SIG_DFL);
}

// Runs the job in the background of a terminal that stops processes there, and returns its status for wait.
template <class tjob>
int inbackground(const char* terminal, tjob job) {
  int status = 0;
  const pid_t session = fork();
  if (session == 0) {
    setsid();
    termios settings{};
    const int own = open(terminal, O_RDWR);  // it becomes the terminal of the session
    tcgetattr(own, &settings);
    settings.c_lflag |= TOSTOP;
    tcsetattr(own, TCSANOW, &settings);
    const pid_t background = fork();
    setpgid(background, background);
    if (background == 0) _exit(job());
    waitpid(background, &status, WUNTRACED);
    if (WIFSTOPPED(status)) kill(background, SIGKILL);
    _exit(WIFSTOPPED(status) ? WSTOPSIG(status) : WEXITSTATUS(status));
  }
  waitpid(session, &status, 0);
  return status;
}

TEST_F(signals, stopNoProcessInTheBackground) {
  const int master = posix_openpt(O_RDWR | O_NOCTTY);
  ASSERT_EQ(grantpt(master) | unlockpt(master), 0);
  const int status = inbackground(ptsname(master), [] {
    wexcorin::options options;
    options.read("--list text");
    const std::int32_t code = options.readparameterfile("/dev/tty");
    options.clearmessages();
    options.writeparameterfile("/dev/tty");
    return code == EIO && options.messages().empty() ? 0 : 1;
  });
  EXPECT_EQ(status, 0) << "the number of the signal that stopped it, times 256";
  char written[7] = {};
  EXPECT_EQ(read(master, written, 6), 6);
  EXPECT_STREQ(written, "--list");
  close(master);
}

}  // namespace

// A sequence of calls from every family of functions is played again and again. Each time, memory runs out or
// the system refuses a file at the next point. There must be no crash and no leak, the handle must stay
// usable, and every loss must be reported. Leaks are found by the sanitizer build. The program is linked with
// the library's objects; operator new is replaced, and the linker redirects calls of the C library to the
// functions below.
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/un.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <fstream>
#include <new>
#include <regex>
#include <thread>
#include <utility>

#include "base/nameindex.h"
#include "faults/scene.h"

namespace testsupport::faults {

bool armed = false;

namespace {

enum class toperation { allocation, open, read, write, close, poll };
enum class teffect {
  fails,         // as when memory or a disk is full, or a device has an error
  failsforgood,  // all later operations fail, too; a read or write with EAGAIN, although poll says "ready"
  interrupted    // not for memory: only a part is done, or nothing, with EINTR
};

// While the plan is armed, operations of the planned kind are counted from 1. Number `plannednumber` has the
// effect; with 0 none has it. The plan is armed during calls of the library, but not for the test's own work.
toperation plannedoperation = toperation::allocation;
teffect plannedeffect = teffect::fails;
int plannednumber = 0;
int count = 0;
bool hastened = false;
int putforward = 0;         // milliseconds
ssize_t leftofdevice = -1;  // bytes that reading still delivers; -1 for no limit

bool isturn(toperation operation) {
  if (!armed || operation != plannedoperation) return false;
  ++count;
  return plannedeffect == teffect::failsforgood ? count >= plannednumber : count == plannednumber;
}

ssize_t failed(int error) {
  errno = error;
  return -1;
}

void plan(toperation operation, teffect effect, int which) {
  plannedoperation = operation;
  plannedeffect = effect;
  plannednumber = which;
  count = 0;
}

bool happened() { return plannednumber > 0 && count >= plannednumber; }

}  // namespace

}  // namespace testsupport::faults

using namespace testsupport::faults;

void* operator new(std::size_t size) {
  void* block = isturn(toperation::allocation) ? nullptr : std::malloc(std::max<std::size_t>(size, 1));
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }

// The linker's names for the functions that replace those of the C library, and for the originals.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

void* __real_realloc(void*, std::size_t);
void* __wrap_realloc(void* block, std::size_t size) {
  return isturn(toperation::allocation) ? nullptr : __real_realloc(block, size);
}

int __real_open(const char*, int, mode_t);
int __wrap_open(const char* name, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const auto mode = static_cast<mode_t>(va_arg(arguments, unsigned));
  va_end(arguments);
  if (isturn(toperation::open))
    return static_cast<int>(failed(plannedeffect == teffect::fails ? EMFILE : EINTR));
  return __real_open(name, flags, mode);
}

ssize_t __real_read(int, void*, std::size_t);
ssize_t __wrap_read(int descriptor, void* buffer, std::size_t size) {
  if (armed && leftofdevice >= 0) {
    const ssize_t result =
        __real_read(descriptor, buffer, std::min(size, static_cast<std::size_t>(leftofdevice)));
    leftofdevice -= result;
    return result;
  }
  if (!isturn(toperation::read)) return __real_read(descriptor, buffer, size);
  if (plannedeffect != teffect::interrupted) return failed(plannedeffect == teffect::fails ? EIO : EAGAIN);
  return plannednumber % 2 == 0 ? failed(EINTR)
                                : __real_read(descriptor, buffer, std::min<std::size_t>(size, 3));
}

ssize_t __real_write(int, const void*, std::size_t);
ssize_t __wrap_write(int descriptor, const void* buffer, std::size_t size) {
  if (!isturn(toperation::write)) return __real_write(descriptor, buffer, size);
  if (plannedeffect == teffect::failsforgood) return failed(EAGAIN);
  if (plannedeffect == teffect::fails) return plannednumber % 2 == 0 ? 0 : failed(ENOSPC);
  return plannednumber % 2 == 0 ? failed(EINTR)
                                : __real_write(descriptor, buffer, std::min<std::size_t>(size, 1));
}

// The descriptor is closed in any case.
int __real_close(int);
int __wrap_close(int descriptor) {
  const bool turn = isturn(toperation::close);
  const int result = __real_close(descriptor);
  return turn ? static_cast<int>(failed(plannedeffect == teffect::fails ? EIO : EINTR)) : result;
}

// `failsforgood` means that there is no memory. While time is hastened, waiting in vain takes no time: the
// clock is put forward instead.
int __real_poll(pollfd*, nfds_t, int);
int __wrap_poll(pollfd* requests, nfds_t length, int patience) {
  if (isturn(toperation::poll))
    return static_cast<int>(failed(plannedeffect == teffect::interrupted ? EINTR : ENOMEM));
  const int result = __real_poll(requests, length, hastened ? 0 : patience);
  if (hastened && result == 0) putforward += patience;
  return result;
}

int __real_clock_gettime(clockid_t, timespec*);
int __wrap_clock_gettime(clockid_t clock, timespec* time) {
  const int result = __real_clock_gettime(clock, time);
  time->tv_sec += putforward / 1000;
  return result;
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)

namespace testsupport::faults {

namespace {

std::string valueof(tvksoptions* handle, const char* name) {
  std::array<char, 256> value{};
  coptgetvalstr(handle, name, value.data());
  return value.data();
}

// Plays once with the plan. Returns results and messages. The handle must still work afterwards.
std::string outcome(toperation operation, teffect effect, int which) {
  std::filesystem::remove("written.opt");
  plan(operation, effect, which);
  tvksoptions* handle = nullptr;
  std::string result = tscene::play(handle);
  if (handle == nullptr) return result;
  std::int32_t errors = 0, warnings = 0;
  opterrorcount(handle, &errors, &warnings);
  result += tscene::messages(handle);
  const std::size_t nomemory = result.find("Out of memory");
  EXPECT_FALSE(errors == 0 && nomemory != std::string::npos);
  // one failure is reported once
  EXPECT_TRUE(effect != teffect::fails || result.find("Out of memory", nomemory + 1) == std::string::npos)
      << result;
  askeverything(handle);
  optclearmessages(handle);
  EXPECT_EQ(coptreaddefinition(handle, "test.def"), 0);
  coptreadfromstr(handle, "maxit 9");
  EXPECT_EQ(valueof(handle, "maxit"), "9");
  xfree(&handle);
  return result;
}

// Plays with the effect at every point in turn, until the sequence has no such point. An outcome that differs
// from the usual one must come with a message. Interrupted and partial operations must change nothing.
TEST(faults, ateverypoint) {
  using enum toperation;
  using enum teffect;
  const char* const nomemory = R"(^no handle|\*\*\* Error Out of memory\n)";
  const char* const notwritten = R"(Cannot write parameter file "(written|reset).opt"\n)";
  const struct {
    int where;
    toperation operation;
    teffect effect;
    const char* told = "(?!)";
  } rows[] = {
      {__LINE__, allocation, fails, nomemory},
      {__LINE__, allocation, failsforgood, nomemory},
      {__LINE__, toperation::open, fails,
       R"~((\*\*\* Definition Error Cannot open option file "test.def"|Cannot open parameter file "(test|nested).opt")~"
       R"~(|Cannot write parameter file "(written|reset).opt")\n.*Error code = 24; Too many open files\n)~"},
      {__LINE__, toperation::read, fails,
       R"~((option file "test.def"|parameter file "(test|nested).opt")\n.*Error code = 5; Input/output error\n)~"},
      {__LINE__, toperation::write, fails, notwritten},
      {__LINE__, toperation::close, fails, notwritten},
      {__LINE__, toperation::open, interrupted},
      {__LINE__, toperation::read, interrupted},
      {__LINE__, toperation::write, interrupted},
      {__LINE__, toperation::close, interrupted},
  };
  for (const auto& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, row.told);
    const tscene scene;
    const std::string usual = outcome(row.operation, row.effect, 0);
    ASSERT_GT(count, 0)
        << "the library's calls do not come here any more: see the linker options of this program";
    const std::regex told(row.told);
    int which = 0;
    bool istold = false;
    do {
      const std::string changed = outcome(row.operation, row.effect, ++which);
      const bool reported = std::regex_search(changed, told);
      istold = istold || reported;
      EXPECT_TRUE(!happened() || changed == usual || reported)
          << "at number " << which << " something is lost and not reported\n"
          << changed;
    } while (happened());
    EXPECT_GT(which, 1);
    EXPECT_EQ(istold, row.effect != interrupted);
  }
}

// By messages, or by the result when the list of messages is too full for them.
TEST(faults, afilethatisnotreadtoitsendisreported) {
  const struct {
    int where;
    decltype(&coptreadparameterfile) read;
    const char* file;
    int failing;   // the number of the read
    int messages;  // that are filed before; a file that is entered adds one
    int result;
  } rows[] = {
      {__LINE__, coptreaddefinition, "test.def", 2, 4998, 0},
      {__LINE__, coptreaddefinition, "test.def", 2, 4999, EIO},
      {__LINE__, coptreadparameterfile, "nested.opt", 2, 4997, 0},
      {__LINE__, coptreadparameterfile, "nested.opt", 2, 4998, EIO},
      {__LINE__, coptreadparameterfile, "nested.opt", 2, 6000, EIO},
      {__LINE__, coptreadparameterfile, "including.opt", 3, 4996, 0},
      {__LINE__, coptreadparameterfile, "including.opt", 3, 4997, EIO},
      {__LINE__, coptreadparameterfile, "including.opt", 2, 4998, EIO},  // the included file's first read
  };
  for (const auto& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, "row");
    const tscene scene;
    std::ofstream("including.opt") << "include nested.opt\nnote last\n";
    tvksoptions* handle = nullptr;
    xcreate(&handle);
    if (row.read == coptreadparameterfile) coptreaddefinition(handle, "test.def");
    for (int i = 0; i < row.messages; ++i) coptaddmessage(handle, "filler");
    plan(toperation::read, teffect::fails, row.failing);
    tsteps step;
    step(row.read, handle, row.file);
    EXPECT_EQ(step.log, std::to_string(row.result) + " \n");
    EXPECT_EQ(tscene::messages(handle).find("Error code = 5") != std::string::npos, row.result == 0);
    EXPECT_TRUE(row.file != std::string("including.opt") || valueof(handle, "note") == "last");
    xfree(&handle);
  }
}

TEST(faults, of_a_device_16_mebibytes_are_read) {
  for (const bool islonger : {false, true}) {
    tvksoptions* handle = nullptr;
    xcreate(&handle);
    leftofdevice = 16 * 1024 * 1024 + (islonger ? 1 : 0);
    tsteps step;
    step(coptreadparameterfile, handle, "/dev/zero");
    EXPECT_EQ(std::exchange(leftofdevice, -1), 0);
    EXPECT_EQ(tscene::messages(handle).find("File too large") != std::string::npos, islonger);
    xfree(&handle);
  }
}

// A long list is not walked for each of many names.
TEST(faults, without_memory_for_an_index_only_a_short_list_is_searched) {
  for (const std::int32_t items : {500, 501}) {
    optcore::tnameindex index;
    const auto numberat = [](std::int32_t position) { return optcore::tnumberkey{position}; };
    const auto search = [&] { return index.find(items, optcore::tnumberkey{items - 1}, numberat); };
    plan(toperation::allocation, teffect::failsforgood, 1);
    armed = true;
    std::int32_t found = -1;
    bool failed = false;
    try {
      found = search();
    } catch (const std::bad_alloc&) {
      failed = true;
    }
    armed = false;
    EXPECT_EQ(failed, items > 500);
    EXPECT_EQ(found, failed ? -1 : items - 1);
    EXPECT_EQ(search(), items - 1);
  }
}

// The first look-up of a name by its significant characters makes their index.
TEST(faults, without_memory_for_its_index_a_name_is_not_found) {
  const tscene scene;
  std::string definition;
  for (int i = 0; i < 501; ++i) definition.append("name_" + std::to_string(100 + i) + " strlist 1 1 1\n");
  std::ofstream("many.def") << definition << "Path lookup\n";
  tvksoptions* handle = nullptr;
  xcreate(&handle);
  coptreaddefinition(handle, "many.def");
  plan(toperation::allocation, teffect::failsforgood, 1);
  tsteps step;
  const optshortstring name = {10, "namely_600"};
  step(coptlookup, handle, "namely_600");
  step(optlookup, handle, &name);
  EXPECT_EQ(step.log, "-1 \n-1 \n");
  EXPECT_EQ(tscene::messages(handle), "*** Error Out of memory\n*** Error the end\n");
  EXPECT_EQ(coptlookup(handle, "namely_600"), 501);
  xfree(&handle);
}

// A handle with the scene's definition, whose calls wait without taking time.
struct twaitinghandle {
  twaitinghandle() {
    xcreate(&handle);
    coptreaddefinition(handle, "test.def");
    plan(toperation::poll, teffect::fails, 0);
    hastened = true;
    putforward = 0;
  }
  twaitinghandle(const twaitinghandle&) = delete;
  twaitinghandle& operator=(const twaitinghandle&) = delete;
  ~twaitinghandle() {
    xfree(&handle);
    hastened = false;
  }
  std::ptrdiff_t timeouts() const {
    const std::string messages = tscene::messages(handle);
    const std::regex text("Error code = 110; Connection timed out\n");
    return std::distance(std::sregex_iterator(messages.begin(), messages.end(), text), {});
  }
  tvksoptions* handle = nullptr;
};

int openfifo(const char* name, int flags) {
  mkfifo(name, 0600);
  return open(name, flags | O_CLOEXEC);
}

// The library waits for a FIFO, but not for ever, whatever interrupts the waiting. The writer may come late,
// write slowly and end in the middle of a line, or write nothing more.
TEST(faults, a_fifo_is_waited_for_but_not_for_ever) {
  const struct {
    int where;
    teffect effect;                  // of the first poll, "fails" for none
    bool isopen;                     // for writing, before the reading begins
    std::string_view before, later;  // written before the reading begins, and while it waits
    int result, seconds;
    const char* value;
  } rows[] = {
      {__LINE__, teffect::fails, false, "", "", ETIMEDOUT, 5, "none"},
      {__LINE__, teffect::fails, true, "", "", ETIMEDOUT, 60, "none"},
      {__LINE__, teffect::fails, true, "note x\n", "", 0, 60, "x"},
      {__LINE__, teffect::interrupted, false, "", "note z\n", 0, 0, "z"},
      {__LINE__, teffect::interrupted, true, "", "note y\n", 0, 0, "y"},
      {__LINE__, teffect::failsforgood, true, "", "", ENOMEM, 0, "none"},
      {__LINE__, teffect::failsforgood, true, "note v\n", "", 0, 0, "v"},
      {__LINE__, teffect::fails, false, "", "string_list a\nnote w", 0, 0, "w"},
  };
  for (const auto& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, "row");
    const tscene scene;
    const twaitinghandle waiting;
    ASSERT_EQ(mkfifo("fifo", 0600), 0);
    int fifo = row.isopen ? openfifo("fifo", O_RDWR) : -1;
    const auto put = [&fifo](std::string_view text) {
      EXPECT_EQ(write(fifo, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    };
    if (row.isopen) put(row.before);
    std::thread writer([&] {
      if (row.later.empty()) return;
      usleep(50'000);
      if (!row.isopen) fifo = open("fifo", O_RDWR | O_CLOEXEC);
      for (std::size_t at = 0; at < row.later.size(); ++at, usleep(2'000)) put(row.later.substr(at, 1));
      close(fifo);
      fifo = -1;
    });
    hastened = row.later.empty();
    plan(toperation::poll, row.effect, row.effect == teffect::fails ? 0 : 1);
    tsteps step;
    step(coptreadparameterfile, waiting.handle, "fifo");
    EXPECT_EQ(step.log, std::to_string(row.result) + " \n");
    writer.join();
    close(fifo);
    EXPECT_EQ(valueof(waiting.handle, "note"), row.value);
    EXPECT_EQ(putforward / 1000, row.seconds);
    EXPECT_EQ(waiting.timeouts(), row.seconds > 0 ? 1 : 0);
  }
}

// One call waits five seconds for writers of FIFOs to come, and a minute in all.
TEST(faults, a_call_waits_for_all_its_files_together) {
  const tscene scene;
  const twaitinghandle waiting;
  ASSERT_EQ(mkfifo("nobody", 0600), 0);
  const int silent = openfifo("silent", O_RDWR), full = openfifo("full", O_RDWR);
  ASSERT_EQ(write(full, "note x\n", 7), 7);
  std::ofstream("files") << "include nobody\ninclude nobody\ninclude silent\ninclude silent\n"
                            "include nobody\ninclude full\ninclude nested.opt\n";
  EXPECT_EQ(coptreadparameterfile(waiting.handle, "files"), 0);
  EXPECT_EQ(putforward / 1000, 60);
  EXPECT_EQ(waiting.timeouts(), 6);
  EXPECT_EQ(valueof(waiting.handle, "note"), "nested");
  for (const int fifo : {silent, full}) close(fifo);
}

// Some devices are always ready when poll is asked, and then give and take nothing.
TEST(faults, a_device_that_only_seems_ready_is_given_up) {
  const tscene scene;
  const twaitinghandle waiting;
  coptreadfromstr(waiting.handle, "note x");  // something to write
  tsteps step;
  plan(toperation::read, teffect::failsforgood, 1);
  step(coptreadparameterfile, waiting.handle, "nested.opt");
  plan(toperation::write, teffect::failsforgood, 1);
  step(coptwriteparameterfile, waiting.handle, "written.opt");
  EXPECT_EQ(step.log + std::to_string(putforward / 1000), "110 \n0 \n120");
}

// What is written has to be taken.
TEST(faults, a_fifo_that_nobody_reads_is_not_written_for_ever) {
  const tscene scene;
  const twaitinghandle waiting;
  ASSERT_EQ(mkfifo("nobody", 0600), 0);
  EXPECT_EQ(coptwriteparameterfile(waiting.handle, "nobody"), ETIMEDOUT);
  EXPECT_EQ(putforward / 1000, 5);
  EXPECT_EQ(waiting.timeouts(), 1);

  const int idle = openfifo("idle", O_RDWR);
  fcntl(idle, F_SETPIPE_SZ, 4096);
  const std::string line = "string_list " + std::string(200, 'x') + '\n';
  for (int i = 0; i < 50; ++i) coptreadfromstr(waiting.handle, line.c_str());
  EXPECT_EQ(coptwriteparameterfile(waiting.handle, "idle"), 0);
  EXPECT_EQ(putforward / 1000, 65);
  EXPECT_EQ(waiting.timeouts(), 2);
  close(idle);

  ASSERT_EQ(mkfifo("late", 0600), 0);
  hastened = false;
  std::string taken;
  std::thread reader([&taken] {
    usleep(50'000);
    taken = readfile("late");
  });
  EXPECT_EQ(coptwriteparameterfile(waiting.handle, "late"), 0);
  reader.join();
  EXPECT_EQ(taken.size(), 50 * line.size());

  // nobody can become the reader of a socket in this way
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_un address = {AF_UNIX, "socket"};
  ASSERT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  EXPECT_EQ(coptwriteparameterfile(waiting.handle, "socket"), ENXIO);
  close(socket);
}

}  // namespace

}  // namespace testsupport::faults

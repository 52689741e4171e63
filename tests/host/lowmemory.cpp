// A process that loads the library with dlopen, is not linked with the C++ runtime, and has only a little
// memory left when it makes its first call in a thread. The call may fail, but the process lives.
//
//   lowmemory library
#include <dlfcn.h>
#include <malloc.h>
#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <initializer_list>

#include "wexcorin/wexcorin.h"

// The bytes that may still be allocated.
static long memory = LONG_MAX;

static void* counted(void* block) {
  memory -= static_cast<long>(malloc_usable_size(block));
  return block;
}

// These replace the functions of the C library in the whole process.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
extern "C" {
void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);
void __libc_free(void*);

void* malloc(size_t size) {
  return static_cast<long>(size) <= memory ? counted(__libc_malloc(size)) : nullptr;
}
void* calloc(size_t number, size_t size) {
  return static_cast<long>(number * size) <= memory ? counted(__libc_calloc(number, size)) : nullptr;
}
void* realloc(void* block, size_t size) {
  if (static_cast<long>(size) > memory) return nullptr;
  memory += static_cast<long>(malloc_usable_size(block));
  return counted(__libc_realloc(block, size));
}
void free(void* block) {
  memory += static_cast<long>(malloc_usable_size(block));
  __libc_free(block);
}
}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)

static void* library = nullptr;
static tvksoptions* handle = nullptr;

#define CALL(name, ...) reinterpret_cast<decltype(&name)>(dlsym(library, #name))(__VA_ARGS__)

static void* begin(void*) {
  CALL(xcreate, &handle);
  CALL(coptreaddefinition, handle, "examples/solver.def");
  CALL(optclearmessages, handle);
  return nullptr;
}

static char longtext[255];
static tvksoptions* created = nullptr;
static int number = 0, reference = 0;

// The calls that may need memory; whether each was done.
static bool docreate() { return CALL(xcreate, &created) != nullptr; }
static bool dodefine() { return CALL(coptreaddefinition, handle, "examples/solver.def") != ENOMEM; }
static bool doread() { return CALL(coptreadparameterfile, handle, "examples/solver.opt") != ENOMEM; }
static bool dowrite() { return CALL(coptwriteparameterfile, handle, "/dev/null") != ENOMEM; }
static bool doset() {
  return CALL(coptfindstr, handle, "log_file", &number, &reference) == 1 &&
         CALL(coptsetstrnr, handle, number, longtext) == 1;
}
static bool dorefuse() {
  CALL(coptfindstr, handle, "threads", &number, &reference);
  CALL(optsetintnr, handle, number, INT_MIN);  // two messages
  return CALL(optmessagecount, handle) == 2;
}

static const struct {
  const char* name;
  bool (*call)();
} calls[] = {{"xcreate", docreate},
             {"coptreaddefinition", dodefine},
             {"coptreadparameterfile", doread},
             {"coptwriteparameterfile", dowrite},
             {"coptsetstrnr", doset},
             {"optsetintnr", dorefuse}};

// In a process of its own: the handle is made by another thread. Returns whether the call was done.
static bool attempt(const char* path, bool (*call)(), long limit) {
  library = dlopen(path, RTLD_NOW);
  pthread_t thread;
  pthread_create(&thread, nullptr, begin, nullptr);
  pthread_join(thread, nullptr);
  memory = limit;
  const bool isdone = call();
  memory = LONG_MAX;
  int errors = 0, warnings = 0;
  CALL(opterrorcount, handle, &errors, &warnings);
  return isdone || (call != docreate && errors == 0);
}

int main(int, char** arguments) {
  int faults = dlopen("libstdc++.so.6", RTLD_NOW | RTLD_NOLOAD) == nullptr ? 0 : 1;
  for (char& character : longtext) character = 'x';
  longtext[254] = '\0';
  for (const auto& call : calls) {
    for (const long limit : {0, 200, 10'000, 19'900, 20'100, 25'000, 50'000, 10'000'000}) {
      const pid_t child = fork();
      if (child == 0) _exit(attempt(arguments[1], call.call, limit) ? 0 : 1);
      int status = -1;
      waitpid(child, &status, 0);
      const bool isright = WIFEXITED(status) &&
                           (limit == 0 || limit == 10'000'000 ? WEXITSTATUS(status) == (limit == 0 ? 1 : 0)
                                                              : WEXITSTATUS(status) <= 1);
      if (isright) continue;
      ++faults;
      std::printf("%s with %ld bytes: status %d\n", call.name, limit, status);
    }
  }
  return faults == 0 ? 0 : 1;
}

// unlocked.h: calls without the interpreter lock, and what becomes of them when the interpreter exits.
#pragma once

#include <pthread.h>
#include <pybind11/pybind11.h>
#include <unistd.h>

#include <atomic>
#include <exception>
#include <thread>

namespace binding {

// A daemon thread may be in a call when the interpreter exits. If it asked for the lock then, the interpreter
// would end the thread in the midst of this code, which aborts the process. So it sleeps until the process
// has ended.
class interpreterexit {
 public:
  // Called once by the interpreter when it begins to exit, in the thread that exits.
  static void begin() {
    fexiting = std::this_thread::get_id();
    while (freturning > 0) {  // these have asked already: they get the lock
      PyThreadState* state = PyEval_SaveThread();
      usleep(100);
      PyEval_RestoreThread(state);
    }
  }
  // Takes the lock again.
  static void lock(PyThreadState* state) {
    ++freturning;
    const std::thread::id exiting = fexiting;
    if (exiting != std::thread::id() && exiting != std::this_thread::get_id()) {
      --freturning;
      for (;;) pause();
    }
    PyEval_RestoreThread(state);
    --freturning;
  }
  // A child of a fork does not have the threads that are counted.
  static void watchforks() {
    pthread_atfork(nullptr, nullptr, [] { freturning = 0; });
  }

 private:
  static inline std::atomic<int> freturning = 0;
  static inline std::atomic<std::thread::id> fexiting{};
};

// Calls a function without the interpreter lock and returns its result.
template <class twork>
auto unlocked(twork work) {
  decltype(work()) result{};
  std::exception_ptr thrown;
  PyThreadState* state = PyEval_SaveThread();
  try {
    result = work();
  } catch (...) {
    thrown = std::current_exception();
  }
  interpreterexit::lock(state);
  if (thrown) std::rethrow_exception(thrown);
  return result;
}

}  // namespace binding

// unlocked.h: calls without the interpreter lock.
#pragma once

#include <pybind11/pybind11.h>

#include <exception>

namespace binding {

// Calls a function without the interpreter lock and returns its result. When the interpreter has exited in the
// meantime, it ends this thread where the lock is taken again. It does so by unwinding the stack, which no
// destructor may be in the way of: hence this is not done with pybind11::gil_scoped_release.
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
  PyEval_RestoreThread(state);
  if (thrown) std::rethrow_exception(thrown);
  return result;
}

}  // namespace binding

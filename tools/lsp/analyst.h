// A thread that does what takes long, one task after the other, while the server goes on.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

namespace tool::lsp {

class tanalyst {
 public:
  using ttask = std::function<void()>;

  tanalyst() : fthread([this] { run(); }) {}
  ~tanalyst();
  tanalyst(const tanalyst&) = delete;
  tanalyst& operator=(const tanalyst&) = delete;

  // The task takes the place of one with the same name that has not begun. It must not throw.
  void ask(const std::string& name, ttask task);
  // Drops what has not begun.
  void stop();
  // Whether all is done.
  bool isidle();

 private:
  void run();

  std::mutex fmutex;
  std::condition_variable fchanged;
  std::deque<std::pair<std::string, ttask>> ftasks;
  bool fbusy = false;
  bool fstopped = false;
  std::thread fthread;
};

}  // namespace tool::lsp

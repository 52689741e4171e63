// A thread with a queue.
#include "tools/lsp/analyst.h"

#include <algorithm>

namespace tool::lsp {

tanalyst::~tanalyst() {
  stop();
  fthread.join();
}

void tanalyst::stop() {
  const std::lock_guard lock(fmutex);
  fstopped = true;
  ftasks.clear();
  fchanged.notify_all();
}

void tanalyst::ask(const std::string& name, ttask task) {
  const std::lock_guard lock(fmutex);
  if (fstopped) return;
  const auto waiting = std::ranges::find(ftasks, name, &std::pair<std::string, ttask>::first);
  if (waiting != ftasks.end())
    waiting->second = std::move(task);
  else
    ftasks.emplace_back(name, std::move(task));
  fchanged.notify_all();
}

bool tanalyst::isidle() {
  const std::lock_guard lock(fmutex);
  return ftasks.empty() && !fbusy;
}

void tanalyst::run() {
  std::unique_lock lock(fmutex);
  for (;;) {
    fbusy = false;
    fchanged.wait(lock, [&] { return fstopped || !ftasks.empty(); });
    if (fstopped) return;
    const ttask task = std::move(ftasks.front().second);
    ftasks.pop_front();
    fbusy = true;
    lock.unlock();
    task();
    lock.lock();
  }
}

}  // namespace tool::lsp

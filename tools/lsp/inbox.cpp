// A queue with a lock.
#include "tools/lsp/inbox.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tool::lsp {

void tinbox::put(tincoming message, std::size_t bytes) {
  std::unique_lock lock(fmutex);
  ftaken.wait(lock, [&] { return !isfull() || fended; });
  fbytes += bytes;
  farrivals.push_back({tarrival::tkind::message, std::move(message), false, bytes, {}});
  farrived.notify_one();
}

void tinbox::put(std::function<void()> work) {
  const std::lock_guard lock(fmutex);
  farrivals.push_back({tarrival::tkind::work, {}, false, 0, std::move(work)});
  farrived.notify_one();
}

void tinbox::end() {
  const std::lock_guard lock(fmutex);
  fended = true;
  farrivals.emplace_back();
  farrived.notify_one();
  ftaken.notify_all();
}

void tinbox::endatonce() {
  const std::lock_guard lock(fmutex);
  fended = true;
  farrivals.emplace_front().kind = tarrival::tkind::gone;
  farrived.notify_one();
  ftaken.notify_all();
}

std::optional<tarrival> tinbox::take(std::optional<tclock::time_point> until) {
  std::unique_lock lock(fmutex);
  frunning = nullptr;
  const auto isthere = [&] { return !farrivals.empty(); };
  if (!until)
    farrived.wait(lock, isthere);
  else if (!farrived.wait_until(lock, *until, isthere))
    return std::nullopt;
  tarrival result = std::move(farrivals.front());
  farrivals.pop_front();
  fbytes -= result.bytes;
  frunning = result.message.id;
  frunningcancelled = result.cancelled;
  ftaken.notify_one();
  return result;
}

void tinbox::cancel(const json& id) {
  if (id.is_null()) return;
  const std::lock_guard lock(fmutex);
  if (frunning == id) {
    frunningcancelled = true;
    return;
  }
  for (std::deque<tarrival>* each : {&fparked, &farrivals}) {
    const auto found = std::ranges::find_if(*each, [&](const tarrival& arrival) {
      return arrival.message.kind == tincoming::tkind::request && arrival.message.id == id;
    });
    if (found == each->end()) continue;
    found->cancelled = true;
    return;
  }
}

void tinbox::park(tarrival arrival) {
  const std::lock_guard lock(fmutex);
  arrival.bytes = 0;
  arrival.cancelled = frunningcancelled;
  fparked.push_back(std::move(arrival));
}

void tinbox::unpark() {
  const std::lock_guard lock(fmutex);
  farrivals.insert(farrivals.begin(), std::make_move_iterator(fparked.begin()),
                   std::make_move_iterator(fparked.end()));
  fparked.clear();
  farrived.notify_one();
}

bool tinbox::iscancelled() const {
  const std::lock_guard lock(fmutex);
  return frunningcancelled;
}

}  // namespace tool::lsp

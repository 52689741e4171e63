// What waits for the server: messages of the client, in their order, and what the analysis has found. One
// thread takes; others put in.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>

#include "tools/lsp/message.h"

namespace tool::lsp {

struct tarrival {
  enum class tkind {
    message,
    work,  // to be run by the thread of the server
    end,   // nothing more will come
    gone   // the client has ended
  };
  tkind kind = tkind::end;
  tincoming message{};
  bool cancelled = false;
  std::size_t bytes = 0;  // of the message
  std::function<void()> work{};
};

class tinbox {
 public:
  using tclock = std::chrono::steady_clock;

  // Waits while very much has not been taken yet.
  void put(tincoming message, std::size_t bytes);
  void put(std::function<void()> work);
  // The last arrival: after all that came before it, or at once.
  void end();
  void endatonce();

  // Waits for an arrival until the time. Nothing if none has come by then.
  std::optional<tarrival> take(std::optional<tclock::time_point> until);

  // Sets a request aside, which cannot be answered yet; unpark lets all of them wait before all others again.
  void park(tarrival arrival);
  void unpark();

  // Cancels the request, if it waits or is being answered.
  void cancel(const json& id);
  // Whether the request that was taken last has been cancelled.
  bool iscancelled() const;

 private:
  static constexpr std::size_t mostbytes = 256 * 1024 * 1024;
  static constexpr std::size_t mostmessages = 100'000;

  bool isfull() const { return fbytes > mostbytes || farrivals.size() > mostmessages; }

  mutable std::mutex fmutex;
  std::condition_variable farrived, ftaken;
  std::deque<tarrival> farrivals, fparked;
  std::size_t fbytes = 0;
  json frunning;  // the id of the request that was taken last
  bool frunningcancelled = false;
  bool fended = false;
};

}  // namespace tool::lsp

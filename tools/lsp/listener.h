// Reads what the client sends, in a thread of its own, so that a request can be cancelled while another one is
// answered. Ends when the input ends, or when the program of the client does.
#pragma once

#include <sys/types.h>

#include <mutex>
#include <string_view>
#include <thread>

#include "tools/lsp/frames.h"
#include "tools/lsp/inbox.h"

namespace tool::lsp {

class tlistener {
 public:
  // The inbox must outlive the listener.
  tlistener(int descriptor, tinbox& inbox);
  ~tlistener();
  tlistener(const tlistener&) = delete;
  tlistener& operator=(const tlistener&) = delete;

  // From now on, the end of this process is the end of the input.
  void watch(pid_t process);
  // Ready for reading when the client is gone.
  int gone() const { return fgone; }

 private:
  void run();
  // Returns false at the end.
  bool wait();
  bool readsome();
  void deliver();
  void put(tincoming message, std::size_t bytes);

  int fdescriptor;
  tinbox& finbox;
  int fwake;  // becomes ready when there is something to do other than reading
  int fgone;
  std::mutex fmutex;
  int fprocess = -1;  // a descriptor of the client's process
  bool fstopped = false;
  tframes fframes;
  std::thread fthread;  // the last one, because it uses the others
};

}  // namespace tool::lsp

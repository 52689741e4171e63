// A file descriptor that is closed with its owner.
#pragma once

#include <unistd.h>

namespace tool {

class tdescriptor {
 public:
  explicit tdescriptor(int descriptor) : fdescriptor(descriptor) {}
  ~tdescriptor() {
    if (fdescriptor >= 0) close(fdescriptor);
  }
  tdescriptor(const tdescriptor&) = delete;
  tdescriptor& operator=(const tdescriptor&) = delete;
  int get() const { return fdescriptor; }

 private:
  int fdescriptor;
};

}  // namespace tool

// Writes messages to the client. A client that does not read, or is gone, never blocks the server for good.
#pragma once

#include <string_view>

namespace tool::lsp {

class tspeaker {
 public:
  // `gone` is a descriptor that becomes ready when nobody reads any more.
  tspeaker(int descriptor, int gone) : fdescriptor(descriptor), fgone(gone) {}

  void say(std::string_view message);
  // Whether a message could not be written: then none can be.
  bool isbroken() const { return fbroken; }

 private:
  bool write(std::string_view bytes);
  bool wait() const;

  int fdescriptor;
  int fgone;
  bool fbroken = false;
};

}  // namespace tool::lsp

// Cuts what a client sends into messages. Each has a header, which gives its length:
//   Content-Length: 52\r\n\r\n{"jsonrpc":"2.0",...}
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool::lsp {

struct tframe {
  enum class tkind {
    incomplete,  // more bytes are needed
    message,
    toolong,  // the message was longer than any that is read, and is left out
    broken    // this is no header; the next one is looked for
  };
  tkind kind;
  std::string text{};
};

class tframes {
 public:
  static constexpr std::size_t longestheader = 4 * 1024;
  static constexpr std::size_t longestmessage = 64 * 1024 * 1024;
  // A length beyond this one is no length, but garbage.
  static constexpr std::size_t longestskipped = 1024 * 1024 * 1024;

  void append(std::string_view bytes);
  // To be called until the result is incomplete.
  tframe next();

 private:
  bool findheader();
  bool takeheader();

  std::string fbytes;  // from ftaken on not yet taken
  std::size_t ftaken = 0;
  std::size_t fskipped = 0;  // so many bytes are to be left out
  std::size_t flength = 0;   // of the message
  bool fhasheader = false;
  bool fbroken = false;  // a header was, and the next one has not been found
};

// The message with its header.
std::string framed(std::string_view message);

}  // namespace tool::lsp

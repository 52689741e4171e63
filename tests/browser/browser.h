// A browser without a window, for tests of pages: Chromium, driven through its DevTools protocol over a pair
// of pipes, one JSON text per message, each with a NUL behind it. Failures are exceptions.
#pragma once

#include <sys/types.h>

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "support/handle.h"

namespace browsertest {

class tbrowser {
 public:
  static bool present();  // on this machine
  tbrowser();
  ~tbrowser();
  tbrowser(const tbrowser&) = delete;
  tbrowser& operator=(const tbrowser&) = delete;

  void open(const std::string& address);  // returns when the page is loaded
  nlohmann::json value(const std::string& script);
  void press(const std::string& key, int code);
  void type(const std::string& text);
  // For commands that a test needs once.
  nlohmann::json call(const std::string& method, const nlohmann::json& parameters = nlohmann::json::object());

  // Console messages, exceptions of scripts, and what the page's security policy refused.
  std::vector<std::string> takecomplaints() { return std::exchange(fcomplaints, {}); }
  const std::vector<std::string>& requests() const { return frequests; }

 private:
  void start();
  void stop() const;
  nlohmann::json message();
  void event(const nlohmann::json& message);
  testsupport::ttempdir fprofile;
  pid_t fprocess = -1;
  int fcommands = -1;
  int freplies = -1;
  int fnumber = 0;
  std::string fsession;
  std::string freceived;
  bool floaded = false;
  std::vector<std::string> fcomplaints;
  std::vector<std::string> frequests;
};

}  // namespace browsertest

// Starting the browser and talking to it.
#include "browser/browser.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace browsertest {

namespace {

using nlohmann::json;

constexpr int patience =
    60 * 1000;  // milliseconds without any message, after which the browser counts as hung

// Both ends beyond the descriptors that the browser expects to be given.
std::array<int, 2> makepipe() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  for (int& end : ends) {
    const int low = end;
    end = fcntl(low, F_DUPFD_CLOEXEC, 10);
    close(low);
  }
  return ends;
}

// Only calls that are allowed between fork and exec. The browser reads commands from 3, replies on 4.
[[noreturn]] void become(char* const* arguments, int commands, int replies) {
  const int nowhere = open("/dev/null", O_RDWR);
  const bool ready = setpgid(0, 0) == 0 && dup2(nowhere, STDIN_FILENO) >= 0 &&
                     dup2(nowhere, STDOUT_FILENO) >= 0 && dup2(nowhere, STDERR_FILENO) >= 0 &&
                     dup2(commands, 3) >= 0 && dup2(replies, 4) >= 0;
  if (ready) execvp(arguments[0], arguments);
  _exit(127);
}

}  // namespace

bool tbrowser::present() { return std::system("command -v chromium >/dev/null") == 0; }

void tbrowser::start() {
  const std::string profile = fprofile.path("profile");
  std::vector<std::string> words = {"env",
                                    "HOME=" + fprofile.path("."),
                                    "chromium",
                                    "--headless",
                                    "--no-sandbox",
                                    "--disable-gpu",
                                    "--disable-quic",
                                    "--disable-dev-shm-usage",
                                    "--no-first-run",
                                    "--disable-background-networking",
                                    "--disable-component-update",
                                    "--disable-sync",
                                    "--remote-debugging-pipe",
                                    "--user-data-dir=" + profile};
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const auto [childcommands, commands] = makepipe();
  const auto [replies, childreplies] = makepipe();
  fprocess = fork();
  if (fprocess == 0) become(arguments.data(), childcommands, childreplies);
  close(childcommands);
  close(childreplies);
  fcommands = commands;
  freplies = replies;
  if (fprocess < 0) throw std::runtime_error("the browser cannot be started");
}

tbrowser::tbrowser() {
  start();
  try {
    const json target = call("Target.createTarget", {{"url", "about:blank"}});
    fsession =
        call("Target.attachToTarget", {{"targetId", target["targetId"]}, {"flatten", true}})["sessionId"];
    for (const char* domain : {"Page", "Runtime", "Log", "Network"}) call(std::string(domain) + ".enable");
  } catch (...) {
    stop();
    throw;
  }
}

tbrowser::~tbrowser() { stop(); }

// The browser ends by itself; what is left of its processes then is not waited for.
void tbrowser::stop() const {
  close(fcommands);
  close(freplies);
  if (fprocess <= 0) return;
  kill(-fprocess, SIGTERM);
  waitpid(fprocess, nullptr, 0);
  kill(-fprocess, SIGKILL);
}

json tbrowser::message() {
  std::size_t end = 0;
  while ((end = freceived.find('\0')) == std::string::npos) {
    pollfd waiting = {.fd = freplies, .events = POLLIN, .revents = 0};
    if (poll(&waiting, 1, patience) != 1) throw std::runtime_error("the browser does not answer");
    std::array<char, 65536> buffer;
    const ssize_t length = read(freplies, buffer.data(), buffer.size());
    if (length <= 0) throw std::runtime_error("the browser has ended");
    freceived.append(buffer.data(), static_cast<std::size_t>(length));
  }
  json result = json::parse(freceived.substr(0, end));
  freceived.erase(0, end + 1);
  if (result.contains("method")) event(result);
  return result;
}

void tbrowser::event(const json& message) {
  const std::string method = message["method"];
  if (method == "Page.loadEventFired") floaded = true;
  if (method == "Network.requestWillBeSent") frequests.push_back(message["params"]["request"]["url"]);
  if (method == "Log.entryAdded") fcomplaints.push_back(message["params"]["entry"]["text"]);
  if (method == "Runtime.consoleAPICalled" || method == "Runtime.exceptionThrown")
    fcomplaints.push_back(message["params"].dump());
}

json tbrowser::call(const std::string& method, const json& parameters) {
  json command = {{"id", ++fnumber}, {"method", method}, {"params", parameters}};
  if (!fsession.empty()) command["sessionId"] = fsession;
  const std::string text = command.dump() + '\0';
  if (write(fcommands, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
    throw std::runtime_error("the browser has ended");
  json reply = json::object();
  while (reply.value("id", 0) != fnumber) reply = message();
  if (reply.contains("error")) throw std::runtime_error(method + ": " + reply["error"].dump());
  return reply["result"];
}

void tbrowser::open(const std::string& address) {
  floaded = false;
  call("Page.navigate", {{"url", address}});
  while (!floaded) message();
}

json tbrowser::value(const std::string& script) {
  const json result = call("Runtime.evaluate", {{"expression", script}, {"returnByValue", true}});
  if (result.contains("exceptionDetails")) throw std::runtime_error(result["exceptionDetails"].dump());
  return result["result"].value("value", json());
}

void tbrowser::press(const std::string& key, int code) {
  json event = {{"type", "keyDown"}, {"key", key}, {"windowsVirtualKeyCode", code}};
  if (key.size() == 1 || key == "Enter") event["text"] = key == "Enter" ? "\r" : key;
  call("Input.dispatchKeyEvent", event);
  call("Input.dispatchKeyEvent", {{"type", "keyUp"}, {"key", key}, {"windowsVirtualKeyCode", code}});
}

void tbrowser::type(const std::string& text) { call("Input.insertText", {{"text", text}}); }

}  // namespace browsertest

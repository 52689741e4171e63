// Starting the tool and catching what it prints.
#include "tool/process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace tooltest {

namespace {

// Only calls that are allowed between fork and exec.
[[noreturn]] void become(char* const* arguments, const char* directory) {
  constexpr int newfile = O_WRONLY | O_CREAT | O_TRUNC;
  const bool ready = chdir(directory) == 0 && dup2(open(".stdin", O_RDONLY), STDIN_FILENO) >= 0 &&
                     dup2(open(".stdout", newfile, 0600), STDOUT_FILENO) >= 0 &&
                     dup2(open(".stderr", newfile, 0600), STDERR_FILENO) >= 0;
  if (ready) execv(arguments[0], arguments);
  _exit(127);
}

}  // namespace

ttool::ttool(std::initializer_list<std::pair<std::string_view, std::string_view>> files) {
  for (const auto& [name, text] : files) fdirectory.write(name, text);
}

void ttool::linkexamples() const {
  std::filesystem::create_directory_symlink(WEXCORIN_EXAMPLES, fdirectory.path("examples"));
}

tresult ttool::run(const std::vector<std::string>& arguments, std::string_view standardinput) const {
  fdirectory.write(".stdin", standardinput);
  std::vector<std::string> words = {WEXCORIN_TOOL};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const std::string directory = fdirectory.path(".");
  const pid_t child = fork();
  if (child == 0) become(pointers.data(), directory.c_str());
  int status = 0;
  const bool ended = child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status);
  return {ended ? WEXITSTATUS(status) : -1, contents(".stdout"), contents(".stderr")};
}

}  // namespace tooltest

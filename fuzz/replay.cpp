// Runs a target over inputs that are there already: the files that are named, and all files of folders. For
// builds without the fuzzer's own main function.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/support/target.h"

namespace {

void replay(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  std::fprintf(stderr, "%s\n", path.c_str());
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int count, char** arguments) {
  int inputs = 0;
  for (int i = 1; i < count; ++i) {
    std::vector<std::filesystem::path> paths;
    if (std::filesystem::is_directory(arguments[i]))
      for (const auto& entry : std::filesystem::directory_iterator(arguments[i]))
        paths.push_back(entry.path());
    else
      paths.emplace_back(arguments[i]);
    for (const auto& path : paths) {
      replay(path);
      ++inputs;
    }
  }
  std::fprintf(stderr, "%d inputs\n", inputs);
  return inputs == 0 ? 1 : 0;
}

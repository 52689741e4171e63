// Puts each text into a file in memory, because the library reads files by name only.
#include "tools/lsp/sources.h"

#include <filesystem>
#include <system_error>

#include "tools/lsp/uri.h"
#include "tools/reading/regularfile.h"

namespace tool::lsp {

namespace {

constexpr std::uint64_t largest = 64 * 1024 * 1024;

// A pipe or a device is never opened: what it gives may be meant for another program, and it may never end.
constexpr const char* unreadable = "/dev/null/unreadable";

bool isspecial(const std::string& path) {
  std::error_code problem;
  const auto status = std::filesystem::status(path, problem);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status) &&
         !std::filesystem::is_directory(status);
}

}  // namespace

std::shared_ptr<const ttext> loadtext(const std::string& path) {
  auto bytes = tregularfile(path).contents(largest);
  return bytes ? std::make_shared<const ttext>(std::move(*bytes)) : nullptr;
}

std::shared_ptr<const ttext> tsources::load(const std::string& key) const {
  if (fopen != nullptr)
    if (const auto document = fopen->find(key); document != fopen->end()) return document->second;
  return loadtext(key);
}

std::shared_ptr<const ttext> tsources::textof(const std::string& filename) {
  pathof(filename);
  const auto found = ftexts.find(keyof(filename));
  return found == ftexts.end() ? nullptr : found->second;
}

std::string tsources::pathof(const std::string& filename) {
  const auto [at, isnew] = fpaths.try_emplace(filename);
  if (!isnew) return at->second;
  const std::string key = keyof(filename);
  const auto [same, isfirst] = fbykey.try_emplace(key);
  if (isfirst) same->second = makepath(filename, key);
  return at->second = same->second;
}

// Very many files stay where they are: each file in memory takes a descriptor.
std::string tsources::makepath(const std::string& filename, const std::string& key) {
  constexpr std::size_t mostfiles = 200;
  const auto text = ftexts[key] = load(key);
  if (text == nullptr) return isspecial(key) ? unreadable : filename;
  if (ffiles.size() == mostfiles) return filename;
  ffiles.emplace_back().write(text->bytes());
  const std::string& path = ffiles.back().path();
  return fpaths[path] = path;
}

}  // namespace tool::lsp

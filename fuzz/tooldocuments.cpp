// The checks of the tool's documents.
#include "fuzz/tooldocuments.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <string_view>

#include "fuzz/support/check.h"
#include "fuzz/support/texts.h"
#include "tools/documents.h"
#include "tools/text.h"

namespace fuzzing {

namespace {

using tool::treference;

bool isvisible(char c) { return static_cast<unsigned char>(c) >= ' ' && c != '\x7F'; }

// No control characters but line end and tab.
void checkvisible(std::string_view text) {
  FUZZ_CHECK(std::ranges::all_of(text, [](char c) { return isvisible(c) || c == '\n' || c == '\t'; }),
             std::string(text));
}

// Every line is ASCII; comments end where the line does and are the only ones; no enumerator comes twice.
void checkheader(const treference&, std::string_view text) {
  std::set<std::string_view> enumerators;
  while (!text.empty()) {
    const std::string_view line = nextline(text);
    const std::size_t comment = std::min(line.find("/*"), line.size());
    FUZZ_CHECK(std::ranges::all_of(line, [](char c) { return isvisible(c) && (c & 0x80) == 0; }),
               std::string(line));
    FUZZ_CHECK(comment == line.size() || line.find("*/", comment + 2) == line.size() - 2, std::string(line));
    FUZZ_CHECK(comment == line.size() || line.find("/*", comment + 2) == line.npos, std::string(line));
    const std::size_t equals = line.substr(0, comment).find(" = ");
    if (equals != line.npos)
      FUZZ_CHECK(enumerators.insert(line.substr(2, equals - 2)).second, std::string(line));
  }
}

// No row of a table has a cell too many.
void checkmarkdown(const treference&, std::string_view text) {
  checkvisible(text);
  while (!text.empty()) {
    const std::string_view line = nextline(text);
    if (line.substr(0, 2) != "| ") continue;
    int bars = 0;
    for (std::size_t i = 0; i < line.size(); i += line[i] == '\\' ? 2 : 1) bars += line[i] == '|' ? 1 : 0;
    FUZZ_CHECK(bars == 3 || bars == 4, std::string(line));
  }
}

void checkjson(const treference& reference, std::string_view text) {
  const auto document = nlohmann::json::parse(text, nullptr, false);
  FUZZ_CHECK(!document.is_discarded() && document["options"].size() == reference.options.size(),
             std::string(text));
}

// What stands between "<" and ">", without quotes around a value being left open; moves past it.
std::string_view nexttag(std::string_view& text) {
  std::size_t end = 0;
  for (bool quoted = false; end < text.size() && (quoted || text[end] != '>'); ++end)
    if (text[end] == '"') quoted = !quoted;
  FUZZ_CHECK(end < text.size(), std::string(text));
  const std::string_view tag = text.substr(1, end - 1);
  text.remove_prefix(end + 1);
  return tag;
}

// Every tag is the page's own and ends in its place, and all that looks like an entity is one.
void checkpage(const treference&, std::string_view text) {
  checkvisible(text);
  static const std::set<std::string_view> single = {"!DOCTYPE", "meta", "br", "input"};
  std::vector<std::string_view> open;
  while (!text.empty()) {
    if (text.front() == '&')
      FUZZ_CHECK(text.substr(0, 8).find(';') != text.npos, std::string(text.substr(0, 80)));
    if (text.front() != '<') {
      text.remove_prefix(1);
      continue;
    }
    const std::string_view rest = text;
    const std::string_view tag = nexttag(text);
    const std::string_view name = tag.substr(0, tag.find_first_of(" \n"));
    if (tag.starts_with('/')) {
      FUZZ_CHECK(!open.empty() && open.back() == tag.substr(1), std::string(rest.substr(0, 80)));
      open.pop_back();
    } else if (!single.contains(name)) {
      open.push_back(name);
      if (name == "script" || name == "style") text = text.substr(text.find("</" + std::string(name)));
    }
  }
  FUZZ_CHECK(open.empty(), std::string(open.back()));
}

struct tdocument {
  std::string (*write)(const treference& reference);
  void (*check)(const treference& reference, std::string_view text);
};
constexpr tdocument documents[] = {
    {tool::cdocument, checkheader},
    {tool::markdowndocument, checkmarkdown},
    {tool::jsondocument, checkjson},
    {tool::pagedocument, checkpage},
};

}  // namespace

std::vector<std::string> checkeddocuments(const wexcorin::tvksoptions& store) {
  const treference reference = tool::describe(store, "fuzz.def");
  std::vector<std::string> written;
  for (const tdocument& document : documents) {
    try {
      written.push_back(document.write(reference));
      FUZZ_CHECK(tool::utf8(written.back()) == written.back(), written.back());
      document.check(reference, written.back());
    } catch (const tool::trefuseddocument& refused) {
      written.emplace_back(refused.what());
    }
  }
  return written;
}

}  // namespace fuzzing

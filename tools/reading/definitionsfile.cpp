// Takes the values of the file as they come, so the line of each is known.
#include "tools/reading/definitionsfile.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string_view>

#include "tools/reading/regularfile.h"
#include "tools/text.h"

namespace tool {

namespace {

using nlohmann::json;

// Moves over a text and tells how far it has come.
class tprogress {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  tprogress(const char* at, const char*& reached) : fat(at), freached(&reached) {}
  reference operator*() const { return *fat; }
  tprogress& operator++() {
    *freached = ++fat;
    return *this;
  }
  bool operator==(const tprogress& other) const { return fat == other.fat; }

 private:
  const char* fat;
  const char** freached;
};

class tdefinitionsreader final : public nlohmann::json_sax<json> {
 public:
  explicit tdefinitionsreader(std::string_view text) : ftext(text), freached(text.data()) {}

  tdefinitionsfile run() {
    nlohmann::json_sax<json>* const events = this;
    const char* const end = ftext.data() + ftext.size();
    json::sax_parse(tprogress(ftext.data(), freached), tprogress(end, freached), events);
    return std::move(fresult);
  }

 private:
  enum class tlevel { outside, file, list, entry };

  bool null() override { return refuse(); }
  bool boolean(bool /*value*/) override { return refuse(); }
  bool number_integer(number_integer_t /*value*/) override { return refuse(); }
  bool number_unsigned(number_unsigned_t /*value*/) override { return refuse(); }
  bool number_float(number_float_t /*value*/, const string_t& /*text*/) override { return refuse(); }
  bool binary(binary_t& /*value*/) override { return refuse(); }
  bool string(string_t& value) override;
  bool key(string_t& name) override;
  bool start_object(std::size_t size) override;
  bool end_object() override;
  bool start_array(std::size_t size) override;
  bool end_array() override;
  bool parse_error(std::size_t position, const std::string& token, const json::exception& error) override;

  // The line of the last character of what was read. The parser may have read the character after it.
  std::int32_t line() const {
    const std::string_view read(ftext.data(), static_cast<std::size_t>(freached - ftext.data()));
    return 1 + static_cast<std::int32_t>(std::ranges::count(read.substr(0, read.size() - 1), '\n'));
  }
  bool fail(std::string problem) {
    fresult.problem = std::move(problem);
    fresult.line = line();
    return false;
  }
  bool refuse();

  std::string_view ftext;
  const char* freached;
  tlevel flevel = tlevel::outside;
  std::string fkey;
  tdefinitionsfile fresult;
};

// Tells what had to stand instead of a value.
bool tdefinitionsreader::refuse() {
  switch (flevel) {
    case tlevel::outside: return fail("The file must be an object with the member \"definitions\"");
    case tlevel::file: return fail("\"definitions\" must be a list");
    case tlevel::list:
      return fail("Each of the definitions must be an object with \"files\" and \"definition\"");
    case tlevel::entry: break;
  }
  return fail(inquotes(fkey) + " must be a text");
}

bool tdefinitionsreader::string(string_t& value) {
  if (flevel != tlevel::entry) return refuse();
  if (value.empty()) return fail(inquotes(fkey) + " must not be empty");
  tdefinitionentry& entry = fresult.entries.back();
  (fkey == "files" ? entry.files : entry.definition) = value;
  return true;
}

bool tdefinitionsreader::key(string_t& name) {
  fkey = name;
  const bool isknown =
      flevel == tlevel::file ? name == "definitions" : name == "files" || name == "definition";
  if (isknown) return true;
  const char* known = flevel == tlevel::file ? "\"definitions\"" : "\"files\" or \"definition\"";
  return fail("There is no member " + inquotes(name) + " here, only " + known);
}

bool tdefinitionsreader::start_object(std::size_t /*size*/) {
  if (flevel == tlevel::outside) {
    flevel = tlevel::file;
    return true;
  }
  if (flevel != tlevel::list) return refuse();
  flevel = tlevel::entry;
  fresult.entries.emplace_back();
  return true;
}

bool tdefinitionsreader::end_object() {
  if (flevel == tlevel::file) {
    flevel = tlevel::outside;
    return !fkey.empty() || refuse();
  }
  tdefinitionentry& entry = fresult.entries.back();
  entry.line = line();
  if (entry.files.empty()) return fail("\"files\" is missing");
  if (entry.definition.empty()) return fail("\"definition\" is missing");
  flevel = tlevel::list;
  return true;
}

bool tdefinitionsreader::start_array(std::size_t /*size*/) {
  if (flevel != tlevel::file) return refuse();
  flevel = tlevel::list;
  return true;
}

bool tdefinitionsreader::end_array() {
  flevel = tlevel::file;
  return true;
}

// The message of the parser begins with the place.
bool tdefinitionsreader::parse_error(std::size_t /*position*/, const std::string& /*token*/,
                                     const json::exception& error) {
  const std::string_view text = error.what();
  const std::size_t place = text.find("column ");
  const std::size_t end = place == std::string_view::npos ? place : text.find(": ", place);
  return fail("This is not JSON: " +
              std::string(end == std::string_view::npos ? text : text.substr(end + 2)));
}

}  // namespace

tdefinitionsfile readdefinitionsfile(const std::string& path) {
  constexpr std::uint64_t most = 1024 * 1024;
  tregularfile file(path);
  if (file.size() > most) return {{}, "The file has more than 1 MiB", 0};
  if (!file.isopen()) return {{}, "The file cannot be read, or is no regular file", 0};
  const auto contents = file.contents(most);
  if (!contents || contents->empty()) return {{}, "The file cannot be read, or is empty", 0};
  return tdefinitionsreader(*contents).run();
}

}  // namespace tool

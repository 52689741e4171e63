// Lays out the lines in groups. Each line that has changed is looked at again: where it would not have the same
// parts as before, it stays as it was.
#include "tools/lsp/alignment.h"

#include <algorithm>
#include <cstddef>

#include "input/linereader.h"
#include "tools/lsp/optionlines.h"
#include "tools/text.h"

namespace tool::lsp {

namespace {

using namespace optcore;
using tstatementkind = tstatementspans::tkind;

constexpr std::string_view blanks = " \t";

std::string_view trimmedright(std::string_view text) {
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string_view trimmed(std::string_view text) {
  text = trimmedright(text);
  return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

// A line with one setting.
struct tcells {
  std::size_t position = 0;  // of the line
  std::string_view name{}, sign{}, value{}, comment{};
};

class tlayout {
 public:
  tlayout(const tdefinition& definition, const std::vector<tlaidline>& lines)
      : fdefinition(definition), flines(lines) {}

  std::vector<std::string> run() {
    fresult.reserve(flines.size());
    for (const tlaidline& line : flines) {
      fresult.emplace_back(line.text);
      const tlinespans spans = isread(line) ? spansof(fdefinition, line.text, line.eolonly) : tlinespans{};
      if (isread(line) && addcells(line, spans)) continue;
      endgroup();
      trim(line, spans);
    }
    endgroup();
    return std::move(fresult);
  }

 private:
  // Of a line that is cut, what is left out might become part of it. Where a double quote is missing, nobody
  // knows what it was to hold.
  static bool iswhole(const tlaidline& line) {
    return line.text.size() <= tlinereader::maxline && line.text.find('\x1a') == std::string_view::npos &&
           std::ranges::count(line.text, '"') % 2 == 0;
  }
  static bool isread(const tlaidline& line) { return lsp::isread(line.text) && iswhole(line); }

  // Whether the line has one setting that is understood. It then joins the group.
  bool addcells(const tlaidline& line, const tlinespans& spans) {
    if (spans.statements.size() != 1) return false;
    const tstatementspans& setting = spans.statements.front();
    const bool isplain = setting.kind == tstatementkind::setting || setting.kind == tstatementkind::immediate;
    if (!isplain) return false;
    const bool hasvalue = !setting.value.empty();
    const std::size_t end = std::max({setting.name.end, setting.value.end, setting.second.end});
    tcells cells = {.position = fresult.size() - 1, .name = setting.name.of(line.text)};
    if (hasvalue) {
      cells.sign = trimmed(line.text.substr(setting.name.end, setting.value.begin - setting.name.end));
      cells.value = line.text.substr(setting.value.begin, end - setting.value.begin);
    }
    cells.comment = trimmedright(spans.comment.of(line.text));
    const std::size_t commentbegin = spans.comment.empty() ? line.text.size() : spans.comment.begin;
    const bool isunderstood = (cells.sign.empty() || cells.sign == "=" || cells.sign == ":=") &&
                              trimmed(line.text.substr(0, setting.name.begin)).empty() &&
                              trimmed(line.text.substr(end, commentbegin - end)).empty();
    if (isunderstood) fgroup.push_back(cells);
    return isunderstood;
  }

  void endgroup() {
    std::size_t names = 0, signs = 0, settings = 0;
    for (const tcells& each : fgroup) {
      if (!each.value.empty()) names = std::max(names, columns(utf8(each.name)));
      signs = std::max(signs, each.sign.size());
    }
    std::vector<std::string> texts;
    for (const tcells& each : fgroup) {
      texts.push_back(settingtext(each, names, signs));
      if (!each.comment.empty()) settings = std::max(settings, columns(utf8(texts.back())));
    }
    for (std::size_t i = 0; i < fgroup.size(); ++i) {
      if (!fgroup[i].comment.empty()) pad(texts[i], settings + 2).append(fgroup[i].comment);
      replace(fgroup[i].position, std::move(texts[i]));
    }
    fgroup.clear();
  }

  static std::string& pad(std::string& text, std::size_t width) {
    const std::size_t now = columns(utf8(text));
    return text.append(width > now ? width - now : 0, ' ');
  }

  static std::string settingtext(const tcells& cells, std::size_t names, std::size_t signs) {
    std::string result(cells.name);
    if (cells.value.empty()) return result;
    pad(result, names + 1);
    if (signs > 0) result.append(cells.sign).append(signs - cells.sign.size() + 1, ' ');
    return result.append(cells.value);
  }

  // Lines of their own kind lose only the blanks at their ends.
  void trim(const tlaidline& line, const tlinespans& spans) {
    const bool isknown = std::ranges::none_of(
        spans.statements, [](const tstatementspans& each) { return each.kind == tstatementkind::unknown; });
    replace(fresult.size() - 1, std::string(isknown ? trimmed(line.text) : trimmedright(line.text)));
  }

  void replace(std::size_t position, std::string text) {
    if (means(flines[position], text)) fresult[position] = std::move(text);
  }

  // Whether the new line is read as the old one is.
  bool means(const tlaidline& line, std::string_view text) const {
    if (line.text.starts_with('*')) return text.starts_with('*');
    if (!iswhole(line) || text.size() > tlinereader::maxline) return false;
    const tlinespans before = spansof(fdefinition, line.text, line.eolonly);
    const tlinespans after = spansof(fdefinition, text, line.eolonly);
    const auto same = [&](const tstatementspans& a, const tstatementspans& b) {
      const auto equal = [&](tspan one, tspan other) { return one.of(line.text) == other.of(text); };
      return a.kind == b.kind && a.option == b.option && equal(a.name, b.name) && equal(a.symbol, b.symbol) &&
             equal(a.value, b.value) && equal(a.second, b.second);
    };
    return std::ranges::equal(before.statements, after.statements, same) &&
           trimmedright(before.comment.of(line.text)) == trimmedright(after.comment.of(text)) &&
           before.eolonly == after.eolonly;
  }

  const tdefinition& fdefinition;
  const std::vector<tlaidline>& flines;
  std::vector<tcells> fgroup;
  std::vector<std::string> fresult;
};

}  // namespace

std::vector<std::string> aligned(const tdefinition& definition, const std::vector<tlaidline>& lines) {
  return tlayout(definition, lines).run();
}

}  // namespace tool::lsp

// The find command: lists the options whose names, synonyms, values or help contain the words, the best match
// first.
#include <algorithm>
#include <iostream>
#include <optional>

#include "tools/commands.h"
#include "tools/doc/reference.h"
#include "tools/reading/nearnames.h"
#include "tools/reading/reading.h"
#include "tools/table.h"
#include "tools/terminal.h"
#include "tools/unknown.h"

namespace tool {

namespace {

// Where a word was found, the best place first.
enum trank : std::size_t { wholename, beginofname, inname, insynonym, invalue, inhelp, indetails, nowhere };

// In capital letters, with underscores for blanks and hyphens.
std::string key(std::string_view text) {
  std::string result = folded(text);
  std::ranges::replace(result, '-', '_');
  return result;
}

bool contains(std::string_view text, std::string_view word) {
  return key(text).find(word) != std::string::npos;
}

bool contains(const std::vector<std::string>& texts, std::string_view word) {
  return std::ranges::any_of(texts, [&](const std::string& text) { return contains(text, word); });
}

trank rankof(const toptionreference& option, const std::string& word) {
  const std::string name = key(option.name);
  const auto isword = [&](const std::string& synonym) { return key(synonym) == word; };
  if (name == word || std::ranges::any_of(option.synonyms, isword)) return wholename;
  if (name.starts_with(word)) return beginofname;
  if (contains(name, word)) return inname;
  if (contains(option.synonyms, word)) return insynonym;
  const auto has = [&](const tvaluereference& value) { return contains(value.value.text, word); };
  if (std::ranges::any_of(option.values, has)) return invalue;
  const auto explains = [&](const tvaluereference& value) { return contains(value.help, word); };
  if (contains(option.help, word)) return inhelp;
  if (contains(option.details, word) || std::ranges::any_of(option.values, explains)) return indetails;
  return nowhere;
}

// The rank of all words together: the words as one name first, otherwise the sum of their ranks. None if a
// word is not found.
std::optional<std::size_t> rankof(const toptionreference& option, const std::vector<std::string>& words) {
  std::string together;
  std::size_t sum = 0;
  for (const std::string& word : words) {
    together += (together.empty() ? "" : "_") + key(word);
    const trank rank = rankof(option, key(word));
    sum = rank == nowhere || sum == nowhere ? nowhere : std::min<std::size_t>(sum + rank, indetails);
  }
  const std::size_t best = std::min<std::size_t>(sum, rankof(option, together));
  return best == nowhere ? std::nullopt : std::optional(best);
}

struct thit {
  std::size_t rank;
  const toptionreference* option;
};

std::vector<thit> hitsof(const treference& reference, const std::vector<std::string>& words) {
  std::vector<thit> result;
  for (const toptionreference& option : reference.options)
    if (const auto rank = rankof(option, words); rank && (option.listed || *rank == wholename))
      result.push_back({*rank, &option});
  std::ranges::stable_sort(result, {}, &thit::rank);
  return result;
}

// The help text, with the synonyms and what to think of the name in front of it.
std::string helpof(const toptionreference& option) {
  std::string notes;
  if (option.standing.standing == tstanding::deprecated) notes = "deprecated";
  if (option.standing.standing == tstanding::obsolete) notes = "obsolete";
  for (const std::string& synonym : option.synonyms) notes += (notes.empty() ? "" : ", ") + synonym;
  return (notes.empty() ? "" : "(" + notes + ") ") + option.help;
}

}  // namespace

int run(const tfindarguments& arguments) {
  treading reading;
  const bool opened = reading.readdefinition(arguments.definition);
  const int code = reportproblems(reading.findings());
  if (!opened) return code;
  const treference reference = describe(reading.store(), reading.definition());
  const std::vector<thit> hits = hitsof(reference, arguments.words);
  if (hits.empty()) {
    std::string text;
    for (const std::string& word : arguments.words) text += (text.empty() ? "" : " ") + word;
    reportnotfound(reading.store(), text);
    return std::max(code, exitproblems);
  }
  ttable table({"Name", "Type", "Default", "Help"}, talign::left);
  for (const thit& hit : hits)
    table.add({hit.option->name, std::string(typeword(*hit.option)), hit.option->defaultvalue.text,
               helpof(*hit.option)});
  table.print(terminalwidth());
  return code;
}

}  // namespace tool

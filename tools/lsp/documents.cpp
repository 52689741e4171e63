// Applies changes and keeps the documents.
#include "tools/lsp/documents.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <utility>

#include "tools/lsp/uri.h"
#include "tools/reading/filelooks.h"

namespace tool::lsp {

namespace {

// A file in the folder of the server has the name that a call of the tool there would give it.
std::string nameof(const std::string& uri) {
  std::string path = pathofuri(uri);
  if (path.empty()) return uri;
  std::error_code problem;
  const std::filesystem::path here = std::filesystem::current_path(problem);
  if (problem) return path;
  const std::filesystem::path relative = std::filesystem::path(path).lexically_relative(here);
  const bool isoutside = relative.empty() || relative == "." || *relative.begin() == "..";
  return isoutside || relative == "-" ? path : relative.string();  // "-" stands for standard input
}

tdocumentkind kindof(std::string_view language, const std::string& name, const std::string& text) {
  if (language == definitionlanguage) return tdocumentkind::definition;
  const std::filesystem::path extension = std::filesystem::path(name).extension();
  if (language == optionslanguage || extension == ".opt") return tdocumentkind::options;
  if (extension == ".def") return tdocumentkind::definition;
  return looksoftext(text) == tlooks::definition ? tdocumentkind::definition : tdocumentkind::options;
}

// Each text has a number of its own, also that of a document that is opened again.
std::uint64_t nextserial() {
  static std::uint64_t last = 0;
  return ++last;
}

// The lines that differ.
tedit editof(const ttext& before, const ttext& after, std::uint64_t serial) {
  const std::int32_t most = std::min(before.linecount(), after.linecount());
  std::int32_t head = 0, tail = 0;
  while (head < most && before.part(before.line(head + 1)) == after.part(after.line(head + 1))) ++head;
  while (head + tail < most && before.part(before.line(before.linecount() - tail)) ==
                                   after.part(after.line(after.linecount() - tail)))
    ++tail;
  return {serial, head + 1, before.linecount() - head - tail, after.linecount() - head - tail};
}

}  // namespace

// ---- one document

tdocument::tdocument(std::string uri, std::string_view language, std::string text, std::int64_t version)
    : furi(std::move(uri)),
      fname(nameof(furi)),
      fkey(keyof(fname)),
      fkind(kindof(language, fname, text)),
      fversion(version),
      ffirstserial(nextserial()),
      fserial(ffirstserial),
      ftext(std::make_shared<const ttext>(std::move(text))) {}

bool tdocument::change(const json& changes, std::int64_t version, tencoding encoding) {
  std::shared_ptr<const ttext> text = ftext;
  for (const json& each : arrayof(changes)) {
    if (!member(each, "text").is_string()) return false;
    std::string bytes = textof(member(each, "text"));
    const json& range = member(each, "range");
    if (range.is_object()) {
      const std::size_t begin = text->offsetat(positionfrom(member(range, "start")), encoding);
      const std::size_t end = text->offsetat(positionfrom(member(range, "end")), encoding);
      if (end < begin) return false;
      std::string whole = text->bytes();
      bytes = std::move(whole.replace(begin, end - begin, bytes));
    }
    text = std::make_shared<const ttext>(std::move(bytes));
  }
  fserial = nextserial();
  if (fsnapshot != nullptr) fedits.push_back(editof(*ftext, *text, fserial));
  ftext = std::move(text);
  findex.reset();
  fversion = version;
  return true;
}

const std::shared_ptr<const tdefinitionindex>& tdocument::index() const {
  if (findex == nullptr) findex = std::make_shared<const tdefinitionindex>(*ftext);
  return findex;
}

bool tdocument::take(std::shared_ptr<const tsnapshot> snapshot) {
  if (snapshot->serial < (fsnapshot == nullptr ? ffirstserial : fsnapshot->serial)) return false;
  if (fsnapshot == nullptr && snapshot->serial != fserial)
    fedits.push_back(editof(*snapshot->text, *ftext, fserial));
  fsnapshot = std::move(snapshot);
  std::erase_if(fedits, [&](const tedit& each) { return each.serial <= fsnapshot->serial; });
  return true;
}

std::int32_t tdocument::linenow(std::int32_t analysed) const {
  std::int32_t line = analysed;
  for (const tedit& each : fedits) {
    if (line < each.first) continue;
    if (line < each.first + each.removed) return 0;
    line += each.added - each.removed;
  }
  return line;
}

// ---- all documents

tdocument& tdocuments::open(tdocument document) {
  std::string uri = document.uri();
  return fdocuments.insert_or_assign(std::move(uri), std::move(document)).first->second;
}

void tdocuments::close(const std::string& uri) { fdocuments.erase(uri); }

tdocument* tdocuments::find(std::string_view uri) {
  const auto found = fdocuments.find(uri);
  return found == fdocuments.end() ? nullptr : &found->second;
}

const tdocument* tdocuments::find(std::string_view uri) const {
  const auto found = fdocuments.find(uri);
  return found == fdocuments.end() ? nullptr : &found->second;
}

const tdocument* tdocuments::withkey(std::string_view key) const {
  const auto found =
      std::ranges::find_if(fdocuments, [&](const auto& each) { return each.second.key() == key; });
  return found == fdocuments.end() ? nullptr : &found->second;
}

std::shared_ptr<const ttexts> tdocuments::texts() const {
  const auto result = std::make_shared<ttexts>();
  for (const auto& [uri, document] : fdocuments) (*result)[document.key()] = document.text();
  return result;
}

std::string tdocuments::uriof(const std::string& key) const {
  const tdocument* document = withkey(key);
  return document != nullptr ? document->uri() : uriofpath(key);
}

}  // namespace tool::lsp

// Keeps what the store reports about the line that is read.
#include "tools/tracing/tracer.h"

#include "base/textcase.h"

namespace tool {

using namespace optcore;

void ttracer::filed(const tmessage& message) {
  if (message.kind == tmsgkind::fileenter) enter(*message.source);
  if (message.kind == tmsgkind::fileleave) fopen.pop_back();
}

void ttracer::enter(const tlinesource& source) {
  const bool istext = source.sourcekind() != tsourcekind::file;
  if (istext) ++ftexts;
  fsources.push_back({.name = istext ? "--set" : std::string(freading.nameof(&source)),
                      .istext = istext,
                      .textnumber = istext ? ftexts : 0,
                      .includer = fopen.empty() ? -1 : static_cast<std::int32_t>(fopen.back()),
                      .line = source.includer() != nullptr ? source.includer()->linenr() : 0});
  fopen.push_back(static_cast<std::uint32_t>(fsources.size() - 1));
}

std::int32_t ttracer::currentline() const {
  const tsource& source = fsources[currentsource()];
  return source.istext ? source.textnumber : store().messages().activesource()->linenr();
}

void ttracer::stepped(const tstep& step) {
  switch (step.kind) {
    case tstep::tkind::statement:
    case tstep::tkind::dotline:
    case tstep::tkind::indicator:
      fstatement = step;
      fisshort = step.kind == tstep::tkind::statement && step.option != nullptr &&
                 !struequal(step.key, step.option->name());
      fbyname = false;
      fspreading.clear();
      break;
    case tstep::tkind::spreads: fspreading.push_back(step.option); break;
    case tstep::tkind::hasspread: fspreading.pop_back(); break;
    case tstep::tkind::takesdefault: fbyname = true; break;
    case tstep::tkind::keptentry: break;
  }
}

// Nearly all lines set an option directly, by its name.
std::uint32_t ttracer::currentlinks() {
  if (!fisshort && !fbyname && fspreading.empty()) return 0;
  const auto [found, isnew] =
      flinkindex.try_emplace(collectlinks(), static_cast<std::uint32_t>(flinks.size()));
  if (isnew) flinks.push_back(found->first);
  return found->second;
}

std::vector<tlink> ttracer::collectlinks() const {
  std::vector<tlink> result;
  if (fisshort) {
    const bool issynonym = store().optlookup(fstatement.key) < 0;
    result.push_back(
        {issynonym ? tlink::tkind::synonym : tlink::tkind::shortform, std::string(fstatement.key)});
  }
  for (const toption* option : fspreading)
    result.push_back({option->opttype() == topttype::macro ? tlink::tkind::macro : tlink::tkind::multilist,
                      std::string(option->getname())});
  if (fbyname) result.push_back({tlink::tkind::name, {}});
  return result;
}

}  // namespace tool

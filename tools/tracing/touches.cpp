// Picks out what concerns the target while the lines are read.
#include "tools/tracing/touches.h"

#include <algorithm>

#include "base/strutilx.h"
#include "base/textcase.h"
#include "tools/doc/entrytext.h"
#include "tools/doc/shownvalue.h"

namespace tool {

using namespace optcore;

std::string plainsymbol(std::string_view text) {
  std::string result;
  for (const char character : text)
    if (std::string_view(" \t'\"").find(character) == std::string_view::npos)
      result.push_back(lowchar(character));
  return result;
}

namespace {

// Whether the symbol with its elements is meant: by its name alone, or with these elements.
bool matches(const std::string& sought, std::string_view name, const tpackedtexts& elements) {
  const std::string whole = plainsymbol(std::string(name) + elementstext(elements));
  return sought.empty() || sought == whole || sought == plainsymbol(name);
}

}  // namespace

bool ttouches::istarget(const toption& option) {
  if (!ftarget.listname.empty() && struequal(option.name(), ftarget.listname)) ftarget.option = &option;
  return ftarget.option == &option;
}

ttouch& ttouches::add(ttouch::tkind kind) {
  const tlinesource* source = store().messages().activesource();
  ftouches.push_back({.kind = kind,
                      .source = currentsource(),
                      .links = currentlinks(),
                      .line = currentline(),
                      .text = source != nullptr ? std::string(trim(source->linetext())) : "",
                      .value = {},
                      .message = {}});
  return ftouches.back();
}

// ---- what the store reports

bool ttouches::concerns(const tmessage& message) const {
  const bool issymbolline = statement().kind != tstep::tkind::statement;
  if (ftarget.symbol.empty() && !ftarget.indicators && message.subject.option != nullptr &&
      message.subject.option == ftarget.option)
    return true;
  const bool isfile = message.subject.problem == tsubject::tproblem::unusablefile;
  if (isfile && statement().option != nullptr && statement().option == ftarget.option) return true;
  if (!issymbolline || message.source != store().messages().activesource()) return false;
  if (statement().kind == tstep::tkind::indicator && ftarget.indicators) return true;
  if (statement().kind == tstep::tkind::dotline && ftarget.option != nullptr)
    return statement().option == ftarget.option &&
           (ftarget.symbol.empty() ||
            plainsymbol(statement().key) == ftarget.symbol.substr(0, ftarget.symbol.find('(')));
  return !ftarget.symbol.empty() && plainsymbol(message.subject.name) == ftarget.symbol;
}

void ttouches::filed(const tmessage& message) {
  ttracer::filed(message);
  if (!issource() || message.kind == tmsgkind::fileenter || message.kind == tmsgkind::fileleave) return;
  if (message.explains) {
    if (fexplainable) ftouches.back().message.append("; ").append(trim(message.text));
    return;
  }
  fexplainable = concerns(message) && message.kind != tmsgkind::help && message.kind != tmsgkind::inputecho;
  if (!fexplainable) return;
  const bool accepted = message.kind == tmsgkind::deprecated || message.kind == tmsgkind::valuewarning;
  add(accepted ? ttouch::tkind::noted : ttouch::tkind::refused).message = message.text;
}

void ttouches::assigned(const toption& option, std::int32_t bits) {
  if (!issource() || !istarget(option)) return;
  if (statement().kind == tstep::tkind::dotline && statement().option == &option) return;  // see kept
  for (const twhich which : {twhich::first, twhich::second}) {
    if ((bits & valuebit(which)) == 0) continue;
    const bool outofbounds = (option.outofbounds() & valuebit(which)) != 0;
    std::string reason;
    if (outofbounds && fexplainable) {  // the warning came before the value was stored
      reason = ftouches.back().message;
      ftouches.pop_back();
    }
    ttouch& touch = add(outofbounds ? ttouch::tkind::outofbounds : ttouch::tkind::stored);
    touch.which = which;
    touch.message = reason;
    const auto* list = ifis<tstrlistoption>(&option);
    touch.value =
        list != nullptr ? shown(list->item(list->itemcount() - 1)).text : currentvalue(option, which).text;
    fexplainable = false;
  }
}

void ttouches::stepped(const tstep& step) {
  ttracer::stepped(step);
  fexplainable = false;
  const bool acts = step.kind == tstep::tkind::statement && ifis<timmediateoption>(step.option) != nullptr;
  if (acts && istarget(*step.option)) add(ttouch::tkind::acted);
  if (step.kind == tstep::tkind::spreads && istarget(*step.option)) add(ttouch::tkind::passedon);
  if (step.kind == tstep::tkind::keptentry) kept(step);
}

void ttouches::kept(const tstep& step) {
  if (step.option != nullptr) {
    const tdotobj& entry = *store().dotoptions().getobject(store().dotoptions().count() - 1);
    const bool isoption = ftarget.option == nullptr ? !ftarget.symbol.empty() : ftarget.option == step.option;
    if (isoption && matches(ftarget.symbol, entry.name(), entry.indices()))
      add(ttouch::tkind::kept).value = numbertext(entry.value());
    return;
  }
  const tindicatoritem& item = *store().indicators().get(store().indicators().count() - 1);
  const bool named = ftarget.option == nullptr && !ftarget.symbol.empty() &&
                     (matches(ftarget.symbol, item.equation().name(), item.equation().elements()) ||
                      matches(ftarget.symbol, item.variable().name(), item.variable().elements()));
  if (ftarget.indicators || named) add(ttouch::tkind::kept).value = std::to_string(item.value());
}

// ---- afterwards

namespace {

bool stores(const ttouch& touch) {
  return touch.kind == ttouch::tkind::stored || touch.kind == ttouch::tkind::outofbounds ||
         touch.kind == ttouch::tkind::kept;
}

}  // namespace

const ttouch* ttouches::inforce(twhich which) const {
  const auto found = std::find_if(ftouches.rbegin(), ftouches.rend(),
                                  [&](const ttouch& touch) { return stores(touch) && touch.which == which; });
  return found != ftouches.rend() ? &*found : nullptr;
}

void ttouches::markoverridden() {
  if (ftarget.option == nullptr || ftarget.option->opttype() == topttype::strlist) return;
  for (ttouch& touch : ftouches)
    touch.overridden = stores(touch) && touch.kind != ttouch::tkind::kept && inforce(touch.which) != &touch;
}

}  // namespace tool

// Collects what lines do.
#include "tools/migrating/meaning.h"

#include <algorithm>

#include "base/numtext.h"
#include "tools/doc/entrytext.h"

namespace tool {

using namespace optcore;

namespace {

tvalue currentvalueof(const toption& option, twhich which) {
  if (const auto* number = ifis<tdbloption>(&option)) return number->value(which);
  if (const auto integer = option.getasinteger12(which)) return *integer;
  if (const auto* list = ifis<tstrlistoption>(&option)) return std::string(list->item(list->itemcount() - 1));
  return std::string(option.getasstring12(which).view());
}

bool iserror(const tlineproblem& problem) {
  return problem.kind == tmsgkind::valueerror || problem.kind == tmsgkind::usererror;
}

}  // namespace

void tmeaning::clear() {
  statements.clear();
  effects.clear();
  problems.clear();
}

bool tmeaning::hasimmediate() const {
  return std::ranges::any_of(
      statements, [](const tstatement& each) { return ifis<timmediateoption>(each.option) != nullptr; });
}

bool tmeaning::haserror() const { return std::ranges::any_of(problems, iserror); }

tmeaning tmeaning::of(std::size_t statement) const {
  const tstatement& begin = statements[statement];
  const bool islast = statement + 1 == statements.size();
  const std::size_t effectsend = islast ? effects.size() : statements[statement + 1].effects;
  const std::size_t problemsend = islast ? problems.size() : statements[statement + 1].problems;
  tmeaning result;
  result.statements = {begin};
  result.statements[0].effects = result.statements[0].problems = 0;
  const auto part = [](const auto& list, std::size_t first, std::size_t end) {
    return std::decay_t<decltype(list)>(list.begin() + static_cast<std::ptrdiff_t>(first),
                                        list.begin() + static_cast<std::ptrdiff_t>(end));
  };
  result.effects = part(effects, begin.effects, effectsend);
  result.problems = part(problems, begin.problems, problemsend);
  return result;
}

std::string tmeaning::problemtext() const {
  std::string result;
  for (const tlineproblem& problem : problems)
    if (problem.kind != tmsgkind::deprecated) result += (result.empty() ? "" : "; ") + problem.text;
  return result;
}

void tmeaning::step(const tstep& step, const tvksoptions& store) {
  switch (step.kind) {
    case tstep::tkind::dotline:
      if (step.option != nullptr) {  // the second step of the line
        statements.back().option = step.option;
        break;
      }
      [[fallthrough]];
    case tstep::tkind::statement:
    case tstep::tkind::indicator:
      statements.push_back({step.kind, std::string(step.key), step.option, effects.size(), problems.size()});
      break;
    case tstep::tkind::keptentry:
      if (step.option != nullptr) {
        const tdotobj& entry = *store.dotoptions().getobject(store.dotoptions().count() - 1);
        effects.push_back({.kind = teffect::tkind::dotentry,
                           .option = step.option,
                           .value = entry.value(),
                           .symbol = std::string(entry.name()) + elementstext(entry.indices())});
      } else {
        const tindicatoritem& item = *store.indicators().get(store.indicators().count() - 1);
        const std::size_t keyword = store.definition().dotname().size();
        effects.push_back({.kind = teffect::tkind::indicator,
                           .option = nullptr,
                           .value = item.value(),
                           .symbol = keytext(store, item).substr(keyword)});
      }
      break;
    case tstep::tkind::spreads:
    case tstep::tkind::hasspread:
    case tstep::tkind::takesdefault: break;
  }
}

// What a dot line assigns to its option is part of its entry.
void tmeaning::assigned(const toption& option, std::int32_t bits) {
  if (statements.empty() || statements.back().kind == tstep::tkind::dotline) return;
  const bool islist = option.opttype() == topttype::strlist;
  // the name of an option without a value assigns its default, but a multilist or macro only marks it as set
  const bool isvalue = option.subtype() != tsubtype::novalue || statements.back().option == &option;
  for (const twhich which : {twhich::first, twhich::second})
    if ((bits & valuebit(which)) != 0)
      effects.push_back({.kind = islist ? teffect::tkind::listtext : teffect::tkind::value,
                         .option = &option,
                         .which = which,
                         .value = isvalue ? currentvalueof(option, which) : tvalue()});
}

void tmeaning::filed(const tmessage& message) {
  switch (message.kind) {
    case tmsgkind::valueerror:
    case tmsgkind::valuewarning:
    case tmsgkind::usererror:
    case tmsgkind::deprecated: break;
    default: return;
  }
  if (message.explains && !problems.empty()) {
    problems.back().text.append("; ").append(message.text.substr(message.text.find_first_not_of(' ')));
    return;
  }
  problems.push_back({.kind = message.kind,
                      .option = message.subject.option,
                      .isfile = message.subject.problem == tsubject::tproblem::unusablefile,
                      .text = std::string(message.text)});
}

std::string valuetext(const tvalue& value) {
  if (const auto* integer = std::get_if<std::int32_t>(&value)) return std::string(inttostr(*integer).view());
  if (const auto* number = std::get_if<double>(&value)) return std::string(dbltostrexact(*number).view());
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr ? *text : std::string();
}

}  // namespace tool

// Filing, counting and decoration of messages.
#include "options/messages.h"

#include "base/numtext.h"
#include "base/readytothrow.h"

namespace optcore {

namespace {

// Whether messages of this kind begin with the line number.
bool hasline(tmsgkind kind) noexcept {
  switch (kind) {
    case tmsgkind::inputecho:
    case tmsgkind::help:
    case tmsgkind::fileenter:
    case tmsgkind::fileleave:
    case tmsgkind::toomanymsgs: return false;
    case tmsgkind::defineerror:
    case tmsgkind::valueerror:
    case tmsgkind::valuewarning:
    case tmsgkind::deprecated:
    case tmsgkind::usererror: break;
  }
  return true;
}

}  // namespace

// Whether this is a leave note directly after its enter note. Both are dropped then, so reading a source
// without messages leaves no trace. The notes nest, so an enter note at the end of the list belongs to this
// leave note.
bool tmessagelist::cancelsenternote(tmsgkind kind) const noexcept {
  return kind == tmsgkind::fileleave && count() > 0 && ftexts.getobject(count() - 1) == tmsgkind::fileenter;
}

void tmessagelist::addoutofmemory() noexcept {
  try {
    foutofmemory = true;
    if (readytothrow()) fileoutofmemory();
  } catch (...) {
    // foutofmemory stays set, so the message is filed later
  }
}

void tmessagelist::addinternalerror() noexcept {
  try {
    add({.kind = tmsgkind::usererror, .text = "Internal error"});
  } catch (...) {
    addoutofmemory();
  }
}

void tmessagelist::fileoutofmemory() {
  if (!foutofmemory) return;
  file({.kind = tmsgkind::usererror, .text = "Out of memory"});
  foutofmemory = false;
}

void tmessagelist::addmessage(tmsgkind kind, std::string_view text) {
  if (!ignores(kind)) add({kind, text, false, {}, fsource, linenr()});
}

void tmessagelist::addmessage(tmsgkind kind, std::string_view text, const tsubject& subject) {
  if (!ignores(kind)) add({kind, text, false, subject, fsource, linenr()});
}

void tmessagelist::addexplanation(tmsgkind kind, std::string_view text) {
  if (!ignores(kind)) add({kind, text, true, {}, fsource, linenr()});
}

void tmessagelist::notify(tstep::tkind kind, std::string_view key, const toption* option) const {
  fobserver->stepped({kind, key, option});
}

void tmessagelist::add(const tmessage& message) {
  if (!readytothrow()) {
    foutofmemory = true;
    return;
  }
  fileoutofmemory();
  file(message);
}

void tmessagelist::addecho(std::string_view line, const tlinesource& source) {
  if (fobserver != nullptr)
    fobserver->filed({.kind = tmsgkind::inputecho, .text = line, .source = &source, .line = source.linenr()});
  append(tmsgkind::inputecho, line);
}

void tmessagelist::file(const tmessage& message) {
  if (fobserver != nullptr) fobserver->filed(message);
  const tmsgkind kind = message.kind;
  if (cancelsenternote(kind))
    ftexts.remove(count() - 1);
  else if (count() == maxmessages)
    append(tmsgkind::toomanymsgs, concat("Maximum of ", inttostr(maxmessages).view(), " messages reached"));
  else if (full())
    return;
  else if (message.line != 0 && hasline(kind))
    append(kind, concat("line ", inttostr(message.line).view(), ": ", message.text));
  else
    append(kind, message.text);
}

void tmessagelist::append(tmsgkind kind, std::string_view text) {
  ftexts.addobject(text, kind);
  switch (kind) {
    case tmsgkind::inputecho:
    case tmsgkind::fileenter:
    case tmsgkind::fileleave: break;
    case tmsgkind::help: ++ferrorcount; break;
    case tmsgkind::valuewarning:
    case tmsgkind::deprecated: ++fwarnings; break;
    case tmsgkind::defineerror:
    case tmsgkind::valueerror:
    case tmsgkind::toomanymsgs:
    case tmsgkind::usererror:
      ++ferrors;
      ++ferrorcount;
      break;
  }
}

shortstring tmessagelist::decorated(std::int32_t nr) const {
  if (!isnumber(nr)) return concat("Bad message number = ", inttostr(std::int64_t{nr} - 1).view());
  const std::string_view text = ftexts.getname(nr - 1);
  switch (kind(nr)) {
    case tmsgkind::inputecho: return concat(">> ", text);
    case tmsgkind::defineerror: return concat("*** Definition Error ", text);
    case tmsgkind::valueerror: return concat("*** Value Error ", text);
    case tmsgkind::valuewarning:
    case tmsgkind::deprecated: return concat("*** Warning ", text);
    case tmsgkind::fileenter: return concat("Reading parameter(s) from ", quoted(text));
    case tmsgkind::fileleave: return concat("Finished reading from ", quoted(text));
    case tmsgkind::usererror: return concat("*** Error ", text);
    case tmsgkind::help:
    case tmsgkind::toomanymsgs: break;
  }
  return text;
}

tmsgkind tmessagelist::kind(std::int32_t nr) const noexcept {
  return isnumber(nr) ? ftexts.getobject(nr - 1) : tmsgkind::usererror;
}

void tmessagelist::get(std::int32_t nr, ttextout& text, std::int32_t& kind) const {
  text.set(decorated(nr));
  kind = static_cast<std::int32_t>(this->kind(nr));
}

void tmessagelist::getcounts(std::int32_t& errors, std::int32_t& warnings) const noexcept {
  errors = this->errors();
  warnings = this->warnings();
}

void tmessagelist::clear() {
  ftexts.clear();
  ferrors = 0;
  fwarnings = 0;
  ferrorcount = 0;
  foutofmemory = false;
}

}  // namespace optcore

// The message list of a store: what readers, setters and writers file, numbered from 1 in the order of
// filing. Errors and warnings are counted when they are filed, so reading the counts takes constant time. The
// list adds prefixes and line numbers; the text of a message stands where it is filed.
//
// The list knows what is being read and set, which tactivesource and tcurrentname say. So whoever reports a
// problem needs the list alone.
#pragma once

#include <cassert>
#include <cstdint>
#include <string_view>
#include <utility>

#include "base/textout.h"
#include "base/vksobj.h"
#include "options/codes.h"
#include "options/observer.h"

namespace optcore {

class tmessagelist {
 public:
  // Files a message. If an error or warning has a line number, the text begins with it.
  void addmessage(tmsgkind kind, std::string_view text);
  // The same with the name, option or value that the message is about.
  void addmessage(tmsgkind kind, std::string_view text, const tsubject& subject);
  // Files a message that adds to the one before it.
  void addexplanation(tmsgkind kind, std::string_view text);
  // Files a line of input. The limit of messages does not apply to echoed lines.
  void addecho(std::string_view line, const tlinesource& source);
  // Files the message that memory has run out. If there is no memory for the message either, the error is
  // counted at once, and the message is filed directly before the next one.
  void addoutofmemory() noexcept;
  // Files the message that a call failed for another reason.
  void addinternalerror() noexcept;

  // The text with the prefix of its kind, as clients see it. For a number outside 1 .. count it is a text
  // that says so.
  shortstring decorated(std::int32_t nr) const;
  // tmsgkind::usererror for a number outside 1 .. count.
  tmsgkind kind(std::int32_t nr) const noexcept;
  // Both.
  void get(std::int32_t nr, ttextout& text, std::int32_t& kind) const;

  void clear();
  // The list has reached its limit: further messages are dropped, except echoed lines.
  bool full() const noexcept { return count() > maxmessages; }
  // The next two messages, a problem and its explanation, would enter the list. Otherwise the list drops one of
  // them, or puts the message about the limit in its place.
  bool hasroomfortwo() const noexcept { return count() + (foutofmemory ? 1 : 0) + 2 <= maxmessages; }
  // A message of this kind would have no effect now, so its text need not be built: the list would drop it,
  // and there is no observer. A leave note is never without effect, because it may remove its enter note.
  bool ignores(tmsgkind kind) const noexcept {
    return full() && kind != tmsgkind::fileleave && fobserver == nullptr;
  }
  std::int32_t count() const noexcept { return ftexts.count(); }
  std::int32_t errors() const noexcept { return ferrors + (foutofmemory ? 1 : 0); }
  std::int32_t warnings() const noexcept { return fwarnings; }
  void getcounts(std::int32_t& errors, std::int32_t& warnings) const noexcept;
  // Errors and lines of help. Setters and readers compare this count before and after an operation.
  std::int32_t errorcount() const noexcept { return ferrorcount + (foutofmemory ? 1 : 0); }

  // Sets the observer that is notified of every message; null for none. It is not owned, and must be removed
  // before it is destroyed.
  void setobserver(tstoreobserver* observer) noexcept { fobserver = observer; }
  tstoreobserver* observer() const noexcept { return fobserver; }

  // Notifies the observer of a step in reading option text.
  void tellstep(tstep::tkind kind, std::string_view key = {}, const toption* option = nullptr) const {
    if (fobserver != nullptr) notify(kind, key, option);
  }

  // The source that is being read, set by tactivesource; null when there is none.
  const tlinesource* activesource() const noexcept { return fsource; }
  // The name that messages quote for the option whose value is being set, as the caller wrote it. Set by
  // tcurrentname; otherwise empty, and messages quote the option's own name.
  std::string_view curoptname() const noexcept { return fcuroptname; }
  // Whether the lines of sources are echoed.
  bool echo() const noexcept { return fecho; }
  void setecho(bool echo) noexcept { fecho = echo; }

 private:
  friend class tactivesource;
  friend class tcurrentname;

  static constexpr std::int32_t maxmessages = 5000;

  std::int32_t linenr() const { return fsource != nullptr ? fsource->linenr() : 0; }
  // Not inline, because few readings are observed.
  void notify(tstep::tkind kind, std::string_view key, const toption* option) const;
  void add(const tmessage& message);
  void file(const tmessage& message);
  void append(tmsgkind kind, std::string_view text);
  void fileoutofmemory();
  bool cancelsenternote(tmsgkind kind) const noexcept;
  bool isnumber(std::int32_t nr) const noexcept { return nr >= 1 && nr <= count(); }

  txstringlist<tmsgkind> ftexts;
  std::int32_t ferrors = 0;
  std::int32_t fwarnings = 0;
  std::int32_t ferrorcount = 0;  // with lines of help
  bool foutofmemory = false;     // memory ran out, and the message about it is still to be filed
  tstoreobserver* fobserver = nullptr;
  tlinesource* fsource = nullptr;
  std::string_view fcuroptname;
  bool fecho = false;
};

// Makes a source the active one while this object exists. Readings may nest: the source that was active
// before becomes the includer of this one, and is active again afterwards.
class tactivesource {
 public:
  tactivesource(tmessagelist& messages, tlinesource& source) noexcept
      : fmessages(messages), fsource(source), fprevious(std::exchange(messages.fsource, &source)) {
    source.fincluder = fprevious;
  }
  tactivesource(const tactivesource&) = delete;
  tactivesource& operator=(const tactivesource&) = delete;
  ~tactivesource() {
    assert(fmessages.fsource == &fsource);  // readings end in reverse order, each before its scanner
    fsource.fincluder = nullptr;
    fmessages.fsource = fprevious;
  }

 private:
  tmessagelist& fmessages;
  tlinesource& fsource;
  tlinesource* fprevious;
};

// Sets the name that messages quote while this object exists. The text is not copied and must live as long.
class tcurrentname {
 public:
  tcurrentname(tmessagelist& messages, std::string_view name) noexcept
      : fmessages(messages), fprevious(std::exchange(messages.fcuroptname, name)) {}
  tcurrentname(tmessagelist& messages, shortstring&& name) = delete;  // it would be gone at once
  tcurrentname(const tcurrentname&) = delete;
  tcurrentname& operator=(const tcurrentname&) = delete;
  ~tcurrentname() { fmessages.fcuroptname = fprevious; }

 private:
  tmessagelist& fmessages;
  std::string_view fprevious;
};

}  // namespace optcore

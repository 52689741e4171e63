// The message list of a store: what readers, setters and writers file, numbered from 1 in the order of
// filing. Errors and warnings are counted when they are filed, so reading the counts takes constant time. The
// list adds prefixes and line numbers; the text of a message stands where it is filed.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/vksobj.h"
#include "options/codes.h"
#include "options/observer.h"

namespace optcore {

class tmessagelist {
 public:
  // Files a message. If an error or warning has a line number, the text begins with it.
  void add(const tmessage& message);
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

  void clear();
  // The list has reached its limit: further messages are dropped, except echoed lines.
  bool full() const noexcept { return count() > maxmessages; }
  // The next message would enter the list. Otherwise the list drops it, or puts the message about the limit in
  // its place.
  bool hasroom() const noexcept { return count() + (foutofmemory ? 1 : 0) < maxmessages; }
  // A message of this kind would have no effect: the list would drop it, and there is no observer. A leave
  // note is never without effect, because it may remove its enter note.
  bool ignores(tmsgkind kind) const noexcept {
    return full() && kind != tmsgkind::fileleave && fobserver == nullptr;
  }
  std::int32_t count() const noexcept { return ftexts.count(); }
  std::int32_t errors() const noexcept { return ferrors + (foutofmemory ? 1 : 0); }
  std::int32_t warnings() const noexcept { return fwarnings; }
  // Errors and lines of help. Setters and readers compare this count before and after an operation.
  std::int32_t errorcount() const noexcept { return errors() + fhelplines; }

  // Sets the observer that is notified of every message; null for none. It is not owned, and must be removed
  // before it is destroyed.
  void setobserver(tstoreobserver* observer) noexcept { fobserver = observer; }
  tstoreobserver* observer() const noexcept { return fobserver; }

 private:
  static constexpr std::int32_t maxmessages = 5000;

  void file(const tmessage& message);
  void append(tmsgkind kind, std::string_view text);
  void fileoutofmemory();
  bool cancelsenternote(tmsgkind kind) const noexcept;
  bool isnumber(std::int32_t nr) const noexcept { return nr >= 1 && nr <= count(); }

  txstringlist<tmsgkind> ftexts;
  std::int32_t ferrors = 0;
  std::int32_t fwarnings = 0;
  std::int32_t fhelplines = 0;
  bool foutofmemory = false;  // memory ran out, and the message about it is still to be filed
  tstoreobserver* fobserver = nullptr;
};

}  // namespace optcore

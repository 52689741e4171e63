// The message list: everything that readers, setters and writers have to say, numbered in the order of
// filing. Errors and warnings are counted as they are filed, so that asking costs nothing.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/vksobj.h"
#include "options/codes.h"
#include "options/observer.h"

namespace optcore {

class tmessagelist {
 public:
  // Files a message. The line, if it has one, comes in front of the text of errors and warnings.
  void add(const tmessage& message);
  // Files a line of input. Echoed lines pass the limit.
  void addecho(std::string_view line, const tlinesource& source);
  // Files that memory has run out. When there is none even for that, the error counts at once and the message
  // comes in front of the next one.
  void addoutofmemory() noexcept;
  // Files that a call was given up for another reason.
  void addinternalerror() noexcept;

  // The text as the client sees it; a number outside 1 .. count gives a text that says so.
  shortstring decorated(std::int32_t nr) const;
  // 9 for a number outside 1 .. count.
  tmsgkind kind(std::int32_t nr) const noexcept;

  void clear();
  // The list has reached its limit: what is added from now on is dropped.
  bool full() const noexcept { return count() > maxmessages; }
  // Adding such a message would leave everything as it is, and nobody would notice.
  bool ignores(tmsgkind kind) const noexcept {
    return full() && kind != tmsgkind::fileleave && fobserver == nullptr;
  }
  std::int32_t count() const noexcept { return ftexts.count(); }
  std::int32_t errors() const noexcept { return ferrors + (foutofmemory ? 1 : 0); }
  std::int32_t warnings() const noexcept { return fwarnings; }
  // What the setters compare before and after: errors and lines of help.
  std::int32_t errorcount() const noexcept { return errors() + fhelplines; }

  // Notified of every message; null for nobody. It must outlive the list or be removed.
  void setobserver(tstoreobserver* observer) noexcept { fobserver = observer; }

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
  bool foutofmemory = false;  // the message about it is still to be filed
  tstoreobserver* fobserver = nullptr;
};

}  // namespace optcore

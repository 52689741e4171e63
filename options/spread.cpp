// Setting the options that stand for others: a multilist passes one word of its text to each member, a macro
// its whole text to each member.
//
// Members may be such options again, to any depth, so an explicit stack replaces recursion. A definition can
// make a single assignment stand for more assignments than any machine can do (macros of macros that name
// each member twice). Therefore the number of assignments is limited; at the limit the rest is dropped, with
// a message.
#include <algorithm>
#include <vector>

#include "options/globals.h"
#include "options/toption.h"
#include "options/vksoptions.h"

namespace optcore {

namespace {

// Finds the next word at or after `position` (counted from 0) and moves `position` after the word and its
// separator. Leading blanks are skipped. Words are separated by charpath(), not by blanks. A word may be
// empty, but not at the end of the text. Returns false when there is no further word.
bool nextlistword(std::string_view text, std::size_t& position, std::string_view& word) noexcept {
  position = std::min(text.find_first_not_of(" \t", position), text.size());
  if (position == text.size()) return false;
  const std::size_t begin = position;
  const std::size_t end = std::min(text.find(charpath(), begin), text.size());
  word = text.substr(begin, end - begin);
  position = std::min(end + 1, text.size());
  return !word.empty() || position < text.size();
}

class tspreader {
 public:
  // `members` is the number of members of the option itself; the limit grows with it.
  tspreader(tvksoptions& owner, std::int32_t members)
      : fdefinition(owner.definition()),
        fmessages(owner.messages()),
        fleft(std::int64_t{1000} + owner.definition().getcount() + members) {}

  void spread(const toption& option, std::string_view text) {
    begin(option, text);
    while (!fopen.empty()) {
      toption* member = nullptr;
      std::string_view membertext;
      if (!nextmember(fopen.back(), member, membertext))
        end();
      else if (fleft-- == 0)
        return fmessages.addmessage(tmsgkind::valueerror,
                                    concat("Too many members for option ", quoted(option.name())),
                                    {option.name(), &option});
      else if (member != nullptr)
        assign(*member, membertext);
    }
  }

 private:
  void begin(const toption& option, std::string_view text) {
    fopen.push_back({&option, text, 0, 0});
    fmessages.tellstep(tstep::tkind::spreads, fmessages.curoptname(), &option);
  }

  void end() {
    fmessages.tellstep(tstep::tkind::hasspread, fmessages.curoptname(), fopen.back().option);
    fopen.pop_back();
  }

  // A multilist or macro whose members are being assigned.
  struct topen {
    const toption* option;
    std::string_view text;
    std::int32_t next;     // the index of the member to assign next, from 0
    std::size_t position;  // of the next word in the text, for a multilist
  };

  // Finds the next member and its text. The member is null if it is undefined or the multilist itself; its
  // word is dropped. Returns false when there is no further member.
  bool nextmember(topen& open, toption*& member, std::string_view& text) {
    if (const auto* macro = ifis<tmacrooption>(open.option)) {
      if (open.next == macro->items().count()) return false;
      member = macro->items().get(open.next++);
      text = open.text;
      return true;
    }
    return nextlistmember(as<tmultilistoption>(*open.option), open, member, text);
  }

  bool nextlistmember(const tmultilistoption& list, topen& open, toption*& member, std::string_view& word) {
    if (!nextlistword(open.text, open.position, word)) return false;
    if (open.next == list.items().count()) {
      fmessages.addmessage(tmsgkind::valueerror,
                           concat("Too many items for multilist ", quoted(fmessages.curoptname())),
                           {fmessages.curoptname(), &list});
      return false;
    }
    member = fdefinition.getobjects(list.items().get(open.next++));
    if (member == &list) member = nullptr;
    return true;
  }

  void assign(toption& member, std::string_view text) {
    if (member.opttype() == topttype::multilist || member.opttype() == topttype::macro)
      begin(member, text);
    else
      member.setasstring(text);
  }

  tdefinition& fdefinition;
  tmessagelist& fmessages;
  std::vector<topen> fopen;
  std::int64_t fleft;  // how many members may still be assigned
};

}  // namespace

void tmultilistoption::setasstring(std::string_view text) {
  tspreader(owner(), fitems.count()).spread(*this, text);
}

void tmacrooption::setasstring(std::string_view text) {
  tspreader(owner(), fitems.count()).spread(*this, text);
}

}  // namespace optcore

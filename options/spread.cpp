// Options that stand for others: a multilist hands its words to its members, a macro its text to each member.
//
// Members may be such options again, to any depth, so the walk keeps its own stack. A definition can make a
// single assignment stand for more assignments than any machine can do (macros of macros that name each
// member twice); the walk gives up, with a message, when there were far more than there are options.
#include <algorithm>
#include <vector>

#include "options/globals.h"
#include "options/toption.h"
#include "options/vksoptions.h"

namespace optcore {

namespace {

// Finds the next word from `position` (counted from 0) on, which moves behind the word and its separator.
// Words are ended by the path-list separator, not by blanks. False when there is no further word; one that is
// empty at the end of the text is none.
bool nextlistword(std::string_view text, std::size_t& position, std::string_view& word) noexcept {
  position = std::min(text.find_first_not_of(" \t", position), text.size());
  if (position == text.size()) return false;
  const std::size_t begin = position;
  position = std::min(text.find(charpath(), begin), text.size());
  word = text.substr(begin, position - begin);
  if (position < text.size()) ++position;
  return !word.empty() || position < text.size();
}

class tspreader {
 public:
  // `members` are those of the option itself; they all get their turn.
  tspreader(tvksoptions& owner, std::int32_t members)
      : fowner(owner), fleft(std::int64_t{1000} + owner.getcount() + members) {}

  void spread(const toption& option, std::string_view text) {
    fopen.push_back({&option, text, 0, 0});
    while (!fopen.empty()) {
      toption* member = nullptr;
      std::string_view membertext;
      if (!nextmember(fopen.back(), member, membertext))
        fopen.pop_back();
      else if (fleft-- == 0)
        return fowner.addmessage(tmsgkind::valueerror,
                                 concat("Too many members for option ", quoted(option.name())),
                                 {option.name(), &option});
      else if (member != nullptr)
        assign(*member, membertext);
    }
  }

 private:
  // A multilist or macro whose members are being assigned.
  struct topen {
    const toption* option;
    std::string_view text;
    std::int32_t next;     // the member to assign next
    std::size_t position;  // in the text, for a multilist
  };

  // The member is null where the text is used up without effect. False when there is no further member.
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
      fowner.addmessage(tmsgkind::valueerror,
                        concat("Too many items for multilist ", quoted(fowner.curoptname())),
                        {fowner.curoptname(), &list});
      return false;
    }
    member = fowner.getobjects(list.items().get(open.next++));
    if (member == &list) member = nullptr;
    return true;
  }

  void assign(toption& member, std::string_view text) {
    if (member.opttype() == topttype::multilist || member.opttype() == topttype::macro)
      fopen.push_back({&member, text, 0, 0});
    else
      member.setasstring(text);
  }

  tvksoptions& fowner;
  std::vector<topen> fopen;
  std::int64_t fleft;  // so many members may still be assigned
};

}  // namespace

void tmultilistoption::setasstring(std::string_view text) {
  tspreader(owner(), fitems.count()).spread(*this, text);
}

void tmacrooption::setasstring(std::string_view text) {
  tspreader(owner(), fitems.count()).spread(*this, text);
}

}  // namespace optcore

// The help text of a definition: a summary by group, a listing in alphabetical order, or the description of
// one option. The lines are filed as messages.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "options/definition.h"
#include "options/messages.h"

namespace optcore {

// The option of a listed name, and whether the name is a synonym for it.
struct tlistedoption {
  const toption* option = nullptr;
  bool issynonym = false;
};

// The names in the listings, ordered by strucmpnum. The list does not own the options.
class tmysortstringlist final : public txstringlist<tlistedoption> {
 public:
  std::int32_t compare(std::int32_t i, std::int32_t j) const override;
};

class thelplisting {
 public:
  // Both must outlive the listing. The message list receives the lines.
  thelplisting(const tdefinition& definition, tmessagelist& messages)
      : fdefinition(definition), fmessages(messages) {}

  // Files the help for a request: the name of an option, or a number whose bits choose the parts of the
  // listing. Any other request gives the summary.
  void show(std::string_view request);
  // What the request has cost: the bytes of the lines that were made or of the names that were sorted,
  // whichever are more, and one byte for each name that was looked at.
  std::int64_t cost() const noexcept { return flookedat + std::max(fputout, fsorted); }

 private:
  // Parts of the listing, as bits of a request that is a number.
  static constexpr std::int32_t summarybit = 1;
  static constexpr std::int32_t alphabeticalbit = 2;
  static constexpr std::int32_t standardoutputbit = 4;
  static constexpr std::int32_t marksbit = 8;
  static constexpr std::int32_t defaultlevel = summarybit | alphabeticalbit;

  // ---- the parts
  bool showoption(std::string_view request, std::string_view name);
  void collectnames();
  void summary(bool withmarks);
  void collectgroups();
  void summarygroup(const tgroupobj& group, bool withmarks);
  void summaryline(std::int32_t index, bool withmarks);
  void alphabetical();
  void tostandardoutput();

  // ---- the description of one option
  void describe(const toption& option);
  void addtypeline(const toption& option);
  void additems(const tenumstroption& option);
  void additems(const tenumintoption& option);
  void addbigtext(const toption& option);

  // ---- the line buffer
  // Further lines would be dropped, so they need not be made.
  bool isfull() const noexcept { return fmessages.ignores(tmsgkind::help); }
  void addbuf(std::string_view piece);
  template <class... tpieces>
  void addline(const tpieces&... pieces) {
    addbuf(concat(pieces...));
    endline();
  }
  void endline() { addbuf({}); }
  void blankline();

  const tdefinition& fdefinition;
  tmessagelist& fmessages;
  tmysortstringlist fnames;
  // An entry for each name in fnames, ordered by the group and, within it, as the names.
  struct tgroupname {
    std::int32_t groupnumber;
    std::int32_t index;  // in fnames
  };
  std::vector<tgroupname> fgroupnames;
  shortstring fbuffer;
  std::int64_t fputout = 0;
  std::int64_t fsorted = 0;
  std::int64_t flookedat = 0;
};

}  // namespace optcore

// Rewrites a line of an option file so that the newer definition reads it as the older one did. What a line
// means is never computed: each line that is written was read under both definitions before.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/migrating/note.h"
#include "tools/migrating/outcome.h"
#include "tools/migrating/trial.h"

namespace tool {

// A line as the older definition reads it.
struct toldline {
  std::string_view text;  // without the line end
  const tmeaning& meaning;
  const optcore::tdefinition& definition;  // of the store that read it
  const tpositions& positions;             // of the same
  bool eolonly;                            // whether end-of-line mode is on before it
  tlinestate again;                        // before it, when the result is read under the older definition
};

struct tnewline {
  std::vector<std::string> lines;  // without line ends
  std::vector<tnote> notes;
  bool ischanged = false;
};

class trewriter {
 public:
  // All must outlive this object. `olderpositions` are those of the trial store of the older definition.
  trewriter(ttrial& older, const tpositions& olderpositions, ttrial& newer, const tsuccessors& successors,
            bool clamps)
      : folder(older),
        folderpositions(olderpositions),
        fnewer(newer),
        fsuccessors(successors),
        fclamps(clamps) {}

  // `state` is that of reading under the newer definition. Returns nothing if the line stays and there is
  // nothing to say; what it sets is seen() in either case.
  std::optional<tnewline> rewrite(const toldline& line, tlinestate& state);
  // What the lines that rewrite returned set, in terms of the newer definition.
  const toutcome& seen() const { return fseen; }

  // Whether the text can be added as a line. `before` is the state under the older definition, `now` under the
  // newer one.
  bool canadd(const std::string& text, const toutcome& expected, tlinestate before, tlinestate now);

 private:
  // What becomes of one statement.
  struct tpiece {
    std::vector<std::string> texts;  // settings; none if the statement becomes a comment
    std::vector<tnote> notes;
    toutcome outcome;  // of the texts
    bool ischanged = false;
    bool isaction = false;  // of an immediate option
  };
  // A statement with all that is known about it.
  struct tcase {
    tmeaning meaning;  // under the older definition
    tstatementspans spans;
    std::string_view text;
    const optcore::toption* older = nullptr;
    const optcore::toption* newer = nullptr;
    toutcome expected{};
    std::string name() const;  // in notes
  };
  using ttexts = std::vector<std::string>;

  // Whether reading these lines has this outcome under the newer definition, and rewriting them once more
  // would change nothing.
  bool holds(const std::vector<std::string>& lines, const toutcome& expected);
  bool stay(const std::vector<std::string>& lines) const;
  bool isunchanged(const toldline& line, const tmeaning& seen) const;
  bool isdue(const tstatement& before, const tmeaning& seen) const;

  // ---- statements (pieces.cpp)
  tcase caseof(std::size_t statement, const tstatementspans& spans) const;
  std::vector<tpiece> piecesof(const tlinespans& spans);
  tpiece piece(const tcase& each);
  tpiece refused(const tcase& each);
  tpiece immediate(const tcase& each);
  std::optional<tpiece> gone(const tcase& each) const;
  std::optional<tpiece> same(const tcase& each);
  std::optional<tpiece> clamped(const tcase& each);
  tpiece left(const tcase& each);
  tpiece asis(const tcase& each) const;
  tpiece commented(const tcase& each, const std::string& why, bool decide) const;
  std::optional<tpiece> attempt(const tcase& each, const ttexts& texts, const toutcome& expected);
  tnote changenote(const tcase& each, const ttexts& texts) const;
  void addremarks(const tcase& each, tpiece& piece);

  // ---- lines
  std::optional<tnewline> composed(const tlinespans& spans, const std::vector<tpiece>& pieces);
  static bool isproved(const ttexts& lines, const std::vector<tpiece>& pieces);
  std::vector<ttexts> variants(const tlinespans& spans, const std::vector<tpiece>& pieces) const;
  ttexts inplace(const tlinespans& spans, const std::vector<tpiece>& pieces, std::string_view comment,
                 bool commentabove) const;
  ttexts split(const tlinespans& spans, const std::vector<tpiece>& pieces) const;
  tnewline uncomposed();
  tnewline comment() const;

  ttrial& folder;
  const tpositions& folderpositions;
  ttrial& fnewer;
  const tsuccessors& fsuccessors;
  const bool fclamps;
  bool fistrying = false;  // whether another rewriter asks if its lines would stay

  const toldline* fline = nullptr;
  tlinestate fstate;  // under the newer definition, before the line or the statement
  toutcome fseen;
};

}  // namespace tool

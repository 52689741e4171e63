// What the lines that were read did with one option, or with the dot lines and indicators of one symbol.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/tracing/tracer.h"

namespace tool {

// What is to be explained.
struct ttarget {
  const optcore::toption* option = nullptr;
  // Of an option that reading adds, a list with two dashes; empty if the option is known.
  std::string listname;
  // The symbol of dot lines and indicators, perhaps with elements, as in "x(1)"; empty for any. In lower case
  // and without blanks and quotes.
  std::string symbol;
  bool indicators = false;  // all of them
};

// One thing that a line did.
struct ttouch {
  enum class tkind {
    stored,
    outofbounds,  // stored, though it is out of the bounds
    refused,
    noted,     // not refused, but there is a message
    passedon,  // the line named a macro or multilist
    acted,     // the line named an immediate option
    kept       // a dot entry or indicator
  };
  tkind kind;
  std::uint32_t source;
  std::uint32_t links;
  std::int32_t line;
  std::string text;  // of the line
  optcore::twhich which = optcore::twhich::first;
  std::string value;  // that was stored or kept
  std::string message;
  bool overridden = false;
};

class ttouches final : public ttracer {
 public:
  ttouches(treading& reading, ttarget target) : ttracer(reading), ftarget(std::move(target)) {}

  // In the order of reading.
  const std::vector<ttouch>& all() const { return ftouches; }
  // The option that was explained; null if none was, and for a list that nothing has added.
  const optcore::toption* option() const { return ftarget.option; }
  // The last thing stored or kept; null if there is none.
  const ttouch* inforce(optcore::twhich which) const;
  // Marks what a later line replaced. To be called when everything has been read.
  void markoverridden();

 private:
  void filed(const optcore::tmessage& message) override;
  void assigned(const optcore::toption& option, std::int32_t bits) override;
  void stepped(const optcore::tstep& step) override;

  bool istarget(const optcore::toption& option);
  bool concerns(const optcore::tmessage& message) const;
  void kept(const optcore::tstep& step);
  ttouch& add(ttouch::tkind kind);

  ttarget ftarget;
  std::vector<ttouch> ftouches;
  bool fexplainable = false;  // the last message was about the target
};

// A symbol as targets have it.
std::string plainsymbol(std::string_view text);

}  // namespace tool

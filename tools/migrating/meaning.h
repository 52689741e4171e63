// What a line of an option file does, as the library reports it while it reads the line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "options/vksoptions.h"

namespace tool {

using tvalue = std::variant<std::monostate, std::int32_t, double, std::string>;

// One thing that a line sets.
struct teffect {
  enum class tkind : std::uint8_t { value, listtext, dotentry, indicator };
  tkind kind;
  const optcore::toption* option;  // null for an indicator
  optcore::twhich which = optcore::twhich::first;
  tvalue value{};        // none if the option is marked as set and keeps its value
  std::string symbol{};  // what a dot entry or an indicator is for
};

struct tlineproblem {
  optcore::tmsgkind kind;
  const optcore::toption* option;
  bool isfile;  // a file cannot be used
  std::string text;
};

struct tstatement {
  optcore::tstep::tkind kind;
  std::string key;  // as it is found: with exactly two dashes for a list
  const optcore::toption* option;
  std::size_t effects, problems;  // where its own begin
};

struct tmeaning {
  std::vector<tstatement> statements;
  std::vector<teffect> effects;
  std::vector<tlineproblem> problems;

  void clear();
  bool isnothing() const { return statements.empty(); }
  bool hasimmediate() const;
  // Whether something was refused. A warning is no refusal, but an obsolete name is.
  bool haserror() const;
  // The effects and problems of one statement.
  tmeaning of(std::size_t statement) const;
  // The texts of all problems but warnings about older names.
  std::string problemtext() const;

  // What an observer of the store is notified of. The problems must be those of lines.
  void step(const optcore::tstep& step, const optcore::tvksoptions& store);
  void assigned(const optcore::toption& option, std::int32_t bits);
  void filed(const optcore::tmessage& message);
};

// The text of a value as an option file has it, without quotes.
std::string valuetext(const tvalue& value);

// How option files are read, which a line may change.
struct tlinestate {
  bool eolonly = true;
  bool nobounds = false;
};

}  // namespace tool

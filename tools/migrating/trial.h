// A store in which single lines are read, to learn what they do under a definition.
#pragma once

#include <string_view>

#include "options/observer.h"
#include "tools/migrating/meaning.h"
#include "tools/reading/linespans.h"

namespace tool {

class ttrial final : optcore::tstoreobserver {
 public:
  // The store must have read its definition, and must outlive this object.
  explicit ttrial(optcore::tvksoptions& store) : fstore(store) { fstore.setobserver(this); }
  ~ttrial() override { fstore.setobserver(nullptr); }
  ttrial(const ttrial&) = delete;
  ttrial& operator=(const ttrial&) = delete;

  const optcore::tvksoptions& store() const { return fstore; }
  const optcore::tdefinition& definition() const { return fstore.definition(); }

  // What the line does, which must not contain the byte 0; it holds until the next call. Files are not
  // included, help and messages are not printed.
  const tmeaning& read(std::string_view line, tlinestate& state);
  // Of the line that was read.
  const tlinespans& spans() const { return fspans; }

 private:
  void filed(const optcore::tmessage& message) override { fmeaning.filed(message); }
  void assigned(const optcore::toption& option, std::int32_t bits) override {
    fmeaning.assigned(option, bits);
  }
  void stepped(const optcore::tstep& step) override { fmeaning.step(step, fstore); }

  bool blankout(std::string_view line);
  void addblanked(std::string_view line);

  optcore::tvksoptions& fstore;
  tmeaning fmeaning;
  tlinespans fspans;
  std::string ftext;
};

}  // namespace tool

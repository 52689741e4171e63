// Lines of an option file that set options to their defaults.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "options/observer.h"
#include "options/vksoptions.h"

namespace tool {

// Makes the lines. Each is tried in a store of the same definition, so that it reads without a message and, if
// that is possible, gives the value that it was made of.
class tsettinglines final : optcore::tstoreobserver {
 public:
  // The store must have read the definition and nothing else. It must outlive this object.
  explicit tsettinglines(optcore::tvksoptions& store) : fstore(store) { store.setobserver(this); }
  ~tsettinglines() override { fstore.setobserver(nullptr); }
  tsettinglines(const tsettinglines&) = delete;
  tsettinglines& operator=(const tsettinglines&) = delete;

  // The line for the option at this index, from 0, in the bytes of the definition. Empty if no line for the
  // option reads without a message: it is deprecated, or each of its uses files messages.
  std::string lineof(std::int32_t index);

 private:
  enum class toutcome { reported, othervalue, clean };
  toutcome tried(const optcore::toption& option, const std::string& line);

  void filed(const optcore::tmessage& message) override;
  void assigned(const optcore::toption& option, std::int32_t bits) override;

  optcore::tvksoptions& fstore;
  std::vector<std::string> fassigned;  // the options that a line sets
  bool freported = false;              // a line has a message
};

}  // namespace tool

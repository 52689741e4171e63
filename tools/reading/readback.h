// Checks whether an option file holds all settings of the store that it was written from. The file is read
// into a fresh store of the same definition, and the two stores are compared. The caller writes and reads the
// file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "options/observer.h"
#include "options/vksoptions.h"

namespace tool {

// A setting that is read back as something else, or not at all. The text gives the reason if it is known.
struct tdifference {
  std::int32_t option;  // number in the written store, from 1; 0 if it is not about an option of that store
  std::string text;
  std::vector<std::string> details;
};

// A message that the fresh store filed about a line of the file.
struct tremark {
  std::int32_t line;  // from 1; of the file itself, not of a file that it includes
  bool iserror;
  bool counts;  // an error that makes the library drop the dot line or indicator of that line
  std::string text;
  std::vector<std::string> details;
};

// Observes the fresh store while it reads the file.
class treadback final : public optcore::tstoreobserver {
 public:
  // The fresh store must have read the definition, but not yet the file. It must outlive this object.
  explicit treadback(optcore::tvksoptions& fresh);
  ~treadback() override { ffresh.setobserver(nullptr); }
  treadback(const treadback&) = delete;
  treadback& operator=(const treadback&) = delete;

  // Compares the stores after the file was read. Returns the differences in the order of the file.
  std::vector<tdifference> differences(const optcore::tvksoptions& written) const;

 private:
  void filed(const optcore::tmessage& message) override;
  void assigned(const optcore::toption&, std::int32_t) override {}

  optcore::tvksoptions& ffresh;
  std::int32_t fdefined;  // the number of options in the definition
  std::vector<tremark> fremarks;
  bool fremarked = false;  // whether the last message was kept as a remark
};

}  // namespace tool

// Whether an option file says what the store holds that it was written from: it is read into a fresh store of
// the same definition, and the two are compared.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "options/observer.h"
#include "options/vksoptions.h"

namespace tool {

// A setting that is not read back as it was, and why.
struct tdifference {
  std::int32_t option;  // of the written store, from 1; 0 for what is no option's value
  std::string text;
  std::vector<std::string> details;
};

// What a store had to say of a line while it read.
struct tremark {
  std::int32_t line;
  bool iserror;
  bool counts;  // so that the library drops a dot line or indicator that it is about
  std::string text;
  std::vector<std::string> details;
};

// Listens while the file is read.
class treadback final : public optcore::tstoreobserver {
 public:
  // The fresh store has read the definition; next it reads the file.
  explicit treadback(optcore::tvksoptions& fresh);
  ~treadback() override { ffresh.setobserver(nullptr); }
  treadback(const treadback&) = delete;
  treadback& operator=(const treadback&) = delete;

  // In the order of the file.
  std::vector<tdifference> differences(const optcore::tvksoptions& written) const;

 private:
  void filed(const optcore::tmessage& message) override;
  void assigned(const optcore::toption&, std::int32_t) override {}

  optcore::tvksoptions& ffresh;
  std::int32_t fdefined;  // options that the definition has
  std::vector<tremark> fremarks;
  bool fremarked = false;  // the last message is the last remark
};

}  // namespace tool

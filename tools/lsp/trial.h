// Tries lines of an option file: whether they are read without a message.
#pragma once

#include <optional>
#include <string>

#include "options/observer.h"
#include "options/vksoptions.h"
#include "tools/lsp/analysis.h"

namespace tool::lsp {

class ttrial final : optcore::tstoreobserver {
 public:
  // The definition is read again when a line is tried.
  explicit ttrial(const tdefinitionstate& definition) : fdefinition(definition) {}
  ~ttrial() override = default;
  ttrial(const ttrial&) = delete;
  ttrial& operator=(const ttrial&) = delete;

  bool isclean(const std::string& line, bool eolonly);

 private:
  void filed(const optcore::tmessage& message) override;
  void assigned(const optcore::toption& /*option*/, std::int32_t /*bits*/) override {}
  // No file is read.
  std::string_view pathtoopen(std::string_view /*filename*/) override { return "/dev/null/unreadable"; }

  const tdefinitionstate& fdefinition;
  std::optional<optcore::tvksoptions> fstore;
  bool fclean = true;
};

}  // namespace tool::lsp

// The requests that the server answers. Each feature has a file of its own with the two functions that are
// declared here: one answers a request, the other one says in the answer to initialize that the server can. To
// add one, declare them below and add a line to the table in features.cpp.
#pragma once

#include <span>
#include <string_view>

#include "tools/lsp/workspace.h"

namespace tool::lsp {

struct tfeature {
  std::string_view method;
  tanswer (*answer)(const trequest& request);
  // Adds to the capabilities of the server; null if another feature does.
  void (*announce)(json& capabilities, const tclient& client);
};

std::span<const tfeature> features();

tanswer hover(const trequest& request);
void announcehover(json& capabilities, const tclient& client);

}  // namespace tool::lsp

// A message of the client, and what the server answers. Both follow JSON-RPC 2.0.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "tools/lsp/json.h"

namespace tool::lsp {

enum class tcode : std::int32_t {
  parseerror = -32700,
  invalidrequest = -32600,
  methodnotfound = -32601,
  invalidparams = -32602,
  internalerror = -32603,
  notinitialized = -32002,
  requestfailed = -32803,
  requestcancelled = -32800
};

struct terror {
  tcode code;
  std::string text;
};

// A result that is written already.
struct twritten {
  std::string text;
};

// The result of a request.
using tanswer = std::variant<json, terror, twritten>;

struct tincoming {
  enum class tkind { request, notification, response, invalid };
  tkind kind = tkind::invalid;
  json id{};  // null if there is none
  std::string method{};
  json params{};
  json result{};                    // of a response
  std::optional<terror> problem{};  // of what is invalid, and of a response that is an error
};

// Whatever the text is, the result is a message or tells what is wrong.
tincoming parsemessage(std::string_view text);

// Whether brackets are nested deeper than any message needs.
bool nestsdeep(std::string_view text);

// As it is sent. What is no UTF-8 is replaced.
std::string written(const json& message);
std::string response(const json& id, tanswer answer);
json notification(std::string_view method, json params);
json request(std::int64_t id, std::string_view method, json params);

}  // namespace tool::lsp

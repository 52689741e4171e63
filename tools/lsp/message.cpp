// Takes messages apart and puts them together.
#include "tools/lsp/message.h"

#include <utility>

namespace tool::lsp {

namespace {

tincoming invalid(tcode code, std::string text, json id = {}) {
  tincoming result;
  result.id = std::move(id);
  result.problem = terror{code, std::move(text)};
  return result;
}

bool isid(const json& value) { return value.is_string() || value.is_number_integer(); }

tincoming call(json& message, std::string method) {
  const bool hasid = message.contains("id");
  const json id = hasid ? message["id"] : json();
  if (hasid && !isid(id)) return invalid(tcode::invalidrequest, "The id must be a number or a text");
  json params = message.contains("params") ? std::move(message["params"]) : json();
  if (!params.is_structured() && !params.is_null()) {
    if (hasid) return invalid(tcode::invalidparams, "The parameters must be an object or an array", id);
    params = {};
  }
  const auto kind = hasid ? tincoming::tkind::request : tincoming::tkind::notification;
  return {kind, id, std::move(method), std::move(params), {}, {}};
}

}  // namespace

bool nestsdeep(std::string_view text) {
  constexpr std::size_t deepest = 128;
  std::size_t depth = 0;
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char each = text[i];
    if (quoted) {
      if (each == '\\') ++i;
      quoted = each != '"';
    } else if (each == '"') {
      quoted = true;
    } else if (each == '[' || each == '{') {
      if (++depth > deepest) return true;
    } else if ((each == ']' || each == '}') && depth > 0) {
      --depth;
    }
  }
  return false;
}

tincoming parsemessage(std::string_view text) {
  if (nestsdeep(text)) return invalid(tcode::parseerror, "The message is nested too deep");
  json message = json::parse(text, nullptr, false);
  if (message.is_discarded()) return invalid(tcode::parseerror, "The message is not JSON");
  if (!message.is_object()) return invalid(tcode::invalidrequest, "The message is no object");
  if (message.contains("method")) {
    if (message["method"].is_string()) return call(message, message["method"]);
    return invalid(tcode::invalidrequest, "The method must be a text",
                   isid(message["id"]) ? message["id"] : json());
  }
  if (message.contains("id") && (message.contains("result") || message.contains("error"))) {
    std::optional<terror> problem;
    if (message.contains("error"))
      problem = terror{tcode::requestfailed, textof(member(message, "error", "message"))};
    return {tincoming::tkind::response, message["id"], {}, {}, member(message, "result"), std::move(problem)};
  }
  return invalid(tcode::invalidrequest, "The message is neither a request nor a response",
                 isid(member(message, "id")) ? message["id"] : json());
}

std::string written(const json& message) {
  return message.dump(-1, ' ', false, json::error_handler_t::replace);
}

std::string response(const json& id, tanswer answer) {
  json result = {{"jsonrpc", "2.0"}, {"id", id}};
  if (const auto* text = std::get_if<twritten>(&answer)) {
    std::string line = written(result);
    line.pop_back();
    return line.append(",\"result\":").append(text->text).append("}");
  }
  if (const auto* problem = std::get_if<terror>(&answer))
    result["error"] = {{"code", static_cast<std::int32_t>(problem->code)},
                       {"message", printable(problem->text)}};
  else
    result["result"] = std::move(std::get<json>(answer));
  return written(result);
}

json notification(std::string_view method, json params) {
  json result = {{"jsonrpc", "2.0"}, {"method", method}};
  if (!params.is_null()) result["params"] = std::move(params);
  return result;
}

json request(std::int64_t id, std::string_view method, json params) {
  json result = notification(method, std::move(params));
  result["id"] = id;
  return result;
}

}  // namespace tool::lsp

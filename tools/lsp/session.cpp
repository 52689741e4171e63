// Takes what arrives and answers it.
#include "tools/lsp/session.h"

#include <array>
#include <exception>
#include <utility>

#include "tools/lsp/features.h"
#include "tools/outofmemory.h"

namespace tool::lsp {

tsession::tsession(const tserving& serving)
    : fserving(serving), flistener(serving.in, finbox), fspeaker(serving.out, flistener.gone()) {}

int tsession::run() {
  bool clean = false;
  while (fstate != tstate::ended) {
    std::optional<tarrival> arrival = finbox.take(nextdue());
    clean = fstate == tstate::shutdown;
    if (arrival) handle(std::move(*arrival));
    if (fspeaker.isbroken()) break;
    analysedue();
  }
  *fscancancelled = true;
  finbox.endatonce();  // the listener waits for room no longer
  return clean ? 0 : 1;
}

void tsession::handle(tarrival arrival) {
  switch (arrival.kind) {
    case tarrival::tkind::message: return handlemessage(std::move(arrival));
    case tarrival::tkind::work: return arrival.work();
    case tarrival::tkind::end: return handleend();
    case tarrival::tkind::gone: fstate = tstate::ended; return;
  }
}

// Requests that wait for an analysis are answered from what there is.
void tsession::handleend() {
  if (fisending) fstate = tstate::ended;
  fisending = true;
  if (fserving.finishes) finish();
  finbox.unpark();
  finbox.end();
}

// Waits for all that was begun.
void tsession::finish() {
  *fscancancelled = true;
  for (auto& [uri, time] : fdue) time = {};
  analysedue();
  while (!fanalyst.isidle() || !fscanner.isidle())
    std::this_thread::sleep_for(std::chrono::microseconds(100));
}

void tsession::handlemessage(tarrival arrival) {
  tincoming& message = arrival.message;
  switch (message.kind) {
    case tincoming::tkind::invalid: return answer(message.id, std::move(*message.problem));
    case tincoming::tkind::notification: return handlenotification(message);
    case tincoming::tkind::request: return handlerequest(arrival);
    case tincoming::tkind::response: break;
  }
  const auto asked = fasked.find(integerof(message.id).value_or(-1));
  if (asked == fasked.end()) return;
  const tresponse then = std::move(asked->second);
  fasked.erase(asked);
  if (then) then(message.problem ? nullptr : &message.result);
}

// ---- requests

// Whether the first analysis of the document is not yet done.
bool tsession::mustwait(const tincoming& message) const {
  if (fisending) return false;
  const tdocument* document =
      fworkspace.documents.find(textof(member(message.params, "textDocument", "uri")));
  return document != nullptr && document->snapshot() == nullptr;
}

void tsession::handlerequest(tarrival& arrival) {
  const bool waits = fstate == tstate::initialized && !finbox.iscancelled() && mustwait(arrival.message);
  if (waits) return finbox.park(std::move(arrival));
  const auto begin = tinbox::tclock::now();
  tanswer result = answerto(arrival);
  if (finbox.iscancelled()) result = terror{tcode::requestcancelled, "The request was cancelled"};
  answer(arrival.message.id, std::move(result));
  if (!ftraces) return;
  const auto time =
      std::chrono::duration_cast<std::chrono::microseconds>(tinbox::tclock::now() - begin).count();
  const std::string what = printable(arrival.message.method) + ": " + std::to_string(time);
  tell("$/logTrace", {{"message", what + " microseconds"}});
}

tanswer tsession::answerto(const tarrival& arrival) {
  const tincoming& message = arrival.message;
  if (fstate == tstate::created) {
    if (message.method == "initialize") return initialize(message.params);
    return terror{tcode::notinitialized, "The first request must be initialize"};
  }
  if (fstate == tstate::shutdown) return terror{tcode::invalidrequest, "The server has been shut down"};
  if (message.method == "initialize") return terror{tcode::invalidrequest, "The server is initialized"};
  if (message.method == "shutdown") {
    fstate = tstate::shutdown;
    finbox.unpark();  // requests that wait for an analysis get their answers before the exit
    return json();
  }
  if (arrival.cancelled) return json();
  const trequest request = {message.params, fworkspace, [this] { return finbox.iscancelled(); }};
  for (const tfeature& feature : features()) {
    if (feature.method != message.method) continue;
    const bool isaboutdocument = feature.method.starts_with("textDocument/");
    if (isaboutdocument && request.document() == nullptr)
      return terror{tcode::invalidparams, "The document is not open"};
    try {
      return feature.answer(request);
    } catch (const std::exception& error) {
      return terror{tcode::internalerror, problemtext(error)};
    }
  }
  return terror{tcode::methodnotfound, "There is no request " + inquotes(message.method)};
}

// ---- notifications

void tsession::handlenotification(const tincoming& message) {
  struct thandler {
    std::string_view method;
    void (tsession::*handle)(const json& params);
  };
  static constexpr auto handlers = std::to_array<thandler>({
      {"initialized", &tsession::initialized},
      {"textDocument/didOpen", &tsession::open},
      {"textDocument/didChange", &tsession::change},
      {"textDocument/didClose", &tsession::close},
      {"workspace/didChangeConfiguration", &tsession::changesettings},
      {"workspace/didChangeWatchedFiles", &tsession::changefiles},
      {"workspace/didChangeWorkspaceFolders", &tsession::changefolders},
      {"window/workDoneProgress/cancel", &tsession::cancelprogress},
      {"$/setTrace", &tsession::settrace},
  });
  if (message.method == "exit") fstate = tstate::ended;
  if (fstate != tstate::initialized) return;
  for (const thandler& each : handlers)
    if (each.method == message.method) (this->*each.handle)(message.params);
}

void tsession::settrace(const json& params) {
  const std::string value = textof(member(params, "value"));
  ftraces = value == "messages" || value == "verbose";
}

// ---- what the server says

void tsession::ask(std::string_view method, json params, tresponse then) {
  fasked.emplace(++flastid, std::move(then));
  fspeaker.say(written(request(flastid, method, std::move(params))));
}

// After shutdown, the client need not read any more: the server might then wait for it for good.
void tsession::tell(std::string_view method, json params) {
  if (fstate == tstate::initialized) fspeaker.say(written(notification(method, std::move(params))));
}

void tsession::log(const std::string& text) {
  constexpr int error = 1;
  tell("window/logMessage", {{"type", error}, {"message", printable(text)}});
}

int serve(const tserving& serving) { return tsession(serving).run(); }

}  // namespace tool::lsp

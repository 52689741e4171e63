// One session with a client.
#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "tools/lsp/analyst.h"
#include "tools/lsp/inbox.h"
#include "tools/lsp/listener.h"
#include "tools/lsp/publisher.h"
#include "tools/lsp/server.h"
#include "tools/lsp/speaker.h"
#include "tools/lsp/workspace.h"

namespace tool::lsp {

class tsession {
 public:
  explicit tsession(const tserving& serving);
  // Returns the exit code.
  int run();

 private:
  using ttime = tinbox::tclock::time_point;
  using tresponse = std::function<void(const json* result)>;  // null for an error
  enum class tstate { created, initialized, shutdown, ended };

  // ---- messages (session.cpp)
  void handle(tarrival arrival);
  void handlemessage(tarrival arrival);
  void handleend();
  void finish();
  void handlerequest(tarrival& arrival);
  void handlenotification(const tincoming& message);
  void answer(const json& id, tanswer result) { fspeaker.say(response(id, std::move(result))); }
  tanswer answerto(const tarrival& arrival);
  bool mustwait(const tincoming& message) const;
  void ask(std::string_view method, json params, tresponse then = {});
  void tell(std::string_view method, json params);
  void log(const std::string& text);
  void settrace(const json& params);

  // ---- the life of the session (lifecycle.cpp)
  tanswer initialize(const json& params);
  void initialized(const json& params);
  void registerchanges();
  void watchincluded(const tdocument& document);
  void askforsettings();
  void changesettings(const json& params);
  void takesettings(const json& value);
  void refreshhints();
  void changefolders(const json& params);
  void scanfolders();
  void lookforfiles(const std::string& token);
  void cancelprogress(const json& params);
  void showprogress(const std::string& token, json value);

  // ---- documents (synchronization.cpp)
  void open(const json& params);
  void change(const json& params);
  void close(const json& params);
  void changefiles(const json& params);
  void analyseall(const std::function<bool(const tdocument&)>& concerns);
  void renewdependants(const tdocument& document);
  void analysedue();
  void analyse(const tdocument& document);
  void take(const std::string& uri, const std::shared_ptr<const tsnapshot>& snapshot);
  std::optional<ttime> nextdue() const;

  const tserving fserving;
  std::set<std::string> fwatched;  // names of included files
  tstate fstate = tstate::created;
  bool fisending = false;  // nothing more will come
  bool ftraces = false;
  tinbox finbox;
  tlistener flistener;
  tspeaker fspeaker;
  tworkspace fworkspace;
  tpublisher fpublisher;
  std::map<std::int64_t, tresponse> fasked;  // requests to the client, by their ids
  std::int64_t flastid = 0;
  std::map<std::string, ttime> fdue;  // when documents are to be analysed, by their URIs
  tanalysis fanalysis;                // used by the analyst's thread alone
  std::int32_t fscans = 0;
  std::shared_ptr<std::atomic<bool>> fscancancelled = std::make_shared<std::atomic<bool>>(false);
  tanalyst fscanner, fanalyst;  // the last ones: their tasks use the others
};

}  // namespace tool::lsp

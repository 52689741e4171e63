// What client and server tell each other about themselves: capabilities, folders and settings.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <utility>

#include "release.h"
#include "tools/lsp/features.h"
#include "tools/lsp/session.h"
#include "tools/lsp/uri.h"

namespace tool::lsp {

namespace {

constexpr int changesincrementally = 2;

json capabilitiesof(const tclient& client) {
  json result = {{"positionEncoding", client.encoding == tencoding::utf8 ? "utf-8" : "utf-16"},
                 {"textDocumentSync", {{"openClose", true}, {"change", changesincrementally}}},
                 {"workspace", {{"workspaceFolders", {{"supported", true}, {"changeNotifications", true}}}}}};
  for (const tfeature& feature : features())
    if (feature.announce != nullptr) feature.announce(result, client);
  return result;
}

// As a path without a slash at its end, so that the same folder is known again.
std::string folderof(const json& folder) {
  std::string result = pathofuri(textof(member(folder, "uri")));
  while (result.size() > 1 && result.ends_with('/')) result.pop_back();
  return result;
}

std::vector<std::string> foldersfrom(const json& params) {
  std::vector<std::string> result;
  const auto add = [&](const std::string& path) {
    if (!path.empty()) result.push_back(path);
  };
  for (const json& each : arrayof(member(params, "workspaceFolders"))) add(folderof(each));
  if (result.empty()) add(pathofuri(textof(member(params, "rootUri"))));
  if (result.empty()) add(textof(member(params, "rootPath")));
  return result;
}

json watchregistration(const std::string& id, json watchers) {
  return {{"id", id},
          {"method", "workspace/didChangeWatchedFiles"},
          {"registerOptions", {{"watchers", std::move(watchers)}}}};
}

// A pattern has no way to name its own signs, so each stands for any character.
std::string literalpattern(std::string name) {
  for (char& character : name)
    if (std::string_view("*?[]{},!\\").find(character) != std::string_view::npos) character = '?';
  return name;
}

}  // namespace

// ---- initialize

tanswer tsession::initialize(const json& params) {
  fstate = tstate::initialized;
  fworkspace.client = clientof(params);
  fworkspace.settings =
      std::make_shared<const tsettings>(settingsfrom(member(params, "initializationOptions")));
  fworkspace.folders = foldersfrom(params);
  if (fserving.enters && !fworkspace.folders.empty() && chdir(fworkspace.folders.front().c_str()) != 0)
    log("Cannot enter the folder " + fworkspace.folders.front());
  const auto process = integerof(member(params, "processId"));
  if (fserving.watches && process && *process > 0 && *process <= INT32_MAX)
    flistener.watch(static_cast<pid_t>(*process));
  settrace({{"value", member(params, "trace")}});
  return json{{"capabilities", capabilitiesof(fworkspace.client)},
              {"serverInfo", {{"name", "wexcorin"}, {"version", optcore::release::version}}}};
}

void tsession::initialized(const json& /*params*/) {
  registerchanges();
  askforsettings();
  scanfolders();
}

// Asks the client to tell of changes of files and settings.
void tsession::registerchanges() {
  json registrations = json::array();
  const tclient& client = fworkspace.client;
  if (client.can("workspace", "didChangeWatchedFiles", "dynamicRegistration")) {
    json watchers = json::array();
    for (const char* pattern : {"**/*.opt", "**/*.def", "**/wexcorin.json"})
      watchers.push_back({{"globPattern", pattern}});
    registrations.push_back(watchregistration("files", std::move(watchers)));
  }
  if (client.can("workspace", "didChangeConfiguration", "dynamicRegistration"))
    registrations.push_back({{"id", "settings"},
                             {"method", "workspace/didChangeConfiguration"},
                             {"registerOptions", {{"section", "wexcorin"}}}});
  if (!registrations.empty()) ask("client/registerCapability", {{"registrations", registrations}});
}

// Included files may have any ending: they are watched by their names once an option file includes them.
void tsession::watchincluded(const tdocument& document) {
  if (!fworkspace.client.can("workspace", "didChangeWatchedFiles", "dynamicRegistration")) return;
  json watchers = json::array();
  for (const auto& [key, text] : document.snapshot()->texts) {
    const std::filesystem::path path(key);
    const bool iswatched = path.extension() == ".opt" || path.extension() == ".def";
    if (iswatched || key == document.key() || !fwatched.insert(path.filename()).second) continue;
    watchers.push_back({{"globPattern", "**/" + literalpattern(utf8(path.filename().string()))}});
  }
  if (watchers.empty()) return;
  const std::string id = "files included " + std::to_string(fwatched.size());
  ask("client/registerCapability",
      {{"registrations", json::array({watchregistration(id, std::move(watchers))})}});
}

// ---- settings

void tsession::askforsettings() {
  if (!fworkspace.client.can("workspace", "configuration")) return;
  ask("workspace/configuration", {{"items", {{{"section", "wexcorin"}}}}}, [this](const json* result) {
    if (result != nullptr) takesettings(*result);
  });
}

void tsession::changesettings(const json& params) {
  if (fworkspace.client.can("workspace", "configuration")) return askforsettings();
  takesettings(member(params, "settings"));
}

void tsession::takesettings(const json& value) {
  const bool isnone = value.is_null() || (value.is_array() && (value.empty() || value.front().is_null()));
  if (isnone) return;
  const bool hadhints = fworkspace.settings->inlayhints;
  fworkspace.settings = std::make_shared<const tsettings>(settingsfrom(value));
  if (fworkspace.settings->inlayhints != hadhints) refreshhints();
  analyseall([](const tdocument&) { return true; });
}

// The client asks for the hints of what it shows again.
void tsession::refreshhints() {
  if (fworkspace.client.can("workspace", "inlayHint", "refreshSupport"))
    ask("workspace/inlayHint/refresh", {});
}

// ---- folders

void tsession::changefolders(const json& params) {
  std::vector<std::string>& folders = fworkspace.folders;
  for (const json& each : arrayof(member(params, "event", "removed"))) std::erase(folders, folderof(each));
  for (const json& each : arrayof(member(params, "event", "added")))
    if (std::string path = folderof(each); !path.empty()) folders.push_back(std::move(path));
  scanfolders();
}

// With a display of its progress, if the client has one.
void tsession::scanfolders() {
  *fscancancelled = true;
  if (fworkspace.folders.empty()) {
    fworkspace.files = std::make_shared<const tfolderfiles>();
    return;
  }
  fscancancelled = std::make_shared<std::atomic<bool>>(false);
  if (!fworkspace.client.can("window", "workDoneProgress")) return lookforfiles({});
  std::string token = "folders-" + std::to_string(++fscans);
  ask("window/workDoneProgress/create", {{"token", token}},
      [this, token](const json* result) { lookforfiles(result != nullptr ? token : ""); });
}

void tsession::lookforfiles(const std::string& token) {
  showprogress(token, {{"kind", "begin"}, {"title", "Looking for option files"}, {"cancellable", true}});
  fscanner.ask("folders", [this, token, folders = fworkspace.folders, cancelled = fscancancelled] {
    auto found = std::make_shared<const tfolderfiles>(findfiles(folders, [&] { return cancelled->load(); }));
    finbox.put([this, token, cancelled, found] {
      if (!*cancelled) fworkspace.files = found;
      showprogress(token, {{"kind", "end"}});
    });
  });
}

void tsession::showprogress(const std::string& token, json value) {
  if (!token.empty()) tell("$/progress", {{"token", token}, {"value", std::move(value)}});
}

void tsession::cancelprogress(const json& params) {
  if (textof(member(params, "token")) == "folders-" + std::to_string(fscans)) *fscancancelled = true;
}

}  // namespace tool::lsp

// The diff command: compares two definitions by what they mean to option files, or the values in force after
// option files.
#include <algorithm>
#include <optional>

#include "tools/commands.h"
#include "tools/reading/reading.h"
#include "tools/tracing/changereport.h"
#include "tools/tracing/definitionchanges.h"
#include "tools/tracing/origins.h"
#include "tools/tracing/settingreport.h"
#include "tools/tracing/settings.h"

namespace tool {

namespace {

constexpr int exitdifferent = 1;  // as diff(1)

// Errors in a definition end the comparison.
bool readwithouterrors(treading& reading, const std::string& definition) {
  const bool opened = reading.readdefinition(definition);
  reportproblems(reading.findings());
  return opened && reading.findings().count(tseverity::error) == 0;
}

int exitcodeof(const std::vector<tchange>& changes, tfailon failon) {
  const timpact least = failon == tfailon::breaking ? timpact::breaking
                        : failon == tfailon::silent ? timpact::silent
                                                    : timpact::compatible;
  const bool counts =
      std::ranges::any_of(changes, [&](const tchange& change) { return change.impact >= least; });
  return counts ? exitdifferent : exitclean;
}

int comparedefinitions(const tdiffarguments& arguments) {
  treading older, newer;
  const bool read = readwithouterrors(older, arguments.files[0]);
  if (!readwithouterrors(newer, arguments.files[1]) || !read) return exitunusable;
  const std::vector<tchange> changes = definitionchanges(older.store(), newer.store());
  if (arguments.json)
    printchangesjson(older.definition(), newer.definition(), changes);
  else if (arguments.markdown)
    printchangesmarkdown(changes);
  else
    printchanges(changes);
  return exitcodeof(changes, arguments.failon);
}

// ---- option files

treportform formof(const tdiffarguments& arguments) {
  if (arguments.json) return treportform::json;
  return arguments.markdown ? treportform::markdown : treportform::text;
}

// A store that has read one option file, or none.
struct tread {
  treading reading;
  std::optional<torigins> origins;
  std::int32_t defined = 0;

  // What is wrong in the files is reported on standard error. Returns false if one cannot be used.
  bool read(const std::string& definition, const std::vector<std::string>& files) {
    reading.keepdefinition();
    if (!readwithouterrors(reading, definition)) return false;
    defined = reading.store().getcount();
    origins.emplace(reading);
    const bool opened = reading.readoptions({definition, files, {}});
    reportproblems(reading.findings());
    return opened;
  }

  std::string originof(const tsettingkey& key, const tsetting& setting) const {
    if (key.kind == tsettingkey::tkind::option) return optionorigin(key.position);
    if (key.kind == tsettingkey::tkind::list)
      return setting.entries.empty() ? "" : optionorigin(setting.entries.front());
    std::string result;
    const bool isdotentry = key.kind == tsettingkey::tkind::dotentry;
    if (isdotentry || key.kind == tsettingkey::tkind::indicator)
      for (const std::int32_t entry : setting.entries)
        result += (result.empty() ? "" : "; ") +
                  (isdotentry ? origins->dotentrytext(entry) : origins->indicatortext(entry));
    return result;
  }

 private:
  std::string optionorigin(std::int32_t position) const {
    const optcore::toption& option = reading.store().definition().option(position);
    std::string first = origins->text(option, optcore::twhich::first);
    if (option.subtype() != optcore::tsubtype::twovalues) return first;
    const std::string second = origins->text(option, optcore::twhich::second);
    return second == first ? first : first + "; " + second;
  }
};

int comparepair(const tdiffarguments& arguments) {
  const std::string second = arguments.defaults ? "defaults" : arguments.files[1];
  tread files[2];
  const bool read = files[0].read(arguments.definition, {arguments.files[0]});
  const std::vector<std::string> others =
      arguments.defaults ? std::vector<std::string>() : std::vector{second};
  if (!read || !files[1].read(files[0].reading.definitionpath(), others)) return exitunusable;
  const std::vector<tsettings> lists = {settingsof(files[0].reading.store(), files[0].defined),
                                        settingsof(files[1].reading.store(), files[1].defined)};
  tsettingreport report{arguments.definition, {arguments.files[0], second}, {}, {}};
  report.differences = differences(files[0].reading.store(), lists);
  for (const tsettingdifference& difference : report.differences)
    report.origins.push_back({files[0].originof(difference.key, difference.values[0]),
                              files[1].originof(difference.key, difference.values[1])});
  printpair(report, formof(arguments));
  return report.differences.empty() ? exitclean : exitdifferent;
}

// One file is read after the other, and only its settings are kept.
int comparematrix(const tdiffarguments& arguments) {
  tsettingreport report{arguments.definition, arguments.files, {}, {}};
  if (report.definition.empty()) {
    report.definition = report.names.front();
    report.names.erase(report.names.begin());
  }
  tread definition;
  if (!definition.read(report.definition, {})) return exitunusable;
  std::vector<tsettings> lists;
  lists.reserve(report.names.size());
  for (const std::string& name : report.names) {
    tread file;
    if (!file.read(definition.reading.definitionpath(), {name})) return exitunusable;
    lists.push_back(settingsof(file.reading.store(), file.defined));
  }
  report.differences = differences(definition.reading.store(), lists);
  printmatrix(report, formof(arguments));
  return report.differences.empty() ? exitclean : exitdifferent;
}

}  // namespace

int run(const tdiffarguments& arguments) {
  if (arguments.matrix) return comparematrix(arguments);
  return arguments.definition.empty() ? comparedefinitions(arguments) : comparepair(arguments);
}

}  // namespace tool

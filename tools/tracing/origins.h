// Where values come from: for each value that was set, every setting in the order of reading, so the last one
// is in force and the others were overridden.
#pragma once

#include <array>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tools/tracing/optiontable.h"
#include "tools/tracing/tracer.h"

namespace tool {

// A line with the lines that include its source; and in brackets the names between the line and the option.
std::string placetext(const ttracer& tracer, std::uint32_t source, std::int32_t line);
std::string linkstext(const std::vector<tlink>& links);

// Keeps 32 bytes for each setting, and the value itself if it is a text.
class torigins final : public ttracer {
 public:
  explicit torigins(treading& reading) : ttracer(reading) {}

  // Where the value in force comes from, as people read it: for example "main.opt:3 > part.opt:12 (macro
  // fast)", and "default" for a value that was not set. For a list, where each of its texts comes from.
  std::string text(const optcore::toption& option, optcore::twhich which) const;
  // The same as JSON that stands so deep in a document, with the settings that were overridden; null for a
  // value that was not set. For a list, an array with the origin of each text.
  std::string json(const optcore::toption& option, optcore::twhich which, std::size_t depth) const;

  // Where the dot entry or indicator at this position of its list comes from.
  std::string dotentrytext(std::int32_t position) const { return text(at(fdotentries, position)); }
  std::string indicatortext(std::int32_t position) const { return text(at(findicators, position)); }

 private:
  struct tsetting {
    std::uint32_t before;  // the position of the setting of this value before it, plus 1; 0 for none
    std::uint32_t source;
    std::uint32_t links;
    std::int32_t line;
    union {  // the value, as the type of the option says
      std::int32_t integer;
      double number;
      std::uint64_t text;  // the position of a text in ftexts, which begins with its length
    };
  };

  static const tsetting& at(const std::vector<tsetting>& entries, std::int32_t position) {
    return entries[static_cast<std::size_t>(position)];
  }
  std::string text(const tsetting& setting) const {
    return placetext(*this, setting.source, setting.line) + linkstext(links(setting.links));
  }
  void stepped(const optcore::tstep& step) override;
  void assigned(const optcore::toption& option, std::int32_t bits) override;
  void add(const optcore::toption& option, optcore::twhich which);
  void keepvalue(const optcore::toption& option, optcore::twhich which, tsetting& setting);
  // The last setting of a value; null if there is none.
  const tsetting* last(const optcore::toption& option, optcore::twhich which) const;
  // The settings of a value, oldest first.
  std::vector<const tsetting*> settings(const optcore::toption& option, optcore::twhich which) const;
  std::string valueof(const optcore::toption& option, const tsetting& setting) const;
  // The names of all sources, as JSON.
  const std::vector<std::string>& sourcenames() const;
  nlohmann::ordered_json origin(const tsetting& setting) const;
  std::string overridden(const optcore::toption& option, const std::vector<const tsetting*>& all,
                         std::size_t depth) const;

  std::vector<tsetting> fsettings;
  std::vector<tsetting> fdotentries, findicators;  // without their values
  std::string ftexts;
  mutable std::vector<std::string> fsourcenames;
  // The position of the last setting of each value of an option, plus 1.
  toptiontable<std::array<std::uint32_t, 2>> flast;
};

}  // namespace tool

// The settings in force after option files, as a list that can be compared: each value that differs from its
// default, the texts of lists, dot entries and indicators.
#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <tuple>
#include <vector>

#include "options/vksoptions.h"

namespace tool {

// What a setting is for. Settings are sorted by it.
struct tsettingkey {
  enum class tkind : std::uint8_t { option, list, dotentry, indicator, dotorder, indicatororder };
  tkind kind;
  std::int32_t position;  // of an option; 0 for the others
  std::string name;       // as people read it
  bool operator==(const tsettingkey&) const = default;
  bool operator<(const tsettingkey& other) const {
    return std::tie(kind, position, name) < std::tie(other.kind, other.position, other.name);
  }
};

struct tsetting {
  std::string text;                     // empty for nothing
  nlohmann::ordered_json json;          // the same for programs
  std::vector<std::int32_t> entries{};  // the positions of the list, dot entries or indicators in the store
};

using tsettings = std::map<tsettingkey, tsetting>;

// `defined` is the number of options in the definition; those that reading added are lists.
tsettings settingsof(const optcore::tvksoptions& store, std::int32_t defined);

// What is in force for a key where it is not among the settings: the default, or nothing.
tsetting defaultsetting(const optcore::tvksoptions& store, const tsettingkey& key);

// A setting that is not the same everywhere.
struct tsettingdifference {
  tsettingkey key;
  std::vector<tsetting> values;  // for each of the lists that were compared
};

// The settings that differ between any two of the lists, which are those of stores of one definition. Their
// order counts as a difference only if nothing else differs in them.
std::vector<tsettingdifference> differences(const optcore::tvksoptions& store,
                                            const std::vector<tsettings>& lists);

// The key of a dot entry with its elements in single quotes, however they were written.
std::string plainkey(const optcore::tvksoptions& store, const optcore::tdotobj& entry);

}  // namespace tool

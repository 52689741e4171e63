// Follows the reading of option files and texts: which line is read, what included its file, and through what
// that line sets an option. What is done with it, the derived classes know.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "options/observer.h"
#include "tools/reading/reading.h"

namespace tool {

// What comes between a line and the option that it sets.
struct tlink {
  enum class tkind : std::uint8_t {
    macro,
    multilist,
    synonym,
    shortform,  // a name of which only some characters count, in the lookup modes Path and Minos
    name        // the name alone, which sets the default
  };
  tkind kind;
  std::string name;  // as it was written; empty for `name`

  friend bool operator<(const tlink& a, const tlink& b) {
    return std::tie(a.kind, a.name) < std::tie(b.kind, b.name);
  }
};

// Something that was read: an option file, each time that it was included, or a text of --set.
struct tsource {
  std::string name;
  bool istext;
  std::int32_t textnumber;  // of the text of --set, from 1
  std::int32_t includer;    // the position of the source that includes it; -1 for none
  std::int32_t line;        // in the includer
};

class ttracer : public optcore::tstoreobserver {
 public:
  ttracer(const ttracer&) = delete;
  ttracer& operator=(const ttracer&) = delete;
  std::size_t sourcecount() const { return fsources.size(); }
  const tsource& source(std::uint32_t index) const { return fsources[index]; }
  const std::vector<tlink>& links(std::uint32_t index) const { return flinks[index]; }

 protected:
  // The reading must have read the definition, and must outlive this object.
  explicit ttracer(treading& reading) : freading(reading), flinks(1) { reading.follow(this); }
  ~ttracer() override { freading.follow(nullptr); }

  void filed(const optcore::tmessage& message) override;
  void stepped(const optcore::tstep& step) override;

  const optcore::tvksoptions& store() const { return freading.store(); }
  // Where the store is read to, and through what it sets an option now.
  std::uint32_t currentsource() const { return fopen.back(); }
  std::int32_t currentline() const;
  std::uint32_t currentlinks();
  // The statement that is read.
  const optcore::tstep& statement() const { return fstatement; }
  bool issource() const { return !fopen.empty(); }

 private:
  void enter(const optcore::tlinesource& source);
  std::vector<tlink> collectlinks() const;

  treading& freading;
  std::vector<tsource> fsources;
  std::vector<std::uint32_t> fopen;  // the positions of the sources that are read, the included ones last
  std::int32_t ftexts = 0;
  std::vector<std::vector<tlink>> flinks;  // each once; the first is empty
  std::map<std::vector<tlink>, std::uint32_t> flinkindex;
  optcore::tstep fstatement{optcore::tstep::tkind::statement};
  bool fisshort = false;  // the key is not the name of the option
  bool fbyname = false;
  std::vector<const optcore::toption*> fspreading;
};

}  // namespace tool

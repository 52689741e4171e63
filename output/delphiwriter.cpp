// The part of tvksoptionwriter that writes a Pascal include file: for each kind of value, an enumeration of
// the option names and an array that maps it to option numbers.
#include <array>
#include <vector>

#include "base/strutilx.h"
#include "base/zqaaudit.h"
#include "output/textfile.h"
#include "output/vksoptionwriter.h"

namespace optcore {

namespace {

// The names of the lists, by option type. The types from multilist on have no name.
constexpr auto keynames = std::to_array<std::string_view>(
    {"integer", "real", "string", "boolean", "enumstr", "enumint", "", "", "", ""});
static_assert(keynames.size() == opttypecount, "a name for each type, which may be empty");

// The index of the list to which options of a type are added; -1 for types that are left out.
std::int32_t listoftype(topttype type) {
  switch (type) {
    case topttype::integer:
    case topttype::boolean:
    case topttype::enumint: return static_cast<std::int32_t>(topttype::integer);
    case topttype::string:
    case topttype::enumstr: return static_cast<std::int32_t>(topttype::string);
    case topttype::dbl:
    case topttype::macro: return static_cast<std::int32_t>(type);
    case topttype::multilist:
    case topttype::strlist:
    case topttype::immediate: break;
  }
  return -1;
}

// The layout of the items of a list: each is padded to a multiple of `width`.
struct titemlayout {
  std::int32_t width;
  std::int32_t perline;
};
constexpr titemlayout keylayout = {14, 5};
constexpr titemlayout numberlayout = {4, 10};

// Writes one item. The counter is the number of items on the line, and -1 before the first item.
void writeitem(std::string_view item, titemlayout layout, ttextfile& file, std::int32_t& counter) {
  if (counter == -1) {
    file.write("       ");
    counter = 0;
  } else {
    if (counter == layout.perline) {
      file.write("\n");
      counter = 0;
    }
    file.write("     , ");
  }
  file.write(padrightmod(item, layout.width));
  ++counter;
}

using tlist = std::vector<std::int32_t>;  // positions of options, counted from 0

void writekeys(const tdefinition& definition, std::string_view keyname, const tlist& list, ttextfile& file) {
  file.writeline("\n   Tpf", keyname, "keys = (");
  std::int32_t counter = -1;
  for (const std::int32_t index : list)
    writeitem(concat("pf", definition.getstrings(index)), keylayout, file, counter);
  file.writeline(");");
}

void writemap(std::string_view keyname, const tlist& list, ttextfile& file) {
  file.writeline("\n   pf", keyname, "map: array[Tpf", keyname, "keys] of integer = (");
  std::int32_t counter = -1;
  for (const std::int32_t index : list) writeitem(inttostr(index + 1), numberlayout, file, counter);
  file.writeline(" );");
}

}  // namespace

std::int32_t tvksoptionwriter::writedelphiinc(std::string_view filename) const {
  std::array<tlist, keynames.size()> lists;
  for (std::int32_t i = 0; i < fdefinition.getcount(); ++i) {
    const std::int32_t list = listoftype(fdefinition.getobjects(i)->opttype());
    if (list >= 0) lists[static_cast<std::size_t>(list)].push_back(i);
  }
  ttextfile file;
  file.open(filename);
  file.writeline("// file created by ", zqagetauditline());
  file.writeline("type");
  for (std::size_t k = 0; k < lists.size(); ++k)
    if (!lists[k].empty()) writekeys(fdefinition, keynames[k], lists[k], file);
  file.write("\nconst\n");
  for (std::size_t k = 0; k < lists.size(); ++k)
    if (!lists[k].empty()) writemap(keynames[k], lists[k], file);
  file.write("\n");
  return file.close();
}

}  // namespace optcore

// The part of tvksoptionwriter that writes a definition as a definition file. The other forms are in
// delphiwriter.cpp and optiontable.cpp.
#include "output/parameterwriter.h"
#include "output/textfile.h"
#include "output/vksoptionwriter.h"

namespace optcore {

namespace {

class tdefinitionwriter {
 public:
  tdefinitionwriter(const tdefinition& definition, ttextfile& file) : fdefinition(definition), ffile(file) {}

  void write() {
    for (std::int32_t i = 0; i < fdefinition.getcount(); ++i) {
      const toption& option = fdefinition.option(i);
      if (option.opttype() != topttype::strlist) writeoption(option);
    }
    writesynonyms();
    writemarks("deprecated", {tdeprecation::deprecated, tdeprecation::deprecatedsynonym});
    writemarks("obsolete", {tdeprecation::obsolete, tdeprecation::obsoletesynonym});
  }

 private:
  void writeoption(const toption& option) {
    ffile.write(option.name(), " ", opttypenames[ordinal(option.opttype())]);
    if (option.subtype() != tsubtype::required) ffile.write(".", subtypemodifiers[ordinal(option.subtype())]);
    ffile.write(" ");
    if (hasusermap(option.opttype())) ffile.write(inttostr(option.refnr()), " ");
    writevalues(option);
    ffile.writeline(inttostr(option.helpflag()), " ", inttostr(option.groupnr()), " ", option.helptext());
    writecontinuation(option);
  }

  // Writes the fields between the user map and the last fields, which every option has.
  void writevalues(const toption& option) {
    switch (option.opttype()) {
      case topttype::integer: {
        const auto& integer = as<tintoption>(option);
        ffile.write(inttostrex(integer.defaultvalue()), " ", inttostrex(integer.lo()), " ",
                    inttostrex(integer.hi()), " ");
        break;
      }
      case topttype::dbl: {
        const auto& dbl = as<tdbloption>(option);
        ffile.write(dbltostrex(dbl.defaultvalue()), " ", dbltostrex(dbl.lo()), " ", dbltostrex(dbl.hi()),
                    " ");
        break;
      }
      case topttype::string: ffile.write(strexternal(as<tstringoption>(option).defaultvalue()), " "); break;
      // two blanks follow the defaults of these three types
      case topttype::boolean: ffile.write(inttostr(as<tbooleanoption>(option).defaultvalue()), "  "); break;
      case topttype::enumstr:
        ffile.write(strexternal(as<tenumstroption>(option).defaultvalue()), "  ");
        break;
      case topttype::enumint: ffile.write(inttostr(as<tenumintoption>(option).defaultvalue()), "  "); break;
      case topttype::immediate:
        ffile.write(immkindnames[ordinal(as<timmediateoption>(option).immkind())], " ");
        break;
      case topttype::multilist:
      case topttype::strlist:
      case topttype::macro: break;
    }
  }

  void writecontinuation(const toption& option) {
    switch (option.opttype()) {
      case topttype::integer:
      case topttype::dbl: return writebigtext(option);
      case topttype::enumstr: return writeitems(as<tenumstroption>(option));
      case topttype::enumint: return writeitems(as<tenumintoption>(option));
      case topttype::multilist: return writemembers(as<tmultilistoption>(option));
      case topttype::macro: return writemembers(as<tmacrooption>(option));
      case topttype::string:
      case topttype::boolean:
      case topttype::strlist:
      case topttype::immediate: break;
    }
  }

  void writebigtext(const toption& option) {
    const txstrings* lines = option.bigtext();
    for (std::int32_t i = 0; lines != nullptr && i < lines->count(); ++i)
      ffile.writeline("   ", lines->get(i));
  }

  void writeitems(const tenumstroption& option) {
    for (std::int32_t i = 0; i < option.items().count(); ++i) {
      const toptionx& item = *option.items().getobject(i);
      ffile.writeline(" ", option.items().getname(i), " ", inttostr(item.helpflag()), " ", item.helptext());
    }
  }

  void writeitems(const tenumintoption& option) {
    for (std::int32_t i = 0; i < option.items().count(); ++i) {
      const tlistoptionx& item = *option.items().get(i);
      ffile.writeline(" ", inttostrex(item.enumvalue()), " ", inttostr(item.helpflag()), " ",
                      item.helptext());
    }
  }

  // Writes as many names on a line as fit in 80 characters. An undefined member has no name and is left out.
  void writemembers(const tmultilistoption& option) {
    constexpr std::size_t linewidth = 80;
    std::size_t used = 0;
    for (std::int32_t i = 0; i < option.items().count(); ++i) {
      const std::string_view name = fdefinition.getstrings(option.items().get(i));
      if (name.empty()) continue;
      if (used + name.size() + 1 > linewidth) {
        ffile.write("\n");
        used = 0;
      }
      ffile.write(" ", name);
      used += name.size() + 1;
    }
    if (used != 0) ffile.write("\n");
  }

  void writemembers(const tmacrooption& option) {
    for (std::int32_t i = 0; i < option.items().count(); ++i)
      ffile.writeline(" ", option.items().get(i)->name());
  }

  void writesynonyms() {
    const auto& synonyms = fdefinition.synonyms();
    for (std::int32_t i = 0; i < synonyms.count(); ++i)
      ffile.writeline(synonyms.getname(i), " synonym ", fdefinition.getstrings(synonyms.getobject(i)));
  }

  struct tmarks {
    tdeprecation ownname, itssynonym;
  };

  // A block begins with a definition line whose name has no meaning, so that the file can be read back.
  void writemarks(std::string_view keyword, tmarks marks) {
    bool isopen = false;
    for (std::int32_t i = 0; i < fdefinition.getcount(); ++i) {
      const toption& option = fdefinition.option(i);
      if (!option.hasdeprecation(marks.ownname) && !option.hasdeprecation(marks.itssynonym)) continue;
      if (!isopen) ffile.writeline("ver ", keyword, " options");
      isopen = true;
      ffile.writeline("   ", option.name(), "  ", option.deprecatedmsg());
    }
  }

  const tdefinition& fdefinition;
  ttextfile& ffile;
};

}  // namespace

std::int32_t tvksoptionwriter::writedefinition(std::string_view filename) const {
  ttextfile file;
  file.open(filename);
  tdefinitionwriter(fdefinition, file).write();
  return file.close();
}

}  // namespace optcore

// The part of tvksoptionwriter that writes the options as a table on an HTML page. Not all rows are opened
// and closed correctly; the output is kept as it always was.
#include "output/htmlwr.h"
#include "output/parameterwriter.h"
#include "output/vksoptionwriter.h"

namespace optcore {

namespace {

class ttablewriter {
 public:
  ttablewriter(const tdefinition& definition, thtmlwrite& page) : fdefinition(definition), fpage(page) {}

  void write() {
    fpage.starttable(true);
    fpage.startrow();
    cells("Option", "Type", "UserMap", "Default", "Low", "High", "Group", "Hc", "Help Text");
    fpage.endrow();
    for (std::int32_t i = 0; i < fdefinition.getcount(); ++i) writeoption(fdefinition.option(i));
    writesynonyms();
    fpage.endtable();
  }

 private:
  template <class... ttexts>
  void cells(const ttexts&... texts) {
    (fpage.addcell(texts), ...);
  }

  void writeoption(const toption& option) {
    fpage.startrow();
    cells(option.name(), opttypenames[ordinal(option.opttype())], inttostr(option.refnr()));
    switch (option.opttype()) {
      case topttype::integer: {
        const auto& integer = as<tintoption>(option);
        cells(inttostrex(integer.defaultvalue()), inttostrex(integer.lo()), inttostrex(integer.hi()));
        return endoption(option);
      }
      case topttype::dbl: {
        const auto& dbl = as<tdbloption>(option);
        cells(dbltostrex(dbl.defaultvalue()), dbltostrex(dbl.lo()), dbltostrex(dbl.hi()));
        return endoption(option);
      }
      case topttype::string:
        cells(strexternal(as<tstringoption>(option).defaultvalue()), "", "");
        return endoption(option);
      case topttype::boolean:
        cells(inttostr(as<tbooleanoption>(option).defaultvalue()), "", "");
        return endoption(option);
      case topttype::immediate:
        cells(immkindnames[ordinal(as<timmediateoption>(option).immkind())], "", "");
        return endoption(option);
      case topttype::enumstr:
        cells(strexternal(as<tenumstroption>(option).defaultvalue()), "", "");
        endoption(option);
        return writeitems(as<tenumstroption>(option));
      case topttype::enumint:
        cells(inttostr(as<tenumintoption>(option).defaultvalue()), "", "");
        endoption(option);
        return writeitems(as<tenumintoption>(option));
      case topttype::multilist:
        cells("", "", "");
        endoption(option);
        return writemembers(as<tmultilistoption>(option));
      case topttype::strlist:
      case topttype::macro: break;  // the rows of these types are not ended
    }
  }

  void endoption(const toption& option) {
    cells(inttostrex(option.groupnr()), inttostr(option.helpflag()), option.helptext());
    fpage.endrow();
  }

  void writeitems(const tenumstroption& option) {
    for (std::int32_t i = 0; i < option.items().count(); ++i) {
      const toptionx& item = *option.items().getobject(i);
      fpage.startrow();
      cells("", "", "", option.items().getname(i), "", "", "", inttostr(item.helpflag()), item.helptext());
      fpage.endrow();
    }
  }

  // Only the first of these rows is started.
  void writeitems(const tenumintoption& option) {
    fpage.startrow();
    for (std::int32_t i = 0; i < option.items().count(); ++i) {
      const tlistoptionx& item = *option.items().get(i);
      cells("", "", "", inttostr(item.enumvalue()), "", "", "", inttostr(item.helpflag()), item.helptext());
      fpage.endrow();
    }
  }

  void writemembers(const tmultilistoption& option) {
    for (std::int32_t i = 0; i < option.items().count(); ++i) {
      fpage.startrow();
      cells("", "", fdefinition.getstrings(option.items().get(i)));
      fpage.endrow();
    }
  }

  void writesynonyms() {
    const auto& synonyms = fdefinition.synonyms();
    for (std::int32_t i = 0; i < synonyms.count(); ++i) {
      fpage.startrow();
      cells(synonyms.getname(i), "synonym", fdefinition.getstrings(synonyms.getobject(i)));
      fpage.endrow();
    }
  }

  const tdefinition& fdefinition;
  thtmlwrite& fpage;
};

}  // namespace

std::int32_t tvksoptionwriter::writeashtml(std::string_view filename) const {
  thtmlwrite page(filename);
  ttablewriter(fdefinition, page).write();
  return page.close();
}

}  // namespace optcore

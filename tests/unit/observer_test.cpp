// What the observer of a store receives and the tool does not show. All else is seen in what the tool prints.
#include <gtest/gtest.h>

#include "options/vksoptions.h"
#include "support/handle.h"

namespace optcore::observertest {

// Each message with its file and line, and what it is about. Echo is switched on when a value is set.
struct trecords : tstoreobserver {
  explicit trecords(tvksoptions& store) : fstore(store) { fstore.setobserver(this); }
  void filed(const tmessage& message) override {
    if (message.kind == tmsgkind::fileenter || message.kind == tmsgkind::fileleave) return;
    const std::string_view name = message.source->sourcename();
    text.append(name.substr(name.rfind('/') + 1)).append(":").append(std::to_string(message.line));
    text.append(" ").append(message.text).append(message.kind == tmsgkind::inputecho ? " [echo," : " [");
    text.append(message.subject.name).append(",").append(message.subject.value);
    text += "]\n";
  }
  void assigned(const toption&, std::int32_t) override { fstore.optechoset(true); }
  std::string text;

 private:
  tvksoptions& fstore;
};

TEST(observer, is_told_what_messages_are_about_and_of_echoed_lines) {
  const testsupport::ttempdir directory;
  tvksoptions store;
  trecords records(store);
  store.optreaddefinition(directory.write("DEF",
                                          "i integer q 0 0 9 1 1\ns string 1 t 1 1\n.dot double 2 1 0 9 1 1\n"
                                          "ind indicator\nread immediate ReadFile 1 1\n"));
  const std::string inner = directory.write("inner", "* c\n");
  store.optreadparameterfile(
      directory.write("OPT", "i 10\ns \"\nind e(*$v 1\nind e$v z\nx.dot('a' 1\nread " + inner + '\n'));
  EXPECT_EQ(records.text, R"~(DEF:1 Bad usermap value for option "i" [i,]
OPT:1 Integer range error for option "i" saw "10" [i,10]
OPT:1    Valid range is 0 to 9 [,]
OPT:2 Bad double-quote in value [s,"]
OPT:3 Universe not allowed for indicator id "e" [e,]
OPT:4 Boolean value expected for equation indicator "e", Saw "z" [e,z]
OPT:5 Closing bracket ")" expected for .option "x" [x,]
OPT:6  read )~" + inner + R"( [echo,,]
inner:1  * c [echo,,]
)");
}

}  // namespace optcore::observertest

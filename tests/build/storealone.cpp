// A program that is linked from base/ and options/ alone. This shows that the store neither needs readers,
// writers and entry points to link nor to work. With an argument the program prints a hash, see seed.sh.
#include <cstdio>

#include "options/globals.h"
#include "options/vksoptions.h"

using namespace optcore;

int main(int argc, char**) {
  if (argc > 1) return std::printf("%u\n", struhash("a name")) < 0;
  vksoptionsstart();
  tvksoptions store;
  tdefinition& definition = store.definition();
  const toptionhead head{"limit", 1, 1, 1, "At most"};
  definition.addoption(definition.make<tintoption>(head, 5, 0, 10), tsoughtname("limit"));
  definition.addsynonym("most", 0);
  store.setasstring("most", "7");
  store.setasstring("limit", "11");
  std::printf("%d %s %d %.*s\n", store.getcount(), std::string(store.getasstring("limit")).c_str(),
              store.optmessagecount(), static_cast<int>(store.messages().decorated(1).size()),
              store.messages().decorated(1).view().data());
}

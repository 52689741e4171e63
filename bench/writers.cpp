// The documentation writers, which are not exported: this program is linked from the library's own objects.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "api/handle.h"
#include "output/vksoptionwriter.h"
#include "support.h"

namespace bench {

namespace {

using twriter = std::int32_t (optcore::tvksoptionwriter::*)(std::string_view filename) const;

// Checks that the file contains the name of the last option.
void write(benchmark::State& state, std::int64_t size, twriter writer) {
  const tworkload& work = workload({size, size});
  const tdefined handle(work.definitionfile);
  const std::string path = pathof("documentation");
  const tvksoptions& store = *static_cast<tvksoptions*>(handle);
  std::int32_t code = 0;
  timed(
      state, size, [&] { code = (optcore::tvksoptionwriter(store.definition()).*writer)(path); },
      [&] {
        std::ifstream file(path, std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        return code == 0 && text.find(work.options.back().name) != std::string::npos;
      });
  state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(path));
}

}  // namespace

void addwriters() {
  using optcore::tvksoptionwriter;
  const auto addwriter = [](const char* name, twriter writer) {
    for (const std::int64_t size : {500, 100000})
      add("output", name, size,
          [writer](benchmark::State& state, std::int64_t count) { write(state, count, writer); });
  };
  addwriter("definition", &tvksoptionwriter::writedefinition);
  addwriter("pascal", &tvksoptionwriter::writedelphiinc);
  addwriter("html", &tvksoptionwriter::writeashtml);
}

}  // namespace bench

int main(int count, char** arguments) { return bench::run(count, arguments, {bench::addwriters}); }

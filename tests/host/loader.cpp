// A process that is not linked with the library. It loads and unloads clients, which are libraries that are
// linked with it, again and again.
//
//   loader client-library other-client-library scratch-directory [checked]
//
// checked: the process runs with a checker that keeps memory for every loaded library, so the growth of
// memory is not tested.
#include <dlfcn.h>
#include <malloc.h>
#include <pthread.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

namespace {

using trunclient = std::size_t (*)(const char* written, char* text, std::size_t size);

void require(bool holds, const char* what) {
  if (holds) return;
  std::cerr << "loader: not true: " << what << '\n';
  std::exit(1);
}

class tclient {
 public:
  explicit tclient(const char* path) : flibrary(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {
    require(flibrary != nullptr, "the library can be loaded");
    frun = reinterpret_cast<trunclient>(dlsym(flibrary, "runclient"));
    require(frun != nullptr, "the client can be called");
  }
  ~tclient() { require(dlclose(flibrary) == 0, "the library can be unloaded"); }
  tclient(const tclient&) = delete;
  tclient& operator=(const tclient&) = delete;

  // If `written` is null, only creates a handle.
  std::string run(const char* written) const {
    std::string text(4 << 20, '\0');
    text.resize(frun(written, text.data(), text.size()));
    return text;
  }

 private:
  void* flibrary;
  trunclient frun;
};

bool isloaded() {
  std::ifstream maps("/proc/self/maps");
  return std::string(std::istreambuf_iterator<char>(maps), {}).find("libwexcorin.so") != std::string::npos;
}

// The pages of the process, and the bytes that it has allocated.
struct tsize {
  tsize() { std::ifstream("/proc/self/statm") >> pages; }
  long pages = 0;
  std::size_t bytes = mallinfo2().uordblks;
};

}  // namespace

int main(int count, char** arguments) {
  const std::string path = std::string(arguments[3]) + "/written";
  const char* const written = path.c_str();
  std::string expected;
  {
    const tclient client(arguments[1]);
    expected = client.run(written);
    require(expected.size() > 50'000, "the job was done");
    // Both are linked with the same library, which stays loaded as long as one of them is.
    {
      const tclient other(arguments[2]);
      require(other.run(written) == expected, "another client has the same answers");
    }
    require(isloaded() && client.run(written) == expected,
            "the answers stay when another client is unloaded");
  }
  require(!isloaded(), "the library is unloaded with its last client");
  for (int time = 1; time <= 100; ++time) tclient(arguments[1 + time % 2]).run(nullptr);
  const tsize before;
  for (int time = 101; time <= 1100; ++time) tclient(arguments[1 + time % 2]).run(nullptr);
  const tsize after;
  std::cout << before.pages << " pages, " << before.bytes << " bytes; later " << after.pages << ", "
            << after.bytes << '\n';
  require(count > 4 || (after.bytes <= before.bytes && after.pages <= before.pages),
          "loading leaves nothing behind");
  pthread_key_t key;
  require(pthread_key_create(&key, nullptr) == 0,
          "loading leaves no key behind, of which a process has 1,024");
  require(tclient(arguments[1]).run(written) == expected, "the answers are the same after 1,100 times");
  return 0;
}

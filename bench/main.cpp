// The benchmarks that use the library as its clients do: through the public header and the shared library.
#include "support.h"

int main(int count, char** arguments) {
  return bench::run(count, arguments,
                    {bench::addtablerows, bench::addsinglerows, bench::addfamilies, bench::addgrowth});
}

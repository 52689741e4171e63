// The benchmarks that see the library as its clients do: the public header and the shared library.
#include "support.h"

int main(int count, char** arguments) {
  return bench::run(count, arguments,
                    {bench::addtablerows, bench::addsinglerows, bench::addfamilies, bench::addgrowth});
}

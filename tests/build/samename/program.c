/* A program that uses readline, whose library has a function xfree, and a handle. It is compiled
 * - as it is: the client of wexcorin is in the program, and the dynamic linker chooses the functions
 * - with OWN: the client takes its two functions from own.c of docs/client-guide.md
 * - with LOAD: the client is solverlink.so, which the file LOAD loads */
#include <dlfcn.h>
#include <stdio.h>

#include <readline/readline.h>
#include <wexcorin/wexcorin.h>

#ifdef OWN
extern tvksoptions* (*create_options)(tvksoptions** handle);
extern void (*free_options)(tvksoptions** handle);
int find_own_functions(void);
#else
#define create_options xcreate
#define free_options xfree
#endif

static int solve(void) {
#ifdef LOAD
#include LOAD
  int (*solver)(void) = NULL;
  if (client == NULL) return fprintf(stderr, "%s\n", dlerror());
  *(void**)&solver = dlsym(client, "solve");
  return solver();
#else
  tvksoptions* options = NULL;
#ifdef OWN
  if (!find_own_functions()) return 1;
#endif
  if (create_options(&options) == NULL) return 1;
  free_options(&options);
  return options != NULL;
#endif
}

int main(int count, char** files) {
  (void)count;
  rl_instream = fopen(files[1], "r");
  rl_outstream = fopen("/dev/null", "w");
  for (int line = 0; line < 2; ++line)
    if (readline("") == NULL) return 1;
  if (solve() != 0) return 1;
  puts("both work");
}

/* A plain C99 program on the public header and the shared library alone: one walk through a store in both string
   forms. Its argument names the definition file that it writes, reads and removes. Ends with 1 when a check fails. */
#include <stdio.h>
#include <string.h>

#include "wexcorin/wexcorin.h"

typedef char shortstringhas256bytes[sizeof(optshortstring) == 256 ? 1 : -1];

static int failures = 0;

#define CHECK(condition)                                               \
  do {                                                                 \
    if (!(condition)) {                                                \
      printf("%s:%d: not true: %s\n", __FILE__, __LINE__, #condition); \
      ++failures;                                                      \
    }                                                                  \
  } while (0)

static optshortstring text(const char* chars) {
  optshortstring result;
  result.length = (unsigned char)strlen(chars);
  memcpy(result.text, chars, result.length);
  return result;
}

static int is(const optshortstring* s, const char* chars) {
  return s->length == strlen(chars) && memcmp(s->text, chars, s->length) == 0;
}

static int writedefinition(const char* path) {
  FILE* file = fopen(path, "w");
  if (file == NULL) return 0;
  fputs(
      "maxit integer 1 50 0 1000 1 1 Iteration limit\n"
      "tol double.TWO 2 1e-6 0 1 1 1 Tolerances\n"
      "method enumstr 3 barrier 1 1 Method\n"
      " barrier 1\n"
      " simplex 1\n"
      "limit synonym maxit\n"
      "marks eolcomm !\n",
      file);
  return fclose(file) == 0;
}

static void withshortstrings(tvksoptions* store) {
  optshortstring in = text("limit 200 ! quick\n");
  optshortstring out;
  int32_t number = 0;
  int32_t refnr = 0;
  int32_t kind = 0;
  double value = 0;
  optreadfromstr(store, &in);
  CHECK(optmessagecount(store) == 0);
  in = text("LIMIT");
  CHECK(optfindstr(store, &in, &number, &refnr) == 1 && number == 2 && refnr == 1);
  CHECK(optgetvalstr(store, &in, &out) == 1 && is(&out, "200"));
  in = text("tol .5 *");
  optreadfromstr(store, &in);
  CHECK(optgetdblnr(store, 3, &value) == 1 && value == 0.5);
  CHECK(optgetdbl2nr(store, 3, &value) == 1 && value == 1e-6);
  in = text("dual");
  CHECK(optsetstrnr(store, 4, &in) == 0);
  optgetmessage(store, 2, &out, &kind);
  CHECK(kind == optMsgValueError && is(&out, "*** Value Error    Possible values are  barrier simplex"));
  optclearmessages(store);
}

static void withcharacters(tvksoptions* store) {
  char out[WEXCORIN_TEXT_SIZE];
  char name[WEXCORIN_TEXT_SIZE];
  int32_t number = 0;
  int32_t kind = 0;
  coptreadfromstr(store, "method SIMPLEX");
  CHECK(coptgetenumstrnr(store, 4, out, &number) == 1 && strcmp(out, "simplex") == 0 && number == 2);
  CHECK(coptgetnamenr(store, 4, name) == 1 && strcmp(name, "method") == 0);
  CHECK(coptgetnamenr(store, 5, name) == 0 && name[0] == '\0');
  CHECK(coptsetstrnr(store, 2, "1001") == 0);
  coptgetmessage(store, 1, out, &kind);
  CHECK(strcmp(out, "*** Value Error Integer range error for option \"maxit\" saw \"1001\"") == 0);
  optclearmessages(store);
}

int main(int argc, char** argv) {
  const char* path = argc > 1 ? argv[1] : "plainclient.def";
  tvksoptions* store = NULL;
  CHECK(xcreate(&store) == store && store != NULL);
  CHECK(writedefinition(path));
  CHECK(coptreaddefinition(store, path) == 0);
  CHECK(optmessagecount(store) == 0 && optcount(store) == 4 && optsynonymcount(store) == 1);
  withshortstrings(store);
  withcharacters(store);
  xfree(&store);
  CHECK(store == NULL);
  xfree(&store);
  remove(path);
  return failures == 0 ? 0 : 1;
}

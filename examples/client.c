/* client.c: a whole client in C. It loads a definition file, reads option files, and prints their settings
 * and the messages of the library. The result is 0 when there was no error and no warning.
 *
 *   client examples/solver.def examples/solver.opt
 */
#include <stdio.h>

#include <wexcorin/wexcorin.h>

static void print_option(tvksoptions* options, int32_t number) {
  char name[WEXCORIN_TEXT_SIZE], value[WEXCORIN_TEXT_SIZE], second[WEXCORIN_TEXT_SIZE];
  int32_t defined, recent, refnr, datatype, opttype, subtype, index;

  optgetinfonr(options, number, &defined, &recent, &refnr, &datatype, &opttype, &subtype);
  coptgethelpnr(options, number, name, value); /* the name as the definition file has it */
  if (defined == 0 || name[0] == '.') return;  /* not set, or printed with the dot entries */
  if (datatype == optDataStrList) {
    for (index = 1; coptreadfromliststr(options, name, index, value) == 1; ++index)
      printf("%s [%d] = %s\n", name, (int)index, value);
  } else {
    coptgetstrnr(options, number, value);
    printf("%s = %s", name, value);
    if (coptgetstr2nr(options, number, second)) printf(", %s", second);
    printf("\n");
  }
}

static void print_dot_entry(tvksoptions* options, int32_t number) {
  char symbol[WEXCORIN_TEXT_SIZE], suffix[WEXCORIN_TEXT_SIZE], element[WEXCORIN_TEXT_SIZE];
  int32_t option, dimensions, index;
  double value;

  coptgetdotoptnr(options, number, symbol, &option, &dimensions, &value);
  coptgetnamenr(options, option, suffix);
  printf("%s%s", symbol, suffix);
  for (index = 1; coptgetdotoptuel(options, number, index, element); ++index) printf(" [%s]", element);
  printf(" = %g\n", value);
}

static void print_indicator(tvksoptions* options, int32_t number) {
  char equation[WEXCORIN_TEXT_SIZE], variable[WEXCORIN_TEXT_SIZE];
  int32_t equationdims, variabledims, value;

  coptgetindicatornr(options, number, equation, variable, &equationdims, &variabledims, &value);
  printf("%s (%d) holds when %s (%d) is %d\n", equation, (int)equationdims, variable, (int)variabledims,
         (int)value);
}

int main(int count, char** files) {
  tvksoptions* options;
  char text[WEXCORIN_TEXT_SIZE];
  int32_t number, kind, rejected, errors, warnings;

  if (count < 2 || xcreate(&options) == NULL) {
    fprintf(stderr, "usage: client definition-file [option-file ...]\n");
    return 2;
  }
  if (coptreaddefinition(options, files[1]) == 0)
    for (number = 2; number < count; ++number) coptreadparameterfile(options, files[number]);

  for (number = 1; number <= optcount(options); ++number) print_option(options, number);
  for (number = 1; number <= optdotoptcount(options, &rejected); ++number) print_dot_entry(options, number);
  for (number = 1; number <= optindicatorcount(options, &rejected); ++number)
    print_indicator(options, number);
  for (number = 1; number <= optmessagecount(options); ++number) {
    coptgetmessage(options, number, text, &kind);
    printf("%s\n", text);
  }
  opterrorcount(options, &errors, &warnings);
  printf("%d errors, %d warnings\n", (int)errors, (int)warnings);
  xfree(&options);
  return errors == 0 && warnings == 0 ? 0 : 1;
}

#include "Universal/Assertion.h"

#include <stdio.h>
#include <stdlib.h>

void xxxxxxx_printassertion(char const* message, char const* file, int line,
                            char const* expression) {
  (void)expression;
  char text[1024];
  snprintf(text, sizeof text, "%s\n%s line %d", message ? message : "",
           file ? file : "", line);
  printf("Assertion failed: %s\n", text);
  fflush(stdout);
  exit(1);
}

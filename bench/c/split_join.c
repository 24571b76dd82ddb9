/* Text splitting and joining: a line of 2,000 words split and joined
   again, 300 times. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
int main(void) {
  char line[2000 * 8] = "";
  size_t length = 0;
  for (int i = 1; i <= 2000; i++)
    length += sprintf(line + length, "%sw%d", i > 1 ? "," : "", i % 97);
  long total = 0;
  for (int round = 1; round <= 300; round++) {
    char** parts = malloc(2000 * sizeof *parts);
    int count = 0;
    for (char const* start = line;;) {
      char const* end = strchr(start, ',');
      size_t n = end ? (size_t)(end - start) : strlen(start);
      parts[count] = malloc(n + 1);
      memcpy(parts[count], start, n);
      parts[count++][n] = 0;
      if (!end) break;
      start = end + 1;
    }
    size_t joined = 0;
    for (int k = 0; k < count; k++) joined += strlen(parts[k]) + (k > 0);
    char* text = malloc(joined + 1);
    size_t at = 0;
    for (int k = 0; k < count; k++) {
      if (k) text[at++] = ';';
      size_t n = strlen(parts[k]);
      memcpy(text + at, parts[k], n);
      at += n;
      free(parts[k]);
    }
    text[at] = 0;
    total += count - 1 + (long)strlen(text);
    free(text);
    free(parts);
  }
  printf("%ld\n", total);
  return 0;
}

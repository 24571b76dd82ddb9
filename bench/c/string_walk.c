/* Strings: a million short pieces built into lines, the lines kept in an
   array and joined, then the text walked field by field with strchr and
   strtod. The same work as scripts/string_walk.bas, in plain C. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { kPieces = 1000000, kPiecesPerLine = 10, kLineSize = 64 };

int main(void) {
  int lineCount = kPieces / kPiecesPerLine;
  char** lines = malloc(sizeof(char*) * lineCount);
  char line[kLineSize];
  size_t used = 0, total = 0;
  int stored = 0;
  for (int i = 1; i <= kPieces; i++) {
    used += snprintf(line + used, sizeof line - used, "%d,", i % 1000);
    if (i % kPiecesPerLine == 0) {
      lines[stored++] = strdup(line);
      total += used;
      used = 0;
    }
  }
  char* text = malloc(total + 1);
  char* end = text;
  for (int k = 0; k < stored; k++) {
    size_t size = strlen(lines[k]);
    memcpy(end, lines[k], size);
    end += size;
    free(lines[k]);
  }
  *end = 0;
  free(lines);
  double sum = 0;
  long count = 0;
  for (char* at = text, *comma; (comma = strchr(at, ',')) != NULL; at = comma + 1) {
    sum += strtod(at, NULL);
    count++;
  }
  printf("%ld %.0f\n", count, sum);
  free(text);
  return 0;
}

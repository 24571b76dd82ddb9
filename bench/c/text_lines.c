/* Text: two hundred thousand lines split into words, the words compared,
   each line joined again, searched and rewritten; then one big join of all
   the lines and a split of it. The same work as scripts/text_lines.bas, in
   plain C. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>

enum { kLines = 200000, kMostParts = 8 };

static char const* const kWords[] = {"alpha", "beta", "gamma", "delta",
                                     "epsilon", "zeta", "eta", "theta"};

/* Splits `text` at `delimiter` into new strings; returns their number. */
static int Split(char const* text, char delimiter, char** parts, int most) {
  int count = 0;
  for (char const* at = text;; at++) {
    char const* end = strchr(at, delimiter);
    if (!end || count == most - 1) end = at + strlen(at);
    parts[count++] = strndup(at, end - at);
    if (!*end) return count;
    at = end;
  }
}

/* The parts with `delimiter` between them, in a new string. */
static char* Join(char** parts, int count, char delimiter) {
  size_t size = 0;
  for (int k = 0; k < count; k++) size += strlen(parts[k]) + 1;
  char* text = malloc(size + 1);
  char* end = text;
  for (int k = 0; k < count; k++) {
    if (k) *end++ = delimiter;
    size_t length = strlen(parts[k]);
    memcpy(end, parts[k], length);
    end += length;
  }
  *end = 0;
  return text;
}

int main(void) {
  char** lines = malloc(sizeof(char*) * kLines);
  char buffer[128];
  for (int i = 0; i < kLines; i++) {
    snprintf(buffer, sizeof buffer, "%s %s %s %d", kWords[i % 8],
             kWords[(i * 3) % 8], kWords[(i * 5 + 1) % 8], i);
    lines[i] = strdup(buffer);
  }
  int ordered = 0, found = 0;
  char* parts[kMostParts];
  for (int i = 0; i < kLines; i++) {
    int count = Split(lines[i], ' ', parts, kMostParts);
    if (strcasecmp(parts[0], parts[1]) < 0) ordered++;
    char* line = Join(parts, count, '-');
    for (int k = 0; k < count; k++) free(parts[k]);
    if (strstr(line, "-eta-")) found++;
    for (char* c = line; *c; c++)
      if (*c == '-') *c = ' ';
    free(lines[i]);
    lines[i] = line;
  }
  char* all = Join(lines, kLines, '\n');
  size_t length = strlen(all);
  int again = 1;
  for (char* c = all; *c; c++)
    if (*c == '\n') again++;
  char** pieces = malloc(sizeof(char*) * again);
  int split = Split(all, '\n', pieces, again);
  printf("%d %d %d %zu\n", ordered, found, split, length);
  for (int k = 0; k < split; k++) free(pieces[k]);
  for (int k = 0; k < kLines; k++) free(lines[k]);
  free(pieces);
  free(lines);
  free(all);
  return 0;
}

/* String building: many small concatenations, each making a new string as
   the scripts do. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
int main(void) {
  char* text = calloc(1, 1);
  size_t length = 0;
  for (int i = 1; i <= 60000; i++) {
    char digit[12];
    int n = snprintf(digit, sizeof digit, "%d", i % 10);
    char* longer = malloc(length + n + 1);
    memcpy(longer, text, length);
    memcpy(longer + length, digit, n + 1);
    free(text);
    text = longer;
    length += n;
  }
  printf("%zu\n", length);
  free(text);
  return 0;
}

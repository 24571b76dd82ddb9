/* A sieve of Eratosthenes over 5,000,000 Booleans, ten passes. */
#include <stdio.h>
#include <stdlib.h>
#define LIMIT 5000000
int main(void) {
  unsigned char* composite = malloc(LIMIT + 1);
  int count = 0;
  for (int pass = 1; pass <= 10; pass++) {
    for (int i = 0; i <= LIMIT; i++) composite[i] = 0;
    count = 0;
    for (int i = 2; i <= LIMIT; i++)
      if (!composite[i]) {
        count++;
        for (int j = i + i; j <= LIMIT; j += i) composite[j] = 1;
      }
  }
  printf("%d\n", count);
  free(composite);
  return 0;
}

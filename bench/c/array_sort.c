/* Filling, sorting and summing an array of 1,000,000 pseudo-random
   integers. */
#include <stdio.h>
#include <stdlib.h>
static int Ascending(void const* a, void const* b) {
  int x = *(int const*)a, y = *(int const*)b;
  return (x > y) - (x < y);
}
int main(void) {
  int count = 1000000, seed = 12345;
  int* values = malloc(count * sizeof *values);
  for (int i = 0; i < count; i++) {
    seed = (seed * 1103 + 12345) % 1000003;
    values[i] = seed;
  }
  qsort(values, count, sizeof *values, Ascending);
  double total = 0.0;
  for (int i = 0; i < count; i += 1000) total += values[i];
  printf("%d %d %.15g\n", values[0], values[count - 1], total);
  free(values);
  return 0;
}

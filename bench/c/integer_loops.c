/* Integer arithmetic in a tight loop. */
#include <stdio.h>
int main(void) {
  int total = 0;
  for (int i = 1; i <= 50000000; i++)
    total = (int)((unsigned)total + (unsigned)((i % 7) * 3) - (unsigned)(i / 1000));
  printf("%d\n", total);
  return 0;
}

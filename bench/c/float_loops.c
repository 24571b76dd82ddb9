/* Floating-point arithmetic: the midpoint rule for pi. */
#include <stdio.h>
int main(void) {
  int steps = 20000000;
  double width = 1.0 / steps, sum = 0.0;
  for (int i = 0; i <= steps - 1; i++) {
    double x = (i + 0.5) * width;
    sum = sum + 4.0 / (1.0 + x * x);
  }
  printf("%.15g\n", sum * width);
  return 0;
}

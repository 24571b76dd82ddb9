/* The Mandelbrot set on a 1200 x 900 grid, at most 50 iterations a point. */
#include <stdio.h>
int main(void) {
  int inside = 0;
  for (int py = 0; py <= 899; py++) {
    double ci = py * 2.0 / 900 - 1.0;
    for (int px = 0; px <= 1199; px++) {
      double cr = px * 3.0 / 1200 - 2.0;
      double zr = 0.0, zi = 0.0;
      int n = 0;
      while (n < 50 && zr * zr + zi * zi <= 4.0) {
        double t = zr * zr - zi * zi + cr;
        zi = 2.0 * zr * zi + ci;
        zr = t;
        n++;
      }
      if (n == 50) inside++;
    }
  }
  printf("%d\n", inside);
  return 0;
}

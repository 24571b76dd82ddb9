/* Recursive calls: the naive Fibonacci number of 34. */
#include <stdio.h>
static int fib(int n) { return n < 2 ? n : fib(n - 1) + fib(n - 2); }
int main(int argc, char** argv) {
  /* The argument count keeps the compiler from folding the whole call. */
  printf("%d\n", fib(33 + argc));
  return 0;
}

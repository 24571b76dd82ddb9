/* Callbacks: a merge sort of 1,000,000 integers that orders them through a
   comparison function pointer (by last digit, high first, then by value),
   and an event-style list of five handlers, four bound to objects and one
   plain, fired for 1,000,000 events. */
#include <stdio.h>
#include <stdlib.h>

typedef int (*Comparison)(int a, int b);

static int by_digit_then_value(int a, int b) {
  int da = a % 10, db = b % 10;
  if (da != db) return db - da;
  return a - b;
}

static void merge(int const* src, int* dst, int lo, int mid, int hi,
                  Comparison order) {
  int i = lo, j = mid;
  for (int k = lo; k < hi; k++) {
    if (i < mid && (j >= hi || order(src[i], src[j]) <= 0))
      dst[k] = src[i++];
    else
      dst[k] = src[j++];
  }
}

static void sort_by(int* values, int n, Comparison order) {
  int* other = malloc(sizeof(int) * n);
  int *src = values, *dst = other;
  for (int width = 1; width < n; width *= 2) {
    for (int lo = 0; lo < n;) {
      int mid = lo + width < n ? lo + width : n;
      int hi = lo + 2 * width < n ? lo + 2 * width : n;
      merge(src, dst, lo, mid, hi, order);
      lo = hi;
    }
    int* swap = src;
    src = dst;
    dst = swap;
  }
  if (src != values)
    for (int k = 0; k < n; k++) values[k] = src[k];
  free(other);
}

typedef struct {
  int weight, sum;
} Listener;

/* A handler: a function and the object it is bound to, or none. */
typedef struct {
  void (*call)(void* self, int n);
  void* self;
} Handler;

static int heard;
static void count(void* self, int n) { heard = (heard + n) % 1000003; }
static void hear(void* self, int n) {
  Listener* l = self;
  l->sum = (l->sum + n * l->weight) % 1000003;
}

int main(void) {
  enum { N = 1000000 };
  static int values[N];
  int seed = 12345;
  for (int i = 0; i < N; i++) {
    seed = (seed * 1103 + 12345) % 1000003;
    values[i] = seed;
  }
  /* Volatile: the compiler must not see through the pointer. */
  Comparison volatile order = by_digit_then_value;
  sort_by(values, N, order);
  int check = 0;
  for (int i = 0; i < N; i += 1000) check = (check * 31 + values[i]) % 1000003;

  Listener listeners[4];
  Handler handlers[5];
  for (int k = 0; k < 4; k++) {
    listeners[k].weight = k + 1;
    listeners[k].sum = 0;
    handlers[k].call = hear;
    handlers[k].self = &listeners[k];
  }
  handlers[4].call = count;
  handlers[4].self = NULL;
  Handler* volatile list = handlers;
  for (int i = 1; i <= 1000000; i++)
    for (int h = 0; h < 5; h++) list[h].call(list[h].self, i);
  int total = heard;
  for (int k = 0; k < 4; k++) total = (total + listeners[k].sum) % 1000003;
  printf("%d %d %d %d\n", values[0], values[N - 1], check, total);
  return 0;
}

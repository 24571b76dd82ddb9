/* Virtual calls: twenty million calls through a table of function pointers
   shared by the objects of one of four classes, over the four in turn. */
#include <stdio.h>

typedef struct Shape Shape;
typedef struct {
  int (*weight)(Shape* self, int n);
} ShapeClass;
struct Shape {
  ShapeClass const* vtable;
};

static int circle(Shape* self, int n) { return n + 1; }
static int square(Shape* self, int n) { return n * 2; }
static int triangle(Shape* self, int n) { return n - 3; }
static int hexagon(Shape* self, int n) { return n / 2; }

static ShapeClass const kClasses[4] = {{circle}, {square}, {triangle}, {hexagon}};

int main(void) {
  Shape shapes[4];
  for (int i = 0; i < 4; i++) shapes[i].vtable = &kClasses[i];
  /* Volatile: the compiler must not see through the table. */
  Shape* volatile table[4] = {&shapes[0], &shapes[1], &shapes[2], &shapes[3]};
  long long total = 0;
  for (int i = 0; i < 20000000; i++) {
    Shape* s = table[i % 4];
    total = (total + s->vtable->weight(s, i % 1000)) % 1000000007;
  }
  printf("%lld\n", total);
  return 0;
}

/* Binary trees: about fifteen million small nodes built into trees with
   malloc and freed again, with one long-lived tree beside them. */
#include <stdio.h>
#include <stdlib.h>

typedef struct Node {
  struct Node* left;
  struct Node* right;
} Node;

static Node* bottom_up(int depth) {
  Node* node = malloc(sizeof(Node));
  node->left = node->right = NULL;
  if (depth > 0) {
    node->left = bottom_up(depth - 1);
    node->right = bottom_up(depth - 1);
  }
  return node;
}

static int check(Node* node) {
  if (!node->left) return 1;
  return 1 + check(node->left) + check(node->right);
}

static void release(Node* node) {
  if (node->left) {
    release(node->left);
    release(node->right);
  }
  free(node);
}

int main(void) {
  int max_depth = 16;
  Node* stretch = bottom_up(max_depth + 1);
  printf("%d\n", check(stretch));
  release(stretch);
  Node* long_lived = bottom_up(max_depth);
  for (int depth = 4; depth <= max_depth; depth += 2) {
    int iterations = 1 << (max_depth - depth + 4);
    int total = 0;
    for (int i = 1; i <= iterations; i++) {
      Node* tree = bottom_up(depth);
      total += check(tree);
      release(tree);
    }
    printf("%d %d %d\n", iterations, depth, total);
  }
  printf("%d\n", check(long_lived));
  release(long_lived);
  return 0;
}

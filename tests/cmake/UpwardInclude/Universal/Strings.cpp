#include "Universal/Strings.h"

#include "Compiler/Types.h"

int StringLength(char const* text) {
  int length = 0;
  while (text[length]) length++;
  return length;
}

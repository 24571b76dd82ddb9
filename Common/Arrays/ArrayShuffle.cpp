// Shuffle: a Fisher-Yates pass over all elements as one run, drawing from
// the script's own random generator so that a seeded script shuffles the
// same way every time.
#include "Common/Arrays/ArrayStorage.h"
#include "Common/RuntimeNumerics.h"

namespace arrays {
namespace {

void SwapBytes(unsigned char* a, unsigned char* b, long size) {
  if (a == b) return;
  for (long k = 0; k < size; k++) {
    unsigned char byte = a[k];
    a[k] = b[k];
    b[k] = byte;
  }
}

}  // namespace

void ShuffleElements(ArrayBody body) {
  if (!*body.data || body.shape->Ubounds()[0] <= 0) return;
  long count = ElementCount(body.shape), size = body.elementSize;
  for (long i = count - 1; i >= 1; i--) {
    long j = static_cast<long>(rnd() * (i + 1));
    SwapBytes(*body.data + i * size, *body.data + j * size, size);
  }
}

}  // namespace arrays

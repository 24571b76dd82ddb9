// Insert and Remove on one-dimensional arrays. Insert grows the buffer in
// steps that double up to 131072 elements and from then on are as large as
// the array, so that appending in a loop stays linear however long it runs;
// Remove always shrinks to fit.
#include <string.h>

#include "Common/Arrays/ArrayStorage.h"
#include "Universal/Assertion.h"

namespace arrays {
namespace {

long const kLargestGrowth = 0x20000;

// A larger buffer with the elements below `index` in place and the rest one
// slot up.
bool GrowAround(ArrayBody body, long index, long used, long minimum) {
  ArrayShape* shape = body.shape;
  long long length =
      static_cast<long long>(shape->bufferLength) +
      static_cast<long long>(shape->growth) * body.elementSize;
  QASSERT_TEXT(length >= minimum, "array->bufferLength >= minimumBufferSize");
  unsigned char* fresh = AllocateBuffer(length);
  if (AllocationFailed(length, fresh)) return false;
  shape->bufferLength = static_cast<int32_t>(length);
  long elements = used / body.elementSize + 1;
  if (shape->growth < kLargestGrowth)
    shape->growth *= 2;
  else if (shape->growth < elements)
    shape->growth = static_cast<int32_t>(elements);
  long below = index * body.elementSize;
  if (*body.data) {
    memcpy(fresh, *body.data, below);
    memcpy(fresh + below + body.elementSize, *body.data + below, used - below);
  }
  FreeBuffer(*body.data);
  *body.data = fresh;
  return true;
}

}  // namespace

bool OpenGap(ArrayBody body, long index) {
  long size = body.elementSize;
  long count = body.shape->Ubounds()[0] + 1;
  long minimum = (count + 1) * size;
  if (body.shape->bufferLength < minimum) {
    if (!GrowAround(body, index, count * size, minimum)) return false;
  } else {
    unsigned char* slot = *body.data + index * size;
    memmove(slot + size, slot, (count - index) * size);
  }
  body.shape->Ubounds()[0] = count;
  return true;
}

// The element is released only once the array is whole again, in case its
// release runs code that looks at this array.
void CloseGap(ArrayBody body, long index) {
  long size = body.elementSize;
  long ubound = body.shape->Ubounds()[0];
  void* removed = nullptr;
  if (body.unlock)
    removed = *reinterpret_cast<void**>(*body.data + index * size);
  long length = ubound * size;
  unsigned char* fresh = AllocateBuffer(length);
  long below = index * size;
  if (AllocationFailed(length, fresh)) {
    // No smaller buffer: the tail moves down within the old one.
    memmove(*body.data + below, *body.data + below + size, length - below);
  } else {
    if (fresh) {
      memcpy(fresh, *body.data, below);
      memcpy(fresh + below, *body.data + below + size, length - below);
    }
    FreeBuffer(*body.data);
    *body.data = fresh;
    body.shape->bufferLength = length;
  }
  body.shape->growth = 16;
  body.shape->Ubounds()[0] = ubound - 1;
  if (body.unlock) body.unlock(removed);
}

}  // namespace arrays

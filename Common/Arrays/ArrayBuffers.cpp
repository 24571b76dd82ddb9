// Element buffers: their size, their allocation, and where an element lies.
#include <stdint.h>
#include <stdlib.h>

#include "Common/Arrays/ArrayStorage.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Assertion.h"

namespace arrays {

ArrayBody BodyOf(RuntimeArrayObject* array, long elementSize,
                 ArrayElementHook unlock) {
  return {&array->data, &array->shape, elementSize, unlock};
}

ArrayBody BodyOf(RuntimeStructureArray* array) {
  return {&array->data, &array->shape, array->elementSize, nullptr};
}

long ElementCount(ArrayShape const* shape) {
  long count = 1;
  for (long d = 0; d < shape->dimensions; d++) {
    if (shape->Ubounds()[d] < 0) return 0;
    count *= shape->Ubounds()[d] + 1;
  }
  return count;
}

// Calloc, so that new elements start as 0 and references as nil. The
// buffer length is a 32-bit field of the layout; a larger request is as
// much a failure as an exhausted heap.
unsigned char* AllocateBuffer(long long bytes) {
  if (bytes < 1) return nullptr;
  QASSERT_TEXT(bytes <= INT32_MAX, "bufferLength");
  void* buffer = calloc(1, static_cast<size_t>(bytes));
  QASSERT_TEXT(buffer, "buffer");
  return static_cast<unsigned char*>(buffer);
}

void FreeBuffer(unsigned char* buffer) { free(buffer); }

void CreateArrayBuffer(ArrayBody body) {
  long long bytes =
      static_cast<long long>(ElementCount(body.shape)) * body.elementSize;
  *body.data = AllocateBuffer(bytes);
  body.shape->bufferLength = *body.data ? static_cast<int32_t>(bytes) : 0;
}

// Reads every index even after one has failed, which costs nothing and
// keeps the walk simple.
long CheckedPosition(ArrayShape const* shape, va_list indexes) {
  long position = 0, stride = 1;
  bool inRange = true;
  for (long d = 0; d < shape->dimensions; d++) {
    long index = va_arg(indexes, long);
    long ubound = shape->Ubounds()[d];
    if (!IndexInRange(index, ubound)) inRange = false;
    position += index * stride;
    stride *= ubound + 1;
  }
  return inRange ? position : -1;
}

long UncheckedPosition(ArrayShape const* shape, va_list indexes) {
  long position = 0, stride = 1;
  for (long d = 0; d < shape->dimensions; d++) {
    position += va_arg(indexes, long) * stride;
    stride *= shape->Ubounds()[d] + 1;
  }
  return position;
}

long ShapeUbound(ArrayShape const* shape, long dimension) {
  if (dimension == -1) return shape->dimensions;
  if (dimension >= 1 && dimension <= shape->dimensions)
    return shape->Ubounds()[dimension - 1];
  RaiseOutOfBoundsException();
  return -1;
}

}  // namespace arrays

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
  return static_cast<long>(RequestedElementCount(shape->Ubounds(),
                                                 shape->dimensions));
}

// Saturates instead of overflowing: a count past the 32-bit buffer length
// fails allocation like any other too-large request.
long long RequestedElementCount(int32_t const* ubounds, long dimensions) {
  long long count = 1;
  for (long d = 0; d < dimensions; d++) {
    if (ubounds[d] < 0) return 0;
    count *= static_cast<long long>(ubounds[d]) + 1;
    if (count > INT32_MAX) count = static_cast<long long>(INT32_MAX) + 1;
  }
  return count;
}

// Calloc, so that new elements start as 0 and references as nil. The
// buffer length is a 32-bit field of the layout; a larger request is as
// much a failure as an exhausted heap: the script gets an
// OutOfMemoryException and the array stays as it was.
unsigned char* AllocateBuffer(long long bytes) {
  if (bytes < 1) return nullptr;
  void* buffer =
      bytes <= INT32_MAX ? calloc(1, static_cast<size_t>(bytes)) : nullptr;
  if (!buffer) RaiseOutOfMemoryException();
  return static_cast<unsigned char*>(buffer);
}

bool AllocationFailed(long long bytes, unsigned char const* buffer) {
  return bytes >= 1 && !buffer;
}

void FreeBuffer(unsigned char* buffer) { free(buffer); }

// A new array whose buffer cannot be had is left empty in every
// dimension, so that its release finds nothing to walk.
void CreateArrayBuffer(ArrayBody body) {
  long long bytes =
      RequestedElementCount(body.shape->Ubounds(), body.shape->dimensions) *
      body.elementSize;
  *body.data = AllocateBuffer(bytes);
  body.shape->bufferLength = *body.data ? static_cast<int32_t>(bytes) : 0;
  if (AllocationFailed(bytes, *body.data))
    for (long d = 0; d < body.shape->dimensions; d++)
      body.shape->Ubounds()[d] = -1;
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

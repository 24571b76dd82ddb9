// Redim: new bounds for an existing array, keeping what still fits.
#include <string.h>

#include "Common/Arrays/ArrayStorage.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Assertion.h"

namespace arrays {
namespace {

void ReleaseRange(ArrayBody body, long first, long last) {
  if (!body.unlock) return;
  for (long k = first; k <= last; k++)
    body.unlock(*reinterpret_cast<void**>(*body.data + k * body.elementSize));
}

// The linear position of `index` under `ubounds`, first dimension fastest.
long LinearIndex(int32_t const* index, int32_t const* ubounds, long dims) {
  long position = 0, stride = 1;
  for (long d = 0; d < dims; d++) {
    position += index[d] * stride;
    stride *= ubounds[d] + 1;
  }
  return position;
}

bool IndexInBounds(int32_t const* index, int32_t const* ubounds, long dims) {
  for (long d = 0; d < dims; d++)
    if (index[d] > ubounds[d]) return false;
  return true;
}

// Moves the odometer one place on, first dimension fastest.
void Advance(int32_t* index, int32_t const* ubounds, long dims) {
  for (long d = 0; d < dims; d++) {
    if (++index[d] <= ubounds[d]) return;
    index[d] = 0;
  }
}

// Each old element goes to its own indexes in the new buffer, or is
// released when they lie outside the new bounds.
void CarryOver(ArrayBody body, unsigned char* fresh,
               int32_t const* newUbounds) {
  long dims = body.shape->dimensions, size = body.elementSize;
  int32_t const* oldUbounds = body.shape->Ubounds();
  long count = ElementCount(body.shape);
  SimpleVector<int32_t> index(dims);
  for (long k = 0; k < count; k++, Advance(&index[0], oldUbounds, dims)) {
    unsigned char* element = *body.data + k * size;
    if (IndexInBounds(&index[0], newUbounds, dims))
      memcpy(fresh + LinearIndex(&index[0], newUbounds, dims) * size, element,
             size);
    else if (body.unlock)
      body.unlock(*reinterpret_cast<void**>(element));
  }
}

}  // namespace

// Shrinking releases the dropped tail before the buffer is copied.
void RedimOneDimension(ArrayBody body, long newUbound) {
  QASSERT_TEXT(1 == body.shape->dimensions, "1 == array->dimensions");
  long oldUbound = body.shape->Ubounds()[0];
  if (newUbound == oldUbound) return;
  if (newUbound < -1) {
    RaiseOutOfBoundsException();
    return;
  }
  // Widened before the + 1: the largest bound has a count past 32 bits,
  // which the allocation refuses.
  long long length = (static_cast<long long>(newUbound) + 1) * body.elementSize;
  long oldLength = body.shape->bufferLength;
  unsigned char* fresh = AllocateBuffer(length);
  if (AllocationFailed(length, fresh)) return;
  if (!fresh) newUbound = -1;
  if (newUbound < oldUbound) ReleaseRange(body, newUbound + 1, oldUbound);
  long keep = oldLength < length ? oldLength : static_cast<long>(length);
  if (fresh && *body.data && keep > 0) memcpy(fresh, *body.data, keep);
  FreeBuffer(*body.data);
  *body.data = fresh;
  body.shape->bufferLength = fresh ? static_cast<int32_t>(length) : 0;
  body.shape->growth = 16;
  body.shape->Ubounds()[0] = newUbound;
}

// A bound below -1 in any dimension raises before anything changes: the
// element count would otherwise come out of a product of negative factors.
void RedimDimensions(ArrayBody body, int32_t const* newUbounds) {
  long dims = body.shape->dimensions;
  for (long d = 0; d < dims; d++) {
    if (newUbounds[d] < -1) {
      RaiseOutOfBoundsException();
      return;
    }
  }
  long long length =
      RequestedElementCount(newUbounds, dims) * body.elementSize;
  unsigned char* fresh = AllocateBuffer(length);
  if (AllocationFailed(length, fresh)) return;
  if (*body.data) CarryOver(body, fresh, newUbounds);
  FreeBuffer(*body.data);
  *body.data = fresh;
  body.shape->bufferLength = fresh ? static_cast<int32_t>(length) : 0;
  body.shape->growth = 16;
  for (long d = 0; d < dims; d++) body.shape->Ubounds()[d] = newUbounds[d];
}

void RedimFromArguments(ArrayBody body, va_list ubounds) {
  long dims = body.shape->dimensions;
  if (dims == 1) {
    RedimOneDimension(body, va_arg(ubounds, long));
    return;
  }
  SimpleVector<int32_t> bounds(dims);
  for (long d = 0; d < dims; d++) bounds[d] = va_arg(ubounds, long);
  RedimDimensions(body, &bounds[0]);
}

}  // namespace arrays

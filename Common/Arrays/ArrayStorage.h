// The layer under every element family: element buffers handled as bytes.
// Resizing, inserting, removing, shuffling and releasing do not depend on
// what an element is, only on its size and on whether it holds a reference,
// so they are written once for all families and both array layouts.
#ifndef COMMON_ARRAYS_ARRAYSTORAGE_H
#define COMMON_ARRAYS_ARRAYSTORAGE_H

#include <stdarg.h>

#include "Common/Arrays/RuntimeArrays.h"
#include "Universal/SimpleVector.h"

// Releases the reference that one element word holds.
typedef void (*ArrayElementHook)(void* word);

namespace arrays {

// A method-table word for an entry whose own parameters differ from the
// table's generic ones: generated code calls it with the right arguments.
template <class F>
void* TableEntry(F function) {
  return reinterpret_cast<void*>(function);
}

// The buffer and bookkeeping of one array, of either layout.
struct ArrayBody {
  unsigned char** data;
  ArrayShape* shape;
  long elementSize;
  ArrayElementHook unlock;  // null for elements that hold no reference
};

ArrayBody BodyOf(RuntimeArrayObject* array, long elementSize,
                 ArrayElementHook unlock);
ArrayBody BodyOf(RuntimeStructureArray* array);

// ---- counting and addressing

// Elements in all dimensions: the product of (ubound + 1), 0 when any
// dimension is empty.
long ElementCount(ArrayShape const* shape);
long long RequestedElementCount(int32_t const* ubounds, long dimensions);
// A zeroed buffer, or null for a length below 1; failure to allocate is a
// failed assertion.
unsigned char* AllocateBuffer(long long bytes);
// Whether a request of `bytes` came back without its buffer (and raised).
bool AllocationFailed(long long bytes, unsigned char const* buffer);
void FreeBuffer(unsigned char* buffer);
// Sizes and allocates the buffer of a new array from its bounds.
void CreateArrayBuffer(ArrayBody body);
// The linear position of the indexes that follow in `indexes`, one for each
// dimension, first dimension fastest; -1 if any lies out of its range.
long CheckedPosition(ArrayShape const* shape, va_list indexes);
long UncheckedPosition(ArrayShape const* shape, va_list indexes);
inline bool IndexInRange(long index, long ubound) {
  return index >= 0 && index <= ubound;
}
// The Ubound entry's rule: -1 asks for the dimension count; dimensions
// count from 1; anything else raises and gives -1.
long ShapeUbound(ArrayShape const* shape, long dimension);

// ---- changing the shape

// One-dimensional Redim; a bound below -1 raises.
void RedimOneDimension(ArrayBody body, long newUbound);
// Redim of any dimension count: elements keep their indexes, not their
// linear positions; those that fall outside are released.
void RedimDimensions(ArrayBody body, int32_t const* newUbounds);
// Reads the new bounds of a variable-argument Redim and applies them.
void RedimFromArguments(ArrayBody body, va_list ubounds);
// Makes room at `index` (0 to ubound + 1) of a one-dimensional array and
// raises its bound; the slot keeps whatever bytes it had, for the caller to
// overwrite without releasing.
bool OpenGap(ArrayBody body, long index);
// Takes element `index` out, shrinking the buffer to fit, then releases it.
void CloseGap(ArrayBody body, long index);

// ---- whole-buffer operations

// Random order over all elements as one run; needs a buffer and a first
// bound above 0, so that one element never consumes a random number.
void ShuffleElements(ArrayBody body);
// Frees the buffer; with counted elements all bounds become -1 and every
// element is released, first to last.
void ReleaseElements(ArrayBody body);
// Permutes elements in place so that new[k] = old[index[k]]; sizes 1, 2, 4
// and 8 only.
void RemapElements(void* data, long const* index, long count, long size);

// ---- SortWith's partners

// The arrays that follow in a SortWith call, up to the terminating null.
void CollectPartners(va_list others, SimpleVector<RuntimeArrayObject*>* out);
// Whether every partner is a one-dimensional array of `ubound`; raises the
// exception for the first that is not.
bool PartnersMatch(SimpleVector<RuntimeArrayObject*> const& others,
                   long ubound);
// Applies a sort's permutation to every partner's buffer.
void RemapPartners(SimpleVector<RuntimeArrayObject*> const& others,
                   long const* index, long count);

}  // namespace arrays

#endif

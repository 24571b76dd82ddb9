// The entries of each family besides Get and Set: the shape changes, the
// search, the sorts and the bookkeeping. The byte work happens in the
// storage layer; what is here knows the element type.
#ifndef COMMON_ARRAYS_ARRAYELEMENTMETHODS_H
#define COMMON_ARRAYS_ARRAYELEMENTMETHODS_H

#include <stdarg.h>

#include "Common/Arrays/ArrayElementAccess.h"
#include "Common/Arrays/ArraySortAlgorithms.h"

namespace arrays {

// ---- shape

template <class E>
void RedimLinear(RuntimeArrayObject* array, long ubound) {
  RedimOneDimension(FamilyBody<E>(array), ubound);
}

template <class E>
void RedimPlanar(RuntimeArrayObject* array, long ubound0, long ubound1) {
  int32_t ubounds[2] = {static_cast<int32_t>(ubound0),
                        static_cast<int32_t>(ubound1)};
  RedimDimensions(FamilyBody<E>(array), ubounds);
}

template <class E>
void RedimVariable(RuntimeArrayObject* array, ...) {
  va_list ubounds;
  va_start(ubounds, array);
  RedimFromArguments(FamilyBody<E>(array), ubounds);
  va_end(ubounds);
}

// The inserted value takes a new reference; the slot's former bytes are a
// copy of a moved element and are overwritten without a release.
template <class E>
void Insert(RuntimeArrayObject* array, long index, typename E::Type value) {
  if (!array) {
    RaiseNilObjectException();
    return;
  }
  QASSERT_TEXT(1 == array->shape.dimensions, "1 == array->dimensions");
  if (!IndexInRange(index, array->Ubounds()[0] + 1)) {
    RaiseIndexOutOfBounds(index, array->Ubounds()[0] + 1);
    return;
  }
  if (!OpenGap(FamilyBody<E>(array), index)) return;
  Elements<E>(array)[index] = value;
  E::Lock(value);
}

template <class E>
void Remove(RuntimeArrayObject* array, long index) {
  QASSERT_TEXT(1 == array->shape.dimensions, "1 == array->dimensions");
  if (!IndexInRange(index, array->Ubounds()[0])) {
    RaiseIndexOutOfBounds(index, array->Ubounds()[0]);
    return;
  }
  CloseGap(FamilyBody<E>(array), index);
}

template <class E>
void Shuffle(RuntimeArrayObject* array) {
  ShuffleElements(FamilyBody<E>(array));
}

// ---- search

// A start of -1 is accepted, as it always has been, and searches from 0:
// a match there could only have answered -1, the answer for none.
template <class E>
long IndexOf(RuntimeArrayObject* array, typename E::Type value, long start) {
  if (!array || !array->data || array->Ubounds()[0] < 0) return -1;
  long ubound = array->Ubounds()[0];
  if (start < -1 || start > ubound) {
    RaiseOutOfBoundsException();
    return -1;
  }
  for (long k = start < 0 ? 0 : start; k <= ubound; k++)
    if (E::Equal(Elements<E>(array)[k], value)) return k;
  return -1;
}

// ---- sorting

template <class E>
void Sort(RuntimeArrayObject* array) {
  if (!array || !array->data || array->Ubounds()[0] < 0) return;
  QASSERT_TEXT(1 == array->shape.dimensions, "1 == array->dimensions");
  Quicksort(Elements<E>(array), 0, array->Ubounds()[0], DirectOrder<E>());
}

// Sorts positions rather than elements, then moves this array and every
// partner by the same permutation.
template <class E>
void SortWithPartners(RuntimeArrayObject* array,
                      SimpleVector<RuntimeArrayObject*> const& others) {
  long count = array->Ubounds()[0] + 1;
  if (!PartnersMatch(others, count - 1)) return;
  if (count < 1) return;
  SimpleVector<long> index(count);
  for (long k = 0; k < count; k++) index[k] = k;
  IndirectOrder<E> order = {Elements<E>(array)};
  Quicksort(&index[0], 0, count - 1, order);
  RemapElements(array->data, &index[0], count, sizeof(typename E::Type));
  RemapPartners(others, &index[0], count);
}

template <class E>
void SortWith(RuntimeArrayObject* array, ...) {
  SimpleVector<RuntimeArrayObject*> others;
  va_list list;
  va_start(list, array);
  CollectPartners(list, &others);
  va_end(list);
  SortWithPartners<E>(array, others);
}

// Strings are checked as Sort checks before any partner is looked at.
template <class E>
void StringSortWith(RuntimeArrayObject* array, ...) {
  if (!array || !array->data || array->Ubounds()[0] < 0) return;
  QASSERT_TEXT(1 == array->shape.dimensions, "1 == array->dimensions");
  SimpleVector<RuntimeArrayObject*> others;
  va_list list;
  va_start(list, array);
  CollectPartners(list, &others);
  va_end(list);
  SortWithPartners<E>(array, others);
}

// ---- bookkeeping

inline long ArrayUbound(RuntimeArrayObject* array, long dimension) {
  return ShapeUbound(&array->shape, dimension);
}

template <class E>
void ArrayDestructor(RuntimeArrayObject* array) {
  ReleaseElements(FamilyBody<E>(array));
}

template <class E>
long ArrayElementSize(RuntimeArrayObject* array) {
  return sizeof(typename E::Type);
}

}  // namespace arrays

#endif

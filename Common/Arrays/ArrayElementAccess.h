// Reading and writing elements: the Get and Set entries of each family, in
// the one-dimensional, two-dimensional and variable-argument forms. The
// checked forms raise the out-of-bounds exception and return zero; the Fast
// forms trust the generated code.
//
// A counted element leaves Get with a new reference, Fast or not: the
// caller's temporary owns what it receives either way.
#ifndef COMMON_ARRAYS_ARRAYELEMENTACCESS_H
#define COMMON_ARRAYS_ARRAYELEMENTACCESS_H

#include <stdarg.h>

#include "Common/Arrays/ArrayStorage.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Assertion.h"

namespace arrays {

template <class E>
typename E::Type* Elements(RuntimeArrayObject* array) {
  return reinterpret_cast<typename E::Type*>(array->data);
}

template <class E>
ArrayBody FamilyBody(RuntimeArrayObject* array) {
  return BodyOf(array, sizeof(typename E::Type), E::kUnlockWord);
}

template <class E>
typename E::Type Handed(RuntimeArrayObject* array, long position) {
  typename E::Type value = Elements<E>(array)[position];
  E::Lock(value);
  return value;
}

// The new value is locked before the old one is released, so that storing
// an element over itself keeps it alive.
template <class E>
void ArraySet(RuntimeArrayObject* array, long position,
              typename E::Type value) {
  QASSERT_TEXT(array, "array");
  E::Lock(value);
  typename E::Type old = Elements<E>(array)[position];
  Elements<E>(array)[position] = value;
  E::Unlock(old);
}

// ---- one dimension: the optimizing path does these in line and raises
// through RaiseIndexOutOfBounds as they do (both paths print the same)

template <class E>
typename E::Type GetLinear(RuntimeArrayObject* array, long i) {
  if (!IndexInRange(i, array->Ubounds()[0])) {
    RaiseIndexOutOfBounds(i, array->Ubounds()[0]);
    return typename E::Type();
  }
  return Handed<E>(array, i);
}

template <class E>
void SetLinear(RuntimeArrayObject* array, typename E::Type value, long i) {
  if (!IndexInRange(i, array->Ubounds()[0])) {
    RaiseIndexOutOfBounds(i, array->Ubounds()[0]);
    return;
  }
  ArraySet<E>(array, i, value);
}

template <class E>
typename E::Type GetFastLinear(RuntimeArrayObject* array, long i) {
  return Handed<E>(array, i);
}

template <class E>
void SetFastLinear(RuntimeArrayObject* array, typename E::Type value, long i) {
  ArraySet<E>(array, i, value);
}

// ---- two dimensions

inline bool InPlanarBounds(RuntimeArrayObject* array, long i, long j) {
  return IndexInRange(i, array->Ubounds()[0]) &&
         IndexInRange(j, array->Ubounds()[1]);
}

// The message names the index that is out of its dimension's bounds.
inline void RaisePlanarOutOfBounds(RuntimeArrayObject* array, long i, long j) {
  if (!IndexInRange(i, array->Ubounds()[0]))
    RaiseIndexOutOfBounds(i, array->Ubounds()[0]);
  else
    RaiseIndexOutOfBounds(j, array->Ubounds()[1]);
}

inline long PlanarPosition(RuntimeArrayObject* array, long i, long j) {
  return (array->Ubounds()[0] + 1) * j + i;
}

template <class E>
typename E::Type GetPlanar(RuntimeArrayObject* array, long i, long j) {
  if (!InPlanarBounds(array, i, j)) {
    RaisePlanarOutOfBounds(array, i, j);
    return typename E::Type();
  }
  return Handed<E>(array, PlanarPosition(array, i, j));
}

template <class E>
void SetPlanar(RuntimeArrayObject* array, typename E::Type value, long i,
               long j) {
  if (!InPlanarBounds(array, i, j)) {
    RaisePlanarOutOfBounds(array, i, j);
    return;
  }
  ArraySet<E>(array, PlanarPosition(array, i, j), value);
}

template <class E>
typename E::Type GetFastPlanar(RuntimeArrayObject* array, long i, long j) {
  return Handed<E>(array, PlanarPosition(array, i, j));
}

template <class E>
void SetFastPlanar(RuntimeArrayObject* array, typename E::Type value, long i,
                   long j) {
  ArraySet<E>(array, PlanarPosition(array, i, j), value);
}

// ---- any number of dimensions: the indexes follow as variable arguments

template <class E>
typename E::Type GetVariable(RuntimeArrayObject* array, ...) {
  va_list indexes;
  va_start(indexes, array);
  long position = CheckedPosition(&array->shape, indexes);
  va_end(indexes);
  if (position < 0) {
    RaiseOutOfBoundsException();
    return typename E::Type();
  }
  return Handed<E>(array, position);
}

template <class E>
void SetVariable(RuntimeArrayObject* array, typename E::Type value, ...) {
  va_list indexes;
  va_start(indexes, value);
  long position = CheckedPosition(&array->shape, indexes);
  va_end(indexes);
  if (position < 0) {
    RaiseOutOfBoundsException();
    return;
  }
  ArraySet<E>(array, position, value);
}

template <class E>
typename E::Type GetFastVariable(RuntimeArrayObject* array, ...) {
  va_list indexes;
  va_start(indexes, array);
  long position = UncheckedPosition(&array->shape, indexes);
  va_end(indexes);
  return Handed<E>(array, position);
}

template <class E>
void SetFastVariable(RuntimeArrayObject* array, typename E::Type value, ...) {
  va_list indexes;
  va_start(indexes, value);
  long position = UncheckedPosition(&array->shape, indexes);
  va_end(indexes);
  ArraySet<E>(array, position, value);
}

}  // namespace arrays

#endif

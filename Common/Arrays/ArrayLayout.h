// The offsets in an array that generated code reads directly: the method
// table behind the object header, and each entry of that table. The compiler
// writes them into the code as constants; the asserts tie each one to the
// runtime's structures, so that the two cannot disagree.
#ifndef COMMON_ARRAYS_ARRAYLAYOUT_H
#define COMMON_ARRAYS_ARRAYLAYOUT_H

#include <stddef.h>

#include "Common/Arrays/RuntimeArrays.h"

// Where every kind of array keeps its method table.
enum : long { kArrayMethodsOffset = 24 };

// Where an array of one of the element codes keeps its element buffer and
// the upper bound of its first dimension: the optimizing back end reads
// one-dimensional arrays of plain values there without a call.
enum : long { kArrayDataOffset = 28, kArrayFirstUboundOffset = 44 };

// The entries of the method table that generated code calls.
enum ArrayTableEntry {
  kArrayGet = 0,
  kArraySet = 4,
  kArrayGetFast = 8,
  kArraySetFast = 12,
  kArrayRedim = 16,
  kArrayInsert = 20,
  kArrayRemove = 24,
  kArraySort = 28,
  kArraySortWith = 32,
  kArrayIndexOf = 36,
  kArrayShuffle = 40,
  kArrayUbound = 44,
};

#if defined(__i386__)
static_assert(offsetof(RuntimeArrayObject, methods) == kArrayMethodsOffset,
              "an array's method table");
static_assert(offsetof(RuntimeStructureArray, methods) == kArrayMethodsOffset,
              "a structure array's method table");
static_assert(offsetof(RuntimeArrayCastWrapper, methods) == kArrayMethodsOffset,
              "a cast wrapper's method table");
static_assert(offsetof(RuntimeArrayObject, data) == kArrayDataOffset,
              "an array's element buffer");
static_assert(offsetof(RuntimeArrayObject, shape) + sizeof(ArrayShape) ==
                  kArrayFirstUboundOffset,
              "an array's first upper bound");
static_assert(offsetof(RuntimeArrayMethods, get) == kArrayGet, "get");
static_assert(offsetof(RuntimeArrayMethods, set) == kArraySet, "set");
static_assert(offsetof(RuntimeArrayMethods, getFast) == kArrayGetFast, "getFast");
static_assert(offsetof(RuntimeArrayMethods, setFast) == kArraySetFast, "setFast");
static_assert(offsetof(RuntimeArrayMethods, redim) == kArrayRedim, "redim");
static_assert(offsetof(RuntimeArrayMethods, insert) == kArrayInsert, "insert");
static_assert(offsetof(RuntimeArrayMethods, remove) == kArrayRemove, "remove");
static_assert(offsetof(RuntimeArrayMethods, sort) == kArraySort, "sort");
static_assert(offsetof(RuntimeArrayMethods, sortWith) == kArraySortWith,
              "sortWith");
static_assert(offsetof(RuntimeArrayMethods, indexOf) == kArrayIndexOf, "indexOf");
static_assert(offsetof(RuntimeArrayMethods, shuffle) == kArrayShuffle, "shuffle");
static_assert(offsetof(RuntimeArrayMethods, ubound) == kArrayUbound, "ubound");
#endif

#endif

// Arrays as generated code sees them: reference-counted objects that carry
// a table of 16 functions at offset 24. Generated code reads an entry from
// that table and calls it with the C calling convention, so one sequence of
// code serves every element type and dimension count; the layouts below are
// a binary format shared with that code and must not change.
//
// Entry conventions (cdecl, indexes are 32-bit integers):
//   Get(array, i...) -> element      Set(array, value, i...)
//   GetFast / SetFast: the same without bounds checks
//   Redim(array, ubound...)          Insert(array, index, value)
//   Remove(array, index)             Sort(array)
//   SortWith(array, other..., null)  IndexOf(array, value, start) -> index
//   Shuffle(array)                   Ubound(array, dimension) -> bound
// One-dimensional tables take one index, two-dimensional tables two; the
// tables of other shapes (and of structure arrays) take them as variable
// arguments. Get of a String or Object element returns a reference that the
// caller owns; a structure element is returned as a pointer into the buffer
// and passed to Set and Insert as a pointer to the value.
#ifndef COMMON_ARRAYS_RUNTIMEARRAYS_H
#define COMMON_ARRAYS_RUNTIMEARRAYS_H

#include <stdint.h>

#include "Common/ObjectModel/RuntimeObjectFoundation.h"

struct RuntimeArrayObject;

// The bookkeeping both array layouts share; the upper bounds follow it, one
// word a dimension, -1 for an empty dimension.
struct ArrayShape {
  int32_t dimensions;
  int32_t bufferLength;  // bytes in the element buffer
  int32_t growth;        // elements by which Insert grows the buffer
  int32_t* Ubounds() { return reinterpret_cast<int32_t*>(this + 1); }
  int32_t const* Ubounds() const {
    return reinterpret_cast<int32_t const*>(this + 1);
  }
};
static_assert(sizeof(ArrayShape) == 12, "three words before the bounds");

typedef long (*ArrayUboundEntry)(RuntimeArrayObject* array, long dimension);
typedef void (*ArrayEntry)(RuntimeArrayObject* array);
typedef void (*ArrayIndexEntry)(RuntimeArrayObject* array, long index);
typedef void (*ArraySortWithEntry)(RuntimeArrayObject* array, ...);
typedef long (*ArrayElementSizeEntry)(RuntimeArrayObject* array);

// The method table. Entries whose signature depends on the element type or
// the dimension count are plain words; the rest are typed. Unused entries
// are null.
struct RuntimeArrayMethods {
  void* get;                  // 0
  void* set;                  // 4
  void* getFast;              // 8
  void* setFast;              // 12
  void* redim;                // 16
  void* insert;               // 20, one dimension only
  ArrayIndexEntry remove;     // 24, one dimension only
  ArrayEntry sort;            // 28, one dimension only
  ArraySortWithEntry sortWith;  // 32, one dimension only
  void* indexOf;              // 36, one dimension only
  ArrayEntry shuffle;         // 40
  ArrayUboundEntry ubound;    // 44; dimension -1 asks for the count
  void* lockElement;          // 48: RuntimeLockString, RuntimeLockObject
  void* unlockElement;        // 52: RuntimeUnlockString, RuntimeUnlockObject
  ArrayEntry destructor;      // 56: releases elements and buffer
  ArrayElementSizeEntry elementSize;  // 60: bytes an element
};
static_assert(sizeof(RuntimeArrayMethods) == 64 || sizeof(void*) != 4,
              "16 entries of one word");

// An array of one of the twelve element codes; dimensions * 4 + 44 bytes.
struct RuntimeArrayObject {
  RuntimeObject header;               // class is the array class
  RuntimeArrayMethods const* methods;  // 24
  unsigned char* data;                // 28, null when empty
  ArrayShape shape;                   // 32: dimensions, length, growth
  int32_t* Ubounds() { return shape.Ubounds(); }  // 44
};

// An array of structures of any size; dimensions * 4 + 48 bytes.
struct RuntimeStructureArray {
  RuntimeObject header;
  RuntimeArrayMethods const* methods;  // 24
  unsigned char* data;                // 28
  int32_t elementSize;                // 32
  ArrayShape shape;                   // 36
  int32_t* Ubounds() { return shape.Ubounds(); }  // 48
};

// An object array seen as an array of a parent class: stores through it
// are checked against `elementClass`; 40 bytes.
struct RuntimeArrayCastWrapper {
  RuntimeObject header;
  RuntimeArrayMethods const* methods;  // 24
  unsigned char* data;     // 28: the wrapped array's at creation, not kept up
  RuntimeArrayObject* array;  // 32: the wrapped array, locked
  RuntimeClass* elementClass;  // 36
};

#if defined(__i386__)
static_assert(sizeof(RuntimeArrayObject) == 44, "bounds at offset 44");
static_assert(sizeof(RuntimeStructureArray) == 48, "bounds at offset 48");
static_assert(sizeof(RuntimeArrayCastWrapper) == 40, "a wrapper is 40 bytes");
#endif

// Bytes an element of the code takes (Int32 0 ... Int64 11); any other code
// is a failed assertion.
long ElementSize(long elementCode);
// The table for arrays of the code and dimension count.
RuntimeArrayMethods const* ChooseAccessorTable(long dimensions,
                                               long elementCode);

extern "C" {

// A new array with one reference, for the caller; `dimensions` upper bounds
// follow as 32-bit arguments. Elements start zeroed (nil for references).
RuntimeArrayObject* CreateArray(long dimensions, long elementCode, ...);
RuntimeStructureArray* RuntimeCreateStructureArray(long dimensions,
                                                   long elementSize, ...);
// The array as an array whose elements must be of `elementClass`: a new
// reference either to the array itself (nil class, or already wrapped) or
// to a wrapper; nil for nil.
RuntimeObject* RuntimeCreateArrayCastWrapper(RuntimeObject* array,
                                             RuntimeClass* elementClass);

// The first dimension's bound; a nil array raises the nil-object exception
// and gives 0.
long RuntimeUBound(RuntimeObject* array);
// A dimension's bound (-1: the dimension count); nil raises and gives -1.
long RuntimeUBound2Param(RuntimeObject* array, long dimension);

// Arrays count references as objects do.
void RuntimeLockArray(RuntimeObject* array);
void RuntimeUnlockArray(RuntimeObject* array);
void RuntimeLockUnlockArrays(RuntimeObject* newArray, RuntimeObject* oldArray);

// The finaliser of the array class: runs the table's destructor entry.
void DisposeArray(RuntimeObject* array);
// Called with each array as it is disposed, before its elements go; null
// for none.
void SetArrayDestructionMonitor(RuntimeObjectHook monitor);

}  // extern "C"

#endif

// The array class, the creation of arrays, and the entry points that treat
// any array alike: bounds and reference counts.
#include <new>

#include "Common/Arrays/ArrayObjects.h"
#include "Common/Arrays/ArrayStorage.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Assertion.h"
#include "Universal/ustring.h"

namespace {

// Arrays have no instance size of their own: each is allocated to its
// dimension count. DisposeArray, run as the finaliser, releases the
// elements. The name is made once and lives as long as the record.
RuntimeClass MakeArrayClass() {
  RuntimeClass record = {};
  record.name = string("Array").ExtractStringStorage();
  record.finalizer = &DisposeArray;
  return record;
}

// The class record of every array object; made before any script runs and
// unchanged until the process ends.
RuntimeClass sArrayClass = MakeArrayClass();

// The object model frees objects with delete[] of the whole block.
unsigned char* NewObjectBlock(long bytes) {
  unsigned char* block = new (std::nothrow) unsigned char[bytes]();
  QASSERT_TEXT(block, "out");
  return block;
}

}  // namespace

namespace arrays {

void* NewArrayObject(long bytes, RuntimeArrayMethods const* methods) {
  unsigned char* block = NewObjectBlock(bytes);
  RuntimeArrayObject* array = reinterpret_cast<RuntimeArrayObject*>(block);
  array->header.mClass = &sArrayClass;
  array->header.refCount = 1;
  array->methods = methods;
  return block;
}

}  // namespace arrays

RuntimeArrayObject* CreateArray(long dimensions, long elementCode, ...) {
  RuntimeArrayObject* array = static_cast<RuntimeArrayObject*>(
      arrays::NewArrayObject(dimensions * 4 + 44,
                             ChooseAccessorTable(dimensions, elementCode)));
  array->shape.dimensions = dimensions;
  array->shape.growth = 16;
  va_list ubounds;
  va_start(ubounds, elementCode);
  for (long d = 0; d < dimensions; d++)
    array->Ubounds()[d] = va_arg(ubounds, long);
  va_end(ubounds);
  arrays::CreateArrayBuffer(
      arrays::BodyOf(array, ElementSize(elementCode), nullptr));
  RegisterNewArrayInstance(&array->header);
  return array;
}

long RuntimeUBound(RuntimeObject* array) {
  if (!array) {
    RaiseNilObjectException();
    return 0;
  }
  RuntimeArrayObject* a = reinterpret_cast<RuntimeArrayObject*>(array);
  return a->methods->ubound(a, 1);
}

long RuntimeUBound2Param(RuntimeObject* array, long dimension) {
  if (!array) {
    RaiseNilObjectException();
    return -1;
  }
  RuntimeArrayObject* a = reinterpret_cast<RuntimeArrayObject*>(array);
  return a->methods->ubound(a, dimension);
}

void RuntimeLockArray(RuntimeObject* array) { RuntimeLockObject(array); }

void RuntimeUnlockArray(RuntimeObject* array) { RuntimeUnlockObject(array); }

void RuntimeLockUnlockArrays(RuntimeObject* newArray,
                             RuntimeObject* oldArray) {
  RuntimeLockUnlockObjects(newArray, oldArray);
}

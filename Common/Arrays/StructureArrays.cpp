// Arrays of structures: elements of any size, copied as bytes. One table
// serves every dimension count, so all indexes come as variable arguments.
// Get hands out a pointer into the buffer, valid until the array's shape
// changes; Set and Insert take a pointer to the value. Structures hold no
// references, so nothing is locked or released, and they have no order.
#include <string.h>

#include "Common/Arrays/ArrayObjects.h"
#include "Common/Arrays/ArrayStorage.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Assertion.h"

namespace {

using arrays::BodyOf;

RuntimeStructureArray* AsStructures(RuntimeArrayObject* array) {
  return reinterpret_cast<RuntimeStructureArray*>(array);
}

unsigned char* ElementAt(RuntimeStructureArray* array, long position) {
  return array->data + position * array->elementSize;
}

void* Get(RuntimeStructureArray* array, ...) {
  va_list indexes;
  va_start(indexes, array);
  long position = arrays::CheckedPosition(&array->shape, indexes);
  va_end(indexes);
  if (position < 0) {
    RaiseOutOfBoundsException();
    return nullptr;
  }
  return ElementAt(array, position);
}

void* GetFast(RuntimeStructureArray* array, ...) {
  va_list indexes;
  va_start(indexes, array);
  long position = arrays::UncheckedPosition(&array->shape, indexes);
  va_end(indexes);
  return ElementAt(array, position);
}

// The value may be an element of this very array.
void Set(RuntimeStructureArray* array, void* value, ...) {
  va_list indexes;
  va_start(indexes, value);
  long position = arrays::CheckedPosition(&array->shape, indexes);
  va_end(indexes);
  if (position < 0) {
    RaiseOutOfBoundsException();
    return;
  }
  memmove(ElementAt(array, position), value, array->elementSize);
}

void SetFast(RuntimeStructureArray* array, void* value, ...) {
  va_list indexes;
  va_start(indexes, value);
  long position = arrays::UncheckedPosition(&array->shape, indexes);
  va_end(indexes);
  memmove(ElementAt(array, position), value, array->elementSize);
}

void Redim(RuntimeStructureArray* array, ...) {
  va_list ubounds;
  va_start(ubounds, array);
  arrays::RedimFromArguments(BodyOf(array), ubounds);
  va_end(ubounds);
}

// The value is copied aside first: it may point into the buffer that
// making room replaces.
void Insert(RuntimeStructureArray* array, long index, void* value) {
  if (!array) {
    RaiseNilObjectException();
    return;
  }
  QASSERT_TEXT(1 == array->shape.dimensions, "1 == array->dimensions");
  if (!arrays::IndexInRange(index, array->Ubounds()[0] + 1)) {
    RaiseOutOfBoundsException();
    return;
  }
  SimpleVector<unsigned char> copy(array->elementSize);
  if (array->elementSize) memcpy(&copy[0], value, array->elementSize);
  if (!arrays::OpenGap(BodyOf(array), index)) return;
  if (array->elementSize)
    memcpy(ElementAt(array, index), &copy[0], array->elementSize);
}

void Remove(RuntimeArrayObject* a, long index) {
  RuntimeStructureArray* array = AsStructures(a);
  QASSERT_TEXT(1 == array->shape.dimensions, "1 == array->dimensions");
  if (!arrays::IndexInRange(index, array->Ubounds()[0])) {
    RaiseOutOfBoundsException();
    return;
  }
  arrays::CloseGap(BodyOf(array), index);
}

void Shuffle(RuntimeArrayObject* array) {
  arrays::ShuffleElements(BodyOf(AsStructures(array)));
}

long Ubound(RuntimeArrayObject* array, long dimension) {
  return arrays::ShapeUbound(&AsStructures(array)->shape, dimension);
}

void Destructor(RuntimeArrayObject* array) {
  arrays::ReleaseElements(BodyOf(AsStructures(array)));
}

long ElementSizeOf(RuntimeArrayObject* array) {
  return AsStructures(array)->elementSize;
}

RuntimeArrayMethods StructureTable() {
  RuntimeArrayMethods table = {};
  table.get = arrays::TableEntry(&Get);
  table.set = arrays::TableEntry(&Set);
  table.getFast = arrays::TableEntry(&GetFast);
  table.setFast = arrays::TableEntry(&SetFast);
  table.redim = arrays::TableEntry(&Redim);
  table.insert = arrays::TableEntry(&Insert);
  table.remove = &Remove;
  table.shuffle = &Shuffle;
  table.ubound = &Ubound;
  table.destructor = &Destructor;
  table.elementSize = &ElementSizeOf;
  return table;
}

}  // namespace

namespace ArrayOfStructure {
// Made by static initialisation, before any script runs; constant until
// the process ends.
RuntimeArrayMethods const Methods = StructureTable();
}  // namespace ArrayOfStructure

RuntimeStructureArray* RuntimeCreateStructureArray(long dimensions,
                                                   long elementSize, ...) {
  RuntimeStructureArray* array = static_cast<RuntimeStructureArray*>(
      arrays::NewArrayObject(dimensions * 4 + 48, &ArrayOfStructure::Methods));
  array->elementSize = elementSize;
  array->shape.dimensions = dimensions;
  array->shape.growth = 16;
  va_list ubounds;
  va_start(ubounds, elementSize);
  for (long d = 0; d < dimensions; d++)
    array->Ubounds()[d] = va_arg(ubounds, long);
  va_end(ubounds);
  arrays::CreateArrayBuffer(BodyOf(array));
  RegisterNewArrayInstance(&array->header);
  return array;
}

// The cast wrapper: an object array seen as an array of a parent class.
// Reads and shape changes go straight to the wrapped array; stores are
// checked first, so that an array of Dogs passed as an array of Animals
// still cannot receive a Cat. Wrappers are made for one-dimensional object
// arrays only (the compiler refuses other casts), so the forwarding uses
// the one-index forms.
#include "Common/Arrays/ArrayCastWrapper.h"
#include "Common/Arrays/ArrayObjects.h"
#include "Common/Arrays/ArrayStorage.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Assertion.h"

namespace {

typedef RuntimeObject* (*GetEntry)(RuntimeArrayObject*, long);
typedef void (*SetEntry)(RuntimeArrayObject*, RuntimeObject*, long);
typedef void (*RedimEntry)(RuntimeArrayObject*, long);
typedef void (*InsertEntry)(RuntimeArrayObject*, long, RuntimeObject*);
typedef long (*IndexOfEntry)(RuntimeArrayObject*, RuntimeObject*, long);

RuntimeArrayCastWrapper* AsWrapper(RuntimeArrayObject* array) {
  return reinterpret_cast<RuntimeArrayCastWrapper*>(array);
}

RuntimeArrayObject* Wrapped(RuntimeArrayObject* wrapper) {
  return AsWrapper(wrapper)->array;
}

RuntimeArrayMethods const& WrappedMethods(RuntimeArrayObject* wrapper) {
  return *Wrapped(wrapper)->methods;
}

// Nil fits every class; anything else must be of the element class.
bool Admits(RuntimeArrayObject* wrapper, RuntimeObject* value) {
  if (!value || RuntimeObjectIsa(value, AsWrapper(wrapper)->elementClass))
    return true;
  RaiseIllegalCastException();
  return false;
}

RuntimeObject* Get(RuntimeArrayObject* wrapper, long i) {
  return reinterpret_cast<GetEntry>(WrappedMethods(wrapper).get)(
      Wrapped(wrapper), i);
}

RuntimeObject* GetFast(RuntimeArrayObject* wrapper, long i) {
  return reinterpret_cast<GetEntry>(WrappedMethods(wrapper).getFast)(
      Wrapped(wrapper), i);
}

void Set(RuntimeArrayObject* wrapper, RuntimeObject* value, long i) {
  if (!Admits(wrapper, value)) return;
  reinterpret_cast<SetEntry>(WrappedMethods(wrapper).set)(Wrapped(wrapper),
                                                          value, i);
}

void SetFast(RuntimeArrayObject* wrapper, RuntimeObject* value, long i) {
  if (!Admits(wrapper, value)) return;
  reinterpret_cast<SetEntry>(WrappedMethods(wrapper).setFast)(
      Wrapped(wrapper), value, i);
}

void Redim(RuntimeArrayObject* wrapper, long ubound) {
  reinterpret_cast<RedimEntry>(WrappedMethods(wrapper).redim)(
      Wrapped(wrapper), ubound);
}

void Insert(RuntimeArrayObject* wrapper, long index, RuntimeObject* value) {
  if (!Admits(wrapper, value)) return;
  reinterpret_cast<InsertEntry>(WrappedMethods(wrapper).insert)(
      Wrapped(wrapper), index, value);
}

void Remove(RuntimeArrayObject* wrapper, long index) {
  WrappedMethods(wrapper).remove(Wrapped(wrapper), index);
}

// Object arrays have no order: their tables hold no sort entries, and
// neither does a wrapper around one.
void Sort(RuntimeArrayObject* wrapper) {
  if (WrappedMethods(wrapper).sort) WrappedMethods(wrapper).sort(Wrapped(wrapper));
}

void SortWith(RuntimeArrayObject* wrapper, ...) {
  QASSERT_TEXT(!WrappedMethods(wrapper).sortWith, "object arrays do not sort");
}

// The search runs over the wrapped array itself: the wrapper's own words
// past offset 28 are not an array's bookkeeping.
long IndexOf(RuntimeArrayObject* wrapper, RuntimeObject* value, long start) {
  return reinterpret_cast<IndexOfEntry>(WrappedMethods(wrapper).indexOf)(
      Wrapped(wrapper), value, start);
}

void Shuffle(RuntimeArrayObject* wrapper) {
  WrappedMethods(wrapper).shuffle(Wrapped(wrapper));
}

long Ubound(RuntimeArrayObject* wrapper, long dimension) {
  return WrappedMethods(wrapper).ubound(Wrapped(wrapper), dimension);
}

void Destructor(RuntimeArrayObject* wrapper) {
  RuntimeUnlockArray(&Wrapped(wrapper)->header);
}

long ElementSizeOf(RuntimeArrayObject* wrapper) {
  return WrappedMethods(wrapper).elementSize(Wrapped(wrapper));
}

RuntimeArrayMethods WrapperTable() {
  RuntimeArrayMethods table = {};
  table.get = arrays::TableEntry(&Get);
  table.set = arrays::TableEntry(&Set);
  table.getFast = arrays::TableEntry(&GetFast);
  table.setFast = arrays::TableEntry(&SetFast);
  table.redim = arrays::TableEntry(&Redim);
  table.insert = arrays::TableEntry(&Insert);
  table.remove = &Remove;
  table.sort = &Sort;
  table.sortWith = &SortWith;
  table.indexOf = arrays::TableEntry(&IndexOf);
  table.shuffle = &Shuffle;
  table.ubound = &Ubound;
  table.destructor = &Destructor;
  table.elementSize = &ElementSizeOf;
  return table;
}

}  // namespace

namespace ObjectArrayCastWrapper {
// Made by static initialisation, before any script runs; constant until
// the process ends.
RuntimeArrayMethods const Methods = WrapperTable();
}  // namespace ObjectArrayCastWrapper

namespace arrays {

bool IsCastWrapper(RuntimeArrayObject* array) {
  return array->methods == &ObjectArrayCastWrapper::Methods;
}

RuntimeArrayObject* UnwrapArray(RuntimeArrayObject* array) {
  return IsCastWrapper(array) ? Wrapped(array) : array;
}

}  // namespace arrays

// The lock taken first is the one the result carries: the array's own when
// it is returned, the wrapper's hold on it otherwise.
RuntimeObject* RuntimeCreateArrayCastWrapper(RuntimeObject* array,
                                             RuntimeClass* elementClass) {
  if (!array) return nullptr;
  RuntimeLockArray(array);
  RuntimeArrayObject* wrapped = reinterpret_cast<RuntimeArrayObject*>(array);
  if (!elementClass || arrays::IsCastWrapper(wrapped)) return array;
  RuntimeArrayCastWrapper* wrapper = static_cast<RuntimeArrayCastWrapper*>(
      arrays::NewArrayObject(sizeof(RuntimeArrayCastWrapper),
                             &ObjectArrayCastWrapper::Methods));
  wrapper->data = wrapped->data;
  wrapper->array = wrapped;
  wrapper->elementClass = elementClass;
  RegisterNewArrayInstance(&wrapper->header);
  return &wrapper->header;
}

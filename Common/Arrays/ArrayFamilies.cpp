// The method tables of the twelve element families, three shapes each, and
// the choice among them by element code and dimension count.
#include "Common/Arrays/ArrayElementFamilies.h"
#include "Common/Arrays/ArrayElementMethods.h"
#include "Common/Arrays/ArrayElements.h"
#include "Universal/Assertion.h"

namespace arrays {
namespace {

template <class F>
void* Entry(F function) {
  return reinterpret_cast<void*>(function);
}

// What every shape of a family shares.
template <class E>
RuntimeArrayMethods CommonTable() {
  RuntimeArrayMethods table = {};
  table.shuffle = &Shuffle<E>;
  table.ubound = &ArrayUbound;
  table.lockElement = E::LockEntry();
  table.unlockElement = E::UnlockEntry();
  table.destructor = &ArrayDestructor<E>;
  table.elementSize = &ArrayElementSize<E>;
  return table;
}

// Strings, the one sortable family that holds references, check the array
// before its partners.
template <class E>
ArraySortWithEntry SortWithEntry() {
  if constexpr (E::kCounted) return &StringSortWith<E>;
  return &SortWith<E>;
}

// Only the one-dimensional table has Insert, Remove, the sorts and IndexOf.
template <class E>
RuntimeArrayMethods LinearTable() {
  RuntimeArrayMethods table = CommonTable<E>();
  table.get = Entry(&GetLinear<E>);
  table.set = Entry(&SetLinear<E>);
  table.getFast = Entry(&GetFastLinear<E>);
  table.setFast = Entry(&SetFastLinear<E>);
  table.redim = Entry(&RedimLinear<E>);
  table.insert = Entry(&Insert<E>);
  table.remove = &Remove<E>;
  table.indexOf = Entry(&IndexOf<E>);
  if constexpr (E::kSortable) {
    table.sort = &Sort<E>;
    table.sortWith = SortWithEntry<E>();
  }
  return table;
}

template <class E>
RuntimeArrayMethods PlanarTable() {
  RuntimeArrayMethods table = CommonTable<E>();
  table.get = Entry(&GetPlanar<E>);
  table.set = Entry(&SetPlanar<E>);
  table.getFast = Entry(&GetFastPlanar<E>);
  table.setFast = Entry(&SetFastPlanar<E>);
  table.redim = Entry(&RedimPlanar<E>);
  return table;
}

template <class E>
RuntimeArrayMethods VariableTable() {
  RuntimeArrayMethods table = CommonTable<E>();
  table.get = Entry(&GetVariable<E>);
  table.set = Entry(&SetVariable<E>);
  table.getFast = Entry(&GetFastVariable<E>);
  table.setFast = Entry(&SetFastVariable<E>);
  table.redim = Entry(&RedimVariable<E>);
  return table;
}

}  // namespace
}  // namespace arrays

// Made by static initialisation, before any script runs; constant until
// the process ends.
#define QUORL_DEFINE_FAMILY_TABLES(code, Family, Traits)                 \
  namespace Family {                                                     \
  RuntimeArrayMethods const LinearMethods = arrays::LinearTable<Traits>(); \
  RuntimeArrayMethods const PlanarMethods = arrays::PlanarTable<Traits>(); \
  RuntimeArrayMethods const Methods = arrays::VariableTable<Traits>();   \
  }
QUORL_ARRAY_ELEMENT_FAMILIES(QUORL_DEFINE_FAMILY_TABLES)
#undef QUORL_DEFINE_FAMILY_TABLES

long ElementSize(long elementCode) {
  switch (elementCode) {
#define QUORL_ELEMENT_SIZE(code, Family, Traits) \
  case code:                                     \
    return sizeof(Traits::Type);
    QUORL_ARRAY_ELEMENT_FAMILIES(QUORL_ELEMENT_SIZE)
#undef QUORL_ELEMENT_SIZE
  }
  QFAIL("a known element code");
}

RuntimeArrayMethods const* ChooseAccessorTable(long dimensions,
                                               long elementCode) {
  switch (elementCode) {
#define QUORL_CHOOSE_TABLE(code, Family, Traits)                  \
  case code:                                                      \
    if (dimensions == 1) return &Family::LinearMethods;           \
    return dimensions == 2 ? &Family::PlanarMethods : &Family::Methods;
    QUORL_ARRAY_ELEMENT_FAMILIES(QUORL_CHOOSE_TABLE)
#undef QUORL_CHOOSE_TABLE
  }
  QFAIL("a known element code");
}

// The method tables of the twelve element families, three shapes each, and
// the choice among them by element code and dimension count.
#include "Common/Arrays/ArrayElementFamilies.h"
#include "Common/Arrays/ArrayElementMethods.h"
#include "Common/Arrays/ArrayElements.h"
#include "Common/Arrays/ArrayStorage.h"
#include "Universal/Assertion.h"

namespace arrays {
namespace {

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
  table.get = arrays::TableEntry(&GetLinear<E>);
  table.set = arrays::TableEntry(&SetLinear<E>);
  table.getFast = arrays::TableEntry(&GetFastLinear<E>);
  table.setFast = arrays::TableEntry(&SetFastLinear<E>);
  table.redim = arrays::TableEntry(&RedimLinear<E>);
  table.insert = arrays::TableEntry(&Insert<E>);
  table.remove = &Remove<E>;
  table.indexOf = arrays::TableEntry(&IndexOf<E>);
  if constexpr (E::kSortable) {
    table.sort = &Sort<E>;
    table.sortWith = SortWithEntry<E>();
  }
  return table;
}

template <class E>
RuntimeArrayMethods PlanarTable() {
  RuntimeArrayMethods table = CommonTable<E>();
  table.get = arrays::TableEntry(&GetPlanar<E>);
  table.set = arrays::TableEntry(&SetPlanar<E>);
  table.getFast = arrays::TableEntry(&GetFastPlanar<E>);
  table.setFast = arrays::TableEntry(&SetFastPlanar<E>);
  table.redim = arrays::TableEntry(&RedimPlanar<E>);
  return table;
}

template <class E>
RuntimeArrayMethods VariableTable() {
  RuntimeArrayMethods table = CommonTable<E>();
  table.get = arrays::TableEntry(&GetVariable<E>);
  table.set = arrays::TableEntry(&SetVariable<E>);
  table.getFast = arrays::TableEntry(&GetFastVariable<E>);
  table.setFast = arrays::TableEntry(&SetFastVariable<E>);
  table.redim = arrays::TableEntry(&RedimVariable<E>);
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

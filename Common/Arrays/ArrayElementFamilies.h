// The twelve element families, by the element code that CreateArray takes.
// Everything that maps a code to a size, a table or a family reads this one
// list, so that they cannot disagree.
//
// X(code, Family, ElementTraits)
#ifndef COMMON_ARRAYS_ARRAYELEMENTFAMILIES_H
#define COMMON_ARRAYS_ARRAYELEMENTFAMILIES_H

#define QUORL_ARRAY_ELEMENT_FAMILIES(X)                   \
  X(0, ArrayOfSInt32, arrays::PlainElement<int>)          \
  X(1, ArrayOfSingle, arrays::PlainElement<float>)        \
  X(2, ArrayOfDouble, arrays::PlainElement<double>)       \
  X(3, ArrayOfString, arrays::StringElement)              \
  X(4, ArrayOfObject, arrays::ObjectElement)              \
  X(5, ArrayOfUInt8, arrays::PlainElement<unsigned char>) \
  X(6, ArrayOfSInt8, arrays::PlainElement<signed char>)   \
  X(7, ArrayOfUInt16, arrays::PlainElement<unsigned short>) \
  X(8, ArrayOfSInt16, arrays::PlainElement<short>)        \
  X(9, ArrayOfUInt32, arrays::PlainElement<unsigned int>) \
  X(10, ArrayOfUInt64, arrays::PlainElement<unsigned long long>) \
  X(11, ArrayOfSInt64, arrays::PlainElement<long long>)

#endif

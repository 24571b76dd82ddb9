// The one type value of the compiler. Semantic values, symbols, operands of
// three-address code and the back ends all describe what a piece of storage
// holds with an IRDataType: its size, its alignment, whether it is
// reference-counted, and how it is spelled in messages and mangled names.
#ifndef COMPILER_DATATYPES_H
#define COMPILER_DATATYPES_H

#include "Universal/ustring.h"

class TypeSymbol;

// The main types. The values are fixed: they are compared in ranges
// (IsInteger, IsNumeric), packed into conversion keys by the back end and
// written into class metadata, so never renumber them.
enum SimpleDataType {
  kNoType = 0,  // absence of a type; the "result" of a Sub
  kBooleanType = 1,
  kSInt8Type = 2,
  kUInt8Type = 3,
  kSInt16Type = 4,
  kUInt16Type = 5,
  kSInt32Type = 6,
  kUInt32Type = 7,
  kSInt64Type = 8,
  kUInt64Type = 9,
  kReal32Type = 10,
  kReal64Type = 11,
  kCurrencyType = 12,     // fixed-point money in a 64-bit integer
  kWideNumericType = 13,  // reserved: numeric and signed, no spelling
  kStringType = 14,
  kColorType = 15,
  kVariantType = 16,
  kObjectType = 17,     // mDecl: class, interface or delegate; null is "Object"
  kStructureType = 18,  // mDecl: the structure, always set
  kUnresolvedType = 19, // written by name, not resolved yet: mTypeName
  kReferenceType = 20,  // pointer to the element (ByRef)
  kArrayType = 21,      // reference to an array object
  kNilType = 22,        // the type of the Nil literal
  kClassType = 23,
  kPtrType = 24,
  kExternalCStringType = 25,
  kExternalPStringType = 26,
  kWindowPtrType = 27,
  kOSTypeType = 28,
  kExternalWStringType = 29,
  kCFStringRefType = 30,
};

// Bytes of a value of each main type; 0 for a structure, whose size its
// declaration holds.
extern unsigned char const kSimpleStorageSizes[kCFStringRefType + 1];

// A small value, copied freely. It is at most three levels deep: a
// reference, then an array, then the element. An enum-typed value keeps its
// integer main type and points at the enum through mDecl; a delegate-typed
// value is an object type whose mDecl is the delegate.
//
// mDecl belongs to the symbol tables; this value never owns it.
class IRDataType {
 public:
  IRDataType();
  explicit IRDataType(SimpleDataType mainType);
  // The declaration is required and must fit the main type: a class,
  // interface or delegate for kObjectType, a structure for kStructureType,
  // an enum for anything else.
  IRDataType(SimpleDataType mainType, TypeSymbol* decl);
  // An unresolved type, known by the name as written.
  explicit IRDataType(string const& name);

  // The type a source name spells; any name not in the table becomes an
  // unresolved type for the declaration resolver. Never fails.
  static IRDataType Lookup(string const& name);

  SimpleDataType GetMainType() const { return mMainType; }
  SimpleDataType GetSubType() const { return mSubType; }
  SimpleDataType GetSubSubType() const { return mSubSubType; }
  // The element's main type of an array or reference, else the main type.
  SimpleDataType GetElementType() const;
  // Dimensions of an array, or of the array behind a reference; else 0.
  unsigned GetDimensions() const;
  TypeSymbol* Declaration() const { return mDecl; }
  // The written name of an unresolved type; empty for all others.
  string const& TypeName() const { return mTypeName; }

  // Bytes of one value in storage; asked for every operand the back end
  // touches, so the common case stands here.
  unsigned long StorageSize() const {
    if (mMainType != kStructureType && unsigned(mMainType) <= kCFStringRefType)
      return kSimpleStorageSizes[mMainType];
    return OtherStorageSize();
  }
  // `offset` rounded up to a multiple of the storage size (at most 8). A
  // zero-sized type gives 0 whatever the offset.
  unsigned long StorageAlign(unsigned long offset) const;

  bool IsFloat() const {
    return mMainType == kReal32Type || mMainType == kReal64Type;
  }
  bool IsInteger() const {
    return mMainType >= kSInt8Type && mMainType <= kUInt64Type;
  }
  bool IsNumeric() const;
  bool Signed() const;
  bool IsArray() const;
  bool IsExternalString() const;
  bool IsDelegate() const;
  bool RefCounted() const;

  // The language's spelling: what compile errors, prototypes and mangled
  // names show.
  string ToString() const;

  IRDataType AsArray(unsigned dimensions) const;
  IRDataType AsReference() const;
  // Undoes AsArray or AsReference.
  IRDataType AsElement() const;

  bool operator==(IRDataType const& other) const;
  bool operator!=(IRDataType const& other) const { return !(*this == other); }

 private:
  unsigned long OtherStorageSize() const;
  string ElementText() const;

  SimpleDataType mMainType;
  // Array: the element's main type. Reference: the referenced main type.
  SimpleDataType mSubType;
  // Reference to an array: the element's main type.
  SimpleDataType mSubSubType;
  unsigned char mDimensions;
  string mTypeName;
  TypeSymbol* mDecl;
};

#endif

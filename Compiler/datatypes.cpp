#include "Compiler/datatypes.h"

#include "Compiler/InternalFailure.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/SymbolTable.h"
#include "Universal/Assertion.h"
#include "Universal/stringmap.h"

namespace {

// Per main type: its text in messages, and whether source text may spell it
// by that name. Indexed by SimpleDataType.
struct MainTypeName {
  char const* mText;
  bool mSpelled;
};

MainTypeName const kMainTypeNames[] = {
    {"Unknown Type", false},  // kNoType
    {"Boolean", true},        {"Int8", true},         {"UInt8", true},
    {"Int16", true},          {"UInt16", true},       {"Int32", true},
    {"UInt32", true},         {"Int64", true},        {"UInt64", true},
    {"Single", true},         {"Double", true},       {"Currency", true},
    {"Unknown Type", false},  // kWideNumericType
    {"String", true},         {"Color", true},        {"Variant", true},
    {"Object", true},
    {"Unknown Type", false},  // kStructureType: always by declaration
    {"Unknown Type", false},  // kUnresolvedType: prints its name
    {"Unknown Type", false},  // kReferenceType: prints its element
    {"Unknown Type", false},  // kArrayType: prints its element
    {"Nil", false},           {"Class", true},        {"Ptr", true},
    {"CString", true},        {"PString", true},      {"WindowPtr", true},
    {"OSType", true},         {"WString", true},      {"CFStringRef", true},
};
unsigned const kMainTypeCount = sizeof kMainTypeNames / sizeof kMainTypeNames[0];
static_assert(sizeof kMainTypeNames / sizeof kMainTypeNames[0] ==
                  kCFStringRefType + 1,
              "one name per main type");

char const* MainTypeText(SimpleDataType type) {
  return unsigned(type) < kMainTypeCount ? kMainTypeNames[type].mText
                                         : "Unknown Type";
}

// Source spellings to main types, filled on first use and kept for the life
// of the process. Keys ignore case.
StringMap<SimpleDataType> const& SourceTypeNames() {
  static StringMap<SimpleDataType>* sNames = nullptr;
  if (sNames) return *sNames;
  sNames = new StringMap<SimpleDataType>;
  for (unsigned type = 0; type < kMainTypeCount; type++)
    if (kMainTypeNames[type].mSpelled)
      sNames->AddEntry(kMainTypeNames[type].mText, SimpleDataType(type));
  sNames->AddEntry("Byte", kUInt8Type);
  sNames->AddEntry("Short", kSInt16Type);
  sNames->AddEntry("Integer", kSInt32Type);
  return *sNames;
}

bool InRange(SimpleDataType type, SimpleDataType low, SimpleDataType high) {
  return type >= low && type <= high;
}

}  // namespace

IRDataType::IRDataType()
    : mMainType(kNoType), mSubType(kNoType), mSubSubType(kNoType),
      mDimensions(0), mDecl(nullptr) {}

IRDataType::IRDataType(SimpleDataType mainType)
    : mMainType(mainType), mSubType(kNoType), mSubSubType(kNoType),
      mDimensions(0), mDecl(nullptr) {}

IRDataType::IRDataType(SimpleDataType mainType, TypeSymbol* decl)
    : mMainType(mainType), mSubType(kNoType), mSubSubType(kNoType),
      mDimensions(0), mDecl(decl) {
  QASSERT(decl);
  if (mainType == kObjectType)
    QASSERT(decl->IsA(Symbol::kClass) or decl->IsA(Symbol::kInterface) or
            decl->IsA(Symbol::kDelegate));
  else if (mainType == kStructureType)
    QASSERT(decl->IsA(Symbol::kStructure));
  else
    QASSERT(decl->IsA(Symbol::kEnum));
}

IRDataType::IRDataType(string const& name)
    : mMainType(kUnresolvedType), mSubType(kNoType), mSubSubType(kNoType),
      mDimensions(0), mTypeName(name), mDecl(nullptr) {}

IRDataType IRDataType::Lookup(string const& name) {
  SimpleDataType type;
  if (SourceTypeNames().GetEntry(name, type)) return IRDataType(type);
  return IRDataType(name);
}

SimpleDataType IRDataType::GetElementType() const {
  if (mMainType == kArrayType || mMainType == kReferenceType) return mSubType;
  return mMainType;
}

unsigned IRDataType::GetDimensions() const {
  return IsArray() ? mDimensions : 0;
}

// Bytes of one value in storage, by main type. Handles, pointers and
// references are one 32-bit word; a structure (0 here) is as large as its
// declaration says. No type (a declaration whose type did not read,
// already reported) takes none.
unsigned char const kSimpleStorageSizes[kCFStringRefType + 1] = {
    0,                    // kNoType
    1, 1, 1,              // kBooleanType, kSInt8Type, kUInt8Type
    2, 2,                 // kSInt16Type, kUInt16Type
    4, 4,                 // kSInt32Type, kUInt32Type
    8, 8,                 // kSInt64Type, kUInt64Type
    4, 8, 8,              // kReal32Type, kReal64Type, kCurrencyType
    16,                   // kWideNumericType
    4, 4, 4, 4,           // kStringType, kColorType, kVariantType, kObjectType
    0,                    // kStructureType
    4, 4, 4, 4, 4, 4,     // kUnresolvedType ... kPtrType
    4, 4, 4, 4, 4, 4,     // kExternalCStringType ... kCFStringRefType
};

unsigned long IRDataType::OtherStorageSize() const {
  if (mMainType == kStructureType) {
    QASSERT(mDecl);
    QASSERT(mDecl->IsA(Symbol::kStructure));
    return static_cast<StructureSymbol*>(mDecl)->GetStorageSize();
  }
  QFAIL_STRING(string("StorageSize of unknown type (") + ToString() + ")");
}

// The size itself is the alignment, not a member's natural alignment: a
// 3-byte structure lands on multiples of 3. Zero size deliberately resets
// the running offset.
unsigned long IRDataType::StorageAlign(unsigned long offset) const {
  unsigned long size = StorageSize();
  if (size == 0) return 0;
  if (size > 8) size = 8;
  return (offset + size - 1) / size * size;
}

bool IRDataType::IsNumeric() const {
  return InRange(mMainType, kSInt8Type, kWideNumericType);
}

bool IRDataType::Signed() const {
  switch (mMainType) {
    case kSInt8Type:
    case kSInt16Type:
    case kSInt32Type:
    case kSInt64Type:
    case kReal32Type:
    case kReal64Type:
    case kCurrencyType:
    case kWideNumericType:
      return true;
    default:
      return false;
  }
}

bool IRDataType::IsArray() const {
  return mMainType == kArrayType ||
         (mMainType == kReferenceType && mSubType == kArrayType);
}

// "OSType" counts as an external string, "WindowPtr" does not.
bool IRDataType::IsExternalString() const {
  switch (mMainType) {
    case kExternalCStringType:
    case kExternalPStringType:
    case kOSTypeType:
    case kExternalWStringType:
    case kCFStringRefType:
      return true;
    default:
      return false;
  }
}

bool IRDataType::IsDelegate() const {
  return mMainType == kObjectType && mDecl && mDecl->IsA(Symbol::kDelegate);
}

// Values whose storage holds a counted reference; Class, Nil, references and
// raw pointers do not.
bool IRDataType::RefCounted() const {
  switch (mMainType) {
    case kStringType:
    case kVariantType:
    case kObjectType:
    case kArrayType:
    case kExternalWStringType:
    case kCFStringRefType:
      return true;
    default:
      return false;
  }
}

// References print as their element ("ByRef" never shows); arrays as the
// element followed by "()" with one comma per extra dimension.
string IRDataType::ToString() const {
  if (mMainType == kReferenceType) return AsElement().ToString();
  if (mMainType == kArrayType) {
    string text = AsElement().ToString() + "(";
    for (unsigned i = 1; i < mDimensions; i++) text += ",";
    return text + ")";
  }
  return ElementText();
}

// The text of a type that is neither an array nor a reference.
string IRDataType::ElementText() const {
  if (mDecl) {
    if (mDecl->mLinkName.Length() == 0)
      QFAIL_STRING(string("busted link name for ") + mDecl->Name());
    return mDecl->mLinkName;
  }
  if (mMainType == kUnresolvedType) return mTypeName;
  return MainTypeText(mMainType);
}

IRDataType IRDataType::AsArray(unsigned dimensions) const {
  QASSERT(dimensions > 0);
  QASSERT(kArrayType != mMainType);
  QASSERT(0 == mDimensions);
  QASSERT(kReferenceType != mMainType);
  IRDataType array = *this;
  array.mMainType = kArrayType;
  array.mSubType = mMainType;
  array.mSubSubType = kNoType;
  array.mDimensions = (unsigned char)dimensions;
  return array;
}

// A reference keeps all three levels of what it refers to, so the element
// must not already use the third one.
IRDataType IRDataType::AsReference() const {
  QASSERT(kReferenceType != mMainType);
  QASSERT(kNoType == mSubSubType);
  IRDataType reference = *this;
  reference.mMainType = kReferenceType;
  reference.mSubType = mMainType;
  reference.mSubSubType = mSubType;
  return reference;
}

IRDataType IRDataType::AsElement() const {
  IRDataType element = *this;
  if (mMainType == kReferenceType) {
    element.mMainType = mSubType;
  } else if (mMainType == kArrayType) {
    element.mMainType = mSubType;
    element.mDimensions = 0;
  } else {
    QFAIL("AsElement of a type that is neither array nor reference");
  }
  element.mSubType = mSubSubType;
  element.mSubSubType = kNoType;
  return element;
}

// Enum types differ even over the same integer, and plain "Object" differs
// from any class: beyond the main type, declarations compare by identity.
bool IRDataType::operator==(IRDataType const& other) const {
  if (mMainType != other.mMainType) return false;
  switch (mMainType) {
    case kReferenceType:
      return AsElement() == other.AsElement();
    case kArrayType:
      return mDimensions == other.mDimensions &&
             AsElement() == other.AsElement();
    case kUnresolvedType:
      return mTypeName == other.mTypeName;
    default:
      return mDecl == other.mDecl;
  }
}

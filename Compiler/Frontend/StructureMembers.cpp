// Member access on structure values. A structure is reached through its
// address: a field is a reference at an offset from it, so that a field
// reads, takes assignments and leads on to a nested structure's fields
// like any other place. Fixed-size strings and the StringValue member
// copy bytes through the runtime's structure string functions; EndianSwap
// swaps every field in place.
#include "Compiler/Frontend/Structures.h"

#include <algorithm>
#include <vector>

#include "Compiler/Frontend/Assignments.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/GeneratedFunctions.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

char const* const kSizeName = "Size";
char const* const kStringValueName = "StringValue";
char const* const kEndianSwapName = "EndianSwap";
// The runtime's readers and writers of Pascal and wide fields, by name.
char const* const kGetPStringField = "RuntimeGetStructurePString";
char const* const kSetPStringField = "RuntimeSetStructurePString";
char const* const kGetWStringField = "RuntimeGetStructureWString";
// Array fields up to this many elements are swapped without a loop.
long const kUnrolledSwapElements = 4;

// One access being compiled: the code, the structure's address and where.
struct Access {
  SemBase* code;
  TacAddr const* base;
  SourceLocation where;
  // The structures an EndianSwap is inside, outermost first.
  std::vector<StructureSymbol*>* swapping = nullptr;

  TacAddr const* Temp(IRDataType const& type) {
    return code->NewTemp(type, &where)->GetAddr();
  }
  void Put(TacAddr const* value) {
    code->AddLine(kTacPutParam, value, nilTacAddr, nilTacAddr);
  }
  void Call(IntrinsicID f, TacAddr const* result) {
    code->AddLine(kTacIntrinsic, IntrinsicTacAddr(f), nilTacAddr,
                  result ? result : nilTacAddr);
  }
  void CallNamed(char const* function, TacAddr const* result) {
    code->AddLine(kTacCall, gContext->GetLiteral(string(function)), nilTacAddr,
                  result ? result : nilTacAddr);
  }
  // The code so far, with `value` as its result.
  SemBase* Yielding(TacAddr const* value) {
    SemCode* result = SemCode::NewValueWrapper(SemValue::New(value, &where),
                                               &where);
    result->Append(code);
    return result;
  }
  // The address `offset` bytes past the structure's, as a `type` reference.
  TacAddr const* At(TacAddr const* offset, IRDataType const& type) {
    TacAddr const* ref = Temp(type.AsReference());
    code->AddLine(kTacAdd, base, offset, ref);
    return ref;
  }
};

StructureSymbol* StructureOf(IRDataType const& type) {
  TypeSymbol* decl = StripReference(type).Declaration();
  QASSERT_TEXT(decl && decl->IsA(Symbol::kStructure),
               "typeDeclRef and typeDeclRef->IsA( Symbol::kStructure )");
  return static_cast<StructureSymbol*>(decl);
}

// The address of the structure `expr` stands for: a reference is one
// already; a value is taken where it lies.
TacAddr const* StructureAddress(SemBase* expr, SemBase* code) {
  SemBase* flat = FlattenExpression(expr, code);
  IRDataType type = flat->GetType();
  if (type.GetMainType() == kReferenceType) return flat->GetAddr();
  TacAddr const* ref =
      code->NewTemp(type.AsReference(), &expr->Location())->GetAddr();
  code->AddLine(kTacVarptr, flat->GetAddr(), nilTacAddr, ref);
  return ref;
}

SemBase* SizeConstant(StructureSymbol* structure, SourceLocation const& where) {
  return SemValue::New(IntConstant(long(structure->GetStorageSize())), &where);
}

// Either the read of `place` (a reference) or the assignment to it.
SemBase* ReadOrWrite(Access& a, TacAddr const* place, SemBase* assignValue) {
  if (!assignValue) return a.Yielding(place);
  AssignToSymbol(place, assignValue, a.code);
  return a.code;
}

bool IsStringKind(SimpleDataType type) {
  return type == kStringType || type == kExternalCStringType ||
         type == kExternalPStringType || type == kExternalWStringType;
}

// A `* n` string at `offset`, n bytes long. A String or CString field is
// the bytes padded with NULs, a PString one a length byte and the bytes, a
// WString one UTF-16 padded with NULs; each reads back as a String and is
// written cut to fit.
SemBase* FixedString(Access& a, TacAddr const* offset, unsigned long length,
                     SimpleDataType kind, SemBase* assignValue) {
  if (!assignValue) {
    TacAddr const* text = a.Temp(IRDataType(kStringType));
    a.Put(a.base);
    a.Put(offset);
    a.Put(IntConstant(long(length)));
    if (kind == kExternalPStringType)
      a.CallNamed(kGetPStringField, text);
    else if (kind == kExternalWStringType)
      a.CallNamed(kGetWStringField, text);
    else
      a.Call(kIntrinsicRuntimeGetStructureString, text);
    return a.Yielding(text);
  }
  TacAddr const* value =
      CompileRefAs(assignValue, IRDataType(kStringType), a.code)->GetAddr();
  a.Put(a.base);
  a.Put(offset);
  a.Put(IntConstant(long(length)));
  a.Put(value);
  if (kind == kExternalPStringType)
    a.CallNamed(kSetPStringField, nullptr);
  else
    a.Call(kind == kExternalWStringType ? kIntrinsicRuntimeSetStructureWString
                                        : kIntrinsicRuntimeSetStructureString,
           nullptr);
  return a.code;
}

// `index` checked against the field's fixed bound, when checks are on.
void CheckIndex(Access& a, TacAddr const* index, long ubound) {
  if (!gContext->mOptions.mBoundsChecking) return;
  TacAddr const* inside = NewLabel();
  a.code->AddLine(kTacIfLTU, index, IntConstant(ubound + 1), inside);
  a.Call(kIntrinsicRaiseOutOfBoundsException, nullptr);
  a.code->AddLine(kTacLabel, inside, nilTacAddr, nilTacAddr);
}

SemBase* ArrayField(Access& a, StructureFieldSymbol* field, SemBase* args,
                    SemBase* assignValue) {
  SimpleVector<SemBase*> indexes = ArgumentVector(nullptr, args);
  if (indexes.size() != 1) {
    Error(indexes.size() == 0 ? kErrorBadArrayIndex : kErrorWrongDimensionCount,
          a.where);
    return ErrorValue(a.where);
  }
  IRDataType element = field->GetType().AsElement();
  TacAddr const* index =
      CompileRefAs(indexes[0], IRDataType(kSInt32Type), a.code)->GetAddr();
  CheckIndex(a, index, field->mArrayUbound);
  bool fixedString = IsStringKind(element.GetMainType());
  long stride = fixedString ? long(field->mStringLength)
                            : long(element.StorageSize());
  TacAddr const* offset = a.Temp(IRDataType(kSInt32Type));
  a.code->AddLine(kTacMul, index, IntConstant(stride), offset);
  a.code->AddLine(kTacAdd, offset, IntConstant(long(field->mOffset)), offset);
  if (fixedString)
    return FixedString(a, offset, field->mStringLength, element.GetMainType(),
                       assignValue);
  return ReadOrWrite(a, a.At(offset, element), assignValue);
}

SemBase* FieldAccess(Access& a, StructureFieldSymbol* field, SemBase* args,
                     SemBase* assignValue) {
  IRDataType const& type = field->GetType();
  if (type.GetMainType() == kArrayType)
    return ArrayField(a, field, args, assignValue);
  if (args) {
    Error(kErrorNotAnArrayTarget, a.where);
    return ErrorValue(a.where);
  }
  TacAddr const* offset = IntConstant(long(field->mOffset));
  if (IsStringKind(type.GetMainType()) && field->mStringLength)
    return FixedString(a, offset, field->mStringLength, type.GetMainType(),
                       assignValue);
  return ReadOrWrite(a, a.At(offset, type), assignValue);
}

SemBase* StringValue(Access& a, StructureSymbol* structure,
                     SemBase* assignValue) {
  TacAddr const* size = IntConstant(long(structure->GetStorageSize()));
  if (assignValue) return FixedString(a, gTacZero, structure->GetStorageSize(),
                                      kStringType, assignValue);
  TacAddr const* text = a.Temp(IRDataType(kStringType));
  a.Put(a.base);
  a.Put(size);
  a.Call(kIntrinsicRuntimeGetStructureContents, text);
  return a.Yielding(text);
}

void SwapStructure(Access& a, StructureSymbol* structure, long at);

// Reverses the bytes of one value of `type` at `at`; bytes and strings
// stay as they are, and so does a field whose type could not be read (its
// error is reported where it is declared).
void SwapValue(Access& a, IRDataType const& type, long at) {
  if (type.GetMainType() == kNoType) return;
  if (type.GetMainType() == kStructureType) {
    TypeSymbol* decl = type.Declaration();
    SwapStructure(a, static_cast<StructureSymbol*>(decl), at);
    return;
  }
  if (IsStringKind(type.GetMainType()) || type.StorageSize() < 2) return;
  TacAddr const* value = a.Temp(type);
  a.code->AddLine(kTacPeek, a.base, IntConstant(at), value);
  a.code->AddLine(kTacEndianSwap, value, nilTacAddr, value);
  a.code->AddLine(kTacPoke, value, IntConstant(at), a.base);
}

// A few elements are swapped one by one; more go through a loop, so that
// a large array field costs no more code than a small one.
void SwapArray(Access& a, StructureFieldSymbol* field, long at) {
  IRDataType element = field->GetType().AsElement();
  long stride = long(element.StorageSize());
  long count = field->mArrayUbound + 1;
  if (count <= kUnrolledSwapElements) {
    for (long i = 0; i < count; i++) SwapValue(a, element, at + i * stride);
    return;
  }
  Access each = a;
  each.base = a.Temp(IRDataType(kPtrType));
  TacAddr const* left = a.Temp(IRDataType(kSInt32Type));
  TacAddr const* top = NewLabel();
  a.code->AddLine(kTacAdd, a.base, IntConstant(at), each.base);
  a.code->AddLine(kTacStore, IntConstant(count), nilTacAddr, left);
  a.code->AddLine(kTacLabel, top, nilTacAddr, nilTacAddr);
  SwapValue(each, element, 0);
  a.code->AddLine(kTacAdd, each.base, IntConstant(stride), each.base);
  a.code->AddLine(kTacSub, left, gTacOne, left);
  a.code->AddLine(kTacIfLTI, gTacZero, left, top);
}

// A structure that holds itself has had its error (118) and is not walked
// into again.
void SwapStructure(Access& a, StructureSymbol* structure, long at) {
  std::vector<StructureSymbol*>& path = *a.swapping;
  if (std::find(path.begin(), path.end(), structure) != path.end()) return;
  path.push_back(structure);
  FieldSymbolIterator f = structure->IterateFields();
  while (f.Next()) {
    StructureFieldSymbol* field = f.Value();
    long start = at + long(field->mOffset);
    IRDataType type = field->GetType();
    if (type.GetMainType() != kArrayType) {
      SwapValue(a, type, start);
      continue;
    }
    SwapArray(a, field, start);
  }
  path.pop_back();
}

}  // namespace

SemBase* StructureScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                              SemBase* assignValue, FunctionResultMode mode) {
  QASSERT(expr);
  QASSERT(ident);
  StructureSymbol* structure = StructureOf(expr->GetType());
  string name = ident->toString();
  SourceLocation where = expr->Location() + ident->Location();
  if (name == string(kSizeName) && !assignValue && !args)
    return SizeConstant(structure, where);
  Access a = {SemCode::New(IRDataType(), &where), nullptr, where};
  if (name == string(kStringValueName) && !args) {
    a.base = StructureAddress(expr, a.code);
    return StringValue(a, structure, assignValue);
  }
  if (name == string(kEndianSwapName) && !args && !assignValue) {
    a.base = StructureAddress(expr, a.code);
    std::vector<StructureSymbol*> path;
    a.swapping = &path;
    SwapStructure(a, structure, 0);
    return a.code;
  }
  if (StructureFieldSymbol* field = structure->LookupField(name)) {
    a.base = StructureAddress(expr, a.code);
    return FieldAccess(a, field, args, assignValue);
  }
  return ExtensionLookup(expr, ident, args, assignValue, mode,
                         kErrorUnknownName);
}

SemBase* StaticStructureScopeLookup(SemBase* expr, SemBase* ident,
                                    SemBase* args, SemBase* assignValue,
                                    FunctionResultMode mode) {
  QASSERT(expr);
  QASSERT(ident);
  Symbol* symbol = expr->IsNamespace()
                       ? static_cast<SemNamespace*>(expr)->GetSymbol()
                       : expr->GetType().Declaration();
  QASSERT_TEXT(symbol && symbol->IsA(Symbol::kStructure),
               "symbol->IsA( Symbol::kStructure )");
  SourceLocation where = expr->Location() + ident->Location();
  if (ident->toString() == string(kSizeName) && !args && !assignValue)
    return SizeConstant(static_cast<StructureSymbol*>(symbol), where);
  Error(kErrorUnknownName, where);
  return FailedLookupValue(where, mode);
}

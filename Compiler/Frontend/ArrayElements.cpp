// Reading and writing array elements, and UBound, through the method table
// of the array object.
#include "Compiler/Frontend/Arrays.h"

#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/NilChecks.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

bool BoundsChecking() {
  QASSERT(gContext);
  return gContext->mOptions.mBoundsChecking != 0;
}

// A structure element is handed over in place: the entries take and give
// a pointer to it.
IRDataType PassedElementType(IRDataType const& element) {
  if (element.GetMainType() == kStructureType) return element.AsReference();
  return element;
}

TacAddr const* StructureReference(TacAddr const* value,
                                  IRDataType const& element, SemBase* code,
                                  SourceLocation const& where) {
  if (element.GetMainType() != kStructureType) return value;
  TacAddr const* ref = code->NewTemp(element.AsReference(), &where)->GetAddr();
  code->AddLine(kTacVarptr, value, nilTacAddr, ref);
  return ref;
}

}  // namespace

void FetchArrayEntry(TacAddr const* array, ArrayTableEntry offset,
                     TacAddr const* entry, SemBase* code) {
  code->AddLine(kTacPeek, array, gContext->GetLiteral(kArrayMethodsOffset, kSInt32Type),
                entry);
  code->AddLine(kTacPeek, entry, gContext->GetLiteral(offset, kSInt32Type),
                entry);
}

void PushArrayArguments(SemBase* array,
                        SimpleVector<TacAddr const*> const& leading,
                        SemBase* indexes, SemBase* code) {
  QASSERT(array);
  unsigned dims = StripReference(array->GetType()).GetDimensions();
  if (!indexes) {
    Error(kErrorBadArrayIndex, array->Location());
    return;
  }
  SimpleVector<SemBase*> list = ArgumentVector(nullptr, indexes);
  SimpleVector<TacAddr const*> values;
  for (unsigned long i = 0; i < list.size(); i++)
    values.push_back(
        CompileRefAs(list[i], IRDataType(kSInt32Type), code)->GetAddr());
  for (unsigned long i = 0; i < leading.size(); i++)
    code->AddLine(kTacPutParam, leading[i], nilTacAddr, nilTacAddr);
  for (unsigned long i = 0; i < values.size(); i++)
    code->AddLine(kTacPutParam, values[i], nilTacAddr, nilTacAddr);
  if (values.size() < dims)
    Error(kErrorBadArrayIndex, indexes->Location());
  else if (values.size() > dims)
    Error(kErrorWrongDimensionCount, indexes->Location());
}

SemBase* GetArrayElement(SemBase* array, SemBase* indexes) {
  QASSERT(array);
  IRDataType type = StripReference(array->GetType());
  if (!type.IsArray()) {
    Error(kErrorNotAnArrayTarget, array->Location());
    return SemCode::New(type, &array->Location());
  }
  IRDataType element = PassedElementType(type.AsElement());
  SemBase* code = SemCode::New(element, &array->Location());
  SemBase* checked = CheckForNil(array);
  TacAddr const* a = CompileRefAs(checked, type, code)->GetAddr();
  ResetReturnTemp(code->GetAddr(), code);
  TacAddr const* entry =
      code->NewTemp(IRDataType(kPtrType), &array->Location())->GetAddr();
  SimpleVector<TacAddr const*> leading;
  leading.push_back(a);
  FetchArrayEntry(a, BoundsChecking() ? kArrayGet : kArrayGetFast, entry,
                  code);
  PushArrayArguments(SemValue::New(a, &array->Location()), leading, indexes,
                     code);
  code->AddLine(kTacCallPtrVarargs, entry, nilTacAddr, code->GetAddr());
  return code;
}

void SetArrayElementValue(SemBase* array, SemBase* indexes, SemBase* value,
                          SemBase* code) {
  QASSERT(array);
  QASSERT(code);
  IRDataType type = StripReference(array->GetType());
  if (!type.IsArray()) {
    Error(kErrorNotAnArrayTarget, array->Location());
    return;
  }
  TacAddr const* a = CompileRefAs(CheckForNil(array), type, code)->GetAddr();
  IRDataType element = type.AsElement();
  TacAddr const* v = CompileRefAs(value, element, code)->GetAddr();
  v = StructureReference(v, element, code, array->Location());
  TacAddr const* entry =
      code->NewTemp(IRDataType(kPtrType), &array->Location())->GetAddr();
  SimpleVector<TacAddr const*> leading;
  leading.push_back(a);
  leading.push_back(v);
  FetchArrayEntry(a, BoundsChecking() ? kArraySet : kArraySetFast, entry,
                  code);
  PushArrayArguments(SemValue::New(a, &array->Location()), leading, indexes,
                     code);
  code->AddLine(kTacCallPtrVarargs, entry, nilTacAddr, nilTacAddr);
}

SemBase* HandleUbound(SemBase* args) {
  SimpleVector<SemBase*> list = ArgumentVector(nullptr, args);
  SourceLocation where = args ? args->Location() : SourceLocation();
  SemBase* code = SemCode::New(IRDataType(kSInt32Type), &where);
  if (!list.size()) {
    Error(kErrorNotEnoughArguments, where);
    return code;
  }
  IRDataType type = StripReference(list[0]->GetType());
  if (!type.IsArray()) {
    Error(kErrorNotAnArray, list[0]->Location());
    return code;
  }
  if (list.size() > 2) Error(kErrorTooManyArguments, list[2]->Location());
  TacAddr const* a = CompileRefAs(CheckForNil(list[0]), type, code)->GetAddr();
  TacAddr const* dimension =
      list.size() > 1
          ? CompileRefAs(list[1], IRDataType(kSInt32Type), code)->GetAddr()
          : gTacOne;
  TacAddr const* entry = code->NewTemp(IRDataType(kPtrType), &where)->GetAddr();
  FetchArrayEntry(a, kArrayUbound, entry, code);
  code->AddLine(kTacPutParam, a, nilTacAddr, nilTacAddr);
  code->AddLine(kTacPutParam, dimension, nilTacAddr, nilTacAddr);
  code->AddLine(kTacCallPtr, entry, nilTacAddr, code->GetAddr());
  return code;
}

// Making arrays: Dim with bounds, Array(...) and ParamArray packing, and
// Redim.
#include "Compiler/Frontend/Arrays.h"

#include "Compiler/Frontend/ConstantFolding.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/NilChecks.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

int ElementCode(IRDataType const& element, SourceLocation const& where) {
  switch (element.GetMainType()) {
    case kSInt32Type:
    case kColorType:
    case kPtrType:
      return 0;
    case kReal32Type: return 1;
    case kReal64Type: return 2;
    case kStringType: return 3;
    case kObjectType:
    case kVariantType:
      return 4;
    case kBooleanType:
    case kUInt8Type:
      return 5;
    case kSInt8Type: return 6;
    case kUInt16Type: return 7;
    case kSInt16Type: return 8;
    case kUInt32Type: return 9;
    case kUInt64Type: return 10;
    case kSInt64Type:
    case kCurrencyType:
      return 11;
    default:
      Error(kErrorArrayElementType, where);
      return 0;
  }
}

bool SortableDatatype(IRDataType const& element) {
  SimpleDataType main = element.GetMainType();
  return (main >= kSInt8Type && main <= kWideNumericType) ||
         main == kStringType;
}

bool ValidateArrayUbound(SemBase* bound) {
  QASSERT(bound);
  IRDataType type = StripReference(bound->GetType());
  if (!type.IsInteger()) {
    Error(kErrorBadArrayBound, bound->Location());
    return false;
  }
  if (!bound->IsConstant() || bound->Code()) {
    Error(kErrorArrayBoundNotConstant, bound->Location());
    return false;
  }
  if (ConvertSemValue<long long>(bound) < -1) {
    Error(kErrorNegativeArrayBound, bound->Location());
    return false;
  }
  return true;
}

namespace {

// The allocation itself. `validate` is false for the bounds that Array(...)
// computes, which are right by construction.
SemBase* AllocateArrayOf(SimpleVector<SemBase*>& bounds,
                         IRDataType const& element,
                         SourceLocation const& where) {
  if (!bounds.size())
    bounds.push_back(SemValue::New(gContext->GetLiteral(-1, kSInt32Type),
                                   &where));
  SemBase* code = SemCode::New(element.AsArray((unsigned)bounds.size()),
                               &where);
  if (element.GetMainType() == kUnresolvedType) return code;
  bool structure = element.GetMainType() == kStructureType;
  long intrinsic = structure ? kIntrinsicRuntimeCreateStructureArray
                             : kIntrinsicCreateArray;
  long second = structure ? (long)element.StorageSize()
                          : ElementCode(element, where);
  SimpleVector<TacAddr const*> values;
  for (unsigned long i = 0; i < bounds.size(); i++)
    values.push_back(
        CompileRefAs(bounds[i], IRDataType(kSInt32Type), code)->GetAddr());
  // In a loop the temporary still holds the last pass's array.
  ResetReturnTemp(code->GetAddr(), code);
  code->AddLine(kTacPutParam,
                gContext->GetLiteral((long long)bounds.size(), kSInt32Type),
                nilTacAddr, nilTacAddr);
  code->AddLine(kTacPutParam, gContext->GetLiteral(second, kSInt32Type),
                nilTacAddr, nilTacAddr);
  for (unsigned long i = 0; i < values.size(); i++)
    code->AddLine(kTacPutParam, values[i], nilTacAddr, nilTacAddr);
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(intrinsic), nilTacAddr,
                code->GetAddr());
  return code;
}

// The elements' common type; Variant when they have none.
IRDataType InferElementType(SemBase* list) {
  IRDataType type;
  bool first = true;
  for (SemBase* item = list->GetContents(); item; item = item->GetNext()) {
    IRDataType itemType = StripReference(item->GetType());
    type = first ? itemType : ComputeCommonType(type, itemType);
    first = false;
  }
  return IsNullType(type) ? IRDataType(kVariantType) : type;
}

// Stores element `index` of a new array through its unchecked setter.
void StoreFactoryElement(SemBase* element, IRDataType const& type,
                         TacAddr const* array, TacAddr const* setter,
                         unsigned long index, SemBase* code) {
  TacAddr const* value = CompileRefAs(element, type, code)->GetAddr();
  if (type.GetMainType() == kStructureType) {
    TacAddr const* ref =
        code->NewTemp(type.AsReference(), &element->Location())->GetAddr();
    code->AddLine(kTacVarptr, value, nilTacAddr, ref);
    value = ref;
  }
  code->AddLine(kTacPutParam, array, nilTacAddr, nilTacAddr);
  code->AddLine(kTacPutParam, value, nilTacAddr, nilTacAddr);
  code->AddLine(kTacPutParam, gContext->GetLiteral((long long)index, kSInt32Type),
                nilTacAddr, nilTacAddr);
  code->AddLine(kTacCallPtrVarargs, setter, nilTacAddr, nilTacAddr);
}

SemBase* ListOf(SemBase* list) {
  if (!list || list->IsList()) return list;
  return SemList::New(list);
}

}  // namespace

SemBase* AllocateNewArray(SimpleVector<SemBase*>& bounds, SemBase* typeIdent) {
  QASSERT(typeIdent);
  for (unsigned long i = 0; i < bounds.size(); i++)
    ValidateArrayUbound(bounds[i]);
  return AllocateArrayOf(bounds, typeIdent->GetType(), typeIdent->Location());
}

SemBase* CompileArrayFactory(SemBase* list, IRDataType const& elementType) {
  QASSERT(gContext);
  list = ListOf(list);
  SourceLocation where = list ? list->Location() : SourceLocation(current_line());
  IRDataType type = elementType;
  if (IsNullType(type)) {
    if (!list) {
      Error(kErrorNotEnoughArguments, where);
      return SemCode::New(IRDataType(), &where);
    }
    type = InferElementType(list);
  }
  if (type.IsArray()) {
    Error(kErrorArrayFactoryOfArray, where);
    return SemCode::New(IRDataType(), &where);
  }
  if (type.GetMainType() == kUnresolvedType)
    return SemCode::New(IRDataType(), &where);
  unsigned long count = 0;
  for (SemBase* item = list ? list->GetContents() : nullptr; item;
       item = item->GetNext())
    count++;
  SimpleVector<SemBase*> bounds;
  bounds.push_back(SemValue::New(
      gContext->GetLiteral((long long)count - 1, kSInt32Type), &where));
  SemBase* result = AllocateArrayOf(bounds, type, where);
  if (!count) return result;
  TacAddr const* setter =
      result->NewTemp(IRDataType(kPtrType), &where)->GetAddr();
  FetchArrayEntry(result->GetAddr(), kArraySetFast, setter, result);
  unsigned long index = 0;
  for (SemBase* item = list->GetContents(); item; item = item->GetNext())
    StoreFactoryElement(item, type, result->GetAddr(), setter,
                        index++, result);
  return result;
}

// Redim of a nil array raises NilObjectException like any other use of
// it, rather than calling through a nil table.
SemBase* CompileRedim(SemBase* array, SemBase* sizes) {
  QASSERT(array);
  SemBase* code = SemCode::New(IRDataType(), &array->Location());
  IRDataType type = StripReference(array->GetType());
  if (!type.IsArray()) {
    Error(kErrorNotAnArrayTarget, array->Location());
    return code;
  }
  TacAddr const* a = CompileRefAs(CheckForNil(array), type, code)->GetAddr();
  TacAddr const* entry =
      code->NewTemp(IRDataType(kPtrType), &array->Location())->GetAddr();
  FetchArrayEntry(a, kArrayRedim, entry, code);
  SimpleVector<TacAddr const*> leading;
  leading.push_back(a);
  PushArrayArguments(SemValue::New(a, &array->Location()), leading, sizes,
                     code);
  code->AddLine(kTacCallPtrVarargs, entry, nilTacAddr, nilTacAddr);
  return code;
}

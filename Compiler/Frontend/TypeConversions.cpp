// The conversion emitters: CompileRefAs and the code of each kind of
// conversion. The rules of which pair converts are in ConversionRules.cpp.
#include "Compiler/Frontend/Classes.h"
#include "Compiler/Frontend/TypeConversions.h"

#include "Common/ObjectModel/RuntimeDelegates.h"
#include "Compiler/Frontend/ConstantFolding.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/NilChecks.h"
#include "Compiler/Frontend/ObjectExpressions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/FunctionCalls.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

// `Intrinsic f` with `op` as its one argument, into a fresh temporary of
// `type`, released first when it is reused.
SemBase* CallConverter(IntrinsicID f, SemBase* op, IRDataType const& type,
                       SemBase* code) {
  SemBase* t = code->NewTemp(type, &op->Location());
  ResetReturnTemp(t, code);
  code->AddLine(kTacPutParam, op->GetAddr(), nilTacAddr, nilTacAddr);
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(f), nilTacAddr, t->GetAddr());
  return t;
}

// Each operator of an expression leaves a temporary, and each level of a
// chain of operators hands all of those below it up once more: past this
// many the statement is refused, so that its compilation stays short.
const unsigned long kMostTemporariesInAnExpression = 16384;

bool IsTooLarge(SemBase* op) {
  return op->Tag() == kSemCodeTag &&
         op->Temporaries().size() > kMostTemporariesInAnExpression;
}

SemBase* MismatchValue(SemBase* op, IRDataType const& target) {
  TypeMismatchError(op->Location(), target, op->GetType());
  return op;
}

// A type, a module or a list where a value is wanted: one report, and the
// error value, since such an operand has no address to use.
SemBase* NoValue(SemBase* op, IRDataType const& target) {
  if (op->IsIdentifier() || op->IsNamespace())
    Error(kErrorTypeAsValue, op->Location());
  else
    TypeMismatchError(op->Location(), target, op->GetType());
  return ErrorValue(op->Location());
}

}  // namespace

SemBase* CompileRefAs(SemBase* op, IRDataType const& target, SemBase* code) {
  QASSERT_TEXT(op, "op");
  QASSERT_TEXT(code, "code");
  if (IsErrorValue(op)) return op;
  if (IsTooLarge(op)) {
    Error(kErrorExpressionTooLarge, op->Location());
    return ErrorValue(op->Location());
  }
  if (!op->GetAddr()) return NoValue(op, target);
  if (IsNullType(op->GetType())) return MismatchValue(op, target);
  op = FlattenExpression(op, code);
  IRDataType source = op->GetType();
  if (source == target) return op;
  if (IsDereference(target, source)) {
    op = CompileDereference(op, code);
    source = op->GetType();
    if (source == target) return op;
  }
  if (IsNumericConversion(target, source))
    return CompileNumericConversion(op, target, code);
  if (IsDeclareStringConversion(target, source))
    return CompileDeclareStringConversion(op, target, code);
  if (IsVariant(source)) return CompileConvertFromVariant(op, target, code);
  if (IsVariant(target)) return CompileConvertToVariant(op, target, code);
  if (IsNilConstantConversion(target, source))
    return CompileNilConstantConversion(op, target, code);
  if (IsImplicitUpcast(target, source) || IsInterfaceCast(target, source) ||
      IsDelegateIdentityConversion(target, source))
    return op;
  if (IsDelegatePtrConversion(target, source))
    return DelegatePtrConversion(op, target, code);
  if (IsArrayElementNarrowingCast(target, source))
    return CompileArrayElementCast(op, target, code);
  if (IsOperatorConversion(target, source))
    return CompileOperatorConversion(op, target, code);
  return MismatchValue(op, target);
}

// A reference-counted element gets a reference of its own, so that the
// temporary may be released like any other.
SemBase* CompileDereference(SemBase* op, SemBase* code) {
  IRDataType element = op->GetType().AsElement();
  if (IsNullType(element))
    return code->NewTemp(IRDataType(kSInt32Type), &op->Location());
  SemBase* t = code->NewTemp(element, &op->Location());
  if (element.RefCounted()) {
    code->AddLine(kTacUnlock, t->GetAddr(), nilTacAddr, nilTacAddr);
    code->AddLine(kTacPeek, op->GetAddr(), nilTacAddr, t->GetAddr());
    code->AddLine(kTacLock, t->GetAddr(), nilTacAddr, nilTacAddr);
  } else {
    code->AddLine(kTacPeek, op->GetAddr(), nilTacAddr, t->GetAddr());
  }
  return t;
}

// A nil takes the exact type it is assigned to and costs no code.
SemBase* CompileNilConstantConversion(SemBase* op, IRDataType const& target,
                                      SemBase* code) {
  QASSERT(kNilType == op->GetType().GetMainType());
  QASSERT(op->IsConstant());
  QASSERT(0 == op->GetValue().uSInt32);
  TacAddr const* literal = CurrentTLP()->GetLiteral(op->GetValue(), target);
  return SemValue::New(literal, &op->Location());
}

// Constants fold where the value is exact enough: an integer going to a
// float, and a float going to an integer narrower than 8 bytes, which
// becomes an Int32 literal whatever the target (the store narrows it).
SemBase* CompileNumericConversion(SemBase* op, IRDataType const& target,
                                  SemBase* code) {
  IRDataType source = op->GetType();
  SourceLocation const& where = op->Location();
  if (op->IsConstant() && source.IsInteger() && target.IsFloat()) {
    double value = source.StorageSize() == 8
                       ? ConvertSemValue<double>(op)
                       : double((long long)op->GetValue().uSInt32);
    return MakeSemValue<double>(value, IRDataType(target.GetMainType()), where);
  }
  if (op->IsConstant() && source.IsFloat() && target.IsInteger() &&
      target.StorageSize() < 8) {
    long value = TruncateToInt32(ConvertSemValue<double>(op));
    return MakeSemValue<long long>(value, IRDataType(kSInt32Type), where);
  }
  SemBase* t = code->NewTemp(IRDataType(target.GetMainType()), &where);
  code->AddLine(kTacCvt, op->GetAddr(), nilTacAddr, t->GetAddr());
  return t;
}

SemBase* CompileDeclareStringConversion(SemBase* op, IRDataType const& target,
                                        SemBase* code) {
  IntrinsicID f = kIntrinsicReserved;
  switch (target.GetMainType()) {
    case kExternalCStringType: f = kIntrinsicStringToCString; break;
    case kExternalPStringType: f = kIntrinsicStringToPString; break;
    case kOSTypeType: f = kIntrinsicStringToOSType; break;
    case kExternalWStringType: f = kIntrinsicStringToWString; break;
    case kCFStringRefType: f = kIntrinsicStringToCFString; break;
    default:
      switch (op->GetType().GetMainType()) {
        case kExternalCStringType: f = kIntrinsicStringFromCString; break;
        case kExternalPStringType: f = kIntrinsicStringFromPString; break;
        case kOSTypeType: f = kIntrinsicStringFromOSType; break;
        case kExternalWStringType: f = kIntrinsicStringFromWString; break;
        case kCFStringRefType: f = kIntrinsicStringFromCFString; break;
        default: QFAIL("not a declare string conversion");
      }
  }
  return CallConverter(f, op, target, code);
}

// On the nil path the temporary keeps what it held: a nil delegate never
// reaches a call through its pointer.
SemBase* DelegatePtrConversion(SemBase* op, IRDataType const& target,
                               SemBase* code) {
  SemBase* t = code->NewTemp(IRDataType(kPtrType), &op->Location());
  ResetReturnTemp(t, code);
  TacAddr const* skip = NewLabel();
  code->AddLine(kTacIfEQI, op->GetAddr(), gTacZero, skip);
  TacAddr const* offset =
      CurrentTLP()->GetLiteral(kDelegateFunctionOffset, kSInt32Type);
  code->AddLine(kTacPeek, op->GetAddr(), offset, t->GetAddr());
  code->AddLine(kTacLabel, skip, nilTacAddr, nilTacAddr);
  return t;
}

// An array of a class seen as an array of an ancestor or an interface goes
// through a wrapper object that checks what is stored into it.
SemBase* CompileArrayElementCast(SemBase* op, IRDataType const& target,
                                 SemBase* code) {
  QASSERT(kArrayType == target.GetMainType());
  QASSERT(kArrayType == op->GetType().GetMainType());
  if (op->GetType().GetDimensions() > 1)
    Error(kErrorArrayCastRank, op->Location());
  TypeSymbol* element = op->GetType().AsElement().Declaration();
  SemBase* record = nullptr;
  if (element && element->IsA(Symbol::kClass))
    record = LookupClassRecord(element);
  else if (element && element->IsA(Symbol::kInterface))
    record = LookupInterfaceRecord(element);
  if (!record) return op;
  SemBase* t = code->NewTemp(target, &op->Location());
  ResetReturnTemp(t, code);
  if (record->Code()) code->Append(record);
  code->AddLine(kTacPutParam, op->GetAddr(), nilTacAddr, nilTacAddr);
  code->AddLine(kTacPutParam, record->GetAddr(), nilTacAddr, nilTacAddr);
  code->AddLine(kTacIntrinsic,
                IntrinsicTacAddr(kIntrinsicRuntimeCreateArrayCastWrapper),
                nilTacAddr, t->GetAddr());
  return t;
}

SemBase* CompileOperatorConversion(SemBase* op, IRDataType const& target,
                                   SemBase* code) {
  MethodList methods = LookupConversionOperator(target, op->GetType());
  if (!methods || methods->size() == 0) return MismatchValue(op, target);
  if (methods->size() > 1) Error(kErrorNoMatchingOverload, op->Location());
  MethodSymbol* method = (*methods)[0];
  SemBase* result = IsNullType(method->GetReturnType())
                        ? CompileToConversionOperator(target, method, op, code)
                        : CompileFromConversionOperator(method, op, code);
  return CompileRefAs(result, target, code);
}

SemBase* CompileFromConversionOperator(MethodSymbol* method, SemBase* op,
                                       SemBase* code) {
  SemBase* call = CompileCall(method, CheckForNilObject(op), nullptr);
  return FlattenExpression(call, code);
}

SemBase* CompileToConversionOperator(IRDataType const& target,
                                     MethodSymbol* method, SemBase* op,
                                     SemBase* code) {
  SemBase* ident = SemIdentifier::New(target.ToString(), op->Location());
  ident->SetType(target);
  SemBase* object = FlattenExpression(CompileNew(ident, nullptr, false), code);
  SemBase* call = CompileCall(method, object, op);
  if (call->Code()) code->Append(call);
  return object;
}

// Int8 and Int16 come through Int32, UInt8 and UInt16 through UInt32: the
// store into the narrower temporary narrows.
SemBase* CompileConvertFromVariant(SemBase* op, IRDataType const& target,
                                   SemBase* code) {
  IntrinsicID f;
  switch (target.GetMainType()) {
    case kBooleanType: f = kIntrinsicVariantToBoolean; break;
    case kSInt8Type:
    case kSInt16Type:
    case kSInt32Type: f = kIntrinsicVariantToInt32; break;
    case kUInt8Type:
    case kUInt16Type:
    case kUInt32Type: f = kIntrinsicVariantToUInt32; break;
    case kSInt64Type: f = kIntrinsicVariantToInt64; break;
    case kUInt64Type: f = kIntrinsicVariantToUInt64; break;
    case kReal32Type: f = kIntrinsicVariantToSingle; break;
    case kReal64Type: f = kIntrinsicVariantToDouble; break;
    case kCurrencyType: f = kIntrinsicVariantToCurrency; break;
    case kStringType: f = kIntrinsicVariantToString; break;
    case kColorType: f = kIntrinsicVariantToColor; break;
    case kObjectType:
      if (target.Declaration())
        return FlattenExpression(
            CompileTypecast(target, op, op->Location()), code);
      f = kIntrinsicVariantToObject;
      break;
    default:
      return MismatchValue(op, target);
  }
  if (target.StorageSize() >= 4 || target.GetMainType() == kBooleanType)
    return CallConverter(f, op, target, code);
  IRDataType wide(target.Signed() ? kSInt32Type : kUInt32Type);
  SemBase* full = CallConverter(f, op, wide, code);
  SemBase* t = code->NewTemp(target, &op->Location());
  code->AddLine(kTacStore, full->GetAddr(), nilTacAddr, t->GetAddr());
  return t;
}

SemBase* CompileConvertToVariant(SemBase* op, IRDataType const& target,
                                 SemBase* code) {
  IntrinsicID f;
  switch (op->GetType().GetMainType()) {
    case kBooleanType: f = kIntrinsicBooleanToVariant; break;
    case kSInt8Type:
    case kSInt16Type:
      op = CompileRefAs(op, IRDataType(kSInt32Type), code);
      f = kIntrinsicInt32ToVariant;
      break;
    case kSInt32Type: f = kIntrinsicInt32ToVariant; break;
    case kUInt8Type:
    case kUInt16Type:
      op = CompileRefAs(op, IRDataType(kUInt32Type), code);
      f = kIntrinsicUInt32ToVariant;
      break;
    case kUInt32Type: f = kIntrinsicUInt32ToVariant; break;
    case kSInt64Type: f = kIntrinsicInt64ToVariant; break;
    case kUInt64Type: f = kIntrinsicUInt64ToVariant; break;
    case kReal32Type: f = kIntrinsicSingleToVariant; break;
    case kReal64Type: f = kIntrinsicDoubleToVariant; break;
    case kCurrencyType: f = kIntrinsicCurrencyToVariant; break;
    case kStringType: f = kIntrinsicStringToVariant; break;
    case kColorType: f = kIntrinsicColorToVariant; break;
    case kObjectType:
    case kNilType: f = kIntrinsicObjectToVariant; break;
    default:
      TypeMismatchError(op->Location(), target, op->GetType());
      return code->NewTemp(IRDataType(kVariantType), &op->Location());
  }
  return CallConverter(f, op, IRDataType(kVariantType), code);
}

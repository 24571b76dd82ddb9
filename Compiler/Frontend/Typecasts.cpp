// `Type(expr)`: checked casts between object types, and reinterpretation of
// the same bits between integers, Color and Ptr.
#include "Compiler/Frontend/Classes.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/MethodDelegates.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

bool IsObjectLike(IRDataType const& type) {
  SimpleDataType main = type.GetMainType();
  return main == kObjectType || main == kVariantType || main == kNilType;
}

// The run-time check of an object cast: the record of the target type and
// the intrinsic that checks against it.
void CompileObjectCast(TypeSymbol* decl, SemBase* arg, SemBase* code) {
  SemBase* record = nullptr;
  IntrinsicID check = kIntrinsicRuntimeCheckCast;
  if (decl->IsA(Symbol::kClass)) {
    record = LookupClassRecord(decl);
  } else if (decl->IsA(Symbol::kInterface)) {
    record = LookupInterfaceRecord(decl);
  } else if (decl->IsA(Symbol::kDelegate)) {
    record = LookupDelegateSignature(decl);
    check = kIntrinsicRuntimeCheckDelegateCast;
  }
  if (!record) return;
  if (record->Code()) code->Append(record);
  code->AddLine(kTacPutParam, arg->GetAddr(), nilTacAddr, nilTacAddr);
  code->AddLine(kTacPutParam, record->GetAddr(), nilTacAddr, nilTacAddr);
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(check), nilTacAddr,
                code->GetAddr());
}

enum CastVerdict { kNotACastTarget, kCastRefused, kCastAllowed };

CastVerdict JudgeBitCast(IRDataType const& target, IRDataType const& source) {
  SimpleDataType from = source.GetMainType();
  if (target.IsInteger())
    return source.IsInteger() || from == kPtrType || from == kColorType
               ? kCastAllowed : kCastRefused;
  if (target.GetMainType() == kColorType)
    return source.IsInteger() ? kCastAllowed : kCastRefused;
  if (target.GetMainType() == kPtrType)
    return source.IsInteger() || from == kPtrType ? kCastAllowed
                                                  : kCastRefused;
  return kNotACastTarget;
}

// A single argument, or null after the report of a missing or extra one.
SemBase* SingleArgument(SemBase* expr, SourceLocation const& where) {
  if (!expr) {
    Error(kErrorNotEnoughArguments, where);
    return nullptr;
  }
  if (!expr->IsList()) return expr;
  SemBase* first = expr->GetContents();
  if (first && !first->GetNext()) return first;
  Error(kErrorTooManyArguments, expr->Location());
  return nullptr;
}

}  // namespace

SemBase* CompileTypecast(IRDataType const& target, SemBase* expr,
                         SourceLocation const& where) {
  SemBase* code = SemCode::New(target, &where);
  SemBase* single = SingleArgument(expr, where);
  if (!single) return code;
  if (IsErrorValue(single)) return single;
  ResetReturnTemp(code->GetAddr(), code);
  IRDataType argType = StripReference(single->GetType());
  SemBase* arg = CompileRefAs(single, argType, code);
  if (target.GetMainType() == kObjectType && IsObjectLike(argType)) {
    if (target.Declaration())
      CompileObjectCast(target.Declaration(), arg, code);
    else
      code->AddLine(kTacStore, arg->GetAddr(), nilTacAddr, code->GetAddr());
    return code;
  }
  switch (JudgeBitCast(target, argType)) {
    case kNotACastTarget:
      TypeMismatchError(where, IRDataType(kClassType), target);
      return ErrorValue(where);
    case kCastRefused:
      TypeMismatchError(where, target, argType);
      return ErrorValue(where);
    case kCastAllowed:
      break;
  }
  bool bothDeclared = target.Declaration() && argType.Declaration();
  if (target.StorageSize() != argType.StorageSize() || bothDeclared) {
    TypeMismatchError(where, target, argType);
    return ErrorValue(where);
  }
  code->AddLine(kTacStore, arg->GetAddr(), nilTacAddr, code->GetAddr());
  return code;
}

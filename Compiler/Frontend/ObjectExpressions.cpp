#include "Common/ObjectModel/ObjectLayout.h"
#include "Compiler/Frontend/Classes.h"
#include "Compiler/Frontend/ObjectExpressions.h"

#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/MethodDelegates.h"
#include "Compiler/Frontend/NilChecks.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

SemBase* FindVariable(char const* name) {
  return FindLocalSymbol(SemIdentifier::New(name));
}

// `PutParam object`, `PutParam record`, `Intrinsic f -> result`.
void CallWithRecord(IntrinsicID f, SemBase* object, SemBase* record,
                    SemBase* code) {
  if (record->Code()) code->Append(record);
  code->AddLine(kTacPutParam, object->GetAddr(), nilTacAddr, nilTacAddr);
  code->AddLine(kTacPutParam, record->GetAddr(), nilTacAddr, nilTacAddr);
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(f), nilTacAddr,
                code->GetAddr());
}

SimpleVector<string> TypeText(IRDataType const& type) {
  SimpleVector<string> text;
  text.push_back(type.ToString());
  return text;
}

// The run-time record of a class or an interface; null for other types.
SemBase* RecordOf(TypeSymbol* decl) {
  if (decl && decl->IsA(Symbol::kClass)) return LookupClassRecord(decl);
  if (decl && decl->IsA(Symbol::kInterface)) return LookupInterfaceRecord(decl);
  return nullptr;
}

}  // namespace

SemBase* CompileSelf() {
  SemBase* self = FindVariable("self");
  if (self) return self;
  Error(kErrorSelfOutsideClass);
  return ErrorValue(SourceLocation(current_line()));
}

SemBase* CompileMe() {
  SemBase* me = FindVariable("me");
  if (!me) me = FindVariable("self");
  if (me) return me;
  Error(kErrorMeOutsideClass);
  return ErrorValue(SourceLocation(current_line()));
}

SemBase* CompileSuper() {
  QASSERT(gContext);
  ClassSymbol* cls = gContext->blocks.CurrentClass();
  if (cls && cls->GetParent()) return SemIdentifier::New(cls->GetParent()->Name());
  Error(cls ? kErrorSuperWithoutParent : kErrorSuperOutsideClass);
  return ErrorValue(SourceLocation(current_line()));
}

SemBase* CompileNew(SemBase* type, SemBase* arguments, bool callConstructor) {
  QASSERT(type);
  SourceLocation where = type->Location();
  if (arguments) where = where + arguments->Location();
  IRDataType newType = type->GetType();
  SemBase* code = SemCode::New(newType, &where);
  ResetReturnTemp(code->GetAddr(), code);
  TypeSymbol* decl = newType.Declaration();
  if (decl && decl->IsA(Symbol::kClass)) {
    CreateNewClassInstance(static_cast<ClassSymbol*>(decl), arguments, code,
                           callConstructor);
  } else if (decl && decl->IsA(Symbol::kDelegate)) {
    QASSERT(callConstructor);
    CreateNewDelegateInstance(decl, arguments, code);
  } else if (decl && decl->IsA(Symbol::kInterface)) {
    Error(kErrorBadTypeUse, where, TypeText(newType));
    return ErrorValue(where);
  } else if (decl && decl->IsA(Symbol::kStructure)) {
    Error(kErrorTextOperand, where, TypeText(newType));
    return ErrorValue(where);
  } else if (decl && decl->IsA(Symbol::kEnum)) {
    Error(kErrorTextOperand120, where, TypeText(newType));
    return ErrorValue(where);
  } else {
    Error(kErrorNotAType, where);
    return ErrorValue(where);
  }
  return code;
}

SemBase* CompileIs(SemBase* left, SemBase* right) {
  if (!left || !right) {
    Error(kErrorSyntax);
    return SemCode::New(IRDataType(kBooleanType), nullptr);
  }
  SourceLocation where = left->Location() + right->Location();
  SemBase* code = SemCode::New(IRDataType(kBooleanType), &where);
  IRDataType object(kObjectType);
  TacAddr const* a = CompileRefAs(left, object, code)->GetAddr();
  TacAddr const* b = CompileRefAs(right, object, code)->GetAddr();
  code->AddLine(kTacEQ, a, b, code->GetAddr());
  return code;
}

// `x IsA Object` only tests that `x` is not nil.
SemBase* CompileIsA(SemBase* expr, SemBase* type) {
  QASSERT(expr);
  QASSERT(type);
  SourceLocation where = expr->Location() + type->Location();
  SemBase* code = SemCode::New(IRDataType(kBooleanType), &where);
  SemBase* object = CompileRefAs(expr, IRDataType(kObjectType), code);
  IRDataType tested = type->GetType();
  if (tested.GetMainType() != kObjectType) {
    Error(kErrorNotAType, type->Location());
    return ErrorValue(where);
  }
  TypeSymbol* decl = tested.Declaration();
  if (!decl) {
    code->AddLine(kTacNE, object->GetAddr(), gTacZero, code->GetAddr());
    return code;
  }
  bool delegate = decl->IsA(Symbol::kDelegate);
  SemBase* record = delegate ? LookupDelegateSignature(decl) : RecordOf(decl);
  if (!record) return code;
  CallWithRecord(delegate ? kIntrinsicRuntimeDelegateIsA
                          : kIntrinsicRuntimeObjectIsa,
                 object, record, code);
  return code;
}

SemBase* CompileClassReference(SemBase* type) {
  QASSERT(type);
  TypeSymbol* decl = type->GetType().Declaration();
  bool recorded = decl && (decl->IsA(Symbol::kClass) ||
                           decl->IsA(Symbol::kInterface));
  if (!recorded) Error(kErrorNotAType, type->Location());
  SemBase* record = RecordOf(decl);
  return record ? record : ErrorValue(type->Location());
}

SemBase* CompileLookupClassOfExpression(SemBase* expr) {
  QASSERT(expr);
  SemBase* code = SemCode::New(IRDataType(kClassType), &expr->Location());
  SemBase* object =
      CompileRefAs(CheckForNilObject(expr), IRDataType(kObjectType), code);
  TacAddr const* offset = CurrentTLP()->GetLiteral(kObjectClassOffset, kSInt32Type);
  code->AddLine(kTacPeek, object->GetAddr(), offset, code->GetAddr());
  return code;
}

#include "Compiler/Frontend/Enums.h"

#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

bool OnLineOf(Symbol* decl, SemBase* ident) {
  return decl->SourceLine() == ident->Location().mStartLine;
}

// A base type must count in a plain integer: 113 for what is no integer,
// 114 for an integer that carries a declaration (another enum).
void CheckEnumBase(SemBase* type) {
  IRDataType base = type->GetType();
  if (!base.IsInteger())
    Error(kErrorEnum, type->Location());
  else if (base.Declaration())
    Error(kErrorEnum114, type->Location());
}

EnumSymbol* EnumOf(SemBase* expr) {
  Symbol* symbol = expr->IsNamespace()
                       ? static_cast<SemNamespace*>(expr)->GetSymbol()
                       : expr->GetType().Declaration();
  QASSERT(symbol && symbol->IsA(Symbol::kEnum));
  return static_cast<EnumSymbol*>(symbol);
}

}  // namespace

SemBase* CompileEnum(SemBase* ident, SemBase* type) {
  QASSERT(ident);
  QASSERT(gContext);
  ModuleSymbol* module = gContext->blocks.CurrentModule();
  if (!module) return ident;  // a bare parse, without declarations
  TypeSymbol* decl = module->LookupType(ident->toString());
  // The scanner keeps the first type of a name: a second declaration finds
  // the first's line, and its values are not entered.
  if (!decl) {
    Error(kErrorUnknownName, ident->Location());
  } else if (!OnLineOf(decl, ident)) {
    Error(kErrorDuplicateName, ident->Location());
  } else {
    QASSERT_TEXT(decl->IsA(Symbol::kEnum), "typeDecl->IsA( Symbol::kEnum )");
    gContext->blocks.Enter(decl);
  }
  if (type) CheckEnumBase(type);
  return ident;
}

SemBase* CompileEnumValue(SemBase* ident, SemBase* value) {
  QASSERT(ident);
  EnumSymbol* decl = gContext->blocks.CurrentEnum();
  if (!decl) return ident;
  ConstantSymbol* constant = decl->LookupConstant(ident->toString());
  QASSERT_TEXT(constant, "valDecl");
  // Of two values of one name the later is the one found.
  if (!OnLineOf(constant, ident)) Error(kErrorDuplicateName, ident->Location());
  if (value) {
    QASSERT(value->IsConstant());
    if (!value->GetType().IsInteger()) Error(kErrorEnum, value->Location());
  }
  return ident;
}

SemBase* CompileEndEnum(SemBase* ident) {
  QASSERT(ident);
  EnumSymbol* decl = gContext->blocks.CurrentEnum();
  if (decl && decl->Name() == ident->toString()) gContext->blocks.Leave(decl);
  return SemCode::New(IRDataType(), &ident->Location());
}

SemBase* EnumScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                         SemBase* assignValue, FunctionResultMode mode) {
  QASSERT(expr);
  QASSERT(ident);
  EnumSymbol* decl = EnumOf(expr);
  SourceLocation where = expr->Location() + ident->Location();
  ConstantSymbol* constant = decl->LookupConstant(ident->toString());
  CompileErrorCode why = kErrorNone;
  if (!constant) why = kErrorUnknownName;
  else if (args) why = kErrorTooManyArguments;
  else if (assignValue) why = kErrorNotAssignable;
  else if (mode == kProhibitFunctionResult) why = kErrorNotCallable;
  if (why != kErrorNone) {
    Error(why, where);
    return FailedLookupValue(where, mode);
  }
  TacAddr const* value =
      gContext->GetLiteral(constant->GetValue(), constant->GetType());
  QASSERT_TEXT(value, "valAddr");
  return SemValue::New(value, &where);
}

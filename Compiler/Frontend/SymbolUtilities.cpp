#include "Compiler/Frontend/SymbolUtilities.h"

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"

namespace {

// 22: a variable of this method (or of this very table) has the name. A
// local may still shadow a variable found beyond the method's root.
CompileErrorCode VariableClash(LocalSymbolTable* cur, string const& name) {
  LocalSymbolTable* found = nullptr;
  if (!cur->LookupVariable(name, &found, nullptr)) return kErrorNone;
  if (found == cur || found->Root() == cur->Root()) return kErrorDuplicateName;
  return kErrorNone;
}

// 57, 58: a member of the class being declared. Only outside methods and
// outside a method table.
CompileErrorCode ClassClash(ClassSymbol* owner, string const& name) {
  CompileErrorCode code = kErrorNone;
  if (owner->LookupEvent(name)) code = kErrorDuplicateEvent;
  if (owner->LookupMethods(name, kPlainMethods)) code = kErrorNameUsedByClassMethod;
  return code;
}

// 56, 59, 60, 61: a declaration of the module, in that order of checking.
CompileErrorCode ModuleClash(ModuleSymbol* module, string const& name) {
  if (module->LookupMethodsRecursive(name, kPlainMethods))
    return kErrorNameUsedByMethod;
  if (module->LookupType(name)) return kErrorNameUsedByType;
  if (module->LookupModule(name)) return kErrorNameUsedByModule;
  if (module->LookupConstant(name)) return kErrorNameUsedByConstant;
  return kErrorNone;
}

}  // namespace

void AddSymbol(SemBase* sym) {
  QASSERT_TEXT(sym, "sym");
  QASSERT_TEXT(gContext, "gContext");
  gContext->mSymbols->AddVariable(sym->toString(), sym->GetType());
}

SemBase* AddDeclaredName(SemBase* ident) {
  QASSERT_TEXT(ident, "ident");
  QASSERT_TEXT(gContext, "gContext");
  VerifyUniqueName(ident);
  AddSymbol(ident);
  return ident;
}

void VerifyUniqueName(SemBase* ident) {
  QASSERT_TEXT(ident, "ident");
  QASSERT_TEXT(gContext, "gContext");
  string name = ident->toString();
  LocalSymbolTable* cur = gContext->mSymbols;
  CompileErrorCode code = VariableClash(cur, name);
  bool isMethod = cur->IsMethodTable();
  bool isObject = cur->IsObjectTable();
  BlockContextList const& blocks = gContext->blocks;
  if (code == kErrorNone && blocks.CurrentMethod()) {
    if (cur->LookupConstant(name)) code = kErrorNameUsedByConstant;
  } else if (code == kErrorNone) {
    ClassSymbol* owner = blocks.CurrentClass();
    if (owner && !isMethod) code = ClassClash(owner, name);
    ModuleSymbol* module = blocks.CurrentModule();
    if (code == kErrorNone && module && !isMethod && !isObject)
      code = ModuleClash(module, name);
  }
  if (code != kErrorNone) Error(code, ident->Location());
}

SemBase* FindLocalSymbol(SemBase* sym) {
  QASSERT_TEXT(sym, "sym");
  QASSERT_TEXT(gContext, "gContext");
  LocalSymbolTable* table = nullptr;
  VariableSymbol* var = nullptr;
  if (!gContext->mSymbols->LookupVariable(sym->toString(), &table, &var))
    return nullptr;
  if (!table->IsMethodTable()) return nullptr;
  return SemValue::New(var->GetAddr(), &sym->Location());
}

unsigned long PushSymTable(LocalSymbolTable* syms) {
  QASSERT_TEXT(syms, "syms");
  QASSERT_TEXT(gContext, "gContext");
  syms->Activate(gContext->mSymbols, current_line());
  gContext->mSymbols = syms;
  return gContext->mTables->AddTable(syms);
}

void PopSymTable() {
  QASSERT_TEXT(gContext, "gContext");
  QASSERT_TEXT(gContext->mSymbols, "gContext->mSymbols");
  gContext->mSymbols = gContext->mSymbols->Deactivate(current_line());
}

namespace {

VariableSymbol* RequireVariable(SemBase* ident) {
  QASSERT_TEXT(ident, "ident");
  QASSERT_TEXT(gContext, "gContext");
  LocalSymbolTable* table = nullptr;
  VariableSymbol* id = nullptr;
  QASSERT_TEXT(gContext->mSymbols->LookupVariable(ident->toString(), &table,
                                                  &id),
               "gContext->mSymbols->LookupVariable( ident->toString(), "
               "&table, &id )");
  return id;
}

}  // namespace

void ProhibitSymbolInitialization(SemBase* ident) {
  RequireVariable(ident)->ProhibitInitialization();
}

void ProhibitSymbolFinalization(SemBase* ident) {
  RequireVariable(ident)->ProhibitFinalization();
}

SemBase* FlattenExpression(SemBase* expr, SemBase* code) {
  QASSERT_TEXT(expr, "expr");
  QASSERT_TEXT(code, "code");
  if (!expr->Code()) return expr;
  code->Append(expr);
  TacAddr const* result = expr->GetAddr();
  QASSERT_TEXT(result != nilTacAddr and result and not result->IsConstant(),
               "expr->GetAddr() != nilTacAddr and not "
               "expr->GetAddr()->IsConstant()");
  return SemValue::New(result, &expr->Location());
}

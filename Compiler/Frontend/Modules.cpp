#include "Compiler/Frontend/Modules.h"

#include "Compiler/Frontend/GeneratedFunctions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

// The first module of the name in `enclosing`, in declaration order.
ModuleSymbol* FirstModuleNamed(ModuleSymbol* enclosing, string const& name) {
  ModuleSymbolIterator it = enclosing->IterateModules();
  while (it.Next())
    if (it.Value()->Name() == name) return it.Value();
  return nullptr;
}

// The module the scanner made for the block at `ident`; null without
// declarations (a bare parse). A second module of one name is compile
// error 22: the scanner dropped it inside a module, and at the top it
// stands behind the first.
ModuleSymbol* DeclaredModule(ModuleSymbol* enclosing, SemBase* ident) {
  if (!enclosing) return nullptr;
  string name = ident->toString();
  ModuleSymbol* first = FirstModuleNamed(enclosing, name);
  Symbol* own = enclosing->LookupDeclaration(name, gContext->mSourceName,
                                             ident->Location().mStartLine);
  if (own && own->IsA(Symbol::kModule) && own == first) return first;
  if (!first) {
    Error(kErrorUnknownName, ident->Location());
    return nullptr;
  }
  Error(kErrorDuplicateName, ident->Location());
  return own && own->IsA(Symbol::kModule) ? static_cast<ModuleSymbol*>(own)
                                          : first;
}

}  // namespace

SemBase* CompileModule(SemBase* ident) {
  QASSERT(gContext);
  QASSERT(ident);
  string name = ident->toString();
  // A module keeps its variables as static data, as the main body does.
  unsigned long table = PushSymTable(new StaticSymbolTable(name));
  SemBase* marker = SemValue::New(IntConstant(long(table)), &ident->Location());
  ModuleSymbol* module =
      DeclaredModule(gContext->blocks.CurrentModule(), ident);
  if (module) {
    gContext->blocks.Enter(module);
    QASSERT(gContext->blocks.CurrentModule());
  }
  return marker;
}

SemBase* CompileEndModule(SemBase* marker, SemBase* body) {
  QASSERT(gContext);
  // The block was entered if its module was found: the table opened with
  // it bears the module's name.
  ModuleSymbol* module = gContext->blocks.CurrentModule();
  if (module && !module->IsA(Symbol::kGlobal) &&
      module->Name() == gContext->mSymbols->mName)
    gContext->blocks.Leave(module);
  PopSymTable();
  return body;
}

#include "Compiler/Frontend/Initialization.h"

#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

void InitializeVariable(VariableSymbol* var, SemBase* code) {
  QASSERT(var);
  QASSERT(code);
  if (var->InitializationAllowed())
    code->AddLine(kTacZero, nilTacAddr, nilTacAddr, var->GetAddr());
}

void InitializeSymbols(LocalSymbolTable* table, SemBase* code) {
  if (!table) return;
  LocalVariableIterator it(table);
  while (it.Next()) InitializeVariable(it.Value(), code);
}

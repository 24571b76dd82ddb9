// Setting up variables when their scope opens: every local that the prolog
// may touch starts as all zero bits, so that a reference-counted local
// never releases garbage.
#ifndef COMPILER_FRONTEND_INITIALIZATION_H
#define COMPILER_FRONTEND_INITIALIZATION_H

class LocalSymbolTable;
class SemBase;
class VariableSymbol;

// `Zero` of the variable, unless its initialisation is prohibited
// (parameters, statics, a function's structure result).
void InitializeVariable(VariableSymbol* var, SemBase* code);
// The same for every variable of `table`, in declaration order; a null
// table does nothing.
void InitializeSymbols(LocalSymbolTable* table, SemBase* code);

#endif

// Releasing variables when their scope ends: every reference-counted
// variable that its scope owns gets one `Unlock`, which also sets it to
// nil. Parameters borrowed from the caller and a function's result are
// exempt.
#ifndef COMPILER_FRONTEND_FINALIZATION_H
#define COMPILER_FRONTEND_FINALIZATION_H

class ClassSymbol;
class LocalSymbolTable;
class PropertySymbol;
class SemBase;
class VariableSymbol;

// `Unlock` of a reference-counted variable whose finalisation is allowed.
void FinalizeVariable(VariableSymbol* var, SemBase* code);
// The same for every variable of `table`, in declaration order; a null
// table does nothing.
void FinalizeSymbols(LocalSymbolTable* table, SemBase* code);
// An instance field of the object whose base the code has set (Baseref).
void FinalizeInstanceProperty(PropertySymbol* property, SemBase* code);
// A shared or module property in static data.
void FinalizeStaticProperty(PropertySymbol* property, SemBase* code);
// The stored instance fields a class declares itself; its parents release
// their own.
void FinalizeClassProperties(ClassSymbol* owner, SemBase* code);

#endif

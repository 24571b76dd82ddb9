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
class TacAddr;
class VariableSymbol;

// The release of a counted global place (variable, Static local, module or
// shared property): cleared first, then its reference goes, so that a
// destructor the release runs neither finds the dying object there nor
// gives up its reference a second time by assigning to it.
void ReleaseGlobalPlace(TacAddr const* place, SemBase* code);
// `Unlock` of a reference-counted variable whose finalisation is allowed.
void FinalizeVariable(VariableSymbol* var, SemBase* code);
// The same for every variable of `table`, in declaration order; a null
// table does nothing.
void FinalizeSymbols(LocalSymbolTable* table, SemBase* code);
// The same for the globals of `table`, each cleared before its reference
// goes: a destructor that its release runs can still reach a global.
void FinalizeGlobalSymbols(LocalSymbolTable* table, SemBase* code);
// An instance field of the object whose base the code has set (Baseref).
void FinalizeInstanceProperty(PropertySymbol* property, SemBase* code);
// A shared or module property in static data, cleared before its
// reference goes.
void FinalizeStaticProperty(PropertySymbol* property, SemBase* code);
// The stored instance fields a class declares itself; its parents release
// their own.
void FinalizeClassProperties(ClassSymbol* owner, SemBase* code);

#endif

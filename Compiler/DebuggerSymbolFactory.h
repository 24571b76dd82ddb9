// Turns the compiler's symbols into debug data (DebuggerSymbols.h): the
// scopes of the compiled bodies, and the declarations of classes, modules,
// structures, enums and constants.
#ifndef COMPILER_DEBUGGERSYMBOLFACTORY_H
#define COMPILER_DEBUGGERSYMBOLFACTORY_H

#include "Compiler/DebuggerSymbols.h"
#include "Universal/ustring.h"

class LocalSymbolTable;
class LocalSymbolTableList;
class ModuleSymbol;

// A table named as the scope, of `unitName`, with the scope's lines and one
// symbol for each variable a user can see, in the scope's order. Compiler
// temporaries and block shadows are hidden from users and left out.
DebuggerSymbolTable* ConvertSymbolTable(string const& unitName,
                                        LocalSymbolTable* table);

// Every scope of a compilation that keeps debug data and has a visible
// variable joins `data->mLocalTables`, in the order of the list.
void CopyLocalSymbolsToDebugData(string const& unitName,
                                 LocalSymbolTableList* tables,
                                 DebuggerCodeModuleData* data);

// The declarations of `module` and of the modules in it, recursively:
// classes (their stored properties, the superclass's included), structures
// (their fields), enums, modules (their stored properties), and the
// constants of each. A table with nothing in it is left out.
void CopyGlobalSymbolsToDebugData(ModuleSymbol* module,
                                  DebuggerCodeModuleData* data);

#endif

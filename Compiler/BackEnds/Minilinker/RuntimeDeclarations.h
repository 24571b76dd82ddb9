// The declarations every script is compiled against: the runtime's own
// methods and exception classes.
#ifndef COMPILER_BACKENDS_MINILINKER_RUNTIMEDECLARATIONS_H
#define COMPILER_BACKENDS_MINILINKER_RUNTIMEDECLARATIONS_H

#include "Compiler/datatypes.h"
#include "Universal/ustring.h"

class ClassSymbol;
class GlobalSymbolTable;
class MethodSymbol;
class QuorlScriptCorrespondent;

// An external method of the runtime: dispatch Normal, its link name, and a
// parameter "Parameter1".."Parameter3" for each main type that is not
// kNoType.
MethodSymbol* MakeRuntimeMethodDeclaration(string const& linkName,
                                           string const& name,
                                           SimpleDataType returnType,
                                           SimpleDataType p1 = kNoType,
                                           SimpleDataType p2 = kNoType,
                                           SimpleDataType p3 = kNoType);

// A new table with Input and Print (the correspondent passed silently as
// their first argument) and RuntimeException with its subclasses. The
// caller owns it.
GlobalSymbolTable* MakeQuorlScriptRuntimeDeclarations(
    QuorlScriptCorrespondent* correspondent);

#endif

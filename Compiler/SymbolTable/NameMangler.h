// Link names: the plain strings by which the code generator and the linker
// join code and data. Qualified names use dots; a method's signature is
// written behind its name between percent signs, with one-character
// designators for setters, param arrays and extensions, and a compact code
// per type. Two declarations with one link name are one method to the
// linker, so every overload gets its own.
#ifndef COMPILER_SYMBOLTABLE_NAMEMANGLER_H
#define COMPILER_SYMBOLTABLE_NAMEMANGLER_H

#include "Compiler/datatypes.h"
#include "Universal/ustring.h"

class MethodSymbol;

// `name` alone for an empty qualifier, else qualifier "." name.
string QualifyName(string const& qualifier, string const& name);
// The link name of a method: an external one keeps its link ID, an aliased
// one its fixed name; all others are mangled behind `qualifier`.
string MangledMethodName(MethodSymbol* method, string qualifier);
// Appends a parameter's code, opening the signature ("%%") if need be.
string AddParameterDescriptionToName(string name, IRDataType const& type);
// Puts the return type's code after the first "%" of the signature, or
// appends a signature "%code%" if there is none.
string AddReturnTypeDescriptionToName(string name, IRDataType const& type);
// Inserts `designator` after the last "." of `name`, or at its front.
string AddDesignatorToName(string name, string designator);
string AddAssignsDesignatorToName(string name);
string AddExtendsDesignatorToName(string name);
string AddParamArrayDesignatorToName(string name);
// className ":" interfaceName: a class's implementation of an interface.
string AddInterfaceToClassName(string className, string interfaceName);
// "~" className: the old-style destructor's name.
string MakeOldDestructorBaseName(string className);
// className ".__Lookup%x%".
string ClassLookupFunctionLinkName(string className);
// The compact code of a type ("i4", "A1s", "o<Shape>").
string TypeCode(IRDataType const& type);
// The same code written into `buf`; gives the position behind it.
char* RawTypeCode(char* buf, IRDataType const& type);

#endif

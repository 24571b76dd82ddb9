// Small pieces of declaration text shared by the prototypes.
#ifndef COMPILER_SYMBOLTABLE_SYMBOLTEXTHELPERS_H
#define COMPILER_SYMBOLTABLE_SYMBOLTEXTHELPERS_H

#include "Compiler/datatypes.h"
#include "Universal/ustring.h"

// "(", one "," per dimension past the first, ")" for an array (also behind
// a reference); empty otherwise.
string ArraySuffix(IRDataType const& type);
// The text of the type with reference and array stripped.
string ElementTypeText(IRDataType const& type);
// " As " and the type's text, or nothing for the null type.
string AsClause(IRDataType const& type);

#endif

// Type names as written in declarations: plain and dotted names, Object
// and Class, and array ranks.
#ifndef COMPILER_FRONTEND_TYPENAMES_H
#define COMPILER_FRONTEND_TYPENAMES_H

#include "Compiler/datatypes.h"

class SemBase;

// type_name: Object; type_name: Class
SemBase* BasicType(int token);
// The type that a name spells: a built-in name, else a type declared in
// the current class (or inherited from its superclasses), else in the
// current module or one it sees.
IRDataType ResolveType(string const& name);
// The identifier with its type set; a name that is no type is compile
// error 63.
SemBase* CompileType(SemBase* ident);
// type_name: type_prefix IDENT. The prefix names modules from the root
// (11 when one is missing, 127 when private), and may end in a class
// whose nested types follow; a private type is 121, and so is a type
// nested in a class that the current code may not see. A bad name
// becomes Int32, so that it draws no further reports.
SemBase* CompileType(SemBase* prefix, SemBase* name);
class ClassSymbol;
class TypeSymbol;
// Whether the current code may name `decl`, a type nested in `owner` or
// one of its superclasses: a private one only from the class that
// declares it, a protected one from its subclasses too.
bool MayUseNestedType(ClassSymbol* owner, TypeSymbol* decl);
// type_spec: type_name array_rank; param_type: array_rank As type_name
SemBase* ArrayType(SemBase* element, SemBase* rank);
// array_rank: ( rank_commas )
SemBase* ArrayRank(SemBase* commas);

#endif

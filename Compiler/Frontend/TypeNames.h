// Type names as written in declarations: plain and dotted names, Object
// and Class, and array ranks.
//
// PARTLY STAND-IN FOR NOW: names resolve through the built-in type table
// only; dotted prefixes and declared types come with the declaration tree.
#ifndef COMPILER_FRONTEND_TYPENAMES_H
#define COMPILER_FRONTEND_TYPENAMES_H

#include "Compiler/datatypes.h"

class SemBase;

// type_name: Object; type_name: Class
SemBase* BasicType(int token);
// The type that a name spells.
IRDataType ResolveType(string const& name);
// The identifier with its type set.
SemBase* CompileType(SemBase* ident);
// type_name: type_prefix IDENT
SemBase* CompileType(SemBase* prefix, SemBase* name);
// type_spec: type_name array_rank; param_type: array_rank As type_name
SemBase* ArrayType(SemBase* element, SemBase* rank);
// array_rank: ( rank_commas )
SemBase* ArrayRank(SemBase* commas);

#endif

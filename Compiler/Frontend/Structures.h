// Structures: the actions of a Structure block, which check each field
// against the layout the declaration pass computed, and member access on
// structure values: fields, Size, StringValue and EndianSwap.
#ifndef COMPILER_FRONTEND_STRUCTURES_H
#define COMPILER_FRONTEND_STRUCTURES_H

#include "Compiler/Frontend/FunctionResultMode.h"

class SemBase;

// structure_def: the structure-start marker
SemBase* CompileStructure(SemBase* ident);
// structure_field: IDENT opt_field_count As type_name opt_field_size EOL
SemBase* CompileStructureField(SemBase* ident, SemBase* count, SemBase* type,
                               SemBase* size);
// structure_def: Structure IDENT EOL [structure-start] opt_structure_fields
//   End Structure EOL
SemBase* CompileEndStructure(SemBase* name, SemBase* marker, SemBase* fields);

// `expr.name [= value]` on a structure value (or a reference to one).
SemBase* StructureScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                              SemBase* assignValue, FunctionResultMode mode);
// `Name.Size` on the structure's type name.
SemBase* StaticStructureScopeLookup(SemBase* expr, SemBase* ident,
                                    SemBase* args, SemBase* assignValue,
                                    FunctionResultMode mode);

#endif

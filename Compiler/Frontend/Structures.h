// Structures: the head, each field and the end of a Structure block.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_STRUCTURES_H
#define COMPILER_FRONTEND_STRUCTURES_H

class SemBase;

// structure_def: the structure-start marker
SemBase* CompileStructure(SemBase* ident);
// structure_field: IDENT opt_field_count As type_name opt_field_size EOL
SemBase* CompileStructureField(SemBase* ident, SemBase* count, SemBase* type,
                               SemBase* size);
// structure_def: Structure IDENT EOL [structure-start] opt_structure_fields
//   End Structure EOL
SemBase* CompileEndStructure(SemBase* name, SemBase* marker, SemBase* fields);

#endif

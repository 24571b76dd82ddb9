// Enumerations: the head, each value and the end of an Enum block.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_ENUMS_H
#define COMPILER_FRONTEND_ENUMS_H

class SemBase;

// enum_def: the enum-start marker
SemBase* CompileEnum(SemBase* ident, SemBase* type);
// enum_value: IDENT opt_enum_init EOL
SemBase* CompileEnumValue(SemBase* ident, SemBase* value);
// enum_def: Enum IDENT opt_enum_base EOL [enum-start] opt_enum_values End Enum
// EOL
SemBase* CompileEndEnum(SemBase* ident);

#endif

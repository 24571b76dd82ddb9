#include "Compiler/Frontend/Enums.h"

#include "Compiler/SemBase.h"

// enum_def: the enum-start marker
SemBase* CompileEnum(SemBase* ident, SemBase* type) { return ident; }

// enum_value: IDENT opt_enum_init EOL
SemBase* CompileEnumValue(SemBase* ident, SemBase* value) { return ident; }

// enum_def: Enum IDENT opt_enum_base EOL [enum-start] opt_enum_values End Enum
// EOL
SemBase* CompileEndEnum(SemBase* ident) {
  return SemCode::New(IRDataType(), nullptr);
}

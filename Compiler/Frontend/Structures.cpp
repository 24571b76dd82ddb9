#include "Compiler/Frontend/Structures.h"

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/SemBase.h"

// structure_def: the structure-start marker
SemBase* CompileStructure(SemBase* ident) {
  return SemValue::New(CurrentTLP()->GetLiteral(0, kSInt32Type), nullptr);
}

// structure_field: IDENT opt_field_count As type_name opt_field_size EOL
SemBase* CompileStructureField(SemBase* ident, SemBase* count, SemBase* type,
                               SemBase* size) {
  return ident;
}

// structure_def: Structure IDENT EOL [structure-start] opt_structure_fields
//   End Structure EOL
SemBase* CompileEndStructure(SemBase* name, SemBase* marker, SemBase* fields) {
  return SemCode::New(IRDataType(), nullptr);
}

#include "Compiler/Frontend/LabelUtilities.h"

#include "Compiler/SemBase.h"

// goto_statement: GoTo IDENT
SemBase* CompileGoto(SemBase* ident) {
  return SemCode::New(IRDataType(), nullptr);
}

// label_statement: IDENT : EOL
SemBase* CompileLabel(SemBase* ident) {
  return SemCode::New(IRDataType(), nullptr);
}

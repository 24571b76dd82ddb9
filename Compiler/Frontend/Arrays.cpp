#include "Compiler/Frontend/Arrays.h"

#include "Compiler/SemBase.h"

// object_ref: Array paren_args
SemBase* CompileArrayFactory(SemBase* list, IRDataType const& elementType) {
  return SemCode::New(IRDataType(), nullptr);
}

// redim_statement: Redim IDENT paren_args; Redim object_ref . IDENT paren_args
SemBase* CompileRedim(SemBase* array, SemBase* sizes) {
  return SemCode::New(IRDataType(), nullptr);
}

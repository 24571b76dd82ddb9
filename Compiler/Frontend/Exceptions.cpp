#include "Compiler/Frontend/Exceptions.h"

#include "Compiler/SemBase.h"

// try_statement: the try-start marker
SemBase* CompileTry() { return SemCode::New(IRDataType(), nullptr); }

// try_statement: Try EOL [try-start] block exception_handlers opt_finally
//   try_end EOL
SemBase* CompileEndTry(SemBase* tryCode, SemBase* handlers) {
  return SemCode::New(IRDataType(), nullptr);
}

// exception_handler: exception_keyword [IDENT [As type_name]] EOL block
SemBase* CompileExceptionBlock(SemBase* body, SemBase* exceptionVar,
                               SemBase* exceptionType) {
  return SemCode::New(IRDataType(), nullptr);
}

// finally_block: Finally EOL block
SemBase* MakeDefaultExceptionHandler(SemBase* code) {
  return SemCode::New(IRDataType(), nullptr);
}

// raise_statement: Raise expr
SemBase* CompileRaiseException(SemBase* expr) {
  return SemCode::New(IRDataType(), nullptr);
}

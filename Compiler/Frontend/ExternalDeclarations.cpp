#include "Compiler/Frontend/ExternalDeclarations.h"

#include "Compiler/SemBase.h"

// extern_method: Sub|Function IDENT [extern-scope] Lib lib_name opt_alias
//   opt_extern_params [opt_extern_return] opt_inline68k
SemBase* CompileExternDeclaration(SemBase* ident, SemBase* lib, SemBase* alias,
                                  SemBase* params, SemBase* returnType) {
  return SemCode::New(IRDataType(), nullptr);
}

// lib_name: IDENT
SemBase* CompileExternLib(SemBase* lib) { return lib; }

// opt_alias: IDENT STRING
SemBase* CompileExternAlias(SemBase* word, SemBase* value) {
  return ConcatList(word, value);
}

// External declarations: Declare Sub and Declare Function.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_EXTERNALDECLARATIONS_H
#define COMPILER_FRONTEND_EXTERNALDECLARATIONS_H

class SemBase;

// extern_method: Sub|Function IDENT [extern-scope] Lib lib_name opt_alias
//   opt_extern_params [opt_extern_return] opt_inline68k
SemBase* CompileExternDeclaration(SemBase* ident, SemBase* lib, SemBase* alias,
                                  SemBase* params, SemBase* returnType);
// lib_name: IDENT
SemBase* CompileExternLib(SemBase* lib);
// opt_alias: IDENT STRING
SemBase* CompileExternAlias(SemBase* word, SemBase* value);

#endif

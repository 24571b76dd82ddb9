// External declarations: Declare Sub and Declare Function, which call C
// functions of shared libraries, and the typed memory methods of a Ptr
// value (`p.Int32(4)`, `p.Int32(4) = 1`).
#ifndef COMPILER_FRONTEND_EXTERNALDECLARATIONS_H
#define COMPILER_FRONTEND_EXTERNALDECLARATIONS_H

#include "Compiler/CompileError.h"
#include "Compiler/Frontend/FunctionResultMode.h"
#include "Compiler/datatypes.h"
#include "Universal/ustring.h"

class SemBase;

// extern_method: Sub|Function IDENT [extern-scope] Lib lib_name opt_alias
//   opt_extern_params [opt_extern_return] opt_inline68k
SemBase* CompileExternDeclaration(SemBase* ident, SemBase* lib, SemBase* alias,
                                  SemBase* params, SemBase* returnType);
// lib_name: IDENT, a constant whose value names the library.
SemBase* CompileExternLib(SemBase* lib);
// opt_alias: IDENT STRING, where the word is Alias or Selector.
SemBase* CompileExternAlias(SemBase* word, SemBase* value);

// Whether a Declare's library names a function of a host plug-in, which
// the host serves when the program is linked, and whose types are free.
bool IsPluginLibrary(string const& library);

// 0, or the compile error for a type that cannot cross into C code.
CompileErrorCode TestExternalType(IRDataType const& type);

// Whether `name` names a type that a Ptr can read or write.
bool IsPotentialPtrMethodName(SemBase* name);
// `target.Type([offset])`, or with `value` its assignment.
SemBase* HandlePtrMethodCall(SemBase* target, SemBase* type, SemBase* args,
                             SemBase* value, FunctionResultMode mode);

#endif

#include "Compiler/Frontend/MethodDelegates.h"

#include "Compiler/SemBase.h"

// delegate_decl: Delegate method_signature
SemBase* CompileDelegate(SemBase* ident) {
  return SemCode::New(IRDataType(), nullptr);
}

// address_of: AddressOf IDENT
SemBase* CompileAddressOf(SemBase* ident) {
  return SemCode::New(IRDataType(), nullptr);
}

// address_of: AddressOf object_ref . IDENT
SemBase* CompileAddressOf(SemBase* base, SemBase* ident) {
  return SemCode::New(IRDataType(), nullptr);
}

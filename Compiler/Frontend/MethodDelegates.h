// Delegates: Delegate declarations and AddressOf.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_METHODDELEGATES_H
#define COMPILER_FRONTEND_METHODDELEGATES_H

class SemBase;

// delegate_decl: Delegate method_signature
SemBase* CompileDelegate(SemBase* ident);
// address_of: AddressOf IDENT
SemBase* CompileAddressOf(SemBase* ident);
// address_of: AddressOf object_ref . IDENT
SemBase* CompileAddressOf(SemBase* base, SemBase* ident);

#endif

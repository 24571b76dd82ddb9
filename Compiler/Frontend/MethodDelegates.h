// Delegates: Delegate declarations, AddressOf, New D(ptr), comparison,
// and the two texts that describe a delegate's shape.
//
// A delegate is a run-time object holding a method's code, the object the
// method is bound to (or nil), and an invoker stub. Every call through a
// delegate enters the stub with the delegate and the arguments; the stub
// calls the method with them, putting the bound object in front for an
// instance method. Stubs are made once per shape and kind.
#ifndef COMPILER_FRONTEND_METHODDELEGATES_H
#define COMPILER_FRONTEND_METHODDELEGATES_H

#include "Compiler/Frontend/FunctionResultMode.h"
#include "Compiler/InterRep.h"
#include "Compiler/datatypes.h"
#include "Universal/ustring.h"

class MethodSymbol;
class SemBase;
class TypeSymbol;

// delegate_decl: Delegate method_signature. Checks the declaration the
// scanner made: compile errors 22, 130 (an optional parameter) and 131 (an
// Extends, Assigns or ParamArray parameter).
SemBase* CompileDelegate(SemBase* ident);
// address_of: AddressOf IDENT. A local, class or module method, the
// nearest scope that has one; an instance method is bound to Self.
SemBase* CompileAddressOf(SemBase* ident);
// address_of: AddressOf object_ref . IDENT. A method of a module, a shared
// method of a class, or a method of an object, bound to it; a virtual one
// is taken from the object's class now.
SemBase* CompileAddressOf(SemBase* base, SemBase* ident);

// `New D(ptr)`: a delegate of type `decl` around the code at `ptr`, into
// `code`'s result. Refused in script mode (compile error 134).
void CreateNewDelegateInstance(TypeSymbol* decl, SemBase* args, SemBase* code);
// `a = b` and `a <> b` of delegates: the same method on the same object.
// Other operators are compile error 12.
SemBase* DelegateBinop(SemBase* left, unsigned long op, SemBase* right);
// `D.name`: a delegate type has no members of its own (compile error 11).
SemBase* StaticDelegateScopeLookup(SemBase* expr, SemBase* ident,
                                   SemBase* args, SemBase* assignValue,
                                   FunctionResultMode mode);

// Whether a delegate of type `from` may stand where one of type `to` is
// wanted: equal return types and parameter types, names and roles aside.
bool DelegateSignaturesMatch(IRDataType const& to, IRDataType const& from);
// The type signature of a delegate type, as a String literal value.
SemBase* LookupDelegateSignature(TypeSymbol* decl);

// The shape of a method as the invoker stubs tell it apart: return and
// parameter codes, Self left out ("%s%i4").
string DelegateLinkSignature(MethodSymbol* method);
// The shape as text, kept in each delegate for IsA and casts:
// "( Int32, String ) as String".
string DelegateTypeSignature(MethodSymbol* method);
// A new delegate type of `method`'s shape, owned by the compilation.
IRDataType MakeImplicitDelegateType(MethodSymbol* method);
// A pointer to the stub for delegates of `method`'s shape, made on first
// use; `instanceMethod` asks for the one that passes the bound object.
// The pointer's temporary is made in `code`.
TacAddr const* LookupInvokerStub(MethodSymbol* method, bool instanceMethod,
                                 SemBase* code);

#endif

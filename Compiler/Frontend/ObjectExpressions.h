// Expressions about objects: Self, Me, Super, New, the identity and class
// tests, and class records as values.
#ifndef COMPILER_FRONTEND_OBJECTEXPRESSIONS_H
#define COMPILER_FRONTEND_OBJECTEXPRESSIONS_H

class SemBase;

// object_ref: Self. The variable `self`; without one, compile error 32 and
// the error value, so that `Self.x` draws no second report.
SemBase* CompileSelf();
// object_ref: Me. `me`, else `self`; compile error 33 without either.
SemBase* CompileMe();
// object_ref: Super. The parent class's name, for a scope lookup; outside
// a class compile error 41, in a class without parent 42.
SemBase* CompileSuper();
// expr: New type_name opt_paren_args; dim_clause: ... As New type_name.
// Without `callConstructor` the object is made and left as it is.
SemBase* CompileNew(SemBase* type, SemBase* arguments, bool callConstructor);
// expr: expr Is expr: the identity of two references.
SemBase* CompileIs(SemBase* left, SemBase* right);
// expr: expr IsA type_name
SemBase* CompileIsA(SemBase* expr, SemBase* type);
// class_ref: Class type_name
SemBase* CompileClassReference(SemBase* type);
// class_ref: Class Of object_ref
SemBase* CompileLookupClassOfExpression(SemBase* expr);

#endif

// Expressions about objects: Self, Me, Super, New, the identity and class
// tests, and class records as values.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_OBJECTEXPRESSIONS_H
#define COMPILER_FRONTEND_OBJECTEXPRESSIONS_H

class SemBase;

// object_ref: Self
SemBase* CompileSelf();
// object_ref: Me
SemBase* CompileMe();
// object_ref: Super
SemBase* CompileSuper();
// expr: New type_name opt_paren_args; dim_clause: ... As New type_name
SemBase* CompileNew(SemBase* type, SemBase* arguments, bool callConstructor);
// expr: expr Is expr
SemBase* CompileIs(SemBase* left, SemBase* right);
// expr: expr IsA type_name
SemBase* CompileIsA(SemBase* expr, SemBase* type);
// class_ref: Class type_name
SemBase* CompileClassReference(SemBase* type);
// class_ref: Class Of object_ref
SemBase* CompileLookupClassOfExpression(SemBase* expr);

#endif

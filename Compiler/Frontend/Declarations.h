// Declarations in statements: Dim, Dim ... As New, Static and Const.
//
// STAND-INS FOR NOW: each returns code of the null type (Const nothing)
// until local tables can declare variables.
#ifndef COMPILER_FRONTEND_DECLARATIONS_H
#define COMPILER_FRONTEND_DECLARATIONS_H

class SemBase;

// const_statement: Const IDENT = const_value EOL
SemBase* CompileConst(SemBase* name, SemBase* value);
// dim_clause: dim_variables As type_name [= expr]; loop-var; each-var
SemBase* CompileDeclaration(SemBase* names, SemBase* type, SemBase* initial);
// dim_clause: dim_variables As New type_name opt_paren_args
SemBase* CompileNewObjectDeclaration(SemBase* names, SemBase* type,
                                     SemBase* arguments);
// dim_statement: Static [static-mode] dim_declaration EOL
SemBase* CompileStaticDeclaration(SemBase* code);

#endif

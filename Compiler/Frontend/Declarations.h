// Declarations in statements: Dim, Dim ... As New, Static and Const.
#ifndef COMPILER_FRONTEND_DECLARATIONS_H
#define COMPILER_FRONTEND_DECLARATIONS_H

class SemBase;

// const_statement: Const IDENT = const_value EOL. Inside a method a local
// constant; elsewhere the scanner declared it, and this only validates.
SemBase* CompileConst(SemBase* name, SemBase* value);
// dim_clause: dim_variables As type_name [= expr]; loop-var; each-var.
// `names` is one identifier or a flat list in which each identifier is
// followed by its bounds. A non-constant initial value is evaluated once
// for all the names.
SemBase* CompileDeclaration(SemBase* names, SemBase* type, SemBase* initial);
// dim_clause: dim_variables As New type_name opt_paren_args; one name only.
SemBase* CompileNewObjectDeclaration(SemBase* names, SemBase* type,
                                     SemBase* arguments);
// dim_statement: Static [static-mode] dim_declaration EOL. The initialising
// code runs once, behind a static flag; the table returns to normal
// storage.
SemBase* CompileStaticDeclaration(SemBase* code);

#endif

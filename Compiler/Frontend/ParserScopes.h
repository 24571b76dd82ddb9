// The scopes that the grammar's mid-rule markers open and close: a method's
// local table, the table of an external or event or signature declaration,
// an interface's table, a statement block's table, a handler's table with
// its exception variable, and the storage modes of Static and Soft Declare.
//
// Every table opened here joins the compilation's list through
// PushSymTable; the closing action (CompileStatementBlock, CompileEndFunction,
// CloseScope, or the interface's end) pops it.
#ifndef COMPILER_FRONTEND_PARSERSCOPES_H
#define COMPILER_FRONTEND_PARSERSCOPES_H

class SemBase;

// sub-scope, func-scope: a method table named after `name`, and self
// unless `shared`; yields the table's index as a literal.
SemBase* OpenMethodScope(SemBase* name, SemBase* shared);
// extern-scope, event-scope, signature-scope: a method table named after
// `name`, closed by CloseScope.
void OpenSignatureScope(SemBase* name);
// interface-scope: an object table named after `name`; yields its index.
SemBase* OpenInterfaceScope(SemBase* name);
// for-scope, block-scope: a block table, closed by CompileStatementBlock.
void OpenBlockScope();
// catch-default (`type` nil: RuntimeException), catch-typed: a block table
// holding the exception variable `var`; yields the declared variable.
SemBase* OpenCatchScope(SemBase* var, SemBase* type);
// Pops the innermost table.
void CloseScope();
// static-mode, weak-mode: how the current table declares what follows.
void EnterStaticStorageMode();
void EnterWeakDeclarationMode();

#endif

// The front door through which the grammar's actions use the local tables:
// declaring names, finding local variables, opening and closing scopes,
// and the language's rule on which names may be declared where.
#ifndef COMPILER_FRONTEND_SYMBOLUTILITIES_H
#define COMPILER_FRONTEND_SYMBOLUTILITIES_H

class LocalSymbolTable;
class SemBase;

// A variable of the identifier's name and type in the current table.
void AddSymbol(SemBase* sym);
// Checks the name (VerifyUniqueName), then adds it; gives `ident` back.
SemBase* AddDeclaredName(SemBase* ident);
// Reports compile error 22, 56, 57, 58, 59, 60 or 61 when the name clashes
// with what is already declared where it stands. The caller adds the name
// all the same.
void VerifyUniqueName(SemBase* ident);
// The variable's operand at the identifier's place, if it is a variable of
// the current method or its blocks; else null.
SemBase* FindLocalSymbol(SemBase* sym);
// Opens `syms` inside the current table and makes it current; the
// compilation keeps it. Gives its index in the compilation's list.
unsigned long PushSymTable(LocalSymbolTable* syms);
// Makes the enclosing table current again.
void PopSymTable();
// Keeps the prolog or the epilog from touching a variable: for parameters
// and a function's result.
void ProhibitSymbolInitialization(SemBase* ident);
void ProhibitSymbolFinalization(SemBase* ident);
// Moves the code of `expr` into `code` and gives a plain value of its
// result, usable several times; a value without code is given back as is.
SemBase* FlattenExpression(SemBase* expr, SemBase* code);

#endif

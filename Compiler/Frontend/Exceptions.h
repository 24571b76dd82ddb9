// Exceptions in statements: Try, its handlers and Finally, handlers in
// method bodies, and Raise.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_EXCEPTIONS_H
#define COMPILER_FRONTEND_EXCEPTIONS_H

class SemBase;

// try_statement: the try-start marker
SemBase* CompileTry();
// try_statement: Try EOL [try-start] block exception_handlers opt_finally
//   try_end EOL
SemBase* CompileEndTry(SemBase* tryCode, SemBase* handlers);
// exception_handler: exception_keyword [IDENT [As type_name]] EOL block
SemBase* CompileExceptionBlock(SemBase* body, SemBase* exceptionVar,
                               SemBase* exceptionType);
// finally_block: Finally EOL block
SemBase* MakeDefaultExceptionHandler(SemBase* code);
// raise_statement: Raise expr
SemBase* CompileRaiseException(SemBase* expr);

#endif

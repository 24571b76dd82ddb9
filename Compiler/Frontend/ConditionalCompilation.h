// Conditional compilation: #if, #elseif, #else and #endif. The directives
// are statements of the grammar whose actions move the lexer past the
// lines of false branches; so they stand only where a statement can.
//
// The context keeps the count of open #if blocks and, per block, whether a
// branch has been taken.
#ifndef COMPILER_FRONTEND_CONDITIONALCOMPILATION_H
#define COMPILER_FRONTEND_CONDITIONALCOMPILATION_H

class SemBase;

// cond_expr: expr Then. At the end of the line this is the block form and
// yields `expr`; otherwise the one-line form: a false or unusable condition
// skips the statement behind it, and the result is nil.
SemBase* CompileConditionalIfStatement(SemBase* expr, SemBase* then);
// cond_if: #if cond_expr opt_inline_statement EOL
SemBase* CompileConditionalIf(SemBase* expr, SemBase* statement);
// cond_elseif: #elseif expr opt_cond_then EOL
void CompileConditionalElseIf(SemBase* expr);
// cond_else: #else EOL
void CompileConditionalElse();
// cond_endif: #endif EOL
void CompileConditionalEndIf();

#endif

// The actions at the top of the grammar: the program itself, statement
// blocks, debugger entries, scope words, reserved words as names, and the
// release of a statement's temporaries.
#ifndef COMPILER_FRONTEND_PROGRAMASSEMBLY_H
#define COMPILER_FRONTEND_PROGRAMASSEMBLY_H

class SemBase;

// program: (empty); program: top_items. Builds the context's program code:
// the main body "% main" from the top-level statements (unless the unit is
// a library), then every function in source order, then the stubs.
SemBase* CompileProgram();
// top_items: top_item; top_items top_item. Moves the item's code to the
// statements or functions gathered so far and releases its semantic
// values, sparing `lookahead` (the parser's lookahead token's value, or
// null).
void CollectTopItem(SemBase* item, SemBase* lookahead);
// block: [block-scope] opt_statements; for_statement. Zeroes the block's
// variables before `code`, releases them after it, and closes the scope.
SemBase* CompileStatementBlock(SemBase* code);
// statement: simple_statement EOL; statement: label_statement;
// dim_statement: Dim dim_declaration EOL; case-start
SemBase* CompileDebugEntry(SemBase* code);
// statement: dim_statement; simple_statement: call, redim, assignment,
// explicit_call, raise_event; dim_declaration; simple_property. The
// temporaries of `code` are released right after it.
SemBase* FilterTemporaryVariables(SemBase* code);
// opt_scope: (empty) | Global | Public | Private | Protected
SemBase* CompileScope(int token);
// declared_name: reserved_name
SemBase* CompileReservedIdentifier();

#endif

// The actions at the top of the grammar: the program itself, statement
// blocks, debugger entries, scope words, reserved words as names, and the
// release of a statement's temporaries.
//
// PARTLY STAND-IN FOR NOW: CompileProgram appends the items that carry code
// in source order, without the main body's frame of runtime calls and
// without telling functions apart; CompileStatementBlock and
// FilterTemporaryVariables pass code through, and CompileScope only accepts
// its token, until local tables and variable release exist.
#ifndef COMPILER_FRONTEND_PROGRAMASSEMBLY_H
#define COMPILER_FRONTEND_PROGRAMASSEMBLY_H

class SemBase;

// program: (empty); program: top_items
SemBase* CompileProgram(SemBase* items);
// block: [block-scope] opt_statements; for_statement
SemBase* CompileStatementBlock(SemBase* code);
// statement: simple_statement EOL; statement: label_statement;
// dim_statement: Dim dim_declaration EOL; case-start
SemBase* CompileDebugEntry(SemBase* code);
// statement: dim_statement; simple_statement: call, redim, assignment,
// explicit_call, raise_event; dim_declaration; simple_property
SemBase* FilterTemporaryVariables(SemBase* code);
// opt_scope: (empty) | Global | Public | Private | Protected
SemBase* CompileScope(int token);
// declared_name: reserved_name
SemBase* CompileReservedIdentifier();

#endif

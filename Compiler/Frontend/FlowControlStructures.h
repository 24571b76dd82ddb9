// Flow control: If, Select Case, the loops, Exit and Continue. Each block
// opens with an action that enters a BlockContext and yields its head code,
// and closes with one that assembles the whole from head, conditions and
// bodies, with labels from NewLabel.
#ifndef COMPILER_FRONTEND_FLOWCONTROLSTRUCTURES_H
#define COMPILER_FRONTEND_FLOWCONTROLSTRUCTURES_H

#include "Compiler/Frontend/BlockContext.h"

class SemBase;

// block_if: the if-start marker; inline_if
SemBase* CompileIf();
// elseif_block: ElseIf expr opt_then EOL block
SemBase* CompileElseIf(SemBase* cond, SemBase* body);
// block_if: If expr opt_then EOL [if-start] block opt_elseif_blocks
//   opt_else_block if_end EOL
SemBase* CompileEndIf(SemBase* cond, SemBase* head, SemBase* thenBody,
                      SemBase* elseIfs, SemBase* elseBody);
// inline_if: If expr opt_then simple_statement opt_inline_else EOL
SemBase* CompileInlineIf(SemBase* cond, SemBase* thenBody, SemBase* elseBody);
// select_head: Select Case expr EOL. The selector is evaluated once.
SemBase* CompileSelectCase(SemBase* expr);
// case_test: the selector each Case compares with. After Case Else there
// is none: compile error 90, and a value that raises no second report.
SemBase* PeekSelectExpr();
// case_block: Case case_tests EOL [case-start] block
SemBase* CompileCase(SemBase* tests, SemBase* code, SemBase* body);
// case_block: Case Else EOL [case-start] block; Else EOL [case-start] block
SemBase* CompileCaseElse(SemBase* code, SemBase* body);
// select_statement: select_head opt_case_blocks select_end EOL
SemBase* CompileEndSelect(SemBase* selectCode, SemBase* cases);
// while_statement: the while-start marker
SemBase* CompileWhileLoop();
// while_statement: While expr EOL [while-start] block wend_end EOL
SemBase* CompileWend(SemBase* cond, SemBase* code, SemBase* body);
// do_statement: the do-start marker
SemBase* CompileDoLoop();
// do_statement: Do opt_until EOL [do-start] block loop_end opt_until EOL
SemBase* CompileLoopUntil(SemBase* doCond, SemBase* code, SemBase* body,
                          SemBase* loopCond);
// for_to, for_downto: the loop-start and loop-start2 markers
SemBase* CompileForLoop(SemBase* loopVar, SemBase* initial);
// for_to, for_downto: ... block next_end opt_ident EOL
SemBase* CompileNext(SemBase* loopVar, SemBase* code, bool downTo,
                     SemBase* toValue, SemBase* step, SemBase* body,
                     SemBase* nextVar);
// for_each: the each-start and each-start2 markers
SemBase* CompileForEachLoop(SemBase* loopVar, SemBase* arrayExpr);
// for_each: ... block next_end opt_ident EOL
SemBase* CompileNextEachLoop(SemBase* loopVar, SemBase* arrayExpr,
                             SemBase* code, SemBase* body, SemBase* nextVar);
// exit_statement: Exit, Exit Do, Exit While, Exit For opt_ident, Exit Function,
// Exit Sub
SemBase* CompileExit(BlockContext::Type blockType, SemBase* ident);
// continue_statement: Continue, Continue Do, Continue While, Continue For
// opt_ident
SemBase* CompileContinue(BlockContext::Type blockType, SemBase* ident);

#endif

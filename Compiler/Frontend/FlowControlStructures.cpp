#include "Compiler/Frontend/FlowControlStructures.h"

#include "Compiler/SemBase.h"

// block_if: the if-start marker; inline_if
SemBase* CompileIf() { return SemCode::New(IRDataType(), nullptr); }

// elseif_block: ElseIf expr opt_then EOL block
SemBase* CompileElseIf(SemBase* cond, SemBase* body) {
  return SemCode::New(IRDataType(), nullptr);
}

// block_if: If expr opt_then EOL [if-start] block opt_elseif_blocks
//   opt_else_block if_end EOL
SemBase* CompileEndIf(SemBase* cond, SemBase* head, SemBase* thenBody,
                      SemBase* elseIfs, SemBase* elseBody) {
  return SemCode::New(IRDataType(), nullptr);
}

// inline_if: If expr opt_then simple_statement opt_inline_else EOL
SemBase* CompileInlineIf(SemBase* cond, SemBase* thenBody, SemBase* elseBody) {
  return SemCode::New(IRDataType(), nullptr);
}

// select_head: Select Case expr EOL
SemBase* CompileSelectCase(SemBase* expr) {
  return SemCode::New(IRDataType(), nullptr);
}

// case_test: the selector each Case compares with
SemBase* PeekSelectExpr() { return SemCode::New(IRDataType(), nullptr); }

// case_block: Case case_tests EOL [case-start] block
SemBase* CompileCase(SemBase* tests, SemBase* code, SemBase* body) {
  return SemCode::New(IRDataType(), nullptr);
}

// case_block: Case Else EOL [case-start] block; Else EOL [case-start] block
SemBase* CompileCaseElse(SemBase* code, SemBase* body) {
  return SemCode::New(IRDataType(), nullptr);
}

// select_statement: select_head opt_case_blocks select_end EOL
SemBase* CompileEndSelect(SemBase* selectCode, SemBase* cases) {
  return SemCode::New(IRDataType(), nullptr);
}

// while_statement: the while-start marker
SemBase* CompileWhileLoop() { return SemCode::New(IRDataType(), nullptr); }

// while_statement: While expr EOL [while-start] block wend_end EOL
SemBase* CompileWend(SemBase* cond, SemBase* code, SemBase* body) {
  return SemCode::New(IRDataType(), nullptr);
}

// do_statement: the do-start marker
SemBase* CompileDoLoop() { return SemCode::New(IRDataType(), nullptr); }

// do_statement: Do opt_until EOL [do-start] block loop_end opt_until EOL
SemBase* CompileLoopUntil(SemBase* doCond, SemBase* code, SemBase* body,
                          SemBase* loopCond) {
  return SemCode::New(IRDataType(), nullptr);
}

// for_to, for_downto: the loop-start and loop-start2 markers
SemBase* CompileForLoop(SemBase* loopVar, SemBase* initial) {
  return SemCode::New(IRDataType(), nullptr);
}

// for_to, for_downto: ... block next_end opt_ident EOL
SemBase* CompileNext(SemBase* loopVar, SemBase* code, bool downTo,
                     SemBase* toValue, SemBase* step, SemBase* body,
                     SemBase* nextVar) {
  return SemCode::New(IRDataType(), nullptr);
}

// for_each: the each-start and each-start2 markers
SemBase* CompileForEachLoop(SemBase* loopVar, SemBase* arrayExpr) {
  return SemCode::New(IRDataType(), nullptr);
}

// for_each: ... block next_end opt_ident EOL
SemBase* CompileNextEachLoop(SemBase* loopVar, SemBase* arrayExpr,
                             SemBase* code, SemBase* body, SemBase* nextVar) {
  return SemCode::New(IRDataType(), nullptr);
}

// exit_statement: Exit, Exit Do, Exit While, Exit For opt_ident, Exit Function,
// Exit Sub
SemBase* CompileExit(int blockType, SemBase* ident) {
  return SemCode::New(IRDataType(), nullptr);
}

// continue_statement: Continue, Continue Do, Continue While, Continue For
// opt_ident
SemBase* CompileContinue(int blockType, SemBase* ident) {
  return SemCode::New(IRDataType(), nullptr);
}

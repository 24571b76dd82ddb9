#include "Compiler/Frontend/FlowControlStructures.h"

#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/Exceptions.h"
#include "Compiler/Frontend/FlowControlSupport.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/ProgramAssembly.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

BlockContextList& Blocks() {
  QASSERT(gContext);
  return gContext->blocks;
}

bool HasCode(SemBase* value) { return value && value->Code(); }

// A block statement's head: entered, and empty code at the header's line,
// which is where an unclosed block is reported.
SemBase* EnterFlowBlock(BlockContext::Type type) {
  Blocks().Enter(type, nullptr);
  return CompileDebugEntry(NewStatementCode());
}

}  // namespace

// ---------------------------------------------------------------------- If

SemBase* CompileIf() { return EnterFlowBlock(BlockContext::kIf); }

// The block is left even when the condition is missing, so that one bad
// If does not unbalance the blocks around it.
SemBase* CompileEndIf(SemBase* cond, SemBase* head, SemBase* thenBody,
                      SemBase* elseIfs, SemBase* elseBody) {
  if (!head) head = CompileDebugEntry(NewStatementCode());
  TacAddr const* exit = Blocks().FindExitAddr(BlockContext::kIf, nullptr);
  Blocks().Leave(BlockContext::kIf);
  if (!cond) {
    Error(kErrorIfWithoutCondition, head->Location());
    return head;
  }
  bool hasElse = HasCode(elseIfs) || HasCode(elseBody);
  TacAddr const* next = hasElse ? NewLabel() : exit;
  TacAddr const* test = AppendCondition(cond, head, true);
  EmitBranch(head, kTacIfEQI, test, gTacFalse, next);
  if (HasCode(thenBody)) head->Append(thenBody);
  if (hasElse) {
    EmitJump(head, exit);
    EmitLabel(head, next);
  }
  if (HasCode(elseIfs)) head->Append(elseIfs);
  if (HasCode(elseBody)) head->Append(elseBody);
  EmitLabel(head, exit);
  return head;
}

// The condition's temporaries are not released here but at function exit.
SemBase* CompileElseIf(SemBase* cond, SemBase* body) {
  SemBase* code = NewStatementCode();
  if (!cond) return code;
  code->SetLocation(cond->Location());
  TacAddr const* test = AppendCondition(cond, code, false);
  TacAddr const* skip = NewLabel();
  EmitBranch(code, kTacIfEQI, test, gTacFalse, skip);
  if (HasCode(body)) code->Append(body);
  EmitJump(code, Blocks().FindExitAddr(BlockContext::kIf, nullptr));
  EmitLabel(code, skip);
  return code;
}

SemBase* CompileInlineIf(SemBase* cond, SemBase* thenBody, SemBase* elseBody) {
  return CompileEndIf(cond, CompileIf(), thenBody, nullptr, elseBody);
}

// ---------------------------------------------------------- Select Case

SemBase* CompileSelectCase(SemBase* expr) {
  SemBase* code = NewStatementCode();
  SemBase* selector;
  if (!expr || expr->GetType().GetMainType() == kNoType)
    selector = code->NewTemp(IRDataType(kSInt32Type), nullptr);
  else
    selector = FlattenExpression(expr, code);
  Blocks().Enter(BlockContext::kSelectCase, selector);
  return CompileDebugEntry(code);
}

// Each comparison gets its own copy: the operator actions may chain their
// operands into lists.
SemBase* PeekSelectExpr() {
  SemBase* selector = Blocks().TopSelectExpr();
  if (!selector) {
    Error(kErrorCaseOutsideSelect);
    return ErrorValue(SourceLocation(current_line()));
  }
  return selector->Clone();
}

SemBase* CompileCase(SemBase* tests, SemBase* code, SemBase* body) {
  if (!code) code = NewStatementCode();
  TacAddr const* skip = NewLabel();
  if (tests) {
    if (tests->Code()) code->Append(tests);
    EmitBranch(code, kTacIfEQI, tests->GetAddr(), gTacFalse, skip);
  }
  if (HasCode(body)) code->Append(body);
  EmitJump(code, Blocks().FindExitAddr(BlockContext::kSelectCase, nullptr));
  EmitLabel(code, skip);
  return code;
}

// Clearing the selector makes any Case after this one compile error 90.
SemBase* CompileCaseElse(SemBase* code, SemBase* body) {
  if (!code) code = NewStatementCode();
  if (HasCode(body)) code->Append(body);
  EmitJump(code, Blocks().FindExitAddr(BlockContext::kSelectCase, nullptr));
  if (!Blocks().TopSelectExpr())
    Error(kErrorCaseOutsideSelect, code->Location());
  Blocks().ClearTopSelectExpr();
  return code;
}

SemBase* CompileEndSelect(SemBase* selectCode, SemBase* cases) {
  SemBase* code = NewStatementCode();
  if (selectCode) {
    code->SetLocation(selectCode->Location());
    if (selectCode->Code()) code->Append(selectCode);
  }
  if (HasCode(cases)) code->Append(cases);
  EmitLabel(code, Blocks().FindExitAddr(BlockContext::kSelectCase, nullptr));
  Blocks().Leave(BlockContext::kSelectCase);
  return code;
}

// ---------------------------------------------------------- While, Do

SemBase* CompileWhileLoop() { return EnterFlowBlock(BlockContext::kWhile); }

SemBase* CompileWend(SemBase* cond, SemBase* code, SemBase* body) {
  if (!code) code = NewStatementCode();
  TacAddr const* top = NewLabel();
  TacAddr const* exit = Blocks().FindExitAddr(BlockContext::kWhile, nullptr);
  TacAddr const* next =
      Blocks().FindContinueAddr(BlockContext::kWhile, nullptr);
  Blocks().Leave(BlockContext::kWhile);
  EmitLabel(code, top);
  if (cond) {
    TacAddr const* test = AppendCondition(cond, code, true);
    EmitBranch(code, kTacIfEQI, test, gTacFalse, exit);
  }
  GenerateLoopBody(code, body, next);
  EmitJump(code, top);
  EmitLabel(code, exit);
  return code;
}

SemBase* CompileDoLoop() { return EnterFlowBlock(BlockContext::kDo); }

// Both conditions are Until: true leaves the loop.
SemBase* CompileLoopUntil(SemBase* doCond, SemBase* code, SemBase* body,
                          SemBase* loopCond) {
  if (!code) code = NewStatementCode();
  TacAddr const* top = NewLabel();
  TacAddr const* exit = Blocks().FindExitAddr(BlockContext::kDo, nullptr);
  TacAddr const* next = Blocks().FindContinueAddr(BlockContext::kDo, nullptr);
  Blocks().Leave(BlockContext::kDo);
  EmitLabel(code, top);
  if (doCond) {
    TacAddr const* test = AppendCondition(doCond, code, true);
    EmitBranch(code, kTacIfNEI, test, gTacFalse, exit);
  }
  GenerateLoopBody(code, body, next);
  SemBase* tail = NewStatementCode();
  if (loopCond) {
    tail->SetLocation(loopCond->Location());
    TacAddr const* test = AppendCondition(loopCond, tail, true);
    EmitBranch(tail, kTacIfEQI, test, gTacFalse, top);
  } else {
    EmitJump(tail, top);
  }
  code->Append(CompileDebugEntry(tail));
  EmitLabel(code, exit);
  return code;
}

// ---------------------------------------------------------- Exit, Continue

SemBase* CompileExit(BlockContext::Type blockType, SemBase* ident) {
  SemBase* code = NewStatementCode();
  EmitLeavingJump(code, Blocks().FindExitAddr(blockType, ident));
  return code;
}

SemBase* CompileContinue(BlockContext::Type blockType, SemBase* ident) {
  SemBase* code = NewStatementCode();
  EmitLeavingJump(code, Blocks().FindContinueAddr(blockType, ident));
  return code;
}

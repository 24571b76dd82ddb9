#include "Compiler/Frontend/FlowControlSupport.h"

#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/ProgramAssembly.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

TacAddr const* AppendCondition(SemBase* cond, SemBase* code, bool filtered) {
  QASSERT(cond);
  QASSERT(code);
  SemBase* c = SemCode::New(IRDataType(), &cond->Location());
  SemBase* value = CompileRefAs(cond, IRDataType(kBooleanType), c);
  code->Append(filtered ? FilterTemporaryVariables(c) : c);
  return value->GetAddr();
}

void GenerateLoopBody(SemBase* code, SemBase* body, TacAddr const* continueAt) {
  QASSERT(gContext);
  if (body && body->Code()) code->Append(body);
  EmitLabel(code, continueAt);
  EmitYield(code);
}

// Every loop comes round through a yield: an iteration, a GoTo, a call
// (which is how a recursion loops). There the host gets its turn and a
// stop it asked for is raised.
void EmitYield(SemBase* code) {
  QASSERT(gContext);
  if (gContext->mOptions.mBackgroundTasks)
    code->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicVELDYieldToQuorl),
                  nilTacAddr, nilTacAddr);
}

void MatchLoopCounters(SemBase* nextVar, SemBase* loopVar) {
  if (!nextVar || !loopVar) return;
  if (nextVar->toString() == loopVar->toString()) return;
  SimpleVector<string> names;
  names.push_back(nextVar->toString());
  names.push_back(loopVar->toString());
  Error(kErrorNextNameMismatch, nextVar->Location(), names);
}

// A jump whose target was lost to an error (an Exit with no block) is left
// out: the error keeps the code from the back end anyway.
void EmitBranch(SemBase* code, TacOpcode opcode, TacAddr const* value,
                TacAddr const* against, TacAddr const* target) {
  if (!target || !value || value == nilTacAddr) return;
  code->AddLine(opcode, value, against, target);
}

void EmitJump(SemBase* code, TacAddr const* target) {
  if (target) code->AddLine(kTacJump, nilTacAddr, nilTacAddr, target);
}

void EmitLabel(SemBase* code, TacAddr const* label) {
  if (label) code->AddLine(kTacLabel, label, nilTacAddr, nilTacAddr);
}

SemBase* NewStatementCode() { return SemCode::New(IRDataType(), nullptr); }

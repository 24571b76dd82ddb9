#include "Compiler/Frontend/LabelUtilities.h"

#include "Compiler/Frontend/FlowControlSupport.h"
#include "Compiler/Frontend/ProgramAssembly.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

SemBase* CompileGoto(SemBase* ident) {
  QASSERT(ident);
  QASSERT(gContext);
  SemBase* code = SemCode::New(IRDataType(), &ident->Location());
  EmitYield(code);
  code->AddLine(kTacJump, nilTacAddr, nilTacAddr,
                gContext->NamedLabel(ident->toString()));
  return code;
}

SemBase* CompileLabel(SemBase* ident) {
  QASSERT(ident);
  QASSERT(gContext);
  SemBase* code = SemCode::New(IRDataType(), &ident->Location());
  code->AddLine(kTacLabel, gContext->NamedLabel(ident->toString()), nilTacAddr,
                nilTacAddr);
  return CompileDebugEntry(code);
}

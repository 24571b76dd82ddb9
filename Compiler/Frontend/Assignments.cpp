#include "Compiler/Frontend/Assignments.h"

#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

void AssignToSymbol(TacAddr const* lhs, SemBase* rhs, SemBase* code) {
  QASSERT(lhs);
  QASSERT(rhs);
  QASSERT(code);
  if (lhs->IsConstant()) {
    Error(kErrorNotAssignable, rhs->Location());
    return;
  }
  bool throughReference = lhs->mType.GetMainType() == kReferenceType;
  IRDataType type = StripReference(lhs->mType);
  SemBase* converted = CompileRefAs(rhs, type, code);
  TacAddr const* value = converted->GetAddr();
  if (value == lhs || IsErrorValue(converted)) return;
  if (!throughReference) {
    if (type.RefCounted())
      code->AddLine(kTacSwapLocks, value, lhs, nilTacAddr);
    code->AddLine(kTacStore, value, nilTacAddr, lhs);
    return;
  }
  if (type.RefCounted()) {
    TacAddr const* old = code->NewTemp(type, &rhs->Location())->GetAddr();
    code->AddLine(kTacPeek, lhs, nilTacAddr, old);
    code->AddLine(kTacSwapLocks, value, old, nilTacAddr);
  }
  code->AddLine(kTacPoke, value, nilTacAddr, lhs);
}

#include "Compiler/Frontend/Assignments.h"

#include "Compiler/Frontend/Exceptions.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

// Releasing an object, or an array or variant that may hold one, can run a
// destructor, and a destructor can raise.
bool ReleaseMayRaise(IRDataType const& type) {
  SimpleDataType main = type.GetMainType();
  return main == kObjectType || main == kArrayType || main == kVariantType;
}

// The variable holds its new value before the old one is released: should
// the release raise, the variable's own release later must not free the
// old value a second time.
void StoreThenRelease(TacAddr const* value, TacAddr const* lhs,
                      IRDataType const& type, SemBase* code) {
  TacAddr const* old = ReleasePendingSlot(type);
  if (!value->IsConstant())
    code->AddLine(kTacLock, value, nilTacAddr, nilTacAddr);
  code->AddLine(kTacStore, lhs, nilTacAddr, old);
  code->AddLine(kTacStore, value, nilTacAddr, lhs);
  code->AddLine(kTacUnlock, old, nilTacAddr, nilTacAddr);
}

}  // namespace

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
  if (!throughReference && ReleaseMayRaise(type)) {
    StoreThenRelease(value, lhs, type, code);
    return;
  }
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

#include "Compiler/Frontend/NilChecks.h"

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

// `value` converted to `type`, behind a test that calls the runtime when
// it is nil: a value wrapper whose result is the converted value.
SemBase* GuardedValue(SemBase* value, IRDataType const& type) {
  SemBase* scratch = SemCode::New(IRDataType(), &value->Location());
  SemBase* checked = CompileRefAs(value, type, scratch);
  SemBase* result = SemCode::NewValueWrapper(checked, &value->Location());
  result->Append(scratch);
  AddNilTest(checked->GetAddr(), result);
  return result;
}

bool CheckingIsOn() {
  QASSERT(gContext);
  return gContext->mOptions.mNilObjectChecking != 0;
}

}  // namespace

void AddNilTest(TacAddr const* value, SemBase* code) {
  TacAddr const* ok = NewLabel();
  code->AddLine(kTacIfNEI, value, gTacZero, ok);
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicRuntimeNilObject),
                nilTacAddr, nilTacAddr);
  code->AddLine(kTacLabel, ok, nilTacAddr, nilTacAddr);
}

void CheckPointerForNil(TacAddr const* pointer, SemBase* code) {
  if (CheckingIsOn()) AddNilTest(pointer, code);
}

SemBase* CheckForNilObject(SemBase* object) {
  QASSERT(object);
  if (!CheckingIsOn()) return object;
  IRDataType type = StripReference(object->GetType());
  SimpleDataType main = type.GetMainType();
  if (main != kObjectType && main != kClassType) return object;
  return GuardedValue(object, type);
}

SemBase* CheckForNil(SemBase* array) {
  if (!array || !CheckingIsOn()) return array;
  IRDataType type = StripReference(array->GetType());
  if (type.GetMainType() != kArrayType) return array;
  return GuardedValue(array, type);
}

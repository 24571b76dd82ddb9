#include "Compiler/SymbolTable/MethodSignatures.h"

#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

char const kOperatorConvertName[] = "Operator_Convert";

bool HasResult(MethodSymbol* method) {
  return method->GetReturnType().GetMainType() != kNoType;
}

}  // namespace

bool SignaturesMatchExactly(MethodSymbol* a, MethodSymbol* b) {
  QASSERT_TEXT(a, "a");
  QASSERT_TEXT(b, "b");
  if (HasResult(a) != HasResult(b)) return false;
  if (a->CountParameters() != b->CountParameters()) return false;
  for (unsigned long i = 1; i < a->CountParameters(); i++) {
    ParameterSymbol* pa = a->GetParameter(i);
    ParameterSymbol* pb = b->GetParameter(i);
    if (pa->GetType() != pb->GetType()) return false;
    if (pa->GetRole() != pb->GetRole()) return false;
  }
  if (a->Name() != kOperatorConvertName) return true;
  QASSERT_TEXT(b->Name() == kOperatorConvertName,
               "b->Name() == kOperatorConvertName");
  return a->GetReturnType() == b->GetReturnType();
}

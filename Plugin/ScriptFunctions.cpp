#include "Plugin/ScriptFunctions.h"

#include <string.h>

#include "Compiler/BackEnds/Minilinker/minilinker.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

QuorlValueType ValueTypeOf(IRDataType const& type) {
  switch (type.GetMainType()) {
    case kNoType: return kQuorlNoValue;
    case kSInt32Type: return kQuorlInteger;
    case kSInt64Type: return kQuorlInt64;
    case kReal64Type: return kQuorlDouble;
    case kReal32Type: return kQuorlSingle;
    case kBooleanType: return kQuorlBoolean;
    case kStringType: return kQuorlString;
    default: return kQuorlOtherValue;
  }
}

void CollectScriptFunctions(GlobalSymbolTable* symbols,
                            SimpleVector<ScriptFunction>* functions) {
  MethodSymbolIterator it = symbols->IterateMethods();
  while (it.Next()) {
    MethodSymbol* method = it.Value();
    if (method->External() || method->GetLinkID().IsEmpty() ||
        method->CountParameters() > kQuorlMaxParameters)
      continue;
    ScriptFunction function;
    function.mName = method->Name();
    function.mLinkName = method->GetLinkID();
    function.mSignature.mReturnType = ValueTypeOf(method->GetReturnType());
    function.mSignature.mParameterCount = (int32_t)method->CountParameters();
    for (unsigned long i = 0; i < method->CountParameters(); i++)
      function.mSignature.mParameterTypes[i] =
          ValueTypeOf(method->GetParameter(i)->GetType());
    functions->push_back(function);
  }
}

namespace {

bool Fits(QuorlSignature const& signature, QuorlValue const* arguments,
          int32_t count) {
  if (signature.mParameterCount != count ||
      signature.mReturnType == kQuorlOtherValue)
    return false;
  for (int32_t i = 0; i < count; i++)
    if (arguments[i].mType != signature.mParameterTypes[i]) return false;
  return true;
}

// Each value as the machine code takes it: 64-bit values in two words, low
// word first; the others in one.
bool LayOut(QuorlValue const* arguments, int32_t count,
            RunReadyCode::ArgumentWords* words) {
  memset(words, 0, sizeof *words);
  unsigned long n = 0;
  for (int32_t i = 0; i < count; i++) {
    QuorlValue const& value = arguments[i];
    bool wide = value.mType == kQuorlInt64 || value.mType == kQuorlDouble;
    if (n + (wide ? 2 : 1) > RunReadyCode::kMostArgumentWords) return false;
    switch (value.mType) {
      case kQuorlInt64: memcpy(&words->mWords[n], &value.mInt64, 8); break;
      case kQuorlDouble: memcpy(&words->mWords[n], &value.mDouble, 8); break;
      case kQuorlSingle: memcpy(&words->mWords[n], &value.mSingle, 4); break;
      case kQuorlString: words->mWords[n] = (unsigned long)value.mString; break;
      case kQuorlBoolean: words->mWords[n] = value.mBoolean ? 1 : 0; break;
      default: words->mWords[n] = (unsigned long)value.mInteger; break;
    }
    n += wide ? 2 : 1;
  }
  return true;
}

void TakeResult(int32_t type, unsigned long long registers, double floating,
                QuorlValue* result) {
  result->mType = type;
  switch (type) {
    case kQuorlInt64: result->mInt64 = (int64_t)registers; break;
    case kQuorlDouble: result->mDouble = floating; break;
    case kQuorlSingle: result->mSingle = (float)floating; break;
    case kQuorlBoolean: result->mBoolean = (registers & 0xFF) != 0; break;
    case kQuorlString:
      result->mString = (stringStorage*)(unsigned long)registers;
      break;
    default: result->mInteger = (int32_t)registers; break;
  }
}

}  // namespace

// A string result comes with the reference the function gave its caller;
// when the host does not take the result, it is dropped here.
int32_t CallScriptFunction(RunReadyCode* code, QuorlScriptCorrespondent* correspondent,
                           SimpleVector<ScriptFunction> const& functions,
                           char const* name, QuorlValue const* arguments,
                           int32_t count, QuorlValue* result) {
  ScriptFunction const* found = nullptr;
  bool named = false;
  for (unsigned long i = 0; i < functions.size() && !found; i++) {
    if (!(functions[i].mName == string(name))) continue;
    named = true;
    if (Fits(functions[i].mSignature, arguments, count)) found = &functions[i];
  }
  if (!found) return named ? kQuorlBadArguments : kQuorlNoSuchFunction;
  RunReadyCode::ArgumentWords words;
  if (!LayOut(arguments, count, &words)) return kQuorlBadArguments;
  void* entry = code->FunctionEntry(found->mLinkName);
  if (!entry) return kQuorlNoSuchFunction;
  int32_t type = found->mSignature.mReturnType;
  bool floating = type == kQuorlDouble || type == kQuorlSingle;
  unsigned long long registers = 0;
  double floatResult = 0;
  bool done = code->Call(correspondent, entry, words,
                         floating ? RunReadyCode::kResultOnFloatStack
                                  : RunReadyCode::kResultInRegisters,
                         &registers, &floatResult);
  if (!done) return kQuorlRaised;
  QuorlValue value;
  TakeResult(type, registers, floatResult, &value);
  if (result)
    *result = value;
  else if (type == kQuorlString)
    UnlockStringStorage(value.mString);
  return kQuorlCallDone;
}

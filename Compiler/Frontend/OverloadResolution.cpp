#include "Compiler/Frontend/OverloadResolution.h"

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

SimpleVector<SemBase*> ArgumentVector(SemBase* base, SemBase* args) {
  SimpleVector<SemBase*> out;
  if (base) out.push_back(base);
  if (!args) return out;
  if (!args->IsList()) {
    out.push_back(args);
    return out;
  }
  for (SemBase* item = args->GetContents(); item; item = item->GetNext())
    out.push_back(item);
  return out;
}

IRDataType ParamArrayElementType(ParameterSymbol* param) {
  IRDataType element = StripReference(param->GetType()).AsElement();
  if (element.IsArray()) element = element.AsElement();
  return element;
}

bool ParamAndArgAreCompatible(IRDataType const& paramType, SemBase* arg,
                              int* steps) {
  QASSERT(arg);
  return IsLegalConversion(paramType, arg->GetType(), steps);
}

unsigned long CountParameterDefaults(MethodSymbol* method) {
  unsigned long count = 0;
  for (unsigned long i = 0; i < method->CountParameters(); i++) {
    ParameterSymbol* param = method->GetParameter(i);
    if (param->GetMode() == ParameterSymbol::kOptional ||
        param->GetRole() == ParameterSymbol::kParamArrayParameter)
      count++;
  }
  return count;
}

namespace {

// Error 9 also names `Ubound` of what is no array; here it is an argument
// that does not fit its parameter.

bool IsParamArray(ParameterSymbol* param) {
  return param->GetRole() == ParameterSymbol::kParamArrayParameter;
}

// The counts that decide whether the arguments are enough and not too
// many.
struct ParameterCounts {
  long defaults = 0;
  long fixed = 0;
  bool paramArray = false;
};

ParameterCounts CountParameters(MethodSymbol* method) {
  ParameterCounts counts;
  for (unsigned long i = 0; i < method->CountParameters(); i++) {
    ParameterSymbol* param = method->GetParameter(i);
    if (IsParamArray(param))
      counts.paramArray = true;
    else if (param->GetMode() == ParameterSymbol::kOptional)
      counts.defaults++;
    else if (param->GetMode() == ParameterSymbol::kHidden)
      counts.fixed++;
  }
  return counts;
}

CompileErrorCode CheckResultMode(MethodSymbol* method,
                                 FunctionResultMode mode) {
  bool hasResult = method->GetReturnType().GetMainType() != kNoType;
  if (!hasResult && mode == kRequireFunctionResult) return kErrorBadPointerCall;
  if (hasResult && mode == kProhibitFunctionResult)
    return kErrorPointerCallForbidden;
  return kErrorNone;
}

// Parameters and arguments side by side; the missing arguments are taken
// from the last optional parameters.
CompileErrorCode MatchArguments(MethodSymbol* method,
                                SimpleVector<SemBase*> const& args,
                                long defaults, long missing) {
  unsigned long next = 0;
  for (unsigned long i = 0; i < method->CountParameters(); i++) {
    ParameterSymbol* param = method->GetParameter(i);
    if (IsParamArray(param)) {
      IRDataType element = ParamArrayElementType(param);
      for (; missing < 1; missing++) {
        if (next >= args.size()) break;
        if (!ParamAndArgAreCompatible(element, args[next++], nullptr))
          return kErrorNotAnArray;
      }
      continue;
    }
    if (param->GetMode() == ParameterSymbol::kHidden) continue;
    if (param->GetMode() == ParameterSymbol::kOptional && --defaults < missing)
      continue;
    if (next >= args.size()) break;
    if (!ParamAndArgAreCompatible(param->GetType(), args[next++], nullptr))
      return kErrorNotAnArray;
  }
  return kErrorNone;
}

bool TakesBase(MethodSymbol* method) {
  return method->IsInstanceMethod() || method->IsExtensionMethod();
}

}  // namespace

CompileErrorCode IsLegalMethodVariant(MethodSymbol* method, SemBase* base,
                                      SemBase* args, FunctionResultMode mode) {
  QASSERT(method);
  CompileErrorCode result = CheckResultMode(method, mode);
  if (result != kErrorNone) return result;
  if (TakesBase(method) && !base) return kErrorUnknownName;
  SimpleVector<SemBase*> list =
      ArgumentVector(TakesBase(method) ? base : nullptr, args);
  long argCount = (long)list.size();
  ParameterCounts counts = CountParameters(method);
  long missing = (long)method->CountParameters() - argCount - counts.fixed;
  if ((counts.paramArray ? missing - 1 : missing) > counts.defaults)
    return kErrorNotEnoughArguments;
  if (!counts.paramArray &&
      counts.fixed + argCount > (long)method->CountParameters())
    return kErrorTooManyArguments;
  return MatchArguments(method, list, counts.defaults, missing);
}

// ---------------------------------------------------------------- ranking

namespace {

ClassSymbol* SelfClass(MethodSymbol* method) {
  if (!method->IsInstanceMethod()) return nullptr;
  TypeSymbol* decl = method->GetParameter(0)->GetType().Declaration();
  if (!decl || !decl->IsA(Symbol::kClass)) return nullptr;
  return static_cast<ClassSymbol*>(decl);
}

// One more conversion when an argument does not fit its parameter exactly.
void CountOne(IRDataType const& type, SemBase* arg, unsigned long& count) {
  int steps = 0;
  ParamAndArgAreCompatible(type, arg, &steps);
  if (steps > 0) count++;
}

}  // namespace

bool MethodShadowsInherited(MethodSymbol* shadower, MethodSymbol* shadowee) {
  ClassSymbol* lower = SelfClass(shadower);
  ClassSymbol* upper = SelfClass(shadowee);
  if (!lower || !upper || lower == upper) return false;
  for (ClassSymbol* up = lower->GetParent(); up; up = up->GetParent())
    if (up == upper) return true;
  return false;
}

unsigned long CountCallConversions(MethodSymbol* method, SemBase* base,
                                   SimpleVector<SemBase*> args) {
  long defaults = (long)CountParameterDefaults(method);
  unsigned long first = 0;
  if (method->IsInstanceMethod()) {
    QASSERT(base && ParamAndArgAreCompatible(method->GetParameter(0)->GetType(),
                                             base, nullptr));
    first = 1;
  } else if (method->IsExtensionMethod() && base) {
    args.insert(base, 0);
  }
  long omitted = (long)method->CountParameters() - (long)args.size();
  unsigned long count = 0;
  unsigned long next = 0;
  for (unsigned long i = first; i < method->CountParameters(); i++) {
    ParameterSymbol* param = method->GetParameter(i);
    if (param->GetMode() == ParameterSymbol::kHidden) continue;
    bool paramArray = IsParamArray(param);
    if ((paramArray || param->GetMode() == ParameterSymbol::kOptional) &&
        --defaults < omitted)
      continue;
    if (paramArray) {
      IRDataType element = ParamArrayElementType(param);
      while (next < args.size()) CountOne(element, args[next++], count);
    } else if (next < args.size()) {
      CountOne(param->GetType(), args[next++], count);
    }
  }
  return count;
}

long CompareMethodVariants(MethodSymbol* a, MethodSymbol* b, SemBase* base,
                           SemBase* args) {
  if (a == b) return -1;
  SimpleVector<SemBase*> list = ArgumentVector(nullptr, args);
  unsigned long ca = CountCallConversions(a, base, list);
  unsigned long cb = CountCallConversions(b, base, list);
  if (ca == 0 && cb > 0) return -1;
  if (ca > 0 && cb == 0) return 1;
  if (MethodShadowsInherited(a, b)) return -1;
  if (MethodShadowsInherited(b, a)) return 1;
  return 0;
}

// ---------------------------------------------------------------- choice

namespace {

bool IsResultReason(CompileErrorCode code) {
  return code == kErrorBadPointerCall || code == kErrorPointerCallForbidden;
}

// The reason kept for the report: a mismatch of arguments says more than
// an unknown name or a wanted (or unwanted) result.
void KeepReason(CompileErrorCode* stored, CompileErrorCode reason) {
  if (*stored == kErrorNone || *stored == kErrorUnknownName)
    *stored = reason;
  else if (IsResultReason(*stored) && !IsResultReason(reason))
    *stored = reason;
}

void Eliminate(SimpleVector<MethodSymbol*>& survivors, SemBase* base,
               SemBase* args) {
  unsigned long i = 0;
  while (i + 1 < survivors.size()) {
    long order =
        CompareMethodVariants(survivors[i], survivors[i + 1], base, args);
    if (order < 0) {
      survivors.deleteIdx(i + 1);
    } else if (order > 0) {
      survivors.deleteIdx(i);
      i = 0;
    } else {
      i++;
    }
  }
}

}  // namespace

MethodSymbol* SelectAppropriateVariant(MethodList candidates, SemBase* base,
                                       SemBase* args, FunctionResultMode mode,
                                       CompileErrorCode* whyFailed) {
  if (!candidates) return nullptr;
  SimpleVector<MethodSymbol*> survivors;
  for (unsigned long i = 0; i < candidates->size(); i++) {
    MethodSymbol* candidate = (*candidates)[i];
    CompileErrorCode reason = IsLegalMethodVariant(candidate, base, args, mode);
    if (reason == kErrorNone)
      survivors.push_back(candidate);
    else if (whyFailed)
      KeepReason(whyFailed, reason);
  }
  Eliminate(survivors, base, args);
  if (survivors.size() == 1) return survivors[0];
  if (survivors.size() > 1) {
    if (whyFailed)
      *whyFailed = kErrorNoMatchingOverload;
    else
      Error(kErrorNoMatchingOverload,
            args ? args->Location() : SourceLocation(current_line()));
  }
  return nullptr;
}

// Arguments of a call: each converted to its parameter, defaults and
// ParamArray filled in, then all pushed after all are evaluated, so that
// nested calls never interleave with the pushes.
#include "Compiler/Frontend/Arrays.h"
#include "Compiler/Frontend/FunctionCalls.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

SemBase* PushOneArgument(IRDataType const& paramType, SemBase* arg,
                         SemBase* code) {
  QASSERT(arg);
  if (paramType.GetMainType() != kReferenceType)
    return CompileRefAs(arg, paramType, code);
  if (!arg->IsValue() || arg->IsConstant()) {
    Error(kErrorByRefNeedsVariable, arg->Location());
    return arg;
  }
  IRDataType argType = arg->GetType();
  if (argType == paramType) return arg;
  if (argType.GetMainType() == paramType.GetSubType()) {
    SemBase* pointer = code->NewTemp(paramType, &arg->Location());
    code->AddLine(kTacVarptr, arg->GetAddr(), nilTacAddr, pointer->GetAddr());
    return pointer;
  }
  TypeMismatchError(arg->Location(), paramType, argType);
  return arg;
}

namespace {

// A parameter's default: a structure is a fresh zeroed temporary, anything
// else its literal.
SemBase* DefaultArgument(ParameterSymbol* param, SemBase* code) {
  ParameterDefaultValue value = param->GetDefaultValue();
  if (value.type.GetMainType() == kStructureType)
    return code->NewTemp(value.type, nullptr);
  return SemValue::New(gContext->GetLiteral(value.value, value.type), nullptr);
}

// The rest of the arguments as a new array of the ParamArray's elements.
SemBase* ParamArrayArgument(ParameterSymbol* param,
                            SimpleVector<SemBase*> const& args,
                            unsigned long& next) {
  SemBase* list = nullptr;
  while (next < args.size()) list = ConcatList(list, args[next++]->Clone());
  if (list && !list->IsList()) list = SemList::New(list);
  return CompileArrayFactory(list, ParamArrayElementType(param));
}

struct ArgumentPlan {
  long defaults = 0;
  long fixed = 0;
  bool paramArray = false;
  long missing = 0;
};

// Compile errors 7 and 6; the counts say which parameters take defaults.
ArgumentPlan PlanArguments(MethodSymbol* target, long count, SemBase* args) {
  ArgumentPlan plan;
  for (unsigned long i = 0; i < target->CountParameters(); i++) {
    ParameterSymbol* param = target->GetParameter(i);
    if (param->GetRole() == ParameterSymbol::kParamArrayParameter)
      plan.paramArray = true;
    else if (param->GetMode() == ParameterSymbol::kOptional)
      plan.defaults++;
    else if (param->GetMode() == ParameterSymbol::kHidden)
      plan.fixed++;
  }
  long parameters = (long)target->CountParameters();
  plan.missing = parameters - count - plan.fixed;
  SourceLocation where =
      args ? args->Location() : SourceLocation(current_line());
  if ((plan.paramArray ? plan.missing - 1 : plan.missing) > plan.defaults)
    Error(kErrorNotEnoughArguments, where);
  else if (!plan.paramArray && plan.fixed + count > parameters)
    Error(kErrorTooManyArguments, where);
  return plan;
}

bool WantsDefault(ParameterSymbol* param, ArgumentPlan& plan) {
  if (param->GetMode() == ParameterSymbol::kHidden) return true;
  if (param->GetMode() != ParameterSymbol::kOptional || plan.paramArray)
    return false;
  return --plan.defaults < plan.missing;
}

}  // namespace

void PushAllArguments(MethodSymbol* target, SemBase* base, SemBase* args,
                      SemBase* code) {
  QASSERT(target);
  QASSERT(code);
  bool takesBase = target->IsInstanceMethod() || target->IsExtensionMethod();
  QASSERT(!takesBase || base);
  SimpleVector<SemBase*> list =
      ArgumentVector(takesBase ? base : nullptr, args);
  ArgumentPlan plan = PlanArguments(target, (long)list.size(), args);
  SimpleVector<SemBase*> passed;
  unsigned long next = 0;
  for (unsigned long i = 0; i < target->CountParameters(); i++) {
    ParameterSymbol* param = target->GetParameter(i);
    IRDataType type = param->GetType();
    SemBase* value;
    if (param->GetRole() == ParameterSymbol::kParamArrayParameter)
      value = ParamArrayArgument(param, list, next);
    else if (WantsDefault(param, plan))
      value = DefaultArgument(param, code);
    else if (next < list.size())
      value = list[next++];
    else
      value = SemValue::New(gContext->GetLiteral(0, kSInt32Type), nullptr);
    passed.push_back(PushOneArgument(type, value, code));
  }
  for (unsigned long i = 0; i < passed.size(); i++)
    code->AddLine(kTacPutParam, passed[i]->GetAddr(), nilTacAddr, nilTacAddr);
}

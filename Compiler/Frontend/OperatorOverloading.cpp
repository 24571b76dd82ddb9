#include "Compiler/Frontend/OperatorOverloading.h"

#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/FunctionCalls.h"
#include "Compiler/Frontend/NilChecks.h"
#include "Compiler/Frontend/ObjectComparisons.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

struct OperatorNames {
  unsigned long op;
  char const* left;
  char const* right;
};

OperatorNames const kArithmeticNames[] = {
    {kOpAdd, "Operator_Add", "Operator_AddRight"},
    {kOpSubtract, "Operator_Subtract", "Operator_SubtractRight"},
    {kOpMultiply, "Operator_Multiply", "Operator_MultiplyRight"},
    {kOpDivide, "Operator_Divide", "Operator_DivideRight"},
    {kOpIntegerDivide, "Operator_IntegerDivide", "Operator_IntegerDivideRight"},
    {kOpModulo, "Operator_Modulo", "Operator_ModuloRight"},
    {kOpPower, "Operator_Power", "Operator_PowerRight"},
};

char const kAndName[] = "Operator_And";
char const kAndRightName[] = "Operator_AndRight";
char const kOrName[] = "Operator_Or";
char const kOrRightName[] = "Operator_OrRight";
char const kNotName[] = "Operator_Not";
char const kNegateName[] = "Operator_Negate";

bool IsObjectOperand(SemBase* operand) {
  return StripReference(operand->GetType()).GetMainType() == kObjectType;
}

OperatorNames const* ArithmeticNames(unsigned long op) {
  for (OperatorNames const& names : kArithmeticNames)
    if (names.op == op) return &names;
  return nullptr;
}

// Compile error 12, and the value that draws no further report.
SemBase* NoOperator(SourceLocation const& where) {
  Error(kErrorBadOperand, where);
  return ErrorValue(where);
}

// The method, or null; an ambiguity is reported, and said in `ambiguous`.
MethodSymbol* FindOperatorMethod(SemBase* base, string const& name,
                                 SemBase* arg, bool* ambiguous) {
  QASSERT(base);
  TypeSymbol* decl = StripReference(base->GetType()).Declaration();
  if (!decl || !decl->IsA(Symbol::kClass)) return nullptr;
  MethodList methods =
      static_cast<ClassSymbol*>(decl)->LookupMethods(name, kPlainMethods);
  if (!methods || methods->size() == 0) return nullptr;
  CompileErrorCode why = kErrorNone;
  MethodSymbol* chosen = SelectAppropriateVariant(
      methods, base, arg, kRequireFunctionResult, &why);
  *ambiguous = !chosen && why == kErrorNoMatchingOverload;
  if (*ambiguous) Error(why, base->Location());
  return chosen;
}

// `operand.name()` for the unary operators.
SemBase* CallUnaryOperator(SemBase* operand, char const* name) {
  bool ambiguous = false;
  MethodSymbol* method =
      FindOperatorMethod(operand, string(name), nullptr, &ambiguous);
  if (ambiguous) return ErrorValue(operand->Location());
  if (!method) return NoOperator(operand->Location());
  return CompileCall(method, CheckForNilObject(operand), nullptr);
}

}  // namespace

MethodSymbol* LookupOperatorMethod(SemBase* base, string const& name,
                                   SemBase* arg) {
  bool ambiguous = false;
  return FindOperatorMethod(base, name, arg, &ambiguous);
}

SemBase* CallObjectOperator(SemBase* left, SemBase* right, string const& name,
                            string const& rightName) {
  SourceLocation where = left->Location() + right->Location();
  bool ambiguous = false;
  if (MethodSymbol* method = FindOperatorMethod(left, name, right, &ambiguous))
    return CompileCall(method, CheckForNilObject(left), right);
  if (ambiguous) return ErrorValue(where);
  if (MethodSymbol* method =
          FindOperatorMethod(right, rightName, left, &ambiguous))
    return CompileCall(method, CheckForNilObject(right), left);
  if (ambiguous) return ErrorValue(where);
  return NoOperator(where);
}

SemBase* ObjectBinop(SemBase* left, unsigned long op, SemBase* right) {
  QASSERT(IsObjectOperand(left) || IsObjectOperand(right));
  if (IsComparisonOperator(op)) return ObjectComparison(left, op, right);
  if (ArithmeticNames(op)) return ObjectArithmetic(left, op, right);
  return NoOperator(left->Location() + right->Location());
}

SemBase* ObjectArithmetic(SemBase* left, unsigned long op, SemBase* right) {
  OperatorNames const* names = ArithmeticNames(op);
  QASSERT(names);
  return CallObjectOperator(left, right, string(names->left),
                            string(names->right));
}

SemBase* ObjectAnd(SemBase* left, SemBase* right) {
  return CallObjectOperator(left, right, string(kAndName),
                            string(kAndRightName));
}

SemBase* ObjectOr(SemBase* left, SemBase* right) {
  return CallObjectOperator(left, right, string(kOrName), string(kOrRightName));
}

SemBase* ObjectNot(SemBase* operand) {
  return CallUnaryOperator(operand, kNotName);
}

SemBase* ObjectNegation(SemBase* operand) {
  return CallUnaryOperator(operand, kNegateName);
}

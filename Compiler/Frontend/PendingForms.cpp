#include "Compiler/Frontend/PendingForms.h"

#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ObjectComparisons.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

// Compile error 26 with `what` as its argument.
void ReportUnavailable(SourceLocation const& where, string const& what) {
  SimpleVector<string> text;
  text.push_back(what);
  Error(kErrorBadTypeUse, where, text);
}

// The report, and a value that draws no further one: a Variant where a
// value is wanted, empty code where a statement is.
SemBase* Unavailable(SemBase* at, string const& what,
                     FunctionResultMode mode = kRequireFunctionResult) {
  SourceLocation where = at ? at->Location() : SourceLocation(current_line());
  ReportUnavailable(where, what);
  if (mode == kProhibitFunctionResult) return SemCode::New(IRDataType(), &where);
  return ErrorValue(where);
}

string TypeTextOf(SemBase* value) {
  return value ? value->GetType().ToString() : string("Unknown Type");
}

SemBase* UnavailableMember(SemBase* expr, SemBase* ident,
                           FunctionResultMode mode) {
  return Unavailable(ident ? ident : expr,
                     TypeTextOf(expr) + "." + (ident ? ident->toString() : string()),
                     mode);
}

}  // namespace

// Comparisons are real; the arithmetic through Operator_... methods is not
// there yet.
SemBase* ObjectBinop(SemBase* left, unsigned long op, SemBase* right) {
  if (IsComparisonOperator(op)) return ObjectComparison(left, op, right);
  return Unavailable(left, TypeTextOf(left));
}
SemBase* ObjectAnd(SemBase* left, SemBase* right) {
  return Unavailable(left, TypeTextOf(left));
}
SemBase* ObjectOr(SemBase* left, SemBase* right) {
  return Unavailable(left, TypeTextOf(left));
}
SemBase* ObjectNot(SemBase* operand) {
  return Unavailable(operand, TypeTextOf(operand));
}
SemBase* ObjectNegation(SemBase* operand) {
  return Unavailable(operand, TypeTextOf(operand));
}

SemBase* StructureScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                              SemBase* assignValue, FunctionResultMode mode) {
  return UnavailableMember(expr, ident, mode);
}
SemBase* StaticStructureScopeLookup(SemBase* expr, SemBase* ident,
                                    SemBase* args, SemBase* assignValue,
                                    FunctionResultMode mode) {
  return UnavailableMember(expr, ident, mode);
}
SemBase* BuiltInMemberLookup(SemBase* expr, SemBase* ident, SemBase* args,
                             SemBase* assignValue, FunctionResultMode mode) {
  return UnavailableMember(expr, ident, mode);
}

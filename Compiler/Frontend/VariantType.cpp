// Variants in expressions: each operation on variants is one call of the
// variant runtime, with the operands converted to Variant first.
#include "Compiler/Frontend/VariantType.h"

#include "Compiler/Frontend/ConstantFolding.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

struct TypeConstant {
  char const* name;
  long value;
};

// Variant.TypeNil is 0 while VarType of a nil variant is 1: the constant
// names the absence of a type, the runtime's code a value that is nil.
TypeConstant const kTypeConstants[] = {
    {"TypeNil", 0},      {"TypeInteger", 2}, {"TypeLong", 3},
    {"TypeSingle", 4},   {"TypeDouble", 5},  {"TypeCurrency", 6},
    {"TypeDate", 7},     {"TypeString", 8},  {"TypeObject", 9},
    {"TypeBoolean", 11}, {"TypeColor", 16},
};

struct VariantMember {
  char const* name;
  IntrinsicID intrinsic;
  SimpleDataType result;  // kObjectType with the class Date for DateValue
};

VariantMember const kMembers[] = {
    {"Type", kIntrinsicVarType, kSInt32Type},
    {"IsNumeric", kIntrinsicRuntimeIsNumeric, kBooleanType},
    {"IsNull", kIntrinsicIsNull, kBooleanType},
    {"Hash", kIntrinsicVariantHash, kSInt32Type},
    {"Equals", kIntrinsicVariantEqual, kBooleanType},
    {"Int32Value", kIntrinsicVariantToInt32, kSInt32Type},
    {"IntegerValue", kIntrinsicVariantToInt32, kSInt32Type},
    {"UInt32Value", kIntrinsicVariantToUInt32, kUInt32Type},
    {"Int64Value", kIntrinsicVariantToInt64, kSInt64Type},
    {"UInt64Value", kIntrinsicVariantToUInt64, kUInt64Type},
    {"ColorValue", kIntrinsicVariantToColor, kColorType},
    {"SingleValue", kIntrinsicVariantToSingle, kReal32Type},
    {"DoubleValue", kIntrinsicVariantToDouble, kReal64Type},
    {"ObjectValue", kIntrinsicVariantToObject, kObjectType},
    {"StringValue", kIntrinsicVariantToString, kStringType},
    {"BooleanValue", kIntrinsicVariantToBoolean, kBooleanType},
    {"DateValue", kIntrinsicVariantToDate, kObjectType},
    {"CurrencyValue", kIntrinsicVariantToCurrency, kCurrencyType},
};

char const* const kDateClassName = "Date";

IRDataType const kVariant(kVariantType);

// The operand as a Variant, its code appended to `code`. Every operand is
// converted before the first is queued: a conversion is a call of its own,
// which cannot stand inside an argument list.
TacAddr const* AsVariant(SemBase* operand, SemBase* code) {
  return CompileRefAs(operand, kVariant, code)->GetAddr();
}

void Put(TacAddr const* value, SemBase* code) {
  code->AddLine(kTacPutParam, value, nilTacAddr, nilTacAddr);
}

// The result of `code` released, when it is counted, before the arguments
// are queued: a release is a call too.
void ResetResult(SemBase* code) { ResetReturnTemp(code->GetAddr(), code); }

// `Intrinsic f` of the queued arguments into the result of `code`.
void CallInto(IntrinsicID f, SemBase* code) {
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(f), nilTacAddr,
                code->GetAddr());
}

SemBase* CallVariantBinopIntrinsic(SemBase* left, IntrinsicID f,
                                   SemBase* right) {
  SourceLocation where = left->Location() + right->Location();
  SemBase* code = SemCode::New(kVariant, &where);
  TacAddr const* a = AsVariant(left, code);
  TacAddr const* b = AsVariant(right, code);
  ResetResult(code);
  Put(a, code);
  Put(b, code);
  CallInto(f, code);
  return code;
}

IntrinsicID ArithmeticIntrinsic(unsigned long op) {
  switch (op) {
    case kOpAdd: return kIntrinsicVariantAdd;
    case kOpSubtract: return kIntrinsicVariantSubtract;
    case kOpMultiply: return kIntrinsicVariantMultiply;
    case kOpDivide: return kIntrinsicVariantDivide;
    case kOpIntegerDivide: return kIntrinsicVariantIntegerDivide;
    case kOpModulo: return kIntrinsicVariantModulo;
    case kOpPower: return kIntrinsicVariantPower;
    default: return kIntrinsicReserved;
  }
}

SemBase* VariantArithmetic(SemBase* left, unsigned long op, SemBase* right) {
  IntrinsicID f = ArithmeticIntrinsic(op);
  QASSERT_TEXT(f != kIntrinsicReserved,
               "VariantArithmetic with non-arithmetic operator");
  return CallVariantBinopIntrinsic(left, f, right);
}

// One call of VariantCompare, then its sign against 0; > and >= test the
// operands swapped, 0 < t and 0 <= t.
SemBase* VariantComparison(SemBase* left, unsigned long op, SemBase* right) {
  SourceLocation where = left->Location() + right->Location();
  SemBase* code = SemCode::New(IRDataType(kBooleanType), &where);
  TacAddr const* a = AsVariant(left, code);
  TacAddr const* b = AsVariant(right, code);
  Put(a, code);
  Put(b, code);
  TacAddr const* t = code->NewTemp(IRDataType(kSInt32Type), &where)->GetAddr();
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicVariantCompare),
                nilTacAddr, t);
  TacAddr const* result = code->GetAddr();
  switch (op) {
    case kOpLess: code->AddLine(kTacLT, t, gTacZero, result); break;
    case kOpEqual: code->AddLine(kTacEQ, t, gTacZero, result); break;
    case kOpNotEqual: code->AddLine(kTacNE, t, gTacZero, result); break;
    case kOpLessEqual: code->AddLine(kTacLE, t, gTacZero, result); break;
    case kOpGreater: code->AddLine(kTacLT, gTacZero, t, result); break;
    case kOpGreaterEqual: code->AddLine(kTacLE, gTacZero, t, result); break;
    default: Error(kErrorBadOperand, where); break;
  }
  return code;
}

SemBase* VariantUnary(SemBase* operand, IntrinsicID f) {
  SemBase* code = SemCode::New(kVariant, &operand->Location());
  TacAddr const* value = AsVariant(operand, code);
  ResetResult(code);
  Put(value, code);
  CallInto(f, code);
  return code;
}

VariantMember const* FindMember(string const& name) {
  for (VariantMember const& member : kMembers)
    if (name == string(member.name)) return &member;
  return nullptr;
}

// The type a member gives; the null type for DateValue when no class Date
// is declared.
IRDataType MemberResultType(VariantMember const& member) {
  if (member.intrinsic != kIntrinsicVariantToDate)
    return IRDataType(member.result);
  IRDataType date = ResolveType(string(kDateClassName));
  return date.GetMainType() == kObjectType ? date : IRDataType();
}

// Why `args` and `assignValue` do not fit the member, or kErrorNone.
CompileErrorCode MemberMisuse(VariantMember const& member, SemBase* args,
                              SemBase* assignValue, FunctionResultMode mode) {
  unsigned long wanted = member.intrinsic == kIntrinsicVariantEqual ? 1 : 0;
  unsigned long given = ArgumentVector(nullptr, args).size();
  if (assignValue) return kErrorModulePropertySetter;
  if (mode == kProhibitFunctionResult) return kErrorPointerCallForbidden;
  if (given > wanted) return kErrorTooManyArguments;
  if (given < wanted) return kErrorNotEnoughArguments;
  return kErrorNone;
}

SemBase* CallMember(VariantMember const& member, SemBase* expr, SemBase* args,
                    SourceLocation const& where) {
  IRDataType result = MemberResultType(member);
  QASSERT_TEXT(kNoType != result.GetMainType(),
               "kNoType != returnType.GetMainType()");
  SemBase* code = SemCode::New(result, &where);
  TacAddr const* self = AsVariant(expr, code);
  TacAddr const* other = member.intrinsic == kIntrinsicVariantEqual
                             ? AsVariant(ArgumentVector(nullptr, args)[0], code)
                             : nilTacAddr;
  ResetResult(code);
  Put(self, code);
  if (other != nilTacAddr) Put(other, code);
  CallInto(member.intrinsic, code);
  return code;
}

SemBase* Report(CompileErrorCode why, SourceLocation const& where,
                FunctionResultMode mode) {
  Error(why, where);
  return FailedLookupValue(where, mode);
}

// The Int32 literal of the type constant `ident` names, or null when it
// names none. A constant that is assigned, called or left standing as a
// statement is reported at the name (an assignment comes with the mode of
// a statement, so it is told first).
SemBase* TypeConstantLookup(SemBase* expr, SemBase* ident, SemBase* args,
                            SemBase* assignValue, FunctionResultMode mode) {
  long value = 0;
  if (!LookupVariantTypeConstant(ident->toString(), &value)) return nullptr;
  SourceLocation const& where = ident->Location();
  if (assignValue) return Report(kErrorModulePropertySetter, where, mode);
  if (mode == kProhibitFunctionResult)
    return Report(kErrorPointerCallForbidden, where, mode);
  if (args) return Report(kErrorTooManyArguments, where, mode);
  return MakeSemValue<long long>(value, IRDataType(kSInt32Type),
                                 expr->Location() + ident->Location());
}

}  // namespace

bool LookupVariantTypeConstant(string const& name, long* value) {
  for (TypeConstant const& constant : kTypeConstants) {
    if (name == string(constant.name)) {
      *value = constant.value;
      return true;
    }
  }
  return false;
}

bool LookupVariantMember(string const& name, IntrinsicID* intrinsic) {
  VariantMember const* member = FindMember(name);
  if (member) *intrinsic = member->intrinsic;
  return member != nullptr;
}

SemBase* VariantBinop(SemBase* left, unsigned long op, SemBase* right) {
  if (ArithmeticIntrinsic(op) != kIntrinsicReserved)
    return VariantArithmetic(left, op, right);
  if (op == kOpLess || op == kOpGreater || op == kOpEqual ||
      op == kOpNotEqual || op == kOpLessEqual || op == kOpGreaterEqual)
    return VariantComparison(left, op, right);
  SourceLocation where = left->Location() + right->Location();
  Error(kErrorBadOperand, where);
  return SemCode::New(IRDataType(), &where);
}

SemBase* VariantAnd(SemBase* left, SemBase* right) {
  return CallVariantBinopIntrinsic(left, kIntrinsicVariantAnd, right);
}

SemBase* VariantOr(SemBase* left, SemBase* right) {
  return CallVariantBinopIntrinsic(left, kIntrinsicVariantOr, right);
}

SemBase* VariantNot(SemBase* operand) {
  return VariantUnary(operand, kIntrinsicVariantNot);
}

SemBase* VariantNegation(SemBase* operand) {
  return VariantUnary(operand, kIntrinsicVariantNegate);
}

SemBase* VariantScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                            SemBase* assignValue, FunctionResultMode mode) {
  string name = ident->toString();
  SourceLocation where = expr->Location() + ident->Location();
  if (VariantMember const* member = FindMember(name)) {
    if (IsNullType(MemberResultType(*member)))
      return Report(kErrorUnknownName, ident->Location(), mode);
    CompileErrorCode why = MemberMisuse(*member, args, assignValue, mode);
    if (why != kErrorNone) return Report(why, ident->Location(), mode);
    return CallMember(*member, expr, args, where);
  }
  if (SemBase* constant =
          TypeConstantLookup(expr, ident, args, assignValue, mode))
    return constant;
  return ExtensionLookup(expr, ident, args, assignValue, mode,
                         kErrorUnknownName);
}

SemBase* StaticVariantScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                                  SemBase* assignValue,
                                  FunctionResultMode mode) {
  if (SemBase* constant =
          TypeConstantLookup(expr, ident, args, assignValue, mode))
    return constant;
  return Report(kErrorUnknownName, ident->Location(), mode);
}

// The rules of conversion: which pairs of types convert, and the common
// type of two operands. Nothing here emits code.
#include "Compiler/Frontend/MethodDelegates.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Universal/Assertion.h"

namespace {

// The name of the methods that convert objects to and from other types.
char const* const kOperatorConvertName = "Operator_Convert";

bool IsObject(IRDataType const& type) {
  return type.GetMainType() == kObjectType;
}

ClassSymbol* ClassOf(IRDataType const& type) {
  TypeSymbol* decl = type.Declaration();
  if (!IsObject(type) || !decl || !decl->IsA(Symbol::kClass)) return nullptr;
  return static_cast<ClassSymbol*>(decl);
}

InterfaceSymbol* InterfaceOf(IRDataType const& type) {
  TypeSymbol* decl = type.Declaration();
  if (!IsObject(type) || !decl || !decl->IsA(Symbol::kInterface))
    return nullptr;
  return static_cast<InterfaceSymbol*>(decl);
}

bool IsClassOrAncestor(ClassSymbol* ancestor, ClassSymbol* cls) {
  for (ClassSymbol* c = cls; c; c = c->GetParent())
    if (c == ancestor) return true;
  return false;
}

bool IsArrayType(IRDataType const& type) {
  return type.GetMainType() == kArrayType;
}

}  // namespace

IRDataType StripReference(IRDataType const& type) {
  return type.GetMainType() == kReferenceType ? type.AsElement() : type;
}

bool IsVariant(IRDataType const& type) {
  return StripReference(type).GetMainType() == kVariantType;
}

bool IsChameleon(IRDataType const& type) {
  return type.GetMainType() == kNilType || IsVariant(type);
}

bool IsDereference(IRDataType const& target, IRDataType const& source) {
  return source.GetMainType() == kReferenceType &&
         target.GetMainType() != kReferenceType;
}

bool IsNilConstantConversion(IRDataType const& target,
                             IRDataType const& source) {
  if (source.GetMainType() != kNilType) return false;
  switch (target.GetMainType()) {
    case kVariantType:
    case kObjectType:
    case kArrayType:
    case kPtrType:
    case kExternalCStringType:
    case kExternalPStringType:
    case kWindowPtrType:
    case kExternalWStringType:
    case kCFStringRefType:
      return true;
    default:
      return false;
  }
}

bool IsDeclareStringConversion(IRDataType const& target,
                               IRDataType const& source) {
  return (target.GetMainType() == kStringType && source.IsExternalString()) ||
         (source.GetMainType() == kStringType && target.IsExternalString());
}

bool IsDelegatePtrConversion(IRDataType const& target,
                             IRDataType const& source) {
  return target.GetMainType() == kPtrType && source.IsDelegate();
}

bool IsNumericConversion(IRDataType const& target, IRDataType const& source) {
  return target.IsNumeric() && source.IsNumeric() && !target.Declaration() &&
         !source.Declaration();
}

bool IsImplicitUpcast(IRDataType const& target, IRDataType const& source) {
  if (!IsObject(target) || !IsObject(source)) return false;
  if (!target.Declaration()) return true;
  ClassSymbol* to = ClassOf(target);
  ClassSymbol* from = ClassOf(source);
  return to && from && IsClassOrAncestor(to, from);
}

bool IsInterfaceCast(IRDataType const& target, IRDataType const& source) {
  ClassSymbol* from = ClassOf(source);
  InterfaceSymbol* to = InterfaceOf(target);
  return from && to && from->ImplementsInterface(to);
}

bool IsDelegateIdentityConversion(IRDataType const& target,
                                  IRDataType const& source) {
  return target.IsDelegate() && source.IsDelegate() &&
         DelegateSignaturesMatch(target, source);
}

bool IsArrayElementNarrowingCast(IRDataType const& target,
                                 IRDataType const& source) {
  if (!IsArrayType(target) || !IsArrayType(source)) return false;
  IRDataType to = target.AsElement(), from = source.AsElement();
  return IsImplicitUpcast(to, from) || IsInterfaceCast(to, from);
}

bool IsOperatorConversion(IRDataType const& target, IRDataType const& source) {
  MethodList methods = LookupConversionOperator(target, source);
  return methods && methods->size() > 0;
}

IRDataType ComputeCommonType(IRDataType a, IRDataType b) {
  a = StripReference(a);
  b = StripReference(b);
  if (a == b) return a;
  if (IsChameleon(a)) return b;
  if (IsChameleon(b)) return a;
  if (IsArrayType(a) || IsArrayType(b)) return IRDataType();
  bool eitherSigned = a.Signed() || b.Signed();
  if (a.IsInteger() && b.IsInteger()) {
    bool narrow = a.StorageSize() < 5 && b.StorageSize() < 5;
    if (narrow) return IRDataType(eitherSigned ? kSInt32Type : kUInt32Type);
    return IRDataType(eitherSigned ? kSInt64Type : kUInt64Type);
  }
  if ((a.IsInteger() && b.GetMainType() == kPtrType) ||
      (b.IsInteger() && a.GetMainType() == kPtrType))
    return IRDataType(kPtrType);
  if (a.IsNumeric() && b.IsNumeric()) return IRDataType(kReal64Type);
  bool aString = a.GetMainType() == kStringType || a.IsExternalString();
  bool bString = b.GetMainType() == kStringType || b.IsExternalString();
  if (aString && bString) return IRDataType(kStringType);
  if (a.IsDelegate() && b.IsDelegate()) {
    if (DelegateSignaturesMatch(a, b)) return a;
    if (DelegateSignaturesMatch(b, a)) return b;
  }
  return IRDataType();
}

bool IsLegalConversion(IRDataType const& target, IRDataType source,
                       int* steps) {
  if (IsDereference(target, source)) {
    source = source.AsElement();
  } else if (target.GetMainType() == kReferenceType &&
             source.GetMainType() != kReferenceType) {
    return target.AsElement() == source;
  }
  if (target == source) {
    if (steps) *steps = 0;
    return true;
  }
  if (steps) *steps = 1;
  return IsNumericConversion(target, source) ||
         IsNilConstantConversion(target, source) ||
         IsDeclareStringConversion(target, source) || IsVariant(source) ||
         IsVariant(target) || IsImplicitUpcast(target, source) ||
         IsInterfaceCast(target, source) ||
         IsOperatorConversion(target, source) ||
         IsArrayElementNarrowingCast(target, source) ||
         IsDelegateIdentityConversion(target, source) ||
         IsDelegatePtrConversion(target, source);
}

namespace {

MethodList ConvertMethodsOf(IRDataType const& type) {
  if (ClassSymbol* cls = ClassOf(type))
    return cls->LookupMethods(kOperatorConvertName, kAllMethods);
  if (InterfaceSymbol* face = InterfaceOf(type))
    return face->LookupMethods(kOperatorConvertName, kAllMethods);
  return MethodList();
}

// Walks from the last to the first, as the overload order requires, and
// drops each method that `keep` refuses.
template <typename Keep>
void Filter(MethodList const& methods, Keep keep) {
  if (!methods) return;
  for (unsigned long i = methods->size(); i-- > 0;)
    if (!keep((*methods)[i])) methods->deleteIdx(i);
}

}  // namespace

// Convert-to methods (`Function Operator_Convert() As T`) of the source
// come first; only without one do convert-from methods (`Sub
// Operator_Convert(v As S)`) of the target count.
MethodList LookupConversionOperator(IRDataType const& target,
                                    IRDataType const& source) {
  MethodList methods = ConvertMethodsOf(source);
  Filter(methods, [&](MethodSymbol* m) {
    IRDataType const& result = m->GetReturnType();
    return m->CountParameters() < 2 && !IsNullType(result) &&
           result != source && IsLegalConversion(target, result, nullptr);
  });
  if ((methods && methods->size() > 0) || !ClassOf(target)) return methods;
  methods = ConvertMethodsOf(target);
  Filter(methods, [&](MethodSymbol* m) {
    if (!IsNullType(m->GetReturnType()) || m->CountParameters() != 2)
      return false;
    IRDataType const& param = m->GetParameter(1)->GetType();
    return param != target && IsLegalConversion(param, source, nullptr);
  });
  return methods;
}

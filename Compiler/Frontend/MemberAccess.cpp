#include "Compiler/Frontend/Classes.h"
#include "Compiler/Frontend/MemberAccess.h"

#include "Compiler/Frontend/Assignments.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/ObjectExpressions.h"
#include "Compiler/Frontend/Arrays.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

// `value(args)`, or `value` itself without arguments.
SemBase* ReadValue(SemBase* value, SemBase* args) {
  return args ? GetArrayElement(value, args) : value;
}

// `place = assignValue` or `place(args) = assignValue`, as a statement.
SemBase* WriteValue(SemBase* place, SemBase* args, SemBase* assignValue) {
  SemBase* code = SemCode::New(IRDataType(), &assignValue->Location());
  // A field of an object is a place that code computes.
  if (!args && place->Code()) {
    SemBase* flat = FlattenExpression(place, code);
    AssignToSymbol(flat->GetAddr(), assignValue, code);
    return code;
  }
  if (args)
    SetArrayElementValue(place, args, assignValue, code);
  else
    AssignToSymbol(place->GetAddr(), assignValue, code);
  return code;
}

bool InsideAccessor() {
  return gContext->blocks.CurrentProperty() != nullptr;
}

// A stored property's storage: a field of Self for an instance property,
// static data for a shared or module one.
SemBase* StoredPropertyValue(PropertySymbol* prop, bool instance,
                             SourceLocation const& where) {
  TacAddr const* addr =
      instance ? gContext->GetObjectSymbolAddr(prop->GetType(),
                                               prop->GetLinkName(),
                                               prop->GetStorageOffset())
               : gContext->GetStaticSymbolAddr(prop->GetType(),
                                               prop->GetLinkName());
  return SemValue::New(addr, &where);
}

// The shared pattern of property access. `base` is the object of an
// instance property (null for static ones); `storage` gives the place of a
// stored property.
SemBase* AccessProperty(PropertySymbol* prop, SemBase* base, SemBase* storage,
                        SemBase* args, SemBase* assignValue,
                        FunctionResultMode mode, CompileErrorCode* err) {
  bool computed = prop->HasCustomAccessors();
  if (!assignValue) {
    if (mode == kProhibitFunctionResult) {
      *err = kErrorNotCallable;
      return nullptr;
    }
    SemBase* value = computed ? (base ? CallPropertyGetter(base, prop)
                                      : CallModulePropertyGetter(prop))
                              : storage;
    return ReadValue(value, args);
  }
  if (mode == kRequireFunctionResult) {
    *err = kErrorTypeMismatch;
    return nullptr;
  }
  if (!computed) return WriteValue(storage, args, assignValue);
  if (!args)
    return base ? CallPropertySetter(base, prop, assignValue)
                : CallModulePropertySetter(prop, assignValue);
  SemBase* array = base ? CallPropertyGetter(base, prop)
                        : CallModulePropertyGetter(prop);
  return WriteValue(array, args, assignValue);
}

// The class, from `cls` up, that first declares what `has` finds.
template <typename Has>
ClassSymbol* FirstDeclarer(ClassSymbol* cls, Has has) {
  while (cls->GetParent() && has(cls->GetParent())) cls = cls->GetParent();
  return cls;
}

bool IsAncestorOrSelf(ClassSymbol* ancestor, ClassSymbol* cls) {
  for (ClassSymbol* c = cls; c; c = c->GetParent())
    if (c == ancestor) return true;
  return false;
}

template <typename Has>
bool HasPermission(ClassSymbol* cls, MemberSymbol* member, Has has) {
  if (member->GetScope() == MemberSymbol::kPublic) return true;
  ClassSymbol* current = gContext->blocks.CurrentClass();
  if (!current) return false;
  if (current == cls) return true;
  if (member->GetScope() == MemberSymbol::kPrivate) return false;
  return IsAncestorOrSelf(FirstDeclarer(cls, has), current);
}

}  // namespace

SemBase* AccessLocalVariable(SemBase* var, SemBase* args, SemBase* assignValue,
                             FunctionResultMode mode, CompileErrorCode* err) {
  if (SubscriptNonArray(args, var->GetType())) {
    *err = kErrorNotAnArrayTarget;
    return nullptr;
  }
  if (assignValue) return WriteValue(var, args, assignValue);
  if (mode == kProhibitFunctionResult) {
    *err = kErrorNotCallable;
    return nullptr;
  }
  return ReadValue(var, args);
}

SemBase* AccessConstant(SemBase* ident, ConstantSymbol* constant,
                        SemBase* args, SemBase* assignValue,
                        FunctionResultMode mode, CompileErrorCode* err) {
  if (assignValue) *err = kErrorModulePropertySetter;
  else if (args) *err = kErrorTooManyArguments;
  else if (mode == kProhibitFunctionResult) *err = kErrorNotCallable;
  else
    return SemValue::New(
        CurrentTLP()->GetLiteral(constant->GetValue(), constant->GetType()),
        &ident->Location());
  return nullptr;
}

SemBase* AccessSelfProperty(PropertySymbol* prop, SourceLocation const& where,
                            SemBase* args, SemBase* assignValue,
                            FunctionResultMode mode, CompileErrorCode* err) {
  if (SubscriptNonArray(args, prop->GetType())) {
    *err = kErrorNotAnArrayTarget;
    return nullptr;
  }
  if (!assignValue && mode == kProhibitFunctionResult) {
    *err = kErrorNotCallable;
    return nullptr;
  }
  bool instance = !prop->IsShared();
  if (instance && !CanAccessInstanceItems()) {
    Error(InsideAccessor() ? kErrorSelfPropertyAccessInAccessor
                           : kErrorSelfPropertyAccess,
          where);
    return FailedLookupValue(where, mode);
  }
  // A stored field is reached through the base the code has set, which
  // field initialisers have without any Self.
  SemBase* base =
      instance && prop->HasCustomAccessors() ? CompileSelf() : nullptr;
  SemBase* storage = prop->HasCustomAccessors()
                         ? nullptr
                         : StoredPropertyValue(prop, instance, where);
  return AccessProperty(prop, base, storage, args, assignValue, mode, err);
}

SemBase* AccessModuleProperty(PropertySymbol* prop,
                              SourceLocation const& where, SemBase* args,
                              SemBase* assignValue, FunctionResultMode mode,
                              CompileErrorCode* err) {
  if (SubscriptNonArray(args, prop->GetType())) {
    *err = kErrorNotAnArrayTarget;
    return nullptr;
  }
  SemBase* storage = prop->HasCustomAccessors()
                         ? nullptr
                         : StoredPropertyValue(prop, false, where);
  return AccessProperty(prop, nullptr, storage, args, assignValue, mode, err);
}

SemBase* AccessInstanceProperty(SemBase* expr, PropertySymbol* prop,
                                SourceLocation const& where, SemBase* args,
                                SemBase* assignValue, FunctionResultMode mode,
                                CompileErrorCode* err) {
  if (SubscriptNonArray(args, prop->GetType())) {
    *err = kErrorNotAnArrayTarget;
    return nullptr;
  }
  if (prop->IsShared()) {
    SemBase* storage = prop->HasCustomAccessors()
                           ? nullptr
                           : StoredPropertyValue(prop, false, where);
    return AccessProperty(prop, nullptr, storage, args, assignValue, mode, err);
  }
  SemBase* storage = prop->HasCustomAccessors()
                         ? nullptr
                         : CreatePropertyStorageReference(expr, prop);
  return AccessProperty(prop, expr, storage, args, assignValue, mode, err);
}

bool CurrentlyHasPermissionToAccessFunction(ClassSymbol* cls,
                                            MemberSymbol* member) {
  string const& name = member->Name();
  return HasPermission(cls, member, [&](ClassSymbol* c) {
    return bool(c->LookupMethods(name, kAllMethods));
  });
}

bool CurrentlyHasPermissionToAccessProperty(ClassSymbol* cls,
                                            MemberSymbol* member) {
  string const& name = member->Name();
  return HasPermission(cls, member, [&](ClassSymbol* c) {
    return c->LookupProperty(name) != nullptr;
  });
}

bool CurrentlyHasPermissionToAccessConstant(ClassSymbol* cls,
                                            MemberSymbol* member) {
  string const& name = member->Name();
  return HasPermission(cls, member, [&](ClassSymbol* c) {
    return c->LookupConstant(name) != nullptr;
  });
}

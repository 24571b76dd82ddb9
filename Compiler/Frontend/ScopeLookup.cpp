// `expr.name`: the member of a module, a class, an object or a built-in
// type, and extension methods as the last resort.
#include "Compiler/Frontend/Classes.h"
#include "Compiler/Frontend/Colors.h"
#include "Compiler/Frontend/Enums.h"
#include "Compiler/Frontend/ExternalDeclarations.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/MemberAccess.h"
#include "Compiler/Frontend/Arrays.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/ObjectExpressions.h"
#include "Compiler/Frontend/NilChecks.h"
#include "Compiler/Frontend/FunctionCalls.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/MethodDelegates.h"
#include "Compiler/Frontend/VariantType.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/Structures.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

// The methods a dynamic object answers unknown names with.
char const* const kOperatorLookupName = "Operator_Lookup";

MethodFilter FilterFor(SemBase* assignValue, bool extension) {
  if (extension) return assignValue ? kExtensionSetterMethods : kExtensionMethods;
  return assignValue ? kSetterMethods : kPlainMethods;
}

SourceLocation MemberWhere(SemBase* expr, SemBase* ident) {
  return expr->Location() + ident->Location();
}

SemBase* ReportMember(CompileErrorCode why, SemBase* expr, SemBase* ident,
                      FunctionResultMode mode) {
  SourceLocation where = MemberWhere(expr, ident);
  Error(why == kErrorNone ? kErrorUnknownName : why, where);
  return FailedLookupValue(where, mode);
}

// Chooses among `methods` and calls it on `base`; null when none fits.
SemBase* CallOneOf(MethodList const& methods, SemBase* base, SemBase* args,
                   SemBase* assignValue, FunctionResultMode mode,
                   CompileErrorCode* why) {
  if (!methods || methods->size() == 0) return nullptr;
  SemBase* list = CallArguments(args, assignValue);
  MethodSymbol* method = SelectAppropriateVariant(methods, base, list, mode, why);
  return method ? CompileCall(method, base, list) : nullptr;
}

MethodList MethodsOf(TypeSymbol* decl, string const& name, MethodFilter f) {
  if (decl->IsA(Symbol::kClass))
    return static_cast<ClassSymbol*>(decl)->LookupMethods(name, f);
  if (decl->IsA(Symbol::kInterface))
    return static_cast<InterfaceSymbol*>(decl)->LookupMethods(name, f);
  if (decl->IsA(Symbol::kDelegate))
    return static_cast<DelegateSymbol*>(decl)->LookupMethods(name, f);
  return MethodList();
}

// Only the methods the code at hand may call.
MethodList PermittedMethods(TypeSymbol* decl, MethodList const& methods) {
  if (!methods || !decl->IsA(Symbol::kClass)) return methods;
  ClassSymbol* cls = static_cast<ClassSymbol*>(decl);
  for (unsigned long i = methods->size(); i-- > 0;)
    if (!CurrentlyHasPermissionToAccessFunction(cls, (*methods)[i]))
      methods->deleteIdx(i);
  return methods;
}

// `x.n(args) [= value]` on an object with Operator_Lookup methods becomes
// `x.Operator_Lookup("n", args [, value])`.
SemBase* DynamicLookup(TypeSymbol* decl, SemBase* base, SemBase* ident,
                       SemBase* args, SemBase* assignValue,
                       FunctionResultMode mode, CompileErrorCode* why) {
  MethodList methods = PermittedMethods(
      decl, MethodsOf(decl, kOperatorLookupName, kAllMethods));
  if (!methods || methods->size() == 0) return nullptr;
  SemBase* name = SemValue::New(CurrentTLP()->GetLiteral(ident->toString()),
                                &ident->Location());
  SemBase* rest = CallArguments(args, assignValue);
  SemBase* list = ConcatList(name, rest);
  MethodSymbol* method = SelectAppropriateVariant(methods, base, list, mode, why);
  return method ? CompileCall(method, base, list) : nullptr;
}

// `Name.member` where `Name` is a bare identifier that is no value: a
// declared type, a module, Variant or Delegate.
SemBase* NamedScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                          SemBase* assignValue, FunctionResultMode mode) {
  string name = expr->toString();
  IRDataType type = ResolveType(name);
  if (TypeSymbol* decl = type.Declaration()) {
    expr->SetType(type);
    if (decl->IsA(Symbol::kClass))
      return StaticClassScopeLookup(expr, ident, args, assignValue, mode);
    if (decl->IsA(Symbol::kEnum))
      return EnumScopeLookup(expr, ident, args, assignValue, mode);
    if (decl->IsA(Symbol::kStructure))
      return StaticStructureScopeLookup(expr, ident, args, assignValue, mode);
    if (decl->IsA(Symbol::kDelegate))
      return StaticDelegateScopeLookup(expr, ident, args, assignValue, mode);
    return ExtensionLookup(expr, ident, args, assignValue, mode,
                           kErrorUnknownName);
  }
  GlobalSymbolTable* root = gContext->blocks.Root();
  if (ModuleSymbol* module = root ? root->LookupModule(name) : nullptr)
    return ModuleScopeLookup(SemNamespace::New(module, expr->Location()),
                             ident, args, assignValue, mode);
  if (IRDataType::Lookup(name).GetMainType() == kVariantType)
    return StaticVariantScopeLookup(expr, ident, args, assignValue, mode);
  if (name == string("Delegate"))
    return StaticDelegateScopeLookup(expr, ident, args, assignValue, mode);
  Error(kErrorUnknownName, expr->Location());
  return FailedLookupValue(expr->Location(), mode);
}

SemBase* NamespaceScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                              SemBase* assignValue, FunctionResultMode mode) {
  Symbol* symbol = static_cast<SemNamespace*>(expr)->GetSymbol();
  if (symbol->IsA(Symbol::kDelegate))
    return StaticDelegateScopeLookup(expr, ident, args, assignValue, mode);
  if (symbol->IsA(Symbol::kStructure))
    return StaticStructureScopeLookup(expr, ident, args, assignValue, mode);
  if (symbol->IsA(Symbol::kEnum))
    return EnumScopeLookup(expr, ident, args, assignValue, mode);
  if (symbol->IsA(Symbol::kClass))
    return StaticClassScopeLookup(expr, ident, args, assignValue, mode);
  if (symbol->IsA(Symbol::kModule))
    return ModuleScopeLookup(expr, ident, args, assignValue, mode);
  return ReportMember(kErrorUnknownName, expr, ident, mode);
}

// What a namespace or typed identifier stands for.
Symbol* SymbolOf(SemBase* expr) {
  if (expr->IsNamespace()) return static_cast<SemNamespace*>(expr)->GetSymbol();
  return expr->GetType().Declaration();
}

}  // namespace

// `Super.Method` and `Ancestor.Method` in an instance method of a class
// that descends from `cls`: the method of that class is called on Self,
// past the vtable. Null where no such Self is at hand.
SemBase* InheritedSelf(ClassSymbol* cls) {
  ClassSymbol* current = gContext->blocks.CurrentClass();
  if (!current || !CanAccessInstanceItems()) return nullptr;
  for (ClassSymbol* c = current; c; c = c->GetParent())
    if (c == cls) return CompileSelf();
  return nullptr;
}

SemBase* CompileScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                            SemBase* assignValue, FunctionResultMode mode) {
  QASSERT(expr);
  QASSERT(ident);
  QASSERT(gContext);
  if (IsErrorValue(expr)) return FailedLookupValue(expr->Location(), mode);
  if (expr->IsNamespace())
    return NamespaceScopeLookup(expr, ident, args, assignValue, mode);
  if (expr->IsIdentifier())
    return NamedScopeLookup(expr, ident, args, assignValue, mode);
  switch (StripReference(expr->GetType()).GetMainType()) {
    case kColorType:
    case kVariantType:
    case kArrayType:
    case kPtrType:
      return IntrinsicScopeLookup(expr, ident, args, assignValue, mode);
    case kObjectType:
      return InstanceScopeLookup(expr, ident, args, assignValue, mode);
    case kStructureType:
      return StructureScopeLookup(expr, ident, args, assignValue, mode);
    case kClassType:
      return ClassScopeLookup(expr, ident, args, assignValue, mode);
    default:
      return ExtensionLookup(expr, ident, args, assignValue, mode,
                             kErrorUnknownName);
  }
}

SemBase* IntrinsicScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                              SemBase* assignValue, FunctionResultMode mode) {
  SimpleDataType type = StripReference(expr->GetType()).GetMainType();
  if (type == kVariantType)
    return VariantScopeLookup(expr, ident, args, assignValue, mode);
  if (type == kArrayType) {
    if (!assignValue && IsPotentialArrayMethodName(ident->toString()))
      return HandleArrayMethodCall(expr, ident, args, mode);
    return ExtensionLookup(expr, ident, args, assignValue, mode,
                           kErrorUnknownName);
  }
  if (type == kColorType && !args && !assignValue &&
      IsPotentialColorMethodName(ident->toString()))
    return HandleColorMethodCall(expr, ident);
  if (type == kPtrType && IsPotentialPtrMethodName(ident))
    return HandlePtrMethodCall(expr, ident, args, assignValue, mode);
  return ExtensionLookup(expr, ident, args, assignValue, mode,
                         kErrorUnknownName);
}

SemBase* InstanceScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                             SemBase* assignValue, FunctionResultMode mode) {
  SemBase* base = CheckForNilObject(expr);
  TypeSymbol* decl = StripReference(expr->GetType()).Declaration();
  CompileErrorCode why = kErrorUnknownName;
  if (!decl) return ExtensionLookup(base, ident, args, assignValue, mode, why);
  string name = ident->toString();
  MethodList methods =
      PermittedMethods(decl, MethodsOf(decl, name, FilterFor(assignValue, false)));
  if (SemBase* call = CallOneOf(methods, base, args, assignValue, mode, &why))
    return call;
  if (decl->IsA(Symbol::kClass)) {
    ClassSymbol* cls = static_cast<ClassSymbol*>(decl);
    SemBase* result = nullptr;
    PropertySymbol* prop = cls->LookupProperty(name);
    if (prop && CurrentlyHasPermissionToAccessProperty(cls, prop))
      result = AccessInstanceProperty(base, prop, MemberWhere(expr, ident),
                                      args, assignValue, mode, &why);
    if (result) return result;
    ConstantSymbol* constant = cls->LookupConstant(name);
    if (constant && CurrentlyHasPermissionToAccessConstant(cls, constant))
      result = AccessConstant(ident, constant, args, assignValue, mode, &why);
    if (result) return result;
  }
  if (SemBase* dynamic =
          DynamicLookup(decl, base, ident, args, assignValue, mode, &why))
    return dynamic;
  return ExtensionLookup(base, ident, args, assignValue, mode, why);
}

// `Cls.member`: shared properties, constants and shared methods.
SemBase* StaticClassScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                                SemBase* assignValue, FunctionResultMode mode) {
  Symbol* symbol = SymbolOf(expr);
  QASSERT(symbol && symbol->IsA(Symbol::kClass));
  ClassSymbol* cls = static_cast<ClassSymbol*>(symbol);
  string name = ident->toString();
  SourceLocation where = MemberWhere(expr, ident);
  CompileErrorCode why = kErrorUnknownName;
  SemBase* result = nullptr;
  PropertySymbol* prop = cls->LookupProperty(name);
  if (prop && !prop->IsShared()) {
    Error(kErrorSelfPropertyAccess, where);
    return SemCode::New(IRDataType(), &where);
  }
  if (prop)
    result = AccessModuleProperty(prop, where, args, assignValue, mode, &why);
  if (result) return result;
  if (ConstantSymbol* constant = cls->LookupConstant(name))
    result = AccessConstant(ident, constant, args, assignValue, mode, &why);
  if (result) return result;
  MethodList methods = cls->LookupMethods(name, FilterFor(assignValue, false));
  if (methods && methods->size() > 0) {
    SemBase* list = CallArguments(args, assignValue);
    SemBase* self = InheritedSelf(cls);
    MethodSymbol* method = SelectAppropriateVariant(methods, self, list, mode, &why);
    if (method && method->IsInstanceMethod() && self)
      return CompileStaticCall(method, self, list);
    if (method && method->IsInstanceMethod()) {
      Error(kErrorInstanceMemberInSharedContext, where);
      return SemCode::New(IRDataType(), &where);
    }
    if (method) return CompileCall(method, nullptr, list);
  }
  TypeSymbol* nested = args || assignValue ? nullptr : cls->LookupType(name);
  if (nested) {
    if (!MayUseNestedType(cls, nested)) Error(kErrorPrivateType, where);
    return SemNamespace::New(nested, where);
  }
  return ReportMember(why, expr, ident, mode);
}

namespace {

// A private member of a module is seen only by code inside that module.
bool ModuleMemberVisible(ModuleSymbol* module, Symbol* member) {
  if (static_cast<MemberSymbol*>(member)->GetScope() != MemberSymbol::kPrivate)
    return true;
  return gContext->blocks.Contains(module);
}

Symbol* VisibleOwn(ModuleSymbol* module, string const& name, int kind) {
  Symbol* found = module->FindOwn(name, kind);
  return found && ModuleMemberVisible(module, found) ? found : nullptr;
}

MethodList VisibleMethods(ModuleSymbol* module, MethodList methods) {
  if (!methods) return methods;
  for (unsigned long i = methods->size(); i-- > 0;)
    if (!ModuleMemberVisible(module, (*methods)[i])) methods->deleteIdx(i);
  return methods;
}

}  // namespace

// `Module.member`: the module's own properties, constants, methods, and
// the types and modules declared in it.
SemBase* ModuleScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                           SemBase* assignValue, FunctionResultMode mode) {
  Symbol* symbol = SymbolOf(expr);
  QASSERT(symbol && symbol->IsA(Symbol::kModule));
  ModuleSymbol* module = static_cast<ModuleSymbol*>(symbol);
  string name = ident->toString();
  SourceLocation where = MemberWhere(expr, ident);
  CompileErrorCode why = kErrorUnknownName;
  SemBase* result = nullptr;
  if (Symbol* prop = VisibleOwn(module, name, Symbol::kProperty))
    result = AccessModuleProperty(static_cast<PropertySymbol*>(prop), where,
                                  args, assignValue, mode, &why);
  if (result) return result;
  if (Symbol* constant = VisibleOwn(module, name, Symbol::kConstant))
    result = AccessConstant(ident, static_cast<ConstantSymbol*>(constant), args,
                            assignValue, mode, &why);
  if (result) return result;
  MethodList methods = VisibleMethods(
      module, module->LookupMethods(name, FilterFor(assignValue, false)));
  if (SemBase* call = CallOneOf(methods, nullptr, args, assignValue, mode, &why))
    return call;
  if (!assignValue && !args) {
    Symbol* nested = VisibleOwn(module, name, Symbol::kModule);
    if (!nested) nested = VisibleOwn(module, name, Symbol::kType);
    if (nested) return SemNamespace::New(nested, where);
  }
  return ReportMember(why, expr, ident, mode);
}

SemBase* ExtensionLookup(SemBase* expr, SemBase* ident, SemBase* args,
                         SemBase* assignValue, FunctionResultMode mode,
                         CompileErrorCode failureCode) {
  QASSERT(expr);
  QASSERT(ident);
  CompileErrorCode why = failureCode;
  ModuleSymbol* module = gContext->blocks.CurrentModule();
  MethodList methods;
  if (module)
    methods = module->LookupMethodsRecursive(ident->toString(),
                                             FilterFor(assignValue, true));
  if (SemBase* call = CallOneOf(methods, expr, args, assignValue, mode, &why))
    return call;
  return ReportMember(why, expr, ident, mode);
}

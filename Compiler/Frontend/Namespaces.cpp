#include "Compiler/Frontend/Namespaces.h"

#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/MemberAccess.h"
#include "Compiler/Frontend/ObjectExpressions.h"
#include "Compiler/Frontend/FunctionCalls.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/Arrays.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

// One lookup of a bare name: its arguments, and the reason to report if
// no step finds it.
struct Lookup {
  SemBase* ident;
  SemBase* args;
  SemBase* assignValue;
  FunctionResultMode mode;
  CompileErrorCode whyFailed;
  string name;

  MethodFilter Filter() const {
    return assignValue ? kSetterMethods : kPlainMethods;
  }
  SourceLocation const& Where() const { return ident->Location(); }
};

// Calls the one of `methods` that fits; null when none does, with the
// reason in the lookup.
SemBase* CallFound(Lookup& lookup, MethodList const& methods, SemBase* base) {
  SemBase* list = CallArguments(lookup.args, lookup.assignValue);
  MethodSymbol* method =
      SelectAppropriateVariant(methods, base, list, lookup.mode, &lookup.whyFailed);
  return method ? CompileCall(method, base, list) : nullptr;
}

// 1. The method being compiled: its variables, constants and local methods.
SemBase* SearchMethod(Lookup& lookup) {
  if (!gContext->blocks.CurrentMethod()) return nullptr;
  SemBase* result = nullptr;
  if (SemBase* var = FindLocalSymbol(lookup.ident))
    result = AccessLocalVariable(var, lookup.args, lookup.assignValue,
                                 lookup.mode, &lookup.whyFailed);
  if (result) return result;
  LocalSymbolTable* table = gContext->mSymbols;
  if (ConstantSymbol* constant = table->LookupConstant(lookup.name))
    result = AccessConstant(lookup.ident, constant, lookup.args,
                            lookup.assignValue, lookup.mode,
                            &lookup.whyFailed);
  if (result) return result;
  MethodList methods = table->LookupMethods(lookup.name, lookup.Filter());
  if (!methods) return nullptr;
  result = CallFound(lookup, methods, nullptr);
  if (!result) lookup.whyFailed = kErrorNotAnArray;
  return result;
}

bool HasInstanceMethod(MethodList const& methods) {
  for (unsigned long i = 0; i < methods->size(); i++)
    if ((*methods)[i]->IsInstanceMethod()) return true;
  return false;
}

// 2d. An instance method needs a Self: 106, or 108 in a property accessor.
SemBase* CallClassMethod(Lookup& lookup, MethodList const& methods) {
  bool instanceAtHand = CanAccessInstanceItems();
  SemBase* base = instanceAtHand ? CompileSelf() : nullptr;
  SemBase* list = CallArguments(lookup.args, lookup.assignValue);
  MethodSymbol* method =
      SelectAppropriateVariant(methods, base, list, lookup.mode, &lookup.whyFailed);
  if (!method && !instanceAtHand && HasInstanceMethod(methods))
    method = (*methods)[0];
  if (!method) return nullptr;
  if (method->IsInstanceMethod() && !instanceAtHand) {
    Error(gContext->blocks.CurrentProperty()
              ? kErrorInstanceMemberInSharedAccessor
              : kErrorInstanceMemberInSharedContext,
          lookup.Where());
    return SemCode::New(IRDataType(), &lookup.Where());
  }
  return CompileCall(method, base, list);
}

// 2. The class being compiled: properties, constants, methods and events.
SemBase* SearchClass(Lookup& lookup) {
  ClassSymbol* cls = gContext->blocks.CurrentClass();
  if (!cls) return nullptr;
  SemBase* result = nullptr;
  if (PropertySymbol* prop = cls->LookupProperty(lookup.name))
    result = AccessSelfProperty(prop, lookup.Where(), lookup.args,
                                lookup.assignValue, lookup.mode,
                                &lookup.whyFailed);
  if (result) return result;
  if (ConstantSymbol* constant = cls->LookupConstant(lookup.name))
    result = AccessConstant(lookup.ident, constant, lookup.args,
                            lookup.assignValue, lookup.mode,
                            &lookup.whyFailed);
  if (result) return result;
  MethodList methods = cls->LookupMethods(lookup.name, lookup.Filter());
  MethodSymbol* event =
      lookup.assignValue ? nullptr : cls->LookupEvent(lookup.name);
  if (event) {
    if (!methods) methods.BindNewObject(new SimpleVector<MethodSymbol*>);
    methods->push_back(event);
  }
  if (!methods || methods->size() == 0) return nullptr;
  return CallClassMethod(lookup, methods);
}

// 3. The current module (the global table at the top): properties,
// constants, methods, its own and its enclosing modules'.
SemBase* SearchModule(Lookup& lookup) {
  ModuleSymbol* module = gContext->blocks.CurrentModule();
  if (!module) return nullptr;
  SemBase* result = nullptr;
  if (PropertySymbol* prop = module->LookupProperty(lookup.name))
    result = AccessModuleProperty(prop, lookup.Where(), lookup.args,
                                  lookup.assignValue, lookup.mode,
                                  &lookup.whyFailed);
  if (result) return result;
  if (ConstantSymbol* constant = module->LookupConstant(lookup.name))
    result = AccessConstant(lookup.ident, constant, lookup.args,
                            lookup.assignValue, lookup.mode,
                            &lookup.whyFailed);
  if (result) return result;
  MethodList methods =
      module->LookupMethodsRecursive(lookup.name, lookup.Filter());
  if (!methods || methods->size() == 0) return nullptr;
  return CallFound(lookup, methods, nullptr);
}

// 3b. In the main body, outside every method and class: a variable of an
// open block that is no module property, such as a For counter declared
// in its header. The declaration scanner makes the main body's Dims module
// properties, which step 3 finds first, so both ways of naming one of them
// reach the same storage.
SemBase* SearchMainBodyBlocks(Lookup& lookup) {
  BlockContextList const& blocks = gContext->blocks;
  if (blocks.CurrentMethod() || blocks.CurrentClass()) return nullptr;
  LocalSymbolTable* table = nullptr;
  VariableSymbol* var = nullptr;
  if (!gContext->mSymbols->LookupVariable(lookup.name, &table, &var))
    return nullptr;
  if (table->Root() == table) return nullptr;
  SemBase* value = SemValue::New(var->GetAddr(), &lookup.Where());
  return AccessLocalVariable(value, lookup.args, lookup.assignValue,
                             lookup.mode, &lookup.whyFailed);
}

// 4. A type name: a cast with arguments, the type itself without.
SemBase* SearchTypes(Lookup& lookup, bool typeLike) {
  if (lookup.assignValue) return nullptr;
  IRDataType type = ResolveType(lookup.name);
  SimpleDataType main = type.GetMainType();
  if (main == kUnresolvedType || main == kNoType) return nullptr;
  if (lookup.mode == kProhibitFunctionResult) {
    lookup.whyFailed = kErrorPointerCallForbidden;
  } else if (lookup.args) {
    return CompileTypecast(type, lookup.args, lookup.Where());
  } else if (typeLike) {
    lookup.whyFailed = kErrorTypeAsValue;
  } else {
    return lookup.ident;
  }
  return nullptr;
}

// 5. A module by name, from the root.
SemBase* SearchModules(Lookup& lookup, bool typeLike) {
  GlobalSymbolTable* root = gContext->blocks.Root();
  ModuleSymbol* module = root ? root->LookupModule(lookup.name) : nullptr;
  if (!module) return nullptr;
  if (lookup.args) lookup.whyFailed = kErrorTooManyArguments;
  else if (lookup.mode == kProhibitFunctionResult)
    lookup.whyFailed = kErrorPointerCallForbidden;
  else if (typeLike) lookup.whyFailed = kErrorTypeAsValue;
  else return SemNamespace::New(module, lookup.Where());
  return nullptr;
}

// The target's conditional-compilation constants (IA-32, Linux,
// little-endian), for compilations whose declarations do not hold them:
// the directives must work wherever source is compiled.
SemBase* TargetConstant(SemBase* ident) {
  static char const* const kTrue[] = {"TargetX86", "TargetLinux",
                                      "TargetLittleEndian", nullptr};
  static char const* const kFalse[] = {
      "TargetMacOS",   "TargetMacOSClassic", "TargetPPC",       "Target68K",
      "TargetCarbon",  "TargetCocoa",        "TargetWin32",     "TargetMachO",
      "TargetPowerPC", "TargetHasGUI",       "TargetBigEndian", nullptr};
  string name = ident->toString();
  for (int value = 0; value < 2; value++) {
    char const* const* names = value ? kTrue : kFalse;
    for (int i = 0; names[i]; i++) {
      if (name == string(names[i])) {
        TacAddr const* addr = CurrentTLP()->GetLiteral(
            IRValue::SInt32(value), IRDataType(kBooleanType));
        return SemValue::New(addr, &ident->Location());
      }
    }
  }
  return nullptr;
}

SemBase* SearchAll(Lookup& lookup, bool typeLike) {
  if (SemBase* found = SearchMethod(lookup)) return found;
  if (SemBase* found = SearchClass(lookup)) return found;
  if (SemBase* found = SearchModule(lookup)) return found;
  if (SemBase* found = SearchMainBodyBlocks(lookup)) return found;
  if (SemBase* found = SearchTypes(lookup, typeLike)) return found;
  if (SemBase* found = SearchModules(lookup, typeLike)) return found;
  if (lookup.name == string("UBound")) return HandleUbound(lookup.args);
  if (!lookup.args && !lookup.assignValue &&
      lookup.mode != kProhibitFunctionResult)
    if (SemBase* found = TargetConstant(lookup.ident)) return found;
  return nullptr;
}

}  // namespace

SemBase* CompileLookup(SemBase* ident, SemBase* args, SemBase* assignValue,
                       FunctionResultMode mode, CompileErrorCode failureCode,
                       bool typeLike) {
  QASSERT(ident);
  QASSERT(gContext);
  QASSERT(!assignValue || mode == kProhibitFunctionResult);
  Lookup lookup = {ident, args, assignValue, mode, failureCode,
                   ident->toString()};
  if (SemBase* found = SearchAll(lookup, typeLike)) return found;
  if (typeLike) lookup.whyFailed = kErrorTypeAsValue;
  if (lookup.whyFailed == kErrorNone) lookup.whyFailed = kErrorUnknownName;
  Error(lookup.whyFailed, ident->Location());
  return FailedLookupValue(ident->Location(), mode);
}

SemBase* CompileConstVal(SemBase* value) {
  QASSERT(value);
  QASSERT(gContext);
  if (value->IsIdentifier()) {
    Lookup lookup = {value, nullptr, nullptr, kRequireFunctionResult,
                     kErrorUnknownName, value->toString()};
    SemBase* found = SearchAll(lookup, false);
    if (!found) {
      Error(lookup.whyFailed, value->Location());
      return SemValue::New(gTacZero, &value->Location());
    }
    value = found;
  }
  if (!value->IsConstant()) {
    Error(kErrorConstantRequired, value->Location());
    return SemValue::New(gTacZero, &value->Location());
  }
  return value;
}

bool CanAccessInstanceItems() {
  QASSERT(gContext);
  BlockContextList const& blocks = gContext->blocks;
  if (MethodSymbol* method = blocks.CurrentMethod())
    return method->IsInstanceMethod();
  if (!blocks.CurrentClass()) return false;
  PropertySymbol* property = blocks.CurrentProperty();
  return !property || !property->IsShared();
}

bool SubscriptNonArray(SemBase* args, IRDataType const& type) {
  return args && !StripReference(type).IsArray();
}

SemBase* CallArguments(SemBase* args, SemBase* assignValue) {
  if (args && assignValue) return ConcatList(args->Clone(), assignValue);
  return ConcatList(args, assignValue);
}

SemBase* FailedLookupValue(SourceLocation const& where,
                           FunctionResultMode mode) {
  if (mode == kRequireFunctionResult) return ErrorValue(where);
  return SemCode::New(IRDataType(), &where);
}

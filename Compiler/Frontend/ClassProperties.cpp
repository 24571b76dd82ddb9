// Properties of classes and modules: stored ones with their initialisers,
// computed ones with Get and Set blocks, and the paths by which code reads
// and writes them.
#include "Compiler/Frontend/Classes.h"

#include "Compiler/Frontend/Arrays.h"
#include "Compiler/Frontend/ClassMetaData.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/Finalization.h"
#include "Compiler/Frontend/FunctionCalls.h"
#include "Compiler/Frontend/Functions.h"
#include "Compiler/Frontend/GeneratedFunctions.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/SymbolTable/NameMangler.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/ParserScopes.h"
#include "Compiler/Frontend/Pragmas.h"
#include "Compiler/Frontend/ProgramAssembly.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

char const* const kSelectorName = "__Selector";
char const* const kSetterValueName = "value";

PropertySymbol* FindProperty(string const& name) {
  BlockContextList const& blocks = gContext->blocks;
  if (ClassSymbol* cls = blocks.CurrentClass()) return cls->LookupProperty(name);
  if (ModuleSymbol* module = blocks.CurrentModule())
    return module->LookupProperty(name);
  return nullptr;
}

Symbol* FindDeclarationAt(SemBase* ident) {
  BlockContextList const& blocks = gContext->blocks;
  string name = ident->toString();
  unsigned int line = ident->Location().mStartLine;
  if (ClassSymbol* cls = blocks.CurrentClass())
    return cls->LookupDeclaration(name, gContext->mSourceName, line);
  if (ModuleSymbol* module = blocks.CurrentModule())
    return module->LookupDeclaration(name, gContext->mSourceName, line);
  return nullptr;
}

// The property declared on this line; a second declaration of the name
// is compile error 128.
PropertySymbol* DeclaredProperty(SemBase* ident) {
  Symbol* declared = FindDeclarationAt(ident);
  PropertySymbol* found = FindProperty(ident->toString());
  if (!declared || !declared->IsA(Symbol::kProperty)) return found;
  if (found != declared) {
    Error(kErrorPropertyDefault, ident->Location());
    return nullptr;
  }
  return found;
}

SimpleVector<SemBase*> ListItems(SemBase* list) {
  SimpleVector<SemBase*> items;
  if (!list) return items;
  if (!list->IsList()) {
    items.push_back(list);
    return items;
  }
  for (SemBase* item = list->GetContents(); item; item = item->GetNext())
    items.push_back(item);
  return items;
}

// `ident = value` through the lookup, so that it lands where the property
// lives; null without a value.
SemBase* InitialAssignment(SemBase* ident, SemBase* dims, SemBase* type,
                           SemBase* init) {
  SemBase* value = init;
  if (dims) {
    SimpleVector<SemBase*> bounds = ListItems(dims);
    value = AllocateNewArray(bounds, type);
  }
  if (!value) return nullptr;
  return CompileLookup(ident->Clone(), nullptr, value, kProhibitFunctionResult,
                       kErrorUnknownName, false);
}

bool HasLines(SemBase* item) {
  return item && item->Code() && !item->Code()->IsEmpty();
}

// A shared or module property starts and ends with the program: its
// initialiser and its release are functions on the compilation's lists.
SemBase* StaticPropertyFunctions(PropertySymbol* property, SemBase* ident,
                                 SemBase* dims, SemBase* type,
                                 SemBase* init) {
  SemBase* code = SemCode::New(IRDataType(), &ident->Location());
  string initName = QualifyName(property->GetLinkName(), "__Init");
  GeneratedFunction initializer(initName);
  SemBase* assignment = InitialAssignment(ident, dims, type, init);
  if (HasLines(assignment)) {
    initializer.Body()->Append(FilterTemporaryVariables(assignment));
    code->Append(initializer.Finish(nilTacAddr));
    gContext->mInitializers.AddEntry(property->GetLinkName(), initName);
  } else {
    initializer.Abandon();
  }
  if (!property->GetType().RefCounted()) return code;
  string exitName = QualifyName(property->GetLinkName(), "__Exit");
  GeneratedFunction finalizer(exitName);
  FinalizeStaticProperty(property, finalizer.Body());
  code->Append(finalizer.Finish(nilTacAddr));
  gContext->mFinalizers.AddEntry(property->GetLinkName(), exitName);
  return code;
}

// The accessor words and the property they belong to.
bool CheckAccessorType(SemBase* word, bool* isGetter) {
  string text = word->toString();
  *isGetter = text == string("Get");
  if (*isGetter || text == string("Set")) return true;
  SimpleVector<string> args;
  args.push_back(text);
  Error(kErrorBadAccessorWord, word->Location(), args);
  return false;
}

SemBase* TypedName(char const* name, IRDataType const& type,
                   SourceLocation const& where) {
  SemBase* ident = SemIdentifier::New(name, where);
  ident->SetType(type);
  return ident;
}

// The parameters an accessor declares past `self`: the selector of an
// instance property, and the new value of a setter.
SemBase* AccessorParameters(PropertySymbol* property, bool isGetter,
                            SourceLocation const& where) {
  SemBase* params = nullptr;
  if (gContext->blocks.CurrentClass() && !property->IsShared())
    params = TypedName(kSelectorName, IRDataType(kSInt32Type), where);
  if (!isGetter)
    params = ConcatList(params, TypedName(kSetterValueName,
                                          property->GetType(), where));
  return params;
}

SemBase* AccessorName(PropertySymbol* property, SemBase* word) {
  string name = QualifyName(property ? property->Name() : string("?"),
                            word->toString());
  return SemIdentifier::New(name, word->Location());
}

// A call of an accessor: `self` and the selector for an instance property,
// then the value for a setter.
SemBase* CallAccessor(MethodSymbol* accessor, SemBase* base,
                      PropertySymbol* property, SemBase* value,
                      SourceLocation const& where) {
  SemBase* args = nullptr;
  if (base)
    args = SemValue::New(IntConstant(long(property->GetStorageOffset())), &where);
  if (value) args = ConcatList(args, value);
  SemBase* call = CompileCall(accessor, base, args);
  call->SetLocation(where);
  return call;
}

}  // namespace

SemBase* CompileProperty(SemBase* ident, SemBase* dims, SemBase* type,
                         SemBase* init, SemBase* shared) {
  QASSERT(ident);
  QASSERT_TEXT(type, "vartype");
  QASSERT(gContext);
  VerifyUniqueName(ident);
  SemBase* none = SemCode::New(IRDataType(), &ident->Location());
  PropertySymbol* property = DeclaredProperty(ident);
  if (!property) return none;
  bool isStatic = property->IsShared() || !gContext->blocks.CurrentClass();
  if (isStatic)
    return StaticPropertyFunctions(property, ident, dims, type, init);
  SemBase* assignment = InitialAssignment(ident, dims, type, init);
  return assignment ? assignment : none;
}

SemBase* CompilePropertyBlock(SemBase* ident) {
  QASSERT(ident);
  QASSERT(gContext);
  VerifyUniqueName(ident);
  PropertySymbol* property = FindProperty(ident->toString());
  if (property) gContext->blocks.Enter(property);
  return ident;
}

SemBase* CompileEndPropertyBlock(SemBase* ident, SemBase* body) {
  QASSERT(gContext);
  SemBase* code = SemCode::New(IRDataType(), &ident->Location());
  if (PropertySymbol* property = gContext->blocks.CurrentProperty())
    gContext->blocks.Leave(property);
  SimpleVector<SemBase*> accessors = ListItems(body);
  for (unsigned long i = 0; i < accessors.size(); i++)
    if (HasLines(accessors[i])) code->Append(accessors[i]);
  return code;
}

SemBase* CompilePropertyAccessor(SemBase* word) {
  QASSERT(word);
  QASSERT(gContext);
  PropertySymbol* property = gContext->blocks.CurrentProperty();
  bool isGetter = false;
  bool known = CheckAccessorType(word, &isGetter) && property;
  SemBase* name = AccessorName(property, word);
  SemBase* shared =
      property && property->IsShared() ? SemIdentifier::New("SHARED") : nullptr;
  SemBase* marker = OpenMethodScope(name, shared);
  SemBase* params = nullptr;
  if (known) {
    params = AccessorParameters(property, isGetter, word->Location());
    SimpleVector<SemBase*> names = ListItems(params);
    for (unsigned long i = 0; i < names.size(); i++) AddDeclaredName(names[i]);
  }
  // A word that names no accessor has no declaration to enter.
  if (known)
    CompileFunction(name, nullptr, params, nullptr, nullptr, shared);
  else
    PushPragmas();
  return marker;
}

SemBase* CompileEndPropertyAccessor(SemBase* word, SemBase* endWord,
                                    SemBase* marker, SemBase* body) {
  QASSERT(gContext);
  if (endWord->toString() != word->toString())
    Error(kErrorAccessorEndMismatch, endWord->Location());
  PropertySymbol* property = gContext->blocks.CurrentProperty();
  bool isGetter = word->toString() == string("Get");
  SemBase* params = property && gContext->blocks.CurrentMethod()
                        ? AccessorParameters(property, isGetter,
                                             word->Location())
                        : nullptr;
  return CompileEndFunction(nullptr, marker, params, nullptr, body);
}

SemBase* CreatePropertyStorageReference(SemBase* base,
                                        PropertySymbol* property) {
  QASSERT(base);
  QASSERT(property);
  QASSERT_TEXT(!property->HasCustomAccessors(),
               "not property->mCustomAccessors");
  SemBase* code = SemCode::New(property->GetType().AsReference(),
                               &base->Location());
  SemBase* object = CompileRefAs(base, StripReference(base->GetType()), code);
  long offset = long(property->GetStorageOffset()) + kObjectHeaderSize;
  code->AddLine(kTacAdd, object->GetAddr(), IntConstant(offset),
                code->GetAddr());
  return code;
}

SemBase* CallPropertyGetter(SemBase* base, PropertySymbol* property) {
  QASSERT(base);
  QASSERT(property);
  QASSERT(property->HasCustomAccessors());
  if (!property->GetGetter()) {
    Error(kErrorModulePropertyGetter, base->Location());
    return ErrorValue(base->Location());
  }
  return CallAccessor(property->GetGetter(), base, property, nullptr,
                      base->Location());
}

SemBase* CallPropertySetter(SemBase* base, PropertySymbol* property,
                            SemBase* value) {
  QASSERT(base);
  QASSERT(property);
  QASSERT(property->HasCustomAccessors());
  if (!property->GetSetter()) {
    Error(kErrorModulePropertySetter, value->Location());
    return SemCode::New(IRDataType(), &value->Location());
  }
  return CallAccessor(property->GetSetter(), base, property, value,
                      value->Location());
}

SemBase* CallModulePropertyGetter(PropertySymbol* property) {
  QASSERT(property);
  SourceLocation where(current_line());
  if (!property->GetGetter()) {
    Error(kErrorModulePropertyGetter, where);
    return ErrorValue(where);
  }
  return CallAccessor(property->GetGetter(), nullptr, property, nullptr, where);
}

SemBase* CallModulePropertySetter(PropertySymbol* property, SemBase* value) {
  QASSERT(property);
  if (!property->GetSetter()) {
    Error(kErrorModulePropertySetter, value->Location());
    return SemCode::New(IRDataType(), &value->Location());
  }
  return CallAccessor(property->GetSetter(), nullptr, property, value,
                      value->Location());
}

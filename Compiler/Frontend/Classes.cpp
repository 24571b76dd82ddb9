#include "Compiler/Frontend/Classes.h"

#include "Compiler/Frontend/ClassMetaData.h"
#include "Compiler/Frontend/Finalization.h"
#include "Compiler/Frontend/Functions.h"
#include "Compiler/Frontend/GeneratedFunctions.h"
#include "Compiler/SymbolTable/NameMangler.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/ProgramAssembly.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"
#include "Universal/stringmap.h"

namespace {

bool StaticClassData() { return gContext->mStaticClassData != 0; }

// Calls `take` for each member of a class body: one item or a flat list.
template <class Take>
void ForEachMember(SemBase* body, Take take) {
  if (!body) return;
  if (!body->IsList()) {
    take(body);
    return;
  }
  for (SemBase* item = body->GetContents(); item; item = item->GetNext())
    take(item);
}

bool HasLines(SemBase* item) {
  return item && item->Code() && !item->Code()->IsEmpty();
}

// The declaration that the scanner made for the type named at `ident`.
TypeSymbol* DeclaredType(SemBase* ident) {
  IRDataType type = CompileType(ident)->GetType();
  if (type.GetMainType() == kObjectType) return type.Declaration();
  ModuleSymbol* module = gContext->blocks.CurrentModule();
  return module ? module->LookupType(ident->toString()) : nullptr;
}

// The resolver cut an inheritance loop at the class it met second, which
// it left without a parent: the parent as written leads back here.
void CheckInheritanceLoop(ClassSymbol* cls, SemBase* ident) {
  TypeSymbol* written = cls->GetSuperclassType().Declaration();
  if (cls->GetParent() || !written || !written->IsA(Symbol::kClass)) return;
  StringMap<ClassSymbol*> seen;
  seen.AddEntry(cls->Name(), cls);
  for (ClassSymbol* c = static_cast<ClassSymbol*>(written); c;
       c = c->GetParent()) {
    if (seen.HasEntry(c->Name())) {
      Error(kErrorClassCycle, ident->Location());
      return;
    }
    seen.AddEntry(c->Name(), c);
  }
}

// A hidden function that the user wrote (`Private Sub __Init()`), whose
// name then stands for the generated one. The runtime calls it with the
// object alone and takes no result, so it must be the class's one instance
// Sub of that name, without parameters; its scope word does not matter.
string UserFunction(ClassSymbol* cls, char const* name, string generated) {
  MethodList own = cls->MethodDeclarationListOwner::LookupMethods(
      name, kPlainMethods);
  if (!own || own->size() == 0) return generated;
  MethodSymbol* method = (*own)[0];
  bool oneSubWithoutParameters =
      own->size() == 1 && method->IsInstanceMethod() &&
      method->CountParameters() == 1 &&
      method->GetReturnType().GetMainType() == kNoType;
  if (!oneSubWithoutParameters) {
    Error(kErrorHiddenMethodShape, SourceLocation(method->SourceLine()));
    return generated;
  }
  return method->GetLinkID();
}

// __Init: the field initialisers of the body, run on a new object with its
// fields as the base. Their temporaries live in the class's own table.
string CreateInstanceInitializer(ClassSymbol* cls, SemBase* tableID,
                                 SemBase* body, SemBase* code) {
  QASSERT_TEXT(tableID->IsConstant(), "symTabID->IsConstant()");
  SemBase* fields = SemCode::New(IRDataType(), nullptr);
  ForEachMember(body, [fields](SemBase* item) {
    if (HasLines(item) && !BlockIsFunction(item->Code())) fields->Append(item);
  });
  if (!HasLines(fields)) return string();
  string name = QualifyName(cls->mLinkName, "__Init");
  GeneratedFunction init(name, (unsigned long)tableID->GetValue().uSInt32);
  TacAddr const* self = init.Parameter(cls->InstanceType());
  init.Body()->AddLine(kTacBaseref, self, IntConstant(kObjectHeaderSize),
                       nilTacAddr);
  init.Body()->Append(FilterTemporaryVariables(fields));
  code->Append(init.Finish(nilTacAddr));
  return name;
}

// __Exit: releases the counted fields the class declares itself.
string CreateInstanceFinalizer(ClassSymbol* cls, SemBase* code) {
  SemBase* release = SemCode::New(IRDataType(), nullptr);
  FinalizeClassProperties(cls, release);
  if (!HasLines(release)) return string();
  string name = QualifyName(cls->mLinkName, "__Exit");
  GeneratedFunction exit(name);
  TacAddr const* self = exit.Parameter(cls->InstanceType());
  exit.Body()->AddLine(kTacBaseref, self, IntConstant(kObjectHeaderSize),
                       nilTacAddr);
  exit.Body()->Append(release);
  code->Append(exit.Finish(nilTacAddr));
  return name;
}

// __Lookup: the record, made on first use unless it is static data.
void CreateClassRetriever(MethodDeclarationListOwner* owner,
                          string const& linkName, SemBase* code) {
  MethodSymbol* lookup = ClassLookupFunction(owner);
  GeneratedFunction retriever(lookup->GetLinkID());
  TacAddr const* record = gContext->GetStaticSymbolAddr(
      IRDataType(kClassType), ClassRecordName(linkName));
  if (!StaticClassData()) {
    TacAddr const* made = NewLabel();
    retriever.Body()->AddLine(kTacIfNEI, record, gTacZero, made);
    retriever.Body()->AddLine(kTacCall,
                              TextConstant(QualifyName(linkName, "__ctblinit")),
                              nilTacAddr, nilTacAddr);
    retriever.Body()->AddLine(kTacLabel, made, nilTacAddr, nilTacAddr);
  }
  code->Append(retriever.Finish(record));
}

// The functions of a body, in order; the rest went into __Init.
void KeepFunctions(SemBase* body, SemBase* code) {
  ForEachMember(body, [code](SemBase* item) {
    if (HasLines(item) && BlockIsFunction(item->Code())) code->Append(item);
  });
}

// Whether `cls` is the interface's first implementer on its chain.
bool ImplementedByParent(ClassSymbol* cls, TypeSymbol* interface) {
  return cls->GetParent() && cls->GetParent()->ImplementsInterface(interface);
}

}  // namespace

SemBase* CompileClass(SemBase* ident) {
  QASSERT(gContext);
  QASSERT(ident);
  string name = ident->toString();
  PushSymTable(new ObjectSymbolTable(name));
  unsigned long table = PushSymTable(new MethodSymbolTable(name));
  SemBase* marker = SemValue::New(IntConstant(long(table)), &ident->Location());
  TypeSymbol* decl = DeclaredType(ident);
  if (!decl || !decl->IsA(Symbol::kClass)) {
    if (decl) Error(kErrorDuplicateName, ident->Location());
    return marker;
  }
  ClassSymbol* cls = static_cast<ClassSymbol*>(decl);
  gContext->blocks.Enter(cls);
  if (cls->SourceLine() != ident->Location().mStartLine)
    Error(kErrorDuplicateName, ident->Location());
  CheckInheritanceLoop(cls, ident);
  return marker;
}

SemBase* CompileEndClass(SemBase* ident, SemBase* marker, SemBase* body) {
  QASSERT(ident);
  QASSERT(gContext);
  SemBase* code = SemCode::New(IRDataType(), &ident->Location());
  ClassSymbol* cls = gContext->blocks.CurrentClass();
  if (!cls || cls->Name() != ident->toString()) {
    PopSymTable();
    PopSymTable();
    return code;
  }
  ClassFunctions functions;
  functions.initializer = UserFunction(
      cls, "__Init", CreateInstanceInitializer(cls, marker, body, code));
  PopSymTable();
  functions.finalizer =
      UserFunction(cls, "__Exit", CreateInstanceFinalizer(cls, code));
  functions.destructor = LookupDestructorMethod(cls);
  CreateClassRetriever(cls, cls->mLinkName, code);
  if (StaticClassData()) {
    CreateClassStaticData(cls, functions, code);
    CreateClassRegistrar(cls->mLinkName, code, cls);
  } else {
    CreateClassInitializer(cls, functions, code);
  }
  KeepFunctions(body, code);
  gContext->blocks.Leave(cls);
  PopSymTable();
  return code;
}

SemBase* CompileInheritance(SemBase* type, SemBase* unused) {
  QASSERT(type);
  QASSERT(gContext);
  ClassSymbol* cls = gContext->blocks.CurrentClass();
  if (!cls) return unused;
  IRDataType parent = type->GetType();
  TypeSymbol* decl = parent.Declaration();
  if (parent != cls->GetSuperclassType())
    Error(kErrorBadParentClass, type->Location());
  else if (decl && !decl->IsA(Symbol::kClass))
    Error(kErrorInheritanceLoop, type->Location());
  else if (!decl)
    Error(kErrorUnknownName, type->Location());
  return unused;
}

SemBase* CompileImplements(SemBase* type) {
  QASSERT(type);
  QASSERT(gContext);
  ClassSymbol* cls = gContext->blocks.CurrentClass();
  if (!cls) return nullptr;
  TypeSymbol* decl = type->GetType().Declaration();
  if (!decl) {
    Error(kErrorUnknownName, type->Location());
  } else if (!decl->IsA(Symbol::kInterface)) {
    Error(kErrorNotAnInterface, type->Location());
  } else if (!ImplementedByParent(cls, decl)) {
    CheckInterfaceImplementation(static_cast<InterfaceSymbol*>(decl), cls,
                                 type);
  }
  return nullptr;
}

SemBase* CompileInterface(SemBase* ident, SemBase* code) {
  QASSERT(ident);
  QASSERT(gContext);
  if (!code) code = SemCode::New(IRDataType(), &ident->Location());
  PopSymTable();
  TypeSymbol* decl = DeclaredType(ident);
  if (!decl) {
    Error(kErrorUnknownName, ident->Location());
    return code;
  }
  if (!decl->IsA(Symbol::kInterface) ||
      decl->SourceLine() != ident->Location().mStartLine) {
    Error(kErrorDuplicateName, ident->Location());
    return code;
  }
  InterfaceSymbol* interface = static_cast<InterfaceSymbol*>(decl);
  CreateClassRetriever(interface, interface->mLinkName, code);
  if (StaticClassData()) {
    CreateInterfaceStaticData(interface, code);
    CreateClassRegistrar(interface->mLinkName, code);
  } else {
    CreateInterfaceInitializer(interface, code);
  }
  return code;
}

// Events of one name along the chain, up to the first class that handles
// one of that name; a loop of parents ends the walk.
SemBase* CompileEvent(SemBase* ident, SemBase* params, SemBase* returnType,
                      SemBase* handled) {
  QASSERT(gContext);
  ClassSymbol* start = gContext->blocks.CurrentClass();
  if (!start) return nullptr;
  string name = ident->toString();
  unsigned long count = 0;
  for (ClassSymbol* c = start; c; c = c->GetParent()) {
    EventSymbolIterator it = c->IterateEvents();
    while (it.Next())
      if (it.Value()->Name() == name) count++;
    if (c->LookupHandledEvent(name) || c->GetParent() == start) break;
  }
  if (count > 1) Error(kErrorDuplicateEvent, ident->Location());
  return nullptr;
}

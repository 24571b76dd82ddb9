// Class and interface records made at run time: `__ctblinit` asks the
// runtime for a record with room for the tables (the parent's tables
// copied in) and pokes in what this class adds.
#include "Compiler/Frontend/ClassMetaData.h"

#include "Compiler/Frontend/Classes.h"
#include "Compiler/Frontend/GeneratedFunctions.h"
#include "Compiler/SymbolTable/NameMangler.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SymbolTable/MethodSignatures.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

char const* const kInitializerSuffix = "__ctblinit";

TacAddr const* RecordVariable(string const& linkName) {
  return gContext->GetStaticSymbolAddr(IRDataType(kClassType),
                                       ClassRecordName(linkName));
}

TacAddr const* RecordOf(SemBase* record, SemBase* code) {
  if (!record) return gTacZero;
  return FlattenExpression(record, code)->GetAddr();
}

void PutParam(SemBase* code, TacAddr const* value) {
  code->AddLine(kTacPutParam, value, nilTacAddr, nilTacAddr);
}

TacAddr const* CallIntrinsic(SemBase* code, IntrinsicID which,
                             IRDataType const& resultType) {
  TacAddr const* result = NewTempAddr(code, resultType);
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(which), nilTacAddr, result);
  return result;
}

// The record's name word holds a reference, which the runtime gives up
// when it frees the record.
void PokeName(SemBase* code, string const& name, TacAddr const* record) {
  TacAddr const* text = TextConstant(name);
  code->AddLine(kTacLock, text, nilTacAddr, nilTacAddr);
  PokeWord(code, text, record, kRecordName);
}

void PokeFunction(SemBase* code, string const& linkName,
                  string const& library, TacAddr const* pointer, long offset) {
  if (!linkName.Length()) return;
  PokeWord(code, FunctionPointer(code, linkName, library), pointer, offset);
}

// A table of the record: its address, read from the header.
TacAddr const* TableOf(SemBase* code, TacAddr const* record, long offset) {
  TacAddr const* table = NewTempAddr(code, IRDataType(kPtrType));
  PeekWord(code, record, offset, table);
  return table;
}

// The class's own virtual methods over the slots its parent's table gave.
void PokeMethods(ClassSymbol* cls, SemBase* code, TacAddr const* record) {
  TacAddr const* table = TableOf(code, record, kRecordMethodTable);
  MethodSymbolIterator it = cls->IterateMethods();
  while (it.Next()) {
    MethodSymbol* method = it.Value();
    if (method->GetDispatchMethod() != MethodSymbol::Virtual) continue;
    QASSERT(method->GetLinkID().Length());
    long slot = long(method->GetDispatchID()) * kMethodEntrySize;
    PokeFunction(code, method->GetLinkID(), string(), table, slot);
    PokeWord(code, TextConstant(MangledMethodName(method, "")), table,
             slot + 4);
  }
}

// Whether a class between `cls` and the event's class handles it already:
// the handler furthest up the chain stands, as in static records.
bool HandledFurtherUp(ClassSymbol* cls, ClassSymbol* declaredIn,
                      string const& name) {
  for (ClassSymbol* c = cls->GetParent(); c && c != declaredIn;
       c = c->GetParent())
    if (c->LookupHandledEvent(name)) return true;
  return false;
}

// The names of the class's own events, and the handlers it gives to the
// events of its ancestors.
void PokeEvents(ClassSymbol* cls, SemBase* code, TacAddr const* record) {
  TacAddr const* table = TableOf(code, record, kRecordEventTable);
  EventSymbolIterator it = cls->IterateEvents();
  while (it.Next()) {
    MethodSymbol* event = it.Value();
    QASSERT_TEXT(MethodSymbol::Event == event->GetDispatchMethod(),
                 "MethodSymbol::Event == edr->GetDispatchMethod()");
    PokeWord(code, TextConstant(event->Name()), table,
             long(event->GetDispatchID()) * kEventEntrySize + 4);
  }
  for (unsigned long i = 0; i < cls->CountHandledEvents(); i++) {
    HandledEvent* handled = cls->GetHandledEvent(i);
    QASSERT_TEXT(handled, "evec");
    ClassSymbol* declaredIn = nullptr;
    MethodSymbol* event =
        FindHandledEvent(cls, handled->EventName(), &declaredIn);
    if (!event) break;
    QASSERT_TEXT(handled->Handler(), "evec->Handler()");
    if (HandledFurtherUp(cls, declaredIn, handled->EventName())) continue;
    PokeFunction(code, handled->Handler()->GetLinkID(), string(), table,
                 long(event->GetDispatchID()) * kEventEntrySize);
  }
}

// Stored properties say so with 1 in both accessor words.
void PokeAccessor(SemBase* code, MethodSymbol* accessor, bool stored,
                  TacAddr const* table, long offset) {
  if (stored)
    PokeWord(code, gTacOne, table, offset);
  else if (accessor)
    PokeFunction(code, accessor->GetLinkID(), accessor->GetSourceLibrary(),
                 table, offset);
}

void PokeProperties(ClassSymbol* cls, SemBase* code, TacAddr const* record) {
  TacAddr const* table = TableOf(code, record, kRecordPropertyTable);
  PropertySymbolIterator it = cls->IterateProperties();
  while (it.Next()) {
    PropertySymbol* property = it.Value();
    if (property->GetPropertyIndex() < 0) continue;
    long entry = property->GetPropertyIndex() * kPropertyEntrySize;
    bool stored = !property->HasCustomAccessors();
    PokeWord(code, TextConstant(MangledPropertyName(property)), table, entry);
    PokeWord(code,
             IntConstant(long(property->GetStorageOffset()) + kObjectHeaderSize),
             table, entry + 4);
    PokeAccessor(code, property->GetGetter(), stored, table, entry + 8);
    PokeAccessor(code, property->GetSetter(), stored, table, entry + 12);
  }
}

// A fresh vtable for one interface entry, filled with the nearest
// implementation of each method. A method nobody implements (reported
// where the interface was named) gets a null slot.
void PokeInterfaceEntry(ClassSymbol* cls, InterfaceSymbol* interface,
                        unsigned long index, SemBase* code,
                        TacAddr const* record) {
  long entry = kRecordHeaderSize + long(index) * kInterfaceEntrySize;
  PokeWord(code, RecordOf(LookupInterfaceRecord(interface), code), record,
           entry);
  PokeWord(code, IntConstant(long(interface->mMethodCount)), record, entry + 4);
  PutParam(code, IntConstant(long(interface->mMethodCount)));
  TacAddr const* vtable =
      CallIntrinsic(code, kIntrinsicRuntimeNewVtable, IRDataType(kPtrType));
  PokeWord(code, vtable, record, entry + 8);
  MethodSymbolIterator it = interface->IterateMethods();
  while (it.Next()) {
    MethodSymbol* method = it.Value();
    if (method->GetDispatchMethod() != MethodSymbol::Virtual) continue;
    long slot = long(method->GetDispatchID()) * kMethodEntrySize;
    MethodSymbol* implementation = FindInterfaceMethodMatch(method, cls);
    if (!implementation) {
      PokeWord(code, gTacZero, vtable, slot);
      PokeWord(code, gTacZero, vtable, slot + 4);
      continue;
    }
    QASSERT_TEXT(implementation->GetLinkID().Length(),
                 "methimp->GetLinkID().Length");
    PokeFunction(code, implementation->GetLinkID(), string(), vtable, slot);
    PokeWord(code, TextConstant(MangledMethodName(implementation, "")), vtable,
             slot + 4);
  }
}

void PokeInterfaces(ClassSymbol* cls, SemBase* code, TacAddr const* record) {
  for (unsigned long i = 0; i < cls->CountImplementedInterfaces(); i++) {
    TypeSymbol* decl = cls->GetImplementedInterface(i).Declaration();
    if (decl && decl->IsA(Symbol::kInterface))
      PokeInterfaceEntry(cls, static_cast<InterfaceSymbol*>(decl), i, code,
                         record);
  }
}

// Asks the runtime for a record with the given table sizes.
void NewRecord(SemBase* code, TacAddr const* parent, long methods,
               long interfaces, long events, long shared, long properties,
               TacAddr const* record) {
  PutParam(code, parent);
  PutParam(code, IntConstant(methods));
  PutParam(code, IntConstant(interfaces));
  PutParam(code, IntConstant(events));
  PutParam(code, IntConstant(shared));
  PutParam(code, IntConstant(properties));
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicRuntimeNewClass),
                nilTacAddr, record);
}

}  // namespace

string ClassRecordName(string const& linkName) {
  return QualifyName(linkName, "__ctbl");
}

string MangledPropertyName(PropertySymbol* property) {
  QASSERT_TEXT(property, "property");
  return AddReturnTypeDescriptionToName(property->Name(), property->GetType());
}

MethodSymbol* FindHandledEvent(ClassSymbol* cls, string const& name,
                               ClassSymbol** declaredIn) {
  for (ClassSymbol* c = cls->GetParent(); c; c = c->GetParent()) {
    if (MethodSymbol* event = c->LookupEvent(name)) {
      if (declaredIn) *declaredIn = c;
      return event;
    }
  }
  return nullptr;
}

MethodSymbol* FindInterfaceMethodMatch(MethodSymbol* method, ClassSymbol* cls) {
  QASSERT(method);
  QASSERT(cls);
  for (ClassSymbol* c = cls; c; c = c->GetParent()) {
    MethodList candidates = c->LookupMethods(method->Name(), kAllMethods);
    if (!candidates) continue;
    for (unsigned long i = 0; i < candidates->size(); i++)
      if (SignaturesMatchExactly(method, (*candidates)[i]))
        return (*candidates)[i];
  }
  return nullptr;
}

void CheckInterfaceImplementation(InterfaceSymbol* interface, ClassSymbol* cls,
                                  SemBase* where) {
  MethodSymbolIterator it = interface->IterateMethods();
  while (it.Next()) {
    MethodSymbol* method = it.Value();
    if (method->GetDispatchMethod() != MethodSymbol::Virtual) continue;
    if (FindInterfaceMethodMatch(method, cls)) continue;
    SimpleVector<string> text;
    text.push_back(method->Name());
    Error(kErrorInterfaceNotImplemented, where->Location(), text);
  }
}

void CreateClassInitializer(ClassSymbol* cls, ClassFunctions const& functions,
                            SemBase* code) {
  QASSERT(cls);
  GeneratedFunction init(QualifyName(cls->mLinkName, kInitializerSuffix));
  SemBase* body = init.Body();
  TacAddr const* record = RecordVariable(cls->mLinkName);
  TacAddr const* parent =
      cls->GetParent() ? RecordOf(LookupClassRecord(cls->GetParent()), body)
                       : gTacZero;
  QASSERT_TEXT(parent, "parentTemp");
  NewRecord(body, parent, long(cls->mVirtualMethodCount),
            long(cls->CountImplementedInterfaces()), long(cls->mEventCount),
            long(cls->mNormalMethodCount), long(cls->mPropertyCount), record);
  PokeName(body, cls->mLinkName, record);
  PokeWord(body, IntConstant(long(cls->mStorageSize) + kObjectHeaderSize),
           record, kRecordInstanceSize);
  PokeFunction(body, functions.initializer, string(), record,
               kRecordInitializer);
  PokeFunction(body, functions.destructor, string(), record,
               kRecordDestructor);
  PokeFunction(body, functions.finalizer, string(), record, kRecordFinalizer);
  PokeMethods(cls, body, record);
  PokeEvents(cls, body, record);
  PokeProperties(cls, body, record);
  PokeInterfaces(cls, body, record);
  code->Append(init.Finish(nilTacAddr));
}

void CreateInterfaceInitializer(InterfaceSymbol* interface, SemBase* code) {
  QASSERT(interface);
  GeneratedFunction init(QualifyName(interface->mLinkName, kInitializerSuffix));
  SemBase* body = init.Body();
  TacAddr const* record = RecordVariable(interface->mLinkName);
  TacAddr const* done = NewLabel();
  body->AddLine(kTacIfNEI, record, gTacZero, done);
  TypeSymbol* parent = interface->GetSuperclassType().Declaration();
  TacAddr const* base = parent && parent->IsA(Symbol::kInterface)
                            ? RecordOf(LookupInterfaceRecord(parent), body)
                            : gTacZero;
  NewRecord(body, gTacZero, 0, 0, 0, 0, 0, record);
  PokeWord(body, base, record, kRecordBase);
  PokeName(body, interface->Name(), record);
  PokeWord(body, gTacOne, record, kRecordIsAnInterface);
  PokeWord(body, IntConstant(long(interface->mMethodCount)), record,
           kRecordMethodCount);
  body->AddLine(kTacLabel, done, nilTacAddr, nilTacAddr);
  code->Append(init.Finish(nilTacAddr));
}

bool HasRuntimeRecord(ClassSymbol* cls) {
  return cls && ClassLookupFunction(cls)->External();
}

void CreateClassRegistrar(string const& linkName, SemBase* code,
                          ClassSymbol* cls) {
  string name = QualifyName(linkName, kInitializerSuffix);
  gContext->mInitializers.AddEntry(linkName, name);
  GeneratedFunction init(name);
  if (cls && HasRuntimeRecord(cls->GetParent())) {
    SemBase* parent = LookupClassRecord(cls->GetParent());
    PokeWord(init.Body(), RecordOf(parent, init.Body()),
             RecordVariable(linkName), kRecordBase);
  }
  PutParam(init.Body(), RecordVariable(linkName));
  init.Body()->AddLine(kTacIntrinsic,
                       IntrinsicTacAddr(kIntrinsicRuntimeRegisterClass),
                       nilTacAddr, nilTacAddr);
  code->Append(init.Finish(nilTacAddr));
}

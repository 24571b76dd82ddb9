// Class and interface records as static data: each table is a block of its
// own, and every pointer in them is an import that the linker fills in.
// The record of a class holds its whole tables, the inherited slots
// included, since nothing copies a parent's tables at run time.
#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/Frontend/ClassMetaData.h"
#include "Compiler/SymbolTable/NameMangler.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"
#include "Universal/IntMap.h"

namespace {

StaticDataBlock* NewBlock(string const& name, unsigned long length) {
  StaticDataBlock* block = gContext->MakeStaticDataBlock(name);
  block->SetLength(length);
  return block;
}

void ImportText(StaticDataBlock* block, string const& text,
                unsigned long offset) {
  block->MarkImportAbsolute(Import::kImportStringLiteral, text, offset);
}

void ImportBlock(StaticDataBlock* block, string const& name,
                 unsigned long offset) {
  block->MarkImportAbsolute(Import::kImportGlobal32, name, offset);
}

void ImportFunction(StaticDataBlock* block, string const& linkName,
                    string const& library, unsigned long offset) {
  if (linkName.Length())
    block->MarkImportAbsolute(Import::kImportFunctionPtr, linkName, library,
                              offset);
}

// A table of the record: its block, imported at `tableOffset` of the
// record, its entry count at `tableOffset` - 4.
StaticDataBlock* NewTable(StaticDataBlock* record, string const& linkName,
                          char const* suffix, unsigned long count,
                          unsigned long entrySize, long tableOffset) {
  string name = QualifyName(linkName, suffix);
  StaticDataBlock* table = NewBlock(name, count * entrySize);
  record->Set32(tableOffset - 4, (unsigned int)count);
  ImportBlock(record, name, tableOffset);
  return table;
}

// The nearest override fills each slot: the walk starts at the class.
void PopulateVtable(ClassSymbol* cls, IntMap<bool>& filled,
                    StaticDataBlock* table) {
  MethodSymbolIterator it = cls->IterateMethods();
  while (it.Next()) {
    MethodSymbol* method = it.Value();
    if (method->GetDispatchMethod() != MethodSymbol::Virtual) continue;
    QASSERT(method->GetLinkID().Length());
    int slot = int(method->GetDispatchID());
    if (filled.HasEntry(slot)) continue;
    filled.AddEntry(slot, true);
    ImportFunction(table, method->GetLinkID(), string(),
                   slot * kMethodEntrySize);
    ImportText(table, MangledMethodName(method, ""), slot * kMethodEntrySize + 4);
  }
}

void CreateClassMethodTableData(ClassSymbol* cls, StaticDataBlock* table) {
  IntMap<bool> filled;
  for (ClassSymbol* c = cls; c; c = c->GetParent())
    PopulateVtable(c, filled, table);
}

// Names of the events of each class on the chain, and the handlers each
// gives to the events of its ancestors; the one nearest the root is
// applied last and stands.
void CreateClassEventTableData(ClassSymbol* cls, StaticDataBlock* table) {
  for (ClassSymbol* c = cls; c; c = c->GetParent()) {
    EventSymbolIterator it = c->IterateEvents();
    while (it.Next()) {
      MethodSymbol* event = it.Value();
      QASSERT_TEXT(event, "edr");
      QASSERT_TEXT(MethodSymbol::Event == event->GetDispatchMethod(),
                   "MethodSymbol::Event == edr->GetDispatchMethod()");
      ImportText(table, event->Name(),
                 event->GetDispatchID() * kEventEntrySize + 4);
    }
    for (unsigned long i = 0; i < c->CountHandledEvents(); i++) {
      HandledEvent* handled = c->GetHandledEvent(i);
      QASSERT_TEXT(handled, "evec");
      MethodSymbol* event =
          FindHandledEvent(c, handled->EventName(), nullptr);
      if (!event) break;
      QASSERT_TEXT(handled->Handler(), "evec->Handler()");
      ImportFunction(table, handled->Handler()->GetLinkID(), string(),
                     event->GetDispatchID() * kEventEntrySize);
    }
  }
}

void ImportAccessor(StaticDataBlock* table, PropertySymbol* property,
                    MethodSymbol* accessor, char const* fault,
                    unsigned long offset) {
  if (!property->HasCustomAccessors()) {
    table->Set32(offset, 1);
    return;
  }
  if (!accessor) return;
  QASSERT_TEXT(MethodSymbol::Normal == accessor->GetDispatchMethod(), fault);
  QASSERT_TEXT(accessor->GetLinkID().Length(),
               (property->GetLinkName() + fault).CString());
  ImportFunction(table, accessor->GetLinkID(), accessor->GetSourceLibrary(),
                 offset);
}

void CreateClassPropertyTableData(ClassSymbol* cls, StaticDataBlock* table) {
  IntMap<bool> seen;
  for (ClassSymbol* c = cls; c; c = c->GetParent()) {
    PropertySymbolIterator it = c->IterateProperties();
    while (it.Next()) {
      PropertySymbol* property = it.Value();
      int index = int(property->GetPropertyIndex());
      if (index < 0 || seen.HasEntry(index)) continue;
      seen.AddEntry(index, true);
      unsigned long entry = index * kPropertyEntrySize;
      ImportText(table, MangledPropertyName(property), entry);
      table->Set32(entry + 4, (unsigned int)(property->GetStorageOffset() +
                                             kObjectHeaderSize));
      ImportAccessor(table, property, property->GetGetter(),
                     " has a getter with no link ID", entry + 8);
      ImportAccessor(table, property, property->GetSetter(),
                     " has a setter =with no link ID", entry + 12);
    }
  }
}

// One interface's vtable for `cls`: the nearest implementation of each
// method; a slot nobody fills (reported where the interface was named)
// stays null.
string CreateInterfaceImplementationStaticData(InterfaceSymbol* interface,
                                               ClassSymbol* cls) {
  QASSERT_TEXT(interface, "interfaceDecl");
  string name = QualifyName(
      AddInterfaceToClassName(cls->mLinkName, interface->mLinkName),
      "__vtable");
  StaticDataBlock* table =
      NewBlock(name, interface->mMethodCount * kMethodEntrySize);
  MethodSymbolIterator it = interface->IterateMethods();
  while (it.Next()) {
    MethodSymbol* method = it.Value();
    if (method->GetDispatchMethod() != MethodSymbol::Virtual) continue;
    MethodSymbol* implementation = FindInterfaceMethodMatch(method, cls);
    if (!implementation) continue;
    unsigned long slot = method->GetDispatchID() * kMethodEntrySize;
    ImportFunction(table, implementation->GetLinkID(), string(), slot);
    ImportText(table, MangledMethodName(implementation, ""), slot + 4);
  }
  return name;
}

// The interface entries directly behind the record's header.
void CreateClassInterfaceTableData(ClassSymbol* cls, StaticDataBlock* record) {
  unsigned long count = cls->CountImplementedInterfaces();
  record->SetLength(kRecordHeaderSize + count * kInterfaceEntrySize);
  record->Set32(kRecordInterfaceCount, (unsigned int)count);
  for (unsigned long i = 0; i < count; i++) {
    TypeSymbol* decl = cls->GetImplementedInterface(i).Declaration();
    if (!decl || !decl->IsA(Symbol::kInterface)) continue;
    InterfaceSymbol* interface = static_cast<InterfaceSymbol*>(decl);
    unsigned long entry = kRecordHeaderSize + i * kInterfaceEntrySize;
    ImportBlock(record, ClassRecordName(interface->mLinkName), entry);
    record->Set32(entry + 4, (unsigned int)interface->mMethodCount);
    ImportBlock(record, CreateInterfaceImplementationStaticData(interface, cls),
                entry + 8);
  }
}

}  // namespace

void CreateClassStaticData(ClassSymbol* cls, ClassFunctions const& functions,
                           SemBase* code) {
  QASSERT(cls);
  string const& link = cls->mLinkName;
  StaticDataBlock* record = NewBlock(ClassRecordName(link), kRecordHeaderSize);
  ImportText(record, link, kRecordName);
  if (cls->GetParent() && !HasRuntimeRecord(cls->GetParent()))
    ImportBlock(record, ClassRecordName(cls->GetParent()->mLinkName),
                kRecordBase);
  record->Set32(kRecordIsAnInterface, 0);
  record->Set32(kRecordInstanceSize,
                (unsigned int)(cls->mStorageSize + kObjectHeaderSize));
  ImportFunction(record, functions.initializer, string(), kRecordInitializer);
  ImportFunction(record, functions.finalizer, string(), kRecordFinalizer);
  ImportFunction(record, functions.destructor, string(), kRecordDestructor);
  CreateClassMethodTableData(
      cls, NewTable(record, link, "__methods", cls->mVirtualMethodCount,
                    kMethodEntrySize, kRecordMethodTable));
  CreateClassEventTableData(
      cls, NewTable(record, link, "__events", cls->mEventCount,
                    kEventEntrySize, kRecordEventTable));
  NewTable(record, link, "__smethods", cls->mNormalMethodCount,
           kSharedMethodEntrySize, kRecordSharedMethodTable);
  CreateClassPropertyTableData(
      cls, NewTable(record, link, "__properties", cls->mPropertyCount,
                    kPropertyEntrySize, kRecordPropertyTable));
  CreateClassInterfaceTableData(cls, record);
}

void CreateInterfaceStaticData(InterfaceSymbol* interface, SemBase* code) {
  QASSERT(interface);
  StaticDataBlock* record =
      NewBlock(ClassRecordName(interface->mLinkName), kRecordHeaderSize);
  ImportText(record, interface->Name(), kRecordName);
  TypeSymbol* parent = interface->GetSuperclassType().Declaration();
  if (parent && parent->IsA(Symbol::kInterface))
    ImportBlock(record, ClassRecordName(parent->mLinkName), kRecordBase);
  record->Set32(kRecordIsAnInterface, 1);
  record->Set32(kRecordMethodCount, (unsigned int)interface->mMethodCount);
}

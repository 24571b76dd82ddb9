// Class records made or registered at run time, and the list of them.
// A record made here is one block: the 68-byte header, then the interface
// entries, then the method, event, shared-method and property tables.
#include <string.h>

#include <new>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/ObjectModel/RuntimeObjectFoundation.h"
#include "Universal/Assertion.h"
#include "Universal/SimpleVector.h"

namespace {

enum {
  kMethodEntrySize = 8,
  kInterfaceEntrySize = sizeof(RuntimeInterfaceEntry),
  kEventEntrySize = 8,
  kSharedMethodEntrySize = 8,
  kPropertyEntrySize = 16,
};

// The classes of the running program, newest first, linked through `next`.
// Set by RuntimeNewClass and RuntimeRegisterClass; the host side saves and
// restores it around a run, and the records live as long as their code.
// Each thread runs its own script, so each has its own list.
thread_local RuntimeClass* sActiveClassList;

// What this runtime allocated, as opposed to records that compiled code
// lays out in its static data and only registers: the former are freed at
// the end of a run, the latter live with their code. Interface vtables
// that RuntimeNewVtable made go with the record whose entry holds them.
// One set per thread, held in a structure so that its destructor is made
// here for the thread's exit.
struct MadeByRuntime {
  SimpleVector<RuntimeClass*> records;
  SimpleVector<void*> vtables;
  ~MadeByRuntime() {}
};
thread_local MadeByRuntime sMade;

template <class T>
bool Forget(SimpleVector<T>& list, T item) {
  for (unsigned long i = 0; i < list.size(); i++) {
    if (list[i] != item) continue;
    list[i] = list.peek_back();
    list.pop_back();
    return true;
  }
  return false;
}

void PushClass(RuntimeClass* record) {
  record->next = sActiveClassList;
  sActiveClassList = record;
}

// Points `table` at `cursor` and moves the cursor past `count` entries.
void PlaceTable(RuntimeClassTable& table, int32_t count, int32_t entrySize,
                unsigned char*& cursor) {
  table.count = count;
  table.table = cursor;
  cursor += count * entrySize;
}

void CopyEntries(void* to, void const* from, int32_t count,
                 int32_t entrySize) {
  if (count > 0) memcpy(to, from, count * entrySize);
}

// A derived class starts from its parent's tables: inherited slots keep
// their dispatch numbers, and the parent's interfaces are the child's too.
void InheritTables(RuntimeClass* out, RuntimeClass* base) {
  QASSERT_TEXT(out->methods.count >= base->methods.count,
               "out->methods.count >= base->methods.count");
  CopyEntries(out->methods.table, base->methods.table, base->methods.count,
              kMethodEntrySize);
  QASSERT_TEXT(out->interfaceCount >= base->interfaceCount,
               "out->interfaceCount >= base->interfaceCount");
  CopyEntries(out->InterfaceEntries(), base->InterfaceEntries(),
              base->interfaceCount, kInterfaceEntrySize);
  QASSERT_TEXT(out->events.count >= base->events.count,
               "out->events.count >= base->events.count");
  CopyEntries(out->events.table, base->events.table, base->events.count,
              kEventEntrySize);
  int32_t shared = out->sharedMethods.count < base->sharedMethods.count
                       ? out->sharedMethods.count
                       : base->sharedMethods.count;
  CopyEntries(out->sharedMethods.table, base->sharedMethods.table, shared,
              kSharedMethodEntrySize);
  QASSERT_TEXT(out->properties.count >= base->properties.count,
               "out->properties.count >= base->properties.count");
  CopyEntries(out->properties.table, base->properties.table,
              base->properties.count, kPropertyEntrySize);
}

}  // namespace

// A zeroed record with room for the given tables, the parent's tables
// copied in, at the head of the class list. The caller fills in the rest.
RuntimeClass* RuntimeNewClass(RuntimeClass* base, int32_t methods,
                              int32_t interfaces, int32_t events,
                              int32_t shared, int32_t properties) {
  QASSERT((methods | interfaces | events | shared | properties) >= 0);
  size_t size = sizeof(RuntimeClass) + methods * kMethodEntrySize +
                interfaces * kInterfaceEntrySize + events * kEventEntrySize +
                shared * kSharedMethodEntrySize +
                properties * kPropertyEntrySize;
  unsigned char* block = new (std::nothrow) unsigned char[size];
  if (!block) {
    RaiseNilObjectException();
    return nullptr;
  }
  memset(block, 0, size);
  RuntimeClass* out = reinterpret_cast<RuntimeClass*>(block);
  out->interfaceCount = interfaces;
  unsigned char* cursor = block + sizeof(RuntimeClass) +
                          interfaces * kInterfaceEntrySize;
  PlaceTable(out->methods, methods, kMethodEntrySize, cursor);
  PlaceTable(out->events, events, kEventEntrySize, cursor);
  PlaceTable(out->sharedMethods, shared, kSharedMethodEntrySize, cursor);
  PlaceTable(out->properties, properties, kPropertyEntrySize, cursor);
  if (base) InheritTables(out, base);
  out->base = base;
  PushClass(out);
  sMade.records.push_back(out);
  return out;
}

bool IsRuntimeMadeClassRecord(RuntimeClass* record) {
  for (unsigned long i = 0; i < sMade.records.size(); i++)
    if (sMade.records[i] == record) return true;
  return false;
}

void DisposeClassRecord(RuntimeClass* record) {
  QASSERT_TEXT(Forget(sMade.records, record), "a record the runtime made");
  RuntimeInterfaceEntry* entries = record->InterfaceEntries();
  for (int32_t i = 0; i < record->interfaceCount; i++)
    if (Forget(sMade.vtables, entries[i].vtable))
      delete[] static_cast<unsigned char*>(entries[i].vtable);
  delete[] reinterpret_cast<unsigned char*>(record);
}

// A record laid out in the program's static data joins the list.
void RuntimeRegisterClass(RuntimeClass* record) {
  QASSERT_TEXT(record, "it");
  PushClass(record);
}

// Room for `count` method entries, uninitialised; none for no entries.
void* RuntimeNewVtable(int32_t count) {
  int32_t size = count * kMethodEntrySize;
  if (size < 1) return nullptr;
  unsigned char* table = new (std::nothrow) unsigned char[size];
  if (table) sMade.vtables.push_back(table);
  return table;
}

RuntimeClass* GetClassListHead() { return sActiveClassList; }

void SetClassListHead(RuntimeClass* head) { sActiveClassList = head; }

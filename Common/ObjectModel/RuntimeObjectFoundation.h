// The object header and class record that generated code and the runtime
// share, and the functions running script code calls for objects:
// allocation, reference counts, destruction, casts and weak references.
// Objects are reference counted and there is no collector; every live
// object is on one list and every class on another, so that the host side
// can inspect or tear down what is left.
#ifndef COMMON_OBJECTMODEL_RUNTIMEOBJECTFOUNDATION_H
#define COMMON_OBJECTMODEL_RUNTIMEOBJECTFOUNDATION_H

#include <stdint.h>

struct RuntimeClass;
struct stringStorage;

struct RuntimeObject {
  void* vtable;            // the class's method table
  RuntimeClass* mClass;    // never changes
  void* events;            // the class's event table, or a private copy
  int32_t refCount;        // starts at 1
  RuntimeObject* previous; // in the list of live objects
  RuntimeObject* next;
};
static_assert(sizeof(RuntimeObject) == 24 || sizeof(void*) != 4,
              "instance data start at offset 24");

typedef void (*RuntimeObjectHook)(RuntimeObject* object);

// A table of a class record: `count` entries behind `table`.
struct RuntimeClassTable {
  int32_t count;
  void* table;
};

// One implemented interface of a class, behind the class record's header.
struct RuntimeInterfaceEntry {
  RuntimeClass* interface;
  int32_t methodCount;
  void* vtable;
};

// The class record. Compiled classes lay it out in their static data, so
// every field is one 32-bit word at a fixed offset.
struct RuntimeClass {
  RuntimeClass* base;            // 0 for a root class
  stringStorage* name;           // the class's link name
  RuntimeClass* next;            // in the list of registered classes
  int32_t instanceSize;          // header included
  int32_t isAnInterface;
  RuntimeObjectHook initializer; // the class's own fields, parents first
  RuntimeObjectHook destructor;  // the user's destructor
  RuntimeObjectHook finalizer;   // releases the class's own fields
  RuntimeClassTable methods;     // 8 bytes an entry
  RuntimeClassTable events;      // 8 bytes an entry
  RuntimeClassTable sharedMethods;
  RuntimeClassTable properties;  // 16 bytes an entry
  int32_t interfaceCount;
  // interfaceCount RuntimeInterfaceEntry records follow.
  RuntimeInterfaceEntry* InterfaceEntries() {
    return reinterpret_cast<RuntimeInterfaceEntry*>(this + 1);
  }
};
static_assert(sizeof(RuntimeClass) == 68 || sizeof(void*) != 4,
              "the class record's header is 68 bytes");

extern "C" {
// Class records.
RuntimeClass* RuntimeNewClass(RuntimeClass* base, int32_t methods,
                              int32_t interfaces, int32_t events,
                              int32_t shared, int32_t properties);
void RuntimeRegisterClass(RuntimeClass* record);
// Whether RuntimeNewClass made the record, rather than compiled code that
// registered it.
bool IsRuntimeMadeClassRecord(RuntimeClass* record);
// Frees a record that RuntimeNewClass made, with the interface vtables of
// RuntimeNewVtable that its entries hold; its name is the caller's.
void DisposeClassRecord(RuntimeClass* record);
void* RuntimeNewVtable(int32_t count);
RuntimeClass* GetClassListHead();
void SetClassListHead(RuntimeClass* head);

// Objects. Every object is one `new unsigned char[]` block, header
// included, and goes with `delete[]` of that type when its count reaches 0.
// A nil class raises the nil-object exception and answers nil.
RuntimeObject* RuntimeNewObject(RuntimeClass* cls);
// One more reference, unless the object is nil or already being destroyed
// (count 0).
void RuntimeLockObject(RuntimeObject* object);
// One reference less, unless nil or at 0 already; at 0 the object goes.
void RuntimeUnlockObject(RuntimeObject* object);
void RuntimeLockUnlockObjects(RuntimeObject* newObject,
                              RuntimeObject* oldObject);
RuntimeObject* GetActiveObjectListHead();
int32_t CountAllocatedObjects();
void SetObjectDestructionMonitor(RuntimeObjectHook monitor);
// Puts an array made by the array runtime on the list of live objects and
// counts it. The array must have been allocated as `new unsigned char[n]`
// (or `new char[n]`), header included, with its class set: its destruction
// is that of any object and ends in `delete[]` of the block.
void RegisterNewArrayInstance(RuntimeObject* array);

// Casts.
int32_t RuntimeObjectIsa(RuntimeObject* object, RuntimeClass* cls);
RuntimeObject* RuntimeCheckCast(RuntimeObject* object, RuntimeClass* cls);
RuntimeClass* RuntimeClassOf(RuntimeObject* object);
void* RuntimeLookupInterfaceVtable(RuntimeObject* object,
                                   RuntimeClass* interface);

// Weak references: `ref` is a script object whose first three words of
// instance data the runtime uses.
void RegisterWeakRef(RuntimeObject* ref, RuntimeObject* object);
RuntimeObject* ResolveWeakRef(RuntimeObject* ref);
void UnregisterWeakRef(RuntimeObject* ref);
}

#endif

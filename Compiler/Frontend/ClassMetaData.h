// The class records that describe classes and interfaces at run time, and
// the interface vtables. A record is a 68-byte header of 32-bit words, its
// interface entries (12 bytes each) directly behind it, and tables of
// methods and events (8 bytes an entry), shared methods (8) and properties
// (16), laid out as the object runtime expects them.
//
// A record is made one of two ways, by the compilation's static class data
// flag: as static data that the linker relocates, or by a generated
// function `__ctblinit` that asks the runtime for a record and fills it in.
// Both give the same layout.
#ifndef COMPILER_FRONTEND_CLASSMETADATA_H
#define COMPILER_FRONTEND_CLASSMETADATA_H

#include "Universal/ustring.h"

class ClassSymbol;
class InterfaceSymbol;
class MethodSymbol;
class PropertySymbol;
class SemBase;

// Offsets in a class record.
enum ClassRecordOffset {
  kRecordBase = 0,
  kRecordName = 4,
  kRecordNext = 8,
  kRecordInstanceSize = 12,
  kRecordIsAnInterface = 16,
  kRecordInitializer = 20,
  kRecordDestructor = 24,
  kRecordFinalizer = 28,
  kRecordMethodCount = 32,
  kRecordMethodTable = 36,
  kRecordEventCount = 40,
  kRecordEventTable = 44,
  kRecordSharedMethodCount = 48,
  kRecordSharedMethodTable = 52,
  kRecordPropertyCount = 56,
  kRecordPropertyTable = 60,
  kRecordInterfaceCount = 64,
  kRecordHeaderSize = 68,
};

enum ClassTableEntrySize {
  kMethodEntrySize = 8,
  kEventEntrySize = 8,
  kSharedMethodEntrySize = 8,
  kPropertyEntrySize = 16,
  kInterfaceEntrySize = 12,
};

// Where an object's fields start: behind its header.
long const kObjectHeaderSize = 24;

// The names of a class's own functions, empty where it has none.
struct ClassFunctions {
  string initializer;
  string destructor;
  string finalizer;
};

// The record of `cls` and its tables in one of the two forms; `code`
// receives the functions that the form needs.
void CreateClassStaticData(ClassSymbol* cls, ClassFunctions const& functions,
                           SemBase* code);
void CreateClassInitializer(ClassSymbol* cls, ClassFunctions const& functions,
                            SemBase* code);
void CreateInterfaceStaticData(InterfaceSymbol* interface, SemBase* code);
void CreateInterfaceInitializer(InterfaceSymbol* interface, SemBase* code);
// The initialiser that puts a static record on the runtime's class list.
// A class whose parent is one of the runtime's own (an exception) learns
// its parent's record there, since that record exists only at run time.
void CreateClassRegistrar(string const& linkName, SemBase* code,
                          ClassSymbol* cls = nullptr);
// Whether the record of `cls` is the runtime's own, made at run time and
// known by a lookup function of the runtime's (the exception classes).
bool HasRuntimeRecord(ClassSymbol* cls);

// Reports compile error 29 at `where` for each method of `interface` that
// `cls` does not implement, itself or through a parent.
void CheckInterfaceImplementation(InterfaceSymbol* interface, ClassSymbol* cls,
                                  SemBase* where);
// The method of `cls` or its nearest parent whose signature is that of the
// interface method; null when there is none.
MethodSymbol* FindInterfaceMethodMatch(MethodSymbol* method, ClassSymbol* cls);
// The event that a handler of `cls` handles: the nearest ancestor's event
// of that name, or null. `declaredIn` (may be null) receives its class.
MethodSymbol* FindHandledEvent(ClassSymbol* cls, string const& name,
                               ClassSymbol** declaredIn);
// The property's name with its type code, as the property table holds it.
string MangledPropertyName(PropertySymbol* property);
// The link name of the variable or block that holds the record of a class
// or interface.
string ClassRecordName(string const& linkName);

#endif

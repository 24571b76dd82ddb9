// What a debugger needs of a compiled unit once the compiler's symbol tables
// are gone: the names, types and places of variables, constants, class and
// structure members, and enums, copied into tables of their own.
//
// A unit's tables travel in its CodeModule (DebuggerCodeModuleData); the
// linker merges them into its DebuggerSymbols and gives each global its
// place in the data image.
#ifndef COMPILER_DEBUGGERSYMBOLS_H
#define COMPILER_DEBUGGERSYMBOLS_H

#include <stdint.h>

#include "Universal/SimpleVector.h"
#include "Universal/stringmap.h"
#include "Universal/ustring.h"

// One variable or constant.
struct DebuggerSymbol {
  string mTypeName;            // the language's spelling of its type
  string mName;                // as the source spells it
  unsigned char mIsConstant = 0;  // a constant has no place to relocate
  string mValueText;           // a constant's value as source text
  uint32_t mReserved = 0;
  uint32_t mStorageClass = 0;  // a StorageClass; 0 is global data
  // The offset in its storage; after linking, a global's offset in the
  // data image.
  uint32_t mStorageOffset = 0;
  uint32_t mStorageSize = 0;
  string mLinkID;              // a global's link name
  bool mIsReference = false;   // a ByRef: the type is that of its target
};

// The symbols of one scope or one declaration, in declaration order; owns
// them.
class DebuggerSymbolTable {
 public:
  static DebuggerSymbolTable* New(string const& name);
  ~DebuggerSymbolTable();

  // Takes the symbol.
  void AddEntry(DebuggerSymbol* symbol);
  // The first symbol of that name (any case).
  bool GetEntry(string const& name, DebuggerSymbol*& symbol);
  unsigned long Count() const { return mSymbols.size(); }
  DebuggerSymbol* At(unsigned long index) const { return mSymbols[index]; }
  string const& Name() const { return mName; }

  DebuggerSymbolTable* Clone() const;
  // Copies of the other table's symbols whose names this one lacks: a
  // class's table takes in its superclass's fields.
  void Inherit(DebuggerSymbolTable const* parent);
  // Copies of all the other table's symbols, after this one's.
  void Merge(DebuggerSymbolTable const* other);
  // Gives each global variable its offset in the data image; a global the
  // image lacks was stripped from the program, and its symbol goes.
  void AdjustStaticSymbols(StringMap<unsigned int> const& globalOffsets);

  string mSourceName;  // the unit the scope belongs to
  uint32_t mStartLine = 0;
  uint32_t mEndLine = 0;

 private:
  explicit DebuggerSymbolTable(string const& name) : mName(name) {}
  DebuggerSymbolTable(DebuggerSymbolTable const&) = delete;
  DebuggerSymbolTable& operator=(DebuggerSymbolTable const&) = delete;
  // The name index, built on first use and dropped on every change.
  StringMap<DebuggerSymbol*>& getmap();
  void ForgetMap();

  SimpleVector<DebuggerSymbol*> mSymbols;
  StringMap<DebuggerSymbol*>* mMap = nullptr;
  string mName;
};

struct DebuggerEnumValue {
  string mName;
  string mValueText;
};

struct DebuggerEnum {
  string mName;
  string mTypeName;  // of its elements
  SimpleVector<DebuggerEnumValue> mValues;
  DebuggerEnum* Clone() const { return new DebuggerEnum(*this); }
};

// The debug data of one compiled unit, as its CodeModule carries it. Owns
// every table and enum.
class DebuggerCodeModuleData {
 public:
  DebuggerCodeModuleData() {}
  ~DebuggerCodeModuleData();
  // Copies of every table and enum of `other` join this data; a keyed
  // table meeting one of its name is merged into it.
  void Merge(DebuggerCodeModuleData* other);
  bool IsEmpty();

  SimpleVector<DebuggerSymbolTable*> mLocalTables;  // one per kept scope
  StringMap<DebuggerSymbolTable*> mClassTables;      // by class name
  StringMap<DebuggerSymbolTable*> mModuleTables;     // by module name
  StringMap<DebuggerSymbolTable*> mStructureTables;  // by structure name
  StringMap<DebuggerEnum*> mEnums;                   // by enum name
  StringMap<DebuggerSymbolTable*> mConstantTables;   // by owner's name

 private:
  DebuggerCodeModuleData(DebuggerCodeModuleData const&) = delete;
  DebuggerCodeModuleData& operator=(DebuggerCodeModuleData const&) = delete;
};

// Every table of a map, in the map's order.
void ForEachKeyedTable(StringMap<DebuggerSymbolTable*>& tables,
                       void (*visit)(DebuggerSymbolTable* table, void* data),
                       void* data);

#endif

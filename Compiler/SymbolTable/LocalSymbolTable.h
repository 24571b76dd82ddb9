// Local symbols: variables and the chain of scopes that holds them while
// bodies are compiled. The current table is gContext->mSymbols.
//
// MINIMAL FOR NOW: only what the compilation context and temporaries need.
// A table here is a flat list of owned variables with a storage mode and a
// qualified name; storage allocation, block shadows, constants, methods,
// lookups, activation and the table kinds other than static tables come with
// the local symbols issue, which replaces this file.
#ifndef COMPILER_SYMBOLTABLE_LOCALSYMBOLTABLE_H
#define COMPILER_SYMBOLTABLE_LOCALSYMBOLTABLE_H

#include "Compiler/InterRep.h"
#include "Compiler/SymbolTable/SymbolTable.h"
#include "Universal/SimpleVector.h"

// A variable: its operand (type, storage class, link ID, offset) and
// whether the debugger's data shows it.
class VariableSymbol : public Symbol {
 public:
  VariableSymbol(string const& name, IRDataType const& type,
                 StorageClass storageClass)
      : Symbol(name), mAddr(storageClass, type, string(), 0),
        mUserVisible(true) {}
  bool IsA(int kind) const override {
    return kind == kVariable || Symbol::IsA(kind);
  }

  IRDataType const& GetType() const { return mAddr.mType; }
  SymbolAddr const* GetAddr() const { return &mAddr; }
  StorageClass GetStorageClass() const { return mAddr.mStorageClass; }
  string const& LinkID() const { return mAddr.mLinkID; }
  void HideFromUser() { mUserVisible = false; }
  bool UserVisible() const { return mUserVisible; }

  SymbolAddr mAddr;

 private:
  bool mUserVisible;
};

// One scope's variables; owns them.
class LocalSymbolTable {
 public:
  LocalSymbolTable(string const& name, StorageClass mode)
      : mName(name), mStorageMode(mode), mUniqueName(name) {}
  virtual ~LocalSymbolTable() {
    for (unsigned long i = 0; i < mVariables.size(); i++)
      delete mVariables[i];
  }

  // A new variable of the table's storage mode, prepared and added.
  VariableSymbol* AddVariable(string const& name, IRDataType const& type) {
    VariableSymbol* var = new VariableSymbol(name, type, mStorageMode);
    PrepareVariable(var);
    mVariables.push_back(var);
    return var;
  }
  unsigned long VariableCount() const { return mVariables.size(); }
  // Bytes of stack frame the table's variables take; none for static data.
  virtual unsigned long GetTotalStorage() const { return 0; }
  VariableSymbol* Variable(unsigned long i) const { return mVariables[i]; }

  string mName;
  StorageClass mStorageMode;
  string mUniqueName;  // dotted path of the scope: the link ID qualifier

 protected:
  virtual void PrepareVariable(VariableSymbol* var) = 0;

 private:
  SimpleVector<VariableSymbol*> mVariables;
};

// Module and class statics, and the outermost table of a compilation: its
// variables live in static data, named by their qualified link ID.
class StaticSymbolTable : public LocalSymbolTable {
 public:
  explicit StaticSymbolTable(string const& name)
      : LocalSymbolTable(name, kGlobalDataStorage) {}

 protected:
  void PrepareVariable(VariableSymbol* var) override {
    var->mAddr.mLinkID = mUniqueName.Length()
                             ? mUniqueName + "." + var->Name()
                             : var->Name();
  }
};

// All tables of one compilation, kept to its end because later stages name
// a table by its index; owns them.
class LocalSymbolTableList {
 public:
  virtual ~LocalSymbolTableList() {
    for (unsigned long i = 0; i < mTables.size(); i++) delete mTables[i];
  }
  // Appends and returns the new index.
  unsigned long AddTable(LocalSymbolTable* table) {
    mTables.push_back(table);
    return mTables.size() - 1;
  }
  LocalSymbolTable* GetTable(unsigned long index) const {
    QASSERT(index < mTables.size());
    return mTables[index];
  }
  LocalSymbolTable* GetGlobalTable() const { return GetTable(0); }
  unsigned long Count() const { return mTables.size(); }

 private:
  SimpleVector<LocalSymbolTable*> mTables;
};

#endif

// Local symbols: the variables, local constants and locally declared
// external methods of the scopes that are open while bodies compile, one
// table per scope, chained outward through mNext. The current table is
// gContext->mSymbols.
//
// The tables decide where a variable's storage lies. A block scope owns no
// storage: each block variable is paired with a hidden shadow variable, of
// a name no source can spell, in the enclosing table, up to the method. All
// tables of a compilation live to its end in a LocalSymbolTableList, since
// later stages name a table by its index.
#ifndef COMPILER_SYMBOLTABLE_LOCALSYMBOLTABLE_H
#define COMPILER_SYMBOLTABLE_LOCALSYMBOLTABLE_H

#include "Compiler/InterRep.h"
#include "Compiler/SmartRef.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/SymbolTable.h"
#include "Universal/SimpleVector.h"

// A variable: its operand (type, storage class, link ID, offset) and what
// the prolog, the epilog and the debugger's data may do with it.
class VariableSymbol : public Symbol {
 public:
  VariableSymbol(string const& name, IRDataType const& type,
                 StorageClass storageClass);
  bool IsA(int kind) const override {
    return kind == kVariable || Symbol::IsA(kind);
  }

  IRDataType const& GetType() const { return mAddr.mType; }
  SymbolAddr const* GetAddr() const { return &mAddr; }
  StorageClass GetStorageClass() const { return mAddr.mStorageClass; }
  unsigned long StorageOffset() const { return mAddr.mStorageOffset; }
  string const& LinkID() const { return mAddr.LinkID(); }

  void ProhibitInitialization() { mInitializationAllowed = false; }
  void ProhibitFinalization() { mFinalizationAllowed = false; }
  void HideFromUser() { mUserVisible = false; }
  bool InitializationAllowed() const { return mInitializationAllowed; }
  bool FinalizationAllowed() const { return mFinalizationAllowed; }
  bool UserVisible() const { return mUserVisible; }

  // The link ID becomes qualifier "." name.
  void ComputeLinkID(string const& qualifier);
  // Places the variable at `offset`, aligned for its type; gives the next
  // free offset.
  unsigned long AllocateStorage(unsigned long offset);
  // Makes this variable the same storage as `shadow`.
  void CloneStorage(VariableSymbol* shadow);

  SymbolAddr mAddr;

 private:
  bool mInitializationAllowed;
  bool mFinalizationAllowed;
  bool mUserVisible;
};

// One scope's symbols; owns them.
// Every block makes one: tables are recycled blocks.
class LocalSymbolTable : public RecycledObject {
 public:
  LocalSymbolTable(string const& name, StorageClass mode);

  // Gives a new variable its link ID and storage; called before it joins
  // the table.
  virtual void PrepareVariable(VariableSymbol* ste) = 0;
  virtual ~LocalSymbolTable() {}
  // Bytes of stack frame that the table's variables take.
  virtual unsigned long GetTotalStorage() const { return 0; }
  // What storage new variables get: static data, or the scope's own kind.
  virtual void StaticStorageMode() { mStorageMode = kGlobalDataStorage; }
  virtual void NormalStorageMode() { mStorageMode = kGlobalDataStorage; }
  // How locally added methods dispatch.
  virtual void WeakDeclarationMode() {
    mDeclarationMode = MethodSymbol::WeakLinked;
  }
  virtual void ObjCDeclarationMode() {
    mDeclarationMode = MethodSymbol::ObjCMessage;
  }
  virtual void NormalDeclarationMode() {
    mDeclarationMode = MethodSymbol::Normal;
  }
  virtual bool IsMethodTable() const { return false; }
  virtual bool IsObjectTable() const { return false; }
  // The table of the method (or outermost scope) this one belongs to.
  virtual LocalSymbolTable* Root() { return this; }
  // Whether a debugger's data keeps this scope's variables.
  virtual bool KeepsDebugData() const { return true; }

  // A new variable of the current storage mode, prepared, then added.
  VariableSymbol* AddVariable(string const& name, IRDataType const& type);
  // Searches this table, then outward; `table` (may be null) receives the
  // table where the variable stands.
  bool LookupVariable(string const& name, LocalSymbolTable** table,
                      VariableSymbol** var);
  void AddConstant(ConstantSymbol* it);
  ConstantSymbol* LookupConstant(string const& name) const;
  // Gives the method the table's declaration mode.
  void AddMethod(MethodSymbol* it);
  // Methods of the name in all tables from the outside in; null if none.
  MethodList LookupMethods(string const& name, MethodFilter filter) const;

  // Opens the scope inside `next`: its qualified name follows from there.
  void Activate(LocalSymbolTable* next, unsigned int line);
  // Closes the scope; gives the enclosing table.
  LocalSymbolTable* Deactivate(unsigned int line);

  LocalSymbolTable* Next() const { return mNext; }
  SymbolTable* Table() { return &mTable; }

  string mName;
  unsigned int mStartLine;
  unsigned int mEndLine;
  StorageClass mStorageMode;
  MethodSymbol::DispatchMethod mDeclarationMode;

 protected:
  LocalSymbolTable* mNext;  // not owned
  SymbolTable mTable;

 public:
  string mUniqueName;  // dotted path of the scope: the link ID qualifier
};

// A method's scope: its variables live in the stack frame.
class MethodSymbolTable : public LocalSymbolTable {
 public:
  explicit MethodSymbolTable(string const& name)
      : LocalSymbolTable(name, kStackDataStorage), mTotalStorage(0) {}
  void PrepareVariable(VariableSymbol* ste) override;
  unsigned long GetTotalStorage() const override { return mTotalStorage; }
  void NormalStorageMode() override { mStorageMode = kStackDataStorage; }
  bool IsMethodTable() const override { return true; }

 private:
  unsigned long mTotalStorage;
};

// A statement block: no storage of its own; everything but naming is the
// enclosing table's business.
class BlockSymbolTable : public LocalSymbolTable {
 public:
  BlockSymbolTable();
  void PrepareVariable(VariableSymbol* ste) override;
  void StaticStorageMode() override;
  void NormalStorageMode() override;
  bool IsMethodTable() const override;
  bool IsObjectTable() const override;
  LocalSymbolTable* Root() override;

 private:
  // Tells this block's shadows from those of a sibling block.
  unsigned long mSerial;
  // The serial in hex, written at the first shadow.
  string mSerialText;
};

// Module and class statics, and the outermost table of a compilation: its
// variables live in static data, named by their qualified link ID.
class StaticSymbolTable : public LocalSymbolTable {
 public:
  explicit StaticSymbolTable(string const& name)
      : LocalSymbolTable(name, kGlobalDataStorage) {}
  void PrepareVariable(VariableSymbol* ste) override;
};

// The instance members of the class being compiled.
class ObjectSymbolTable : public LocalSymbolTable {
 public:
  explicit ObjectSymbolTable(string const& name)
      : LocalSymbolTable(name, kBaseRelativeDataStorage) {}
  void PrepareVariable(VariableSymbol* ste) override;
  void NormalStorageMode() override {
    mStorageMode = kBaseRelativeDataStorage;
  }
  bool IsObjectTable() const override { return true; }
  // The fields come with the class's own debug table.
  bool KeepsDebugData() const override { return false; }
};

// The variables of one table in declaration order.
class LocalVariableIterator {
 public:
  explicit LocalVariableIterator(LocalSymbolTable* table)
      : mInnerIterator(table->Table()) {}
  bool Next();
  VariableSymbol* Value() const;

 private:
  SymbolTableIterator mInnerIterator;
};

// All tables of one compilation, by index, since later stages name a table
// by its index; owns them. A table whose function's code exists already may
// be released early: its place then holds null.
class LocalSymbolTableList {
 public:
  virtual ~LocalSymbolTableList();
  // Appends and returns the new index.
  unsigned long AddTable(LocalSymbolTable* table);
  LocalSymbolTable* GetTable(unsigned long index) const;
  void ReleaseTable(unsigned long index);
  LocalSymbolTable* GetGlobalTable() const { return GetTable(0); }
  unsigned long Count() const { return mTables.size(); }

 private:
  SimpleVector<LocalSymbolTable*> mTables;
};

#endif

// Symbols and the table that holds them.
//
// Every named thing the compiler knows, from a local variable to a class, is
// a Symbol, and every scope keeps its symbols in a SymbolTable: an
// insertion-ordered list of owned symbols, overlaid with an open-addressing
// index keyed by a case-insensitive hash of the name. Symbols of one name
// form a chain behind one index slot, newest first, so that a name can stand
// for several overloads; a lookup yields the whole chain as a LookupSet.
//
// The table also tracks dependencies: reaching a symbol that was cloned from
// another source unit touches that unit's link, so that the system can tell
// afterwards which units a compilation actually used.
#ifndef COMPILER_SYMBOLTABLE_SYMBOLTABLE_H
#define COMPILER_SYMBOLTABLE_SYMBOLTABLE_H

#include "Compiler/datatypes.h"
#include "Universal/Assertion.h"
#include "Universal/IntMap.h"
#include "Universal/RecycledBlocks.h"
#include "Universal/ustring.h"

class SymbolTable;

// One merged source unit, a node of the list that the global table owns.
// `second` is what the caller passed when merging the unit.
class SourceUnitDependencyLink {
 public:
  SourceUnitDependencyLink(string const& unitID, string const& second,
                           SourceUnitDependencyLink* next);
  void Touch() { mTouched = true; }
  bool Touched() const { return mTouched; }
  void ClearTouched() { mTouched = false; }
  string const& UnitID() const { return mUnitID; }
  string const& Second() const { return mSecond; }
  SourceUnitDependencyLink* Next() const { return mNext; }

 private:
  bool mTouched;
  string mUnitID;
  string mSecond;
  SourceUnitDependencyLink* mNext;
};

// Symbols are recycled blocks: every local and hidden variable is one, and
// a function's tables are released as soon as its code is generated.
class Symbol : public RecycledObject {
 public:
  // The argument of IsA. A class answers true for its own kind and for every
  // kind above it in the class tree. 2 belongs to no class.
  enum Kind {
    kVariable = 0,
    kParameter = 1,
    kConstant = 3,
    kMethod = 4,
    kProperty = 5,
    kType = 6,
    kObjectTypeSymbol = 7,  // not kObjectType: that names the main type
    kClass = 8,
    kInterface = 9,
    kDelegate = 10,
    kStructure = 11,
    kEnum = 12,
    kModule = 13,
    kUnit = 14,
    kGlobal = 15,
    kStructureField = 16,
  };

  // Notes the lexer's current line as the declaration's line.
  explicit Symbol(string const& name);
  // A copy for another table: name, hash and line; the copy is not owned
  // and carries `link` as its source unit. A clone is never cloned again.
  // Copies are what a unit's scan leaves in the global table: only they
  // count as declarations written in a script.
  Symbol(Symbol const& original, SourceUnitDependencyLink* link);
  virtual bool IsA(int kind) const { return false; }
  virtual ~Symbol() {}

  // The case-folding hash of a name: equal names (ASCII case aside) hash
  // alike. Bytes from 128 up are added as negative values, unfolded.
  static unsigned long Hash(string const& name);

  string const& Name() const { return mName; }
  unsigned long GetHash() const { return mHash; }
  unsigned int SourceLine() const { return mSourceLine; }
  SourceUnitDependencyLink* SourceUnit() const { return mSourceUnit; }
  // False for what the host and the runtime library declare: their lines
  // are those of their own declaration texts, not of any script.
  bool WrittenInScript() const { return mWrittenInScript; }
  SymbolTable* Owner() const { return mOwner; }

 private:
  friend class SymbolTable;
  friend class LookupSet;
  friend class SymbolTableIterator;
  Symbol(Symbol const&) = delete;
  Symbol& operator=(Symbol const&) = delete;

  string mName;  // as declared; its case shows in messages and link names
  unsigned long mHash;
  SourceUnitDependencyLink* mSourceUnit;
  unsigned int mSourceLine;
  bool mWrittenInScript;
  SymbolTable* mOwner;
  Symbol* mNextInTable;   // insertion order
  Symbol* mNextSameName;  // the next older symbol of this name
  Symbol* mNextSameLine;  // the next older script declaration of this line
};

// One same-name chain, newest symbol first: `while (set.Next()) set.Value()`.
class LookupSet {
 public:
  explicit LookupSet(Symbol* head) : mCurrent(head), mStarted(false) {}
  // Moves to the first, then the next symbol; answers whether there is one.
  // Reaching a symbol of a merged unit records the dependency.
  bool Next();
  // The current symbol, null before the first successful Next.
  Symbol* Value() const { return mStarted ? mCurrent : nullptr; }

 private:
  Symbol* mCurrent;
  bool mStarted;
};

// Owns its symbols and deletes them with itself. Nothing is ever removed.
class SymbolTable {
 public:
  SymbolTable();
  virtual ~SymbolTable();

  // Takes ownership. Refused while an iterator walks the table.
  void Add(Symbol* item);
  LookupSet Lookup(string const& name) const;
  // The one symbol of this name declared on `line` of unit `unitID`; a
  // symbol of the current source matches any unit.
  Symbol* LookupDeclaration(string const& name, string const& unitID,
                            unsigned int line) const;

  unsigned long Count() const { return mSymbolCount; }
  unsigned long IndexSize() const { return mIndexSize; }
  Symbol* First() const { return mFirst; }

 private:
  friend class SymbolTableIterator;
  SymbolTable(SymbolTable const&) = delete;
  SymbolTable& operator=(SymbolTable const&) = delete;

  // Doubles the index; only chain heads move.
  void EnlargeIndex();
  unsigned long Probe(string const& name, unsigned long hash) const;
  // Files a script declaration under its line, once the line index exists.
  void IndexByLine(Symbol* item) const;

  Symbol** mIndex;
  unsigned long mIndexSize;
  unsigned long mSymbolCount;
  Symbol* mFirst;
  Symbol* mLast;
  unsigned long mIteratorLocks;
  // The newest script declaration per source line, made by the first
  // LookupDeclaration: a table of many overloads of one name finds each
  // body's declaration without walking all of them.
  mutable IntMap<Symbol*>* mDeclarationsByLine;
};

// Walks a table in insertion order. While it lives, the table refuses to
// grow or die, so keep it tightly scoped.
class SymbolTableIterator {
 public:
  explicit SymbolTableIterator(SymbolTable* target);
  SymbolTableIterator(SymbolTableIterator const& other);
  ~SymbolTableIterator();
  // Moves to the first or next symbol; past the end it starts over.
  bool Next();
  Symbol* Value() const { return mCurrent; }

 private:
  SymbolTableIterator& operator=(SymbolTableIterator const&) = delete;

  SymbolTable* mTarget;
  Symbol* mCurrent;
};

#endif

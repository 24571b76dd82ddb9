// Symbols: every named thing the compiler knows, from a local variable to a
// class.
//
// MINIMAL FOR NOW. This header holds only what the type values, the
// semantic values and the compilation context need: the Symbol base with its
// kinds, the TypeSymbol base that IRDataType points at, and the dependency
// link that a lookup touches. The symbol table itself (the indexed,
// insertion-ordered container of owned symbols), lookup sets, iterators, the
// source line and owner fields, and the GlobalSymbol/MemberSymbol layers
// between Symbol and TypeSymbol come with the symbol table issue.
#ifndef COMPILER_SYMBOLTABLE_SYMBOLTABLE_H
#define COMPILER_SYMBOLTABLE_SYMBOLTABLE_H

#include "Compiler/datatypes.h"
#include "Universal/Assertion.h"
#include "Universal/ustring.h"

// One merged source unit; a lookup that reaches a symbol cloned from that
// unit touches it, so that the system can tell which units a compilation
// actually used.
// `second` is what the caller passed when merging the unit; `next` links
// the list that the global table owns.
class SourceUnitDependencyLink {
 public:
  SourceUnitDependencyLink(string const& unitID, string const& second,
                           SourceUnitDependencyLink* next)
      : mTouched(false), mUnitID(unitID), mSecond(second), mNext(next) {
    QASSERT(mUnitID.Length());
  }
  void Touch() { mTouched = true; }
  bool Touched() const { return mTouched; }
  string const& UnitID() const { return mUnitID; }

 private:
  bool mTouched;
  string mUnitID;
  string mSecond;
  SourceUnitDependencyLink* mNext;
};

class Symbol {
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

  explicit Symbol(string const& name) : mName(name) {}
  virtual bool IsA(int kind) const { return false; }
  virtual ~Symbol() {}

  string const& Name() const { return mName; }

  // The name exactly as declared; compared without regard to case.
  string mName;
};

// A declared type: what IRDataType::mDecl points at.
class TypeSymbol : public Symbol {
 public:
  explicit TypeSymbol(string const& name) : Symbol(name) {}
  bool IsA(int kind) const override {
    return kind == kType || Symbol::IsA(kind);
  }
  // The type of a value of this type.
  virtual IRDataType InstanceType() const = 0;

  // How the type is spelled in messages and mangled names; set by the
  // declaration resolver.
  string mLinkName;
};

#endif

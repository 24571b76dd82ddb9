// Walks over one kind of declaration in a table, in declaration order:
// `while (it.Next()) use(it.Value());`. Each is a SymbolTableIterator and
// locks the table while it lives.
#ifndef COMPILER_SYMBOLTABLE_SYMBOLITERATORS_H
#define COMPILER_SYMBOLTABLE_SYMBOLITERATORS_H

#include "Compiler/SymbolTable/SymbolTable.h"

class ConstantSymbol;
class MethodSymbol;
class ModuleSymbol;
class PropertySymbol;
class StructureFieldSymbol;
class TypeSymbol;

class TypeFilterIterator : public SymbolTableIterator {
 public:
  explicit TypeFilterIterator(SymbolTable* target)
      : SymbolTableIterator(target) {}
  // Advances to the next symbol that IsA(kind), or to the end.
  bool Next(int kind);
};

class ConstantSymbolIterator : public TypeFilterIterator {
 public:
  explicit ConstantSymbolIterator(SymbolTable* t) : TypeFilterIterator(t) {}
  bool Next() { return TypeFilterIterator::Next(Symbol::kConstant); }
  ConstantSymbol* Value() const;
};

class PropertySymbolIterator : public TypeFilterIterator {
 public:
  explicit PropertySymbolIterator(SymbolTable* t) : TypeFilterIterator(t) {}
  bool Next() { return TypeFilterIterator::Next(Symbol::kProperty); }
  PropertySymbol* Value() const;
};

class TypeSymbolIterator : public TypeFilterIterator {
 public:
  explicit TypeSymbolIterator(SymbolTable* t) : TypeFilterIterator(t) {}
  bool Next() { return TypeFilterIterator::Next(Symbol::kType); }
  TypeSymbol* Value() const;
};

class ModuleSymbolIterator : public TypeFilterIterator {
 public:
  explicit ModuleSymbolIterator(SymbolTable* t) : TypeFilterIterator(t) {}
  bool Next() { return TypeFilterIterator::Next(Symbol::kModule); }
  ModuleSymbol* Value() const;
};

class FieldSymbolIterator : public TypeFilterIterator {
 public:
  explicit FieldSymbolIterator(SymbolTable* t) : TypeFilterIterator(t) {}
  bool Next() { return TypeFilterIterator::Next(Symbol::kStructureField); }
  StructureFieldSymbol* Value() const;
};

// Methods that are no events.
class MethodSymbolIterator : public TypeFilterIterator {
 public:
  explicit MethodSymbolIterator(SymbolTable* t) : TypeFilterIterator(t) {}
  bool Next();
  MethodSymbol* Value() const;
};

// Events only: methods with the Event dispatch method.
class EventSymbolIterator : public TypeFilterIterator {
 public:
  explicit EventSymbolIterator(SymbolTable* t) : TypeFilterIterator(t) {}
  bool Next();
  MethodSymbol* Value() const;
};

#endif

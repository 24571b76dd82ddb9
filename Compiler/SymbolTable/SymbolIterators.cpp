#include "Compiler/SymbolTable/SymbolIterators.h"

#include "Compiler/SymbolTable/GlobalSymbolTable.h"

bool TypeFilterIterator::Next(int kind) {
  while (SymbolTableIterator::Next())
    if (SymbolTableIterator::Value()->IsA(kind)) return true;
  return false;
}

ConstantSymbol* ConstantSymbolIterator::Value() const {
  return static_cast<ConstantSymbol*>(SymbolTableIterator::Value());
}

PropertySymbol* PropertySymbolIterator::Value() const {
  return static_cast<PropertySymbol*>(SymbolTableIterator::Value());
}

TypeSymbol* TypeSymbolIterator::Value() const {
  return static_cast<TypeSymbol*>(SymbolTableIterator::Value());
}

ModuleSymbol* ModuleSymbolIterator::Value() const {
  return static_cast<ModuleSymbol*>(SymbolTableIterator::Value());
}

StructureFieldSymbol* FieldSymbolIterator::Value() const {
  return static_cast<StructureFieldSymbol*>(SymbolTableIterator::Value());
}

bool MethodSymbolIterator::Next() {
  while (TypeFilterIterator::Next(Symbol::kMethod))
    if (Value()->GetDispatchMethod() != MethodSymbol::Event) return true;
  return false;
}

MethodSymbol* MethodSymbolIterator::Value() const {
  return static_cast<MethodSymbol*>(SymbolTableIterator::Value());
}

bool EventSymbolIterator::Next() {
  while (TypeFilterIterator::Next(Symbol::kMethod))
    if (Value()->GetDispatchMethod() == MethodSymbol::Event) return true;
  return false;
}

MethodSymbol* EventSymbolIterator::Value() const {
  return static_cast<MethodSymbol*>(SymbolTableIterator::Value());
}

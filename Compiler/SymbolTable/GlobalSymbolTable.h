// The declaration tree: the global table, modules, and the classes,
// interfaces, structures, enums, delegates, methods and properties in them.
//
// MINIMAL FOR NOW. Each class here has only its kind and the one or two
// fields that type values and the block stack read (a structure's size, an
// enum's element type, a method's return type). Member tables, lookups,
// cloning, prototypes, scopes and the GlobalSymbol/MemberSymbol layers come
// with the declaration tree issue, which replaces this file.
#ifndef COMPILER_SYMBOLTABLE_GLOBALSYMBOLTABLE_H
#define COMPILER_SYMBOLTABLE_GLOBALSYMBOLTABLE_H

#include "Compiler/SymbolTable/SymbolTable.h"
#include "Compiler/datatypes.h"

class ObjectTypeSymbol : public TypeSymbol {
 public:
  explicit ObjectTypeSymbol(string const& name) : TypeSymbol(name) {}
  bool IsA(int kind) const override {
    return kind == kObjectTypeSymbol || TypeSymbol::IsA(kind);
  }
  IRDataType InstanceType() const override {
    return IRDataType(kObjectType, const_cast<ObjectTypeSymbol*>(this));
  }
};

class ClassSymbol : public ObjectTypeSymbol {
 public:
  explicit ClassSymbol(string const& name) : ObjectTypeSymbol(name) {}
  bool IsA(int kind) const override {
    return kind == kClass || ObjectTypeSymbol::IsA(kind);
  }
};

class InterfaceSymbol : public ObjectTypeSymbol {
 public:
  explicit InterfaceSymbol(string const& name) : ObjectTypeSymbol(name) {}
  bool IsA(int kind) const override {
    return kind == kInterface || ObjectTypeSymbol::IsA(kind);
  }
};

class DelegateSymbol : public TypeSymbol {
 public:
  explicit DelegateSymbol(string const& name) : TypeSymbol(name) {}
  bool IsA(int kind) const override {
    return kind == kDelegate || TypeSymbol::IsA(kind);
  }
  IRDataType InstanceType() const override {
    return IRDataType(kObjectType, const_cast<DelegateSymbol*>(this));
  }
};

class StructureSymbol : public TypeSymbol {
 public:
  explicit StructureSymbol(string const& name)
      : TypeSymbol(name), mStorageSize(0) {}
  bool IsA(int kind) const override {
    return kind == kStructure || TypeSymbol::IsA(kind);
  }
  IRDataType InstanceType() const override {
    return IRDataType(kStructureType, const_cast<StructureSymbol*>(this));
  }
  unsigned long GetStorageSize() const { return mStorageSize; }
  void SetStorageSize(unsigned long size) { mStorageSize = size; }

 private:
  unsigned long mStorageSize;
};

class EnumSymbol : public TypeSymbol {
 public:
  EnumSymbol(string const& name, SimpleDataType elementType)
      : TypeSymbol(name), mElementType(elementType) {}
  bool IsA(int kind) const override {
    return kind == kEnum || TypeSymbol::IsA(kind);
  }
  IRDataType InstanceType() const override {
    return IRDataType(mElementType, const_cast<EnumSymbol*>(this));
  }

  SimpleDataType mElementType;
};

// A Sub has the null return type.
class MethodSymbol : public Symbol {
 public:
  MethodSymbol(string const& name, IRDataType const& returnType)
      : Symbol(name), mReturnType(returnType) {}
  bool IsA(int kind) const override {
    return kind == kMethod || Symbol::IsA(kind);
  }
  IRDataType const& GetReturnType() const { return mReturnType; }

  IRDataType mReturnType;
};

class PropertySymbol : public Symbol {
 public:
  explicit PropertySymbol(string const& name) : Symbol(name) {}
  bool IsA(int kind) const override {
    return kind == kProperty || Symbol::IsA(kind);
  }
};

class ModuleSymbol : public Symbol {
 public:
  explicit ModuleSymbol(string const& name) : Symbol(name) {}
  bool IsA(int kind) const override {
    return kind == kModule || Symbol::IsA(kind);
  }
};

// The root of the tree: the module that holds everything else.
class GlobalSymbolTable : public ModuleSymbol {
 public:
  GlobalSymbolTable() : ModuleSymbol("") {}
  bool IsA(int kind) const override {
    return kind == kGlobal || ModuleSymbol::IsA(kind);
  }
};

#endif

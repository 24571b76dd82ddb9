#include "Compiler/DebuggerSymbolFactory.h"

#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Compiler/SymbolTable/NameMangler.h"
#include "Universal/Assertion.h"

namespace {

// What the table of the global module's own constants is called.
char const* const kGlobalConstantsName = "(global)";

// A ByRef shows the type of what it refers to.
DebuggerSymbol* MakeSymbol(string const& name, IRDataType const& type,
                           StorageClass storageClass, unsigned long offset,
                           string const& linkID) {
  DebuggerSymbol* symbol = new DebuggerSymbol;
  symbol->mName = name;
  symbol->mIsReference = type.GetMainType() == kReferenceType;
  symbol->mTypeName =
      symbol->mIsReference ? type.AsElement().ToString() : type.ToString();
  symbol->mStorageClass = static_cast<uint32_t>(storageClass);
  symbol->mStorageOffset = static_cast<uint32_t>(offset);
  symbol->mStorageSize = static_cast<uint32_t>(type.StorageSize());
  symbol->mLinkID = linkID;
  return symbol;
}

DebuggerSymbol* MakeConstant(ConstantSymbol* constant) {
  DebuggerSymbol* symbol = MakeSymbol(constant->Name(), constant->GetType(),
                                      kGlobalDataStorage, 0, string());
  symbol->mIsConstant = 1;
  symbol->mValueText = constant->GetValue().ToString(constant->GetType());
  return symbol;
}

// A property with storage of its own: an instance field, or a shared one
// (a module's are all shared) in static data under its link name. Computed
// properties have none.
DebuggerSymbol* MakeStoredProperty(PropertySymbol* property, bool shared) {
  if (property->HasCustomAccessors()) return nullptr;
  if (shared || property->IsShared())
    return MakeSymbol(property->Name(), property->GetType(), kGlobalDataStorage,
                      0, property->GetLinkName());
  return MakeSymbol(property->Name(), property->GetType(),
                    kBaseRelativeDataStorage, property->GetStorageOffset(),
                    string());
}

// Keeps the table under its name when it holds anything.
void KeepKeyed(StringMap<DebuggerSymbolTable*>& tables, DebuggerSymbolTable* table) {
  if (!table->Count() || tables.HasEntry(table->Name())) {
    delete table;
    return;
  }
  tables.AddEntry(table->Name(), table);
}

template <class Owner>
void ConvertConstants(Owner* owner, string const& name,
                      DebuggerCodeModuleData* data) {
  DebuggerSymbolTable* table = DebuggerSymbolTable::New(name);
  ConstantSymbolIterator constants = owner->IterateConstants();
  while (constants.Next()) table->AddEntry(MakeConstant(constants.Value()));
  KeepKeyed(data->mConstantTables, table);
}

DebuggerSymbolTable* StoredPropertiesTable(PropertySymbolIterator properties,
                                           string const& name,
                                           bool allShared = false) {
  DebuggerSymbolTable* table = DebuggerSymbolTable::New(name);
  while (properties.Next())
    if (DebuggerSymbol* symbol = MakeStoredProperty(properties.Value(), allShared))
      table->AddEntry(symbol);
  return table;
}

// A structure declared in a class is keyed through it: "Shape.Point".
void ConvertStructureDeclarationTable(StructureSymbol* structure,
                                      string const& name,
                                      DebuggerCodeModuleData* data) {
  DebuggerSymbolTable* table = DebuggerSymbolTable::New(name);
  FieldSymbolIterator fields = structure->IterateFields();
  while (fields.Next()) {
    StructureFieldSymbol* field = fields.Value();
    table->AddEntry(MakeSymbol(field->Name(), field->GetType(),
                               kBaseRelativeDataStorage, field->mOffset,
                               string()));
  }
  KeepKeyed(data->mStructureTables, table);
}

void ConvertClassDeclarationTable(ClassSymbol* cls, DebuggerCodeModuleData* data) {
  DebuggerSymbolTable* table =
      StoredPropertiesTable(cls->IterateProperties(), cls->Name());
  for (ClassSymbol* parent = cls->GetParent(); parent; parent = parent->GetParent()) {
    DebuggerSymbolTable* inherited =
        StoredPropertiesTable(parent->IterateProperties(), parent->Name());
    table->Inherit(inherited);
    delete inherited;
  }
  KeepKeyed(data->mClassTables, table);
  ConvertConstants(cls, cls->Name(), data);
  TypeSymbolIterator nested = cls->IterateTypes();
  while (nested.Next())
    if (nested.Value()->IsA(Symbol::kStructure))
      ConvertStructureDeclarationTable(
          static_cast<StructureSymbol*>(nested.Value()),
          QualifyName(cls->Name(), nested.Value()->Name()), data);
}

void ConvertStructureDeclarationTable(StructureSymbol* structure,
                                      DebuggerCodeModuleData* data) {
  ConvertStructureDeclarationTable(structure, structure->Name(), data);
}

void ConvertEnumDeclaration(EnumSymbol* item, DebuggerCodeModuleData* data) {
  if (data->mEnums.HasEntry(item->Name())) return;
  DebuggerEnum* converted = new DebuggerEnum;
  converted->mName = item->Name();
  converted->mTypeName = IRDataType(item->GetElementType()).ToString();
  ConstantSymbolIterator values = item->IterateConstants();
  while (values.Next()) {
    DebuggerEnumValue value;
    value.mName = values.Value()->Name();
    value.mValueText =
        values.Value()->GetValue().ToString(IRDataType(item->GetElementType()));
    converted->mValues.push_back(value);
  }
  data->mEnums.AddEntry(item->Name(), converted);
}

void ConvertModuleDeclarationTable(ModuleSymbol* module,
                                   DebuggerCodeModuleData* data) {
  KeepKeyed(data->mModuleTables,
            StoredPropertiesTable(module->IterateProperties(), module->Name(),
                                  true));
  CopyGlobalSymbolsToDebugData(module, data);
}

}  // namespace

DebuggerSymbolTable* ConvertSymbolTable(string const& unitName,
                                        LocalSymbolTable* table) {
  QASSERT_TEXT(table, "table");
  DebuggerSymbolTable* converted = DebuggerSymbolTable::New(table->mName);
  converted->mSourceName = unitName;
  converted->mStartLine = table->mStartLine;
  converted->mEndLine = table->mEndLine;
  LocalVariableIterator variables(table);
  while (variables.Next()) {
    VariableSymbol* variable = variables.Value();
    if (!variable->UserVisible()) continue;
    converted->AddEntry(MakeSymbol(variable->Name(), variable->GetType(),
                                   variable->GetStorageClass(),
                                   variable->StorageOffset(), variable->LinkID()));
  }
  return converted;
}

void CopyLocalSymbolsToDebugData(string const& unitName,
                                 LocalSymbolTableList* tables,
                                 DebuggerCodeModuleData* data) {
  QASSERT_TEXT(tables, "tables");
  QASSERT_TEXT(data, "data");
  for (unsigned long i = 0; i < tables->Count(); i++) {
    LocalSymbolTable* table = tables->GetTable(i);
    if (!table || !table->KeepsDebugData()) continue;
    DebuggerSymbolTable* converted = ConvertSymbolTable(unitName, table);
    if (converted->Count())
      data->mLocalTables.push_back(converted);
    else
      delete converted;
  }
}

void CopyGlobalSymbolsToDebugData(ModuleSymbol* module,
                                  DebuggerCodeModuleData* data) {
  QASSERT_TEXT(module, "module");
  QASSERT_TEXT(data, "data");
  TypeSymbolIterator types = module->IterateTypes();
  while (types.Next()) {
    TypeSymbol* type = types.Value();
    if (type->IsA(Symbol::kClass))
      ConvertClassDeclarationTable(static_cast<ClassSymbol*>(type), data);
    else if (type->IsA(Symbol::kStructure))
      ConvertStructureDeclarationTable(static_cast<StructureSymbol*>(type), data);
    else if (type->IsA(Symbol::kEnum))
      ConvertEnumDeclaration(static_cast<EnumSymbol*>(type), data);
  }
  ConvertConstants(module, module->Name().Length() ? module->Name()
                                                   : string(kGlobalConstantsName),
                   data);
  ModuleSymbolIterator modules = module->IterateModules();
  while (modules.Next()) ConvertModuleDeclarationTable(modules.Value(), data);
}

#include "Compiler/DebuggerSymbols.h"

#include "Universal/Assertion.h"

DebuggerSymbolTable* DebuggerSymbolTable::New(string const& name) {
  return new DebuggerSymbolTable(name);
}

DebuggerSymbolTable::~DebuggerSymbolTable() {
  ForgetMap();
  for (unsigned long i = 0; i < mSymbols.size(); i++) delete mSymbols[i];
}

void DebuggerSymbolTable::ForgetMap() {
  delete mMap;
  mMap = nullptr;
}

StringMap<DebuggerSymbol*>& DebuggerSymbolTable::getmap() {
  if (mMap) return *mMap;
  mMap = new StringMap<DebuggerSymbol*>();
  for (unsigned long i = 0; i < mSymbols.size(); i++)
    if (!mMap->HasEntry(mSymbols[i]->mName))
      mMap->AddEntry(mSymbols[i]->mName, mSymbols[i]);
  return *mMap;
}

void DebuggerSymbolTable::AddEntry(DebuggerSymbol* symbol) {
  QASSERT_TEXT(symbol, "symbol");
  mSymbols.push_back(symbol);
  ForgetMap();
}

bool DebuggerSymbolTable::GetEntry(string const& name, DebuggerSymbol*& symbol) {
  return getmap().GetEntry(name, symbol);
}

DebuggerSymbolTable* DebuggerSymbolTable::Clone() const {
  DebuggerSymbolTable* copy = New(mName);
  copy->mSourceName = mSourceName;
  copy->mStartLine = mStartLine;
  copy->mEndLine = mEndLine;
  copy->Merge(this);
  return copy;
}

void DebuggerSymbolTable::Inherit(DebuggerSymbolTable const* parent) {
  if (!parent) return;
  for (unsigned long i = 0; i < parent->Count(); i++) {
    DebuggerSymbol* own = nullptr;
    if (!GetEntry(parent->At(i)->mName, own))
      AddEntry(new DebuggerSymbol(*parent->At(i)));
  }
}

void DebuggerSymbolTable::Merge(DebuggerSymbolTable const* other) {
  if (!other || other == this) return;
  for (unsigned long i = 0; i < other->Count(); i++)
    AddEntry(new DebuggerSymbol(*other->At(i)));
}

// From the last symbol to the first, so that a deletion leaves the indices
// still to visit where they were.
void DebuggerSymbolTable::AdjustStaticSymbols(
    StringMap<unsigned int> const& globalOffsets) {
  for (unsigned long i = mSymbols.size(); i-- > 0;) {
    DebuggerSymbol* symbol = mSymbols[i];
    if (symbol->mStorageClass != 0 || symbol->mIsConstant) continue;
    unsigned int offset = 0;
    if (globalOffsets.GetEntry(symbol->mLinkID, offset)) {
      symbol->mStorageOffset = offset;
    } else {
      delete symbol;
      mSymbols.deleteIdx(i);
    }
  }
  ForgetMap();
}

namespace {

template <class T>
void DeleteValues(StringMap<T*>& map) {
  StringMapIterator<T*>* iter = map.NewIterator();
  T* value = nullptr;
  while (iter->Next(value)) delete value;
  delete iter;
}

void MergeKeyed(StringMap<DebuggerSymbolTable*>& into,
                StringMap<DebuggerSymbolTable*>& from) {
  StringMapIterator<DebuggerSymbolTable*>* iter = from.NewIterator();
  DebuggerSymbolTable* table = nullptr;
  while (iter->Next(table)) {
    QASSERT_TEXT(iter->Key().Length(), "iter->Key().Length()");
    DebuggerSymbolTable* mine = nullptr;
    if (into.GetEntry(iter->Key(), mine))
      mine->Merge(table);
    else
      into.AddEntry(iter->Key(), table->Clone());
  }
  delete iter;
}

}  // namespace

DebuggerCodeModuleData::~DebuggerCodeModuleData() {
  for (unsigned long i = 0; i < mLocalTables.size(); i++) delete mLocalTables[i];
  DeleteValues(mClassTables);
  DeleteValues(mModuleTables);
  DeleteValues(mStructureTables);
  DeleteValues(mEnums);
  DeleteValues(mConstantTables);
}

void DebuggerCodeModuleData::Merge(DebuggerCodeModuleData* other) {
  if (!other || other == this) return;
  for (unsigned long i = 0; i < other->mLocalTables.size(); i++)
    mLocalTables.push_back(other->mLocalTables[i]->Clone());
  MergeKeyed(mClassTables, other->mClassTables);
  MergeKeyed(mModuleTables, other->mModuleTables);
  MergeKeyed(mStructureTables, other->mStructureTables);
  MergeKeyed(mConstantTables, other->mConstantTables);
  StringMapIterator<DebuggerEnum*>* iter = other->mEnums.NewIterator();
  DebuggerEnum* item = nullptr;
  while (iter->Next(item))
    if (!mEnums.HasEntry(iter->Key())) mEnums.AddEntry(iter->Key(), item->Clone());
  delete iter;
}

bool DebuggerCodeModuleData::IsEmpty() {
  return !mLocalTables.size() && !mClassTables.Count() &&
         !mModuleTables.Count() && !mStructureTables.Count() &&
         !mEnums.Count() && !mConstantTables.Count();
}

void ForEachKeyedTable(StringMap<DebuggerSymbolTable*>& tables,
                       void (*visit)(DebuggerSymbolTable* table, void* data),
                       void* data) {
  StringMapIterator<DebuggerSymbolTable*>* iter = tables.NewIterator();
  DebuggerSymbolTable* table = nullptr;
  while (iter->Next(table)) visit(table, data);
  delete iter;
}

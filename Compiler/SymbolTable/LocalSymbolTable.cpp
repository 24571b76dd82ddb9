#include "Compiler/SymbolTable/LocalSymbolTable.h"

#include "Compiler/SymbolTable/NameMangler.h"
#include "Universal/ByteHelpers.h"

// -------------------------------------------------------------- variables

VariableSymbol::VariableSymbol(string const& name, IRDataType const& type,
                               StorageClass storageClass)
    : Symbol(name), mAddr(storageClass, type, string(), 0),
      mInitializationAllowed(true), mFinalizationAllowed(true),
      mUserVisible(true) {}

void VariableSymbol::ComputeLinkID(string const& qualifier) {
  mAddr.SetQualifiedLinkID(qualifier, Name());
}

unsigned long VariableSymbol::AllocateStorage(unsigned long offset) {
  unsigned long start = GetType().StorageAlign(offset);
  mAddr.mStorageOffset = (unsigned int)start;
  return start + GetType().StorageSize();
}

void VariableSymbol::CloneStorage(VariableSymbol* shadow) {
  QASSERT_TEXT(shadow, "shadow");
  mAddr = shadow->mAddr;
}

// ----------------------------------------------------------------- tables

LocalSymbolTable::LocalSymbolTable(string const& name, StorageClass mode)
    : mName(name), mStartLine(0), mEndLine(0), mStorageMode(mode),
      mDeclarationMode(MethodSymbol::Normal), mNext(nullptr),
      mUniqueName(name) {}

VariableSymbol* LocalSymbolTable::AddVariable(string const& name,
                                              IRDataType const& type) {
  VariableSymbol* ste = new VariableSymbol(name, type, mStorageMode);
  PrepareVariable(ste);
  mTable.Add(ste);
  return ste;
}

bool LocalSymbolTable::LookupVariable(string const& name,
                                      LocalSymbolTable** table,
                                      VariableSymbol** var) {
  for (LocalSymbolTable* scope = this; scope; scope = scope->mNext) {
    LookupSet set = scope->mTable.Lookup(name);
    while (set.Next()) {
      if (!set.Value()->IsA(Symbol::kVariable)) continue;
      if (table) *table = scope;
      if (var) *var = static_cast<VariableSymbol*>(set.Value());
      return true;
    }
  }
  return false;
}

void LocalSymbolTable::AddConstant(ConstantSymbol* it) {
  QASSERT_TEXT(it, "it");
  mTable.Add(it);
}

ConstantSymbol* LocalSymbolTable::LookupConstant(string const& name) const {
  for (LocalSymbolTable const* scope = this; scope; scope = scope->mNext) {
    LookupSet set = scope->mTable.Lookup(name);
    while (set.Next())
      if (set.Value()->IsA(Symbol::kConstant))
        return static_cast<ConstantSymbol*>(set.Value());
  }
  return nullptr;
}

void LocalSymbolTable::AddMethod(MethodSymbol* it) {
  QASSERT_TEXT(it, "it");
  it->SetDispatchMethod(mDeclarationMode);
  mTable.Add(it);
}

MethodList LocalSymbolTable::LookupMethods(string const& name,
                                           MethodFilter filter) const {
  MethodList out;
  if (mNext) out = mNext->LookupMethods(name, filter);
  LookupSet set = mTable.Lookup(name);
  while (set.Next()) {
    if (!set.Value()->IsA(Symbol::kMethod)) continue;
    MethodSymbol* method = static_cast<MethodSymbol*>(set.Value());
    if (!method->MatchesFilter(filter)) continue;
    if (!out) out.BindNewObject(new SimpleVector<MethodSymbol*>);
    out->push_back(method);
  }
  return out;
}

void LocalSymbolTable::Activate(LocalSymbolTable* next, unsigned int line) {
  mNext = next;
  mUniqueName = next ? QualifyName(next->mUniqueName, mName) : mName;
  mStartLine = line;
}

LocalSymbolTable* LocalSymbolTable::Deactivate(unsigned int line) {
  mEndLine = line;
  return mNext;
}

// A stack variable is allocated twice, and lives at the second place: frame
// offsets depend on the gap, so it stays. A static in a method is set up
// once, not at each entry.
void MethodSymbolTable::PrepareVariable(VariableSymbol* ste) {
  ste->ComputeLinkID(mUniqueName);
  switch (ste->GetStorageClass()) {
    case kGlobalDataStorage:
      break;
    case kStackDataStorage:
      mTotalStorage = ste->AllocateStorage(mTotalStorage);
      break;
    default:
      QFAIL("illegal storage class for method variable");
  }
  if (mStorageMode == kStackDataStorage) {
    mTotalStorage = ste->AllocateStorage(mTotalStorage);
  } else {
    ste->ProhibitInitialization();
    ste->ProhibitFinalization();
  }
}

// Numbers every block the process makes, so that no two blocks share one;
// counting rather than using addresses keeps the names, and so a listing,
// the same from run to run.
static unsigned long sBlockCount = 0;

BlockSymbolTable::BlockSymbolTable()
    : LocalSymbolTable(string(), kStackDataStorage), mSerial(++sBlockCount) {}

// The shadow's name holds a blank, which no identifier can, and the
// block's number, so that sibling blocks may declare the same name.
void BlockSymbolTable::PrepareVariable(VariableSymbol* ste) {
  QASSERT_TEXT(ste, "ste");
  QASSERT_TEXT(mNext, "mNext");
  if (mSerialText.IsEmpty()) mSerialText = ultohexa(mSerial);
  string shadowName = JoinAround(ste->Name(), ' ', mSerialText);
  VariableSymbol* shadow = mNext->AddVariable(shadowName, ste->GetType());
  QASSERT_TEXT(shadow, "shadow");
  ste->CloneStorage(shadow);
  if (!shadow->InitializationAllowed()) ste->ProhibitInitialization();
  if (!shadow->FinalizationAllowed()) ste->ProhibitFinalization();
  shadow->HideFromUser();
}

void BlockSymbolTable::StaticStorageMode() {
  QASSERT_TEXT(mNext, "mNext");
  mNext->StaticStorageMode();
  mStorageMode = mNext->mStorageMode;
}

void BlockSymbolTable::NormalStorageMode() {
  QASSERT_TEXT(mNext, "mNext");
  mNext->NormalStorageMode();
  mStorageMode = mNext->mStorageMode;
}

bool BlockSymbolTable::IsMethodTable() const {
  QASSERT_TEXT(mNext, "mNext");
  return mNext->IsMethodTable();
}

bool BlockSymbolTable::IsObjectTable() const {
  QASSERT_TEXT(mNext, "mNext");
  return mNext->IsObjectTable();
}

LocalSymbolTable* BlockSymbolTable::Root() {
  QASSERT_TEXT(mNext, "mNext");
  return mNext->Root();
}

void StaticSymbolTable::PrepareVariable(VariableSymbol* ste) {
  ste->ComputeLinkID(mUniqueName);
}

void ObjectSymbolTable::PrepareVariable(VariableSymbol* ste) {
  ste->ComputeLinkID(mUniqueName);
}

// -------------------------------------------------------------- iteration

bool LocalVariableIterator::Next() {
  while (mInnerIterator.Next())
    if (mInnerIterator.Value()->IsA(Symbol::kVariable)) return true;
  return false;
}

VariableSymbol* LocalVariableIterator::Value() const {
  QASSERT_TEXT(NULL == mInnerIterator.Value() or
                   mInnerIterator.Value()->IsA(Symbol::kVariable),
               "NULL == mInnerIterator.Value() or "
               "mInnerIterator.Value()->IsA( Symbol::kVariable )");
  return static_cast<VariableSymbol*>(mInnerIterator.Value());
}

// ------------------------------------------------------------------- list

LocalSymbolTableList::~LocalSymbolTableList() {
  for (unsigned long i = 0; i < mTables.size(); i++) delete mTables[i];
}

unsigned long LocalSymbolTableList::AddTable(LocalSymbolTable* table) {
  mTables.push_back(table);
  return mTables.size() - 1;
}

LocalSymbolTable* LocalSymbolTableList::GetTable(unsigned long index) const {
  QASSERT(index < mTables.size());
  return mTables[index];
}

void LocalSymbolTableList::ReleaseTable(unsigned long index) {
  QASSERT(index < mTables.size());
  delete mTables[index];
  mTables[index] = nullptr;
}

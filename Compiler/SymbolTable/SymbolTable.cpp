#include "Compiler/SymbolTable/SymbolTable.h"

#include "Compiler/CompilationState.h"
#include "Universal/CompileWorkCounters.h"

namespace {

// A power of two, so that a slot is a mask away from a hash.
enum { kInitialIndexSize = 16 };

// Symbols reached inside a compilation tell it which merged units it used.
void RecordReach(Symbol* symbol) {
  CompilationState* compilation = CompilationState::Current();
  if (compilation && symbol && symbol->SourceUnit())
    compilation->RecordDependency(symbol->SourceUnit());
}

}  // namespace

SourceUnitDependencyLink::SourceUnitDependencyLink(
    string const& unitID, string const& second, SourceUnitDependencyLink* next)
    : mTouched(false), mUnitID(unitID), mSecond(second), mNext(next) {
  QASSERT_TEXT(mUnitID.Length(), "mUnitID.Length()");
}

// ------------------------------------------------------------------ Symbol

Symbol::Symbol(string const& name)
    : mName(name), mHash(Hash(name)), mSourceUnit(nullptr),
      mSourceLine(CurrentSourceLine()), mWrittenInScript(false),
      mOwner(nullptr), mNextInTable(nullptr), mNextSameName(nullptr),
      mNextSameLine(nullptr) {}

Symbol::Symbol(Symbol const& original, SourceUnitDependencyLink* link)
    : mName(original.mName), mHash(original.mHash), mSourceUnit(link),
      mSourceLine(original.mSourceLine), mWrittenInScript(true),
      mOwner(nullptr),
      mNextInTable(nullptr), mNextSameName(nullptr), mNextSameLine(nullptr) {
  QASSERT_TEXT(NULL == original.mSourceUnit, "NULL == original.mSourceUnit");
}

// hash = hash * 31 + byte, with ASCII lower case folded and bytes taken as
// signed, in wrapping 32-bit arithmetic.
unsigned long Symbol::Hash(string const& name) {
  uint32_t hash = 0;
  char const* bytes = name.CString();
  unsigned long length = name.Length();
  for (unsigned long i = 0; i < length; i++) {
    int32_t c = (signed char)bytes[i];
    if (c >= 'a' && c <= 'z') c -= 32;
    hash = hash * 31u + uint32_t(c);
  }
  return hash;
}

// --------------------------------------------------------------- LookupSet

bool LookupSet::Next() {
  if (mStarted && mCurrent)
    mCurrent = mCurrent->mNextSameName;
  else
    mStarted = mCurrent != nullptr;
  CountListSteps(1);
  RecordReach(mCurrent);
  return mCurrent != nullptr;
}

// ------------------------------------------------------------- SymbolTable

namespace {

// Index arrays come and go with every block's table: small ones are
// recycled blocks.
Symbol** NewIndex(unsigned long size) {
  return static_cast<Symbol**>(TakeZeroedRecycledBlock(size * sizeof(Symbol*)));
}

void DeleteIndex(Symbol** index, unsigned long size) {
  GiveBackRecycledBlock(index, size * sizeof(Symbol*));
}

}  // namespace

SymbolTable::SymbolTable()
    : mIndex(NewIndex(kInitialIndexSize)),
      mIndexSize(kInitialIndexSize), mSymbolCount(0), mFirst(nullptr),
      mLast(nullptr), mIteratorLocks(0), mDeclarationsByLine(nullptr) {}

SymbolTable::~SymbolTable() {
  QASSERT_TEXT(0 == mIteratorLocks, "0 == mIteratorLocks");
  QASSERT_TEXT(mIndex, "mIndex");
  unsigned long deleteCtr = 0;
  Symbol* item = mFirst;
  while (item) {
    QASSERT_TEXT(item->mOwner == this, "item->mOwner == this");
    Symbol* next = item->mNextInTable;
    item->mOwner = nullptr;
    delete item;
    deleteCtr++;
    item = next;
  }
  QASSERT_TEXT(deleteCtr == mSymbolCount, "deleteCtr == mSymbolCount");
  DeleteIndex(mIndex, mIndexSize);
  delete mDeclarationsByLine;
}

// The slot that holds the chain of `name`, or the empty slot where it would
// go. The index is never full, so the walk ends.
namespace {

// Names of a program often differ in their last characters only (F1, F2...),
// so their hashes run in sequence; placed at their low bits they would fill
// runs of neighbouring slots that every probe must walk. Multiplying by a
// large odd constant first steps them that constant apart.
unsigned long HomeSlot(unsigned long hash, unsigned long indexSize) {
  return (uint32_t(hash) * 2654435761u) & (indexSize - 1);
}

}  // namespace

unsigned long SymbolTable::Probe(string const& name, unsigned long hash) const {
  unsigned long slot = HomeSlot(hash, mIndexSize);
  unsigned long compared = 1;
  // Names that hash apart differ, so only an equal hash costs a comparison.
  while (mIndex[slot] &&
         (mIndex[slot]->mHash != hash || mIndex[slot]->mName != name)) {
    slot = (slot + 1) & (mIndexSize - 1);
    compared++;
  }
  CountKeyComparisons(compared);
  return slot;
}

// The growth test comes before the count rises: the tenth symbol of a
// 16-slot table grows it. It counts symbols, not occupied slots.
void SymbolTable::Add(Symbol* item) {
  QASSERT_TEXT(0 == mIteratorLocks, "0 == mIteratorLocks");
  QASSERT_TEXT(item, "item");
  QASSERT_TEXT(NULL == item->mOwner, "NULL == item->mOwner");
  item->mOwner = this;
  if (mLast)
    mLast->mNextInTable = item;
  else
    mFirst = item;
  mLast = item;
  if (mSymbolCount > mIndexSize / 2) EnlargeIndex();
  mSymbolCount++;
  unsigned long slot = Probe(item->mName, item->mHash);
  item->mNextSameName = mIndex[slot];
  mIndex[slot] = item;
  if (mDeclarationsByLine) IndexByLine(item);
}

void SymbolTable::IndexByLine(Symbol* item) const {
  if (!item->mWrittenInScript) return;
  Symbol* newest = nullptr;
  mDeclarationsByLine->GetEntry(int(item->mSourceLine), newest);
  item->mNextSameLine = newest;
  mDeclarationsByLine->AddEntry(int(item->mSourceLine), item);
}

void SymbolTable::EnlargeIndex() {
  unsigned long newSize = 2 * mIndexSize;
  Symbol** fresh = NewIndex(newSize);
  for (unsigned long i = 0; i < mIndexSize; i++) {
    Symbol* head = mIndex[i];
    if (!head) continue;
    unsigned long slot = HomeSlot(head->mHash, newSize);
    while (fresh[slot]) slot = (slot + 1) & (newSize - 1);
    fresh[slot] = head;
  }
  DeleteIndex(mIndex, mIndexSize);
  mIndex = fresh;
  mIndexSize = newSize;
}

LookupSet SymbolTable::Lookup(string const& name) const {
  return LookupSet(mIndex[Probe(name, Symbol::Hash(name))]);
}

Symbol* SymbolTable::LookupDeclaration(string const& name,
                                       string const& unitID,
                                       unsigned int line) const {
  if (!mDeclarationsByLine) {
    mDeclarationsByLine = new IntMap<Symbol*>;
    for (Symbol* each = mFirst; each; each = each->mNextInTable) IndexByLine(each);
  }
  Symbol* out = nullptr;
  Symbol* symbol = nullptr;
  mDeclarationsByLine->GetEntry(int(line), symbol);
  for (; symbol; symbol = symbol->mNextSameLine) {
    CountListSteps(1);
    if (symbol->mName != name) continue;
    if (symbol->SourceUnit() && symbol->SourceUnit()->UnitID() != unitID)
      continue;
    QASSERT_TEXT(NULL == out, "NULL == out");
    out = symbol;
  }
  return out;
}

// ----------------------------------------------------- SymbolTableIterator

SymbolTableIterator::SymbolTableIterator(SymbolTable* target)
    : mTarget(target), mCurrent(nullptr) {
  QASSERT_TEXT(target, "target");
  mTarget->mIteratorLocks++;
}

SymbolTableIterator::SymbolTableIterator(SymbolTableIterator const& other)
    : mTarget(other.mTarget), mCurrent(other.mCurrent) {
  mTarget->mIteratorLocks++;
}

SymbolTableIterator::~SymbolTableIterator() {
  QASSERT_TEXT(mTarget, "mTarget");
  QASSERT_TEXT(mTarget->mIteratorLocks > 0, "mTarget->mIteratorLocks > 0");
  mTarget->mIteratorLocks--;
}

bool SymbolTableIterator::Next() {
  QASSERT_TEXT(mTarget, "mTarget");
  mCurrent = mCurrent ? mCurrent->mNextInTable : mTarget->mFirst;
  CountListSteps(1);
  RecordReach(mCurrent);
  return mCurrent != nullptr;
}

// Stripping dead code: everything `% main` reaches through imports, and the
// initialisers and finalisers of what it reaches, stays; the rest goes.
#include "Compiler/BackEnds/codegenerator.h"
#include "Compiler/Linker/Linker.h"
#include "Compiler/Linker/LinkerAssertion.h"
#include "Compiler/SymbolTable/NameMangler.h"

namespace {

// The runtime's variant conversions call the lookup functions of these
// classes behind the compiler's back, so they are always kept.
char const* const kVariantClasses[] = {
    "_VariantInt32",  "_VariantUInt32", "_VariantInt64",   "_VariantUInt64",
    "_VariantString", "_VariantSingle", "_VariantDouble",  "_VariantBoolean",
    "_VariantColor",  "_VariantCurrency"};

class DeadCodeStripper {
 public:
  explicit DeadCodeStripper(Ref<CodeModule> code) : mCode(code) {}

  void IndexItems();
  void IncludeRoots();
  // Walks the growing work list; false when the delegate cancelled.
  bool IncludeAll(LinkerDelegate* delegate);
  void StripUnreferencedItems();

 private:
  void IndexItem(LinkableDataBlock* item);
  void IncludeReferencedItem(string const& name);
  void IncludeInitExitItems(string const& name);
  void IncludeDependencies(LinkableDataBlock* item);
  void IncludeGlobal(string const& name);
  bool Included(string const& name) const { return mIncluded.HasEntry(name); }

  Ref<CodeModule> mCode;
  StringMapCase<LinkableDataBlock*> mSourceIndexes;
  StringMapCase<unsigned char> mIncluded;
  SimpleVector<LinkableDataBlock*> mPending;
};

void DeadCodeStripper::IndexItem(LinkableDataBlock* item) {
  QASSERT_TEXT(item, "item");
  QASSERT_TEXT(item->mName.Length(), "item->mName.Length()");
  QASSERT_TEXT(!mSourceIndexes.HasEntry(item->mName),
               "not sourceIndexes.HasEntry( item->mName )");
  mSourceIndexes.AddEntry(item->mName, item);
}

void DeadCodeStripper::IndexItems() {
  for (unsigned long i = 0; i < mCode->mFunctions.size(); i++)
    IndexItem(mCode->mFunctions[i]);
  for (unsigned long i = 0; i < mCode->mStaticData.size(); i++)
    IndexItem(mCode->mStaticData[i]);
}

void DeadCodeStripper::IncludeRoots() {
  IncludeReferencedItem(kMainBodyFunctionName);
  for (unsigned long i = 0; i < sizeof kVariantClasses / sizeof *kVariantClasses;
       i++)
    IncludeReferencedItem(ClassLookupFunctionLinkName(kVariantClasses[i]));
}

bool DeadCodeStripper::IncludeAll(LinkerDelegate* delegate) {
  for (unsigned long i = 0; i < mPending.size(); i++) {
    IncludeDependencies(mPending[i]);
    if (delegate && delegate->LinkerProgress()) return false;
  }
  return true;
}

void DeadCodeStripper::IncludeReferencedItem(string const& name) {
  LinkableDataBlock* item;
  if (!mSourceIndexes.GetEntry(name, item) || Included(name)) return;
  mIncluded.AddEntry(name, 1);
  mPending.push_back(item);
}

void DeadCodeStripper::IncludeInitExitItems(string const& name) {
  string function;
  if (mCode->mInitializers.GetEntry(name, function))
    IncludeReferencedItem(function);
  if (mCode->mFinalizers.GetEntry(name, function))
    IncludeReferencedItem(function);
}

// A global without a block of its own still counts as reached, and brings
// its initialiser and finaliser along.
void DeadCodeStripper::IncludeGlobal(string const& name) {
  if (mSourceIndexes.HasEntry(name)) {
    IncludeReferencedItem(name);
    return;
  }
  QASSERT_NAMED(mCode->mGlobals.HasEntry(name), "0",
                string("unknown global ") + name);
  if (Included(name)) return;
  mIncluded.AddEntry(name, 1);
  IncludeInitExitItems(name);
}

void DeadCodeStripper::IncludeDependencies(LinkableDataBlock* item) {
  IncludeInitExitItems(item->mName);
  for (unsigned long i = 0; i < item->mImports.size(); i++) {
    Import const& import = item->mImports[i];
    switch (import.mType) {
      case Import::kImportPPCGlobal:
      case Import::kImportGlobal32:
        IncludeGlobal(import.mName);
        break;
      case Import::kImportPPCStringHigh:
      case Import::kImportPPCStringLow:
      case Import::kImportStringLiteral:
        break;
      case Import::kImportUnused8:
        QASSERT_TEXT(0, "0");
        break;
      default:
        QASSERT_TEXT(import.mType <= Import::kImportPICLow, "0");
        IncludeReferencedItem(import.mName);
        break;
    }
  }
}

// Deleting from the last to the first keeps the indexes still to visit.
template <class Block>
void DeleteUnincluded(SimpleVector<Block*>& blocks,
                      StringMapCase<unsigned char> const& included) {
  for (unsigned long i = blocks.size(); i > 0; i--) {
    if (included.HasEntry(blocks[i - 1]->mName)) continue;
    delete blocks[i - 1];
    blocks.deleteIdx(i - 1);
  }
}

// Drops the entries whose key (or, with byValue, value) is not included.
template <class T>
void DeleteUnincludedEntries(StringMap<T>& map,
                             StringMapCase<unsigned char> const& included,
                             string (*select)(string const&, T const&)) {
  StringMapIterator<T>* iter = map.NewIterator();
  T value;
  while (iter->Next(value))
    if (!included.HasEntry(select(iter->Key(), value))) iter->Delete();
  delete iter;
}

string SelectKey(string const& key, unsigned int const&) { return key; }
string SelectValue(string const&, string const& value) { return value; }

void DeadCodeStripper::StripUnreferencedItems() {
  DeleteUnincluded(mCode->mFunctions, mIncluded);
  DeleteUnincluded(mCode->mStaticData, mIncluded);
  DeleteUnincludedEntries<unsigned int>(mCode->mGlobals, mIncluded, SelectKey);
  DeleteUnincludedEntries<string>(mCode->mInitializers, mIncluded,
                                  SelectValue);
  DeleteUnincludedEntries<string>(mCode->mFinalizers, mIncluded, SelectValue);
}

}  // namespace

void Linker::StripDeadCode(Ref<CodeModule> code, LinkerDelegate* delegate) {
  QASSERT_TEXT(code, "source");
  DeadCodeStripper stripper(code);
  stripper.IndexItems();
  stripper.IncludeRoots();
  if (!stripper.IncludeAll(delegate)) return;
  stripper.StripUnreferencedItems();
}

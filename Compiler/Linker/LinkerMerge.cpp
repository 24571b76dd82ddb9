// Merging a module's blocks: every function into one code block, every
// static data block into one, and every string literal into one record in
// the literal block. No alignment is put between functions.
#include "Compiler/Linker/Linker.h"

#include "Universal/Assertion.h"

namespace {

// Room for all the blocks' bytes and imports at once, so that the appends
// that follow find it.
template <class Block>
void ReserveForBlocks(LinkableDataBlock* target,
                      SimpleVector<Block*> const& blocks) {
  unsigned long bytes = 0;
  unsigned long imports = 0;
  for (unsigned long i = 0; i < blocks.size(); i++) {
    bytes += blocks[i]->Length();
    imports += blocks[i]->mImports.size();
  }
  target->ResizeBuffer(static_cast<unsigned int>(bytes));
  target->mImports.resize(imports);
}

void MergeLiteralsOf(Linker* linker, SimpleVector<Import> const& imports) {
  for (unsigned long i = 0; i < imports.size(); i++)
    if (imports[i].IsStringLiteral()) linker->MergeOneLiteral(imports[i].mName);
}

}  // namespace

void Linker::MergeModuleFunctions() {
  QASSERT_TEXT(mSrc, "mSrc");
  QASSERT_TEXT(NULL == mOneCode, "NULL == mOneCode");
  mOneCode = mSrc->MakeFunctionBlock();
  SimpleVector<FunctionBlock*> const& functions = mSrc->mFunctions;
  ReserveForBlocks(mOneCode, functions);
  for (unsigned long i = 0; i < functions.size(); i++) {
    unsigned int base = mOneCode->Length();
    RecordFunctionDebugData(functions[i], base);
    mEntrypoints.AddEntry(functions[i]->mName, base);
    mOneCode->Append(functions[i]);
    // The merged code keeps the lines, so that a raise can name its line.
    SimpleVector<cotlis> const& lines = functions[i]->mLineTable.mIndex;
    for (unsigned long k = 0; k < lines.size(); k++)
      mOneCode->mLineTable.AddEntry(base + lines[k].offset, lines[k].line);
    DelegateIdle();
  }
}

// A name with a static block is no longer an uninitialised global.
void Linker::MergeModuleStaticData() {
  QASSERT_TEXT(mSrc, "mSrc");
  QASSERT_TEXT(NULL == mStaticData, "NULL == mStaticData");
  mStaticData = mSrc->MakeStaticDataBlock();
  SimpleVector<StaticDataBlock*> const& blocks = mSrc->mStaticData;
  ReserveForBlocks(mStaticData, blocks);
  for (unsigned long i = 0; i < blocks.size(); i++) {
    mStaticDataMap.AddEntry(blocks[i]->mName.GetUTF8String(),
                            mStaticData->Length());
    mSrc->mGlobals.DeleteEntry(blocks[i]->mName);
    mStaticData->Append(blocks[i]);
  }
}

void Linker::MergeModuleLiterals() {
  QASSERT_TEXT(mOneCode, "mOneCode");
  QASSERT_TEXT(!mLiteralData, "NULL == mLiteralData");
  QASSERT_TEXT(mStaticData, "mStaticData");
  mLiteralData = mSrc->MakeDataBlock();
  MergeLiteralsOf(this, mOneCode->mImports);
  MergeLiteralsOf(this, mStaticData->mImports);
}

// One record per distinct text (bytes and encoding), on a 4-byte boundary:
// the storage words as a fresh string would have them, then the bytes.
void Linker::MergeOneLiteral(string const& text) {
  QASSERT_TEXT(mLiteralData, "mLiteralData");
  if (text.IsEmpty() || mLiterals.HasEntry(text)) return;
  while (mLiteralData->Length() % 4) mLiteralData->Append8(0);
  mLiterals.AddEntry(text, mLiteralData->Length());
  stringStorage const* storage = text.GetStringStorage();
  mLiteralData->Append32(1);
  mLiteralData->Append32(0);
  mLiteralData->Append32(storage->mCapacity);
  mLiteralData->Append32(storage->mLength);
  mLiteralData->Append32(storage->mEncoding);
  mLiteralData->Append(text.CString(), storage->mLength);
}

#include "Compiler/Linker/LinkedDebugSymbols.h"

#include "Compiler/BackEnds/codegenerator.h"
#include "Compiler/Linker/Linker.h"

Ref<DebuggerSymbols> DebuggerSymbols::New() {
  Ref<DebuggerSymbols> symbols;
  symbols.BindNewObject(new DebuggerSymbols);
  return symbols;
}

DebuggerSymbols::~DebuggerSymbols() {
  StringMapIterator<CodeOffsetToLineIndex*>* iter = mLineTables.NewIterator();
  CodeOffsetToLineIndex* lines = nullptr;
  while (iter->Next(lines)) delete lines;
  delete iter;
}

namespace {

void AdjustTable(DebuggerSymbolTable* table, void* offsets) {
  table->AdjustStaticSymbols(*static_cast<StringMap<unsigned int>*>(offsets));
}

}  // namespace

// Notes where a function landed in the merged code, with a copy of its
// lines and its parameter space.
void Linker::RecordFunctionDebugData(FunctionBlock* function,
                                     unsigned long offset) {
  if (!mDebug) return;
  LinkedContainerEntry extent;
  extent.offset = offset;
  extent.length = function->Length();
  mDebug->mFunctionExtents.AddEntry(function->mName, extent);
  CodeOffsetToLineIndex* lines = nullptr;
  if (mDebug->mLineTables.GetEntry(function->mName, lines)) delete lines;
  mDebug->mLineTables.AddEntry(function->mName,
                               new CodeOffsetToLineIndex(function->mLineTable.Clone()));
  mDebug->mParameterSpaces.AddEntry(function->mName, function->mParameterSpace);
}

// Globals the link dropped leave the tables; the rest learn their offsets.
void Linker::AdjustStaticSymbols() {
  if (!mDebug) return;
  DebuggerCodeModuleData& data = mDebug->mData;
  for (unsigned long i = 0; i < data.mLocalTables.size(); i++)
    AdjustTable(data.mLocalTables[i], &mDebug->mGlobalOffsets);
  ForEachKeyedTable(data.mClassTables, &AdjustTable, &mDebug->mGlobalOffsets);
  ForEachKeyedTable(data.mModuleTables, &AdjustTable, &mDebug->mGlobalOffsets);
}

void Linker::MergeDebugData() {
  if (!mDebug) return;
  mDebug->mData.Merge(&mSrc->mDebugData);
  unsigned long entry = 0;
  if (mEntrypoints.GetEntry(string(kMainBodyFunctionName), entry))
    mDebug->mEntryPoint = static_cast<uint32_t>(entry);
  AdjustStaticSymbols();
}

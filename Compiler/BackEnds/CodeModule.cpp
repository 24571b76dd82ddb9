#include "Compiler/BackEnds/MD5.h"
#include "Compiler/BackEnds/codestorage.h"
#include "Universal/Assertion.h"

CodeModule::CodeModule()
    : mManifestSymbols(nullptr), mProcessorFamily(0) {}

CodeModule::~CodeModule() {
  for (unsigned long i = 0; i < mFunctions.size(); i++) delete mFunctions[i];
  for (unsigned long i = 0; i < mStaticData.size(); i++) delete mStaticData[i];
}

unsigned char CodeModule::BigEndian() const {
  if (mProcessorFamily == kProcessorFamilyPowerPC) return 1;
  if (mProcessorFamily == kProcessorFamilyIA32) return 0;
  QFAIL("unknown processor family");
}

FunctionBlock* CodeModule::MakeFunctionBlock() {
  FunctionBlock* block = new FunctionBlock(BigEndian());
  block->mLineTable.mSourceName = mSourceName;
  return block;
}

StaticDataBlock* CodeModule::MakeStaticDataBlock() {
  return new StaticDataBlock(BigEndian());
}

Ref<DataBlock> CodeModule::MakeDataBlock() {
  Ref<DataBlock> block;
  block.BindNewObject(new DataBlock(BigEndian()));
  return block;
}

void CodeModule::SetManifestSymbols(UnitSymbolTable* symbols) {
  mManifestSymbols = symbols;
}

void CodeModule::SetManifestSource(string const& source) {
  mManifestSource = source;
  unsigned char digest[16];
  MD5(digest, reinterpret_cast<unsigned char const*>(source.CString()),
      source.Length());
  mManifestDigest.ConstructFromBuffer(reinterpret_cast<char const*>(digest),
                                      16);
}

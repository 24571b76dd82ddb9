// Modules of hand-made blocks, and a linker whose merge results can be read.
#ifndef TESTS_COMPILER_LINKER_LINKERTESTSUPPORT_H
#define TESTS_COMPILER_LINKER_LINKERTESTSUPPORT_H

#include <string>
#include <vector>

#include "Compiler/Linker/Linker.h"
#include "tests/Compiler/CompilerTestSupport.h"

// Blocks of filler bytes with the imports the test names.
class ModuleBuilder {
 public:
  ModuleBuilder() {
    mModule.BindNewObject(new CodeModule);
    mModule->mProcessorFamily = kProcessorFamilyIA32;
  }
  FunctionBlock* Function(char const* name, unsigned length) {
    return Fill(mModule->MakeFunctionBlock(), name, length, mModule->mFunctions);
  }
  StaticDataBlock* Static(char const* name, unsigned length) {
    return Fill(mModule->MakeStaticDataBlock(), name, length, mModule->mStaticData);
  }
  void Global(char const* name, unsigned size) { mModule->mGlobals.AddEntry(name, size); }
  Ref<CodeModule> mModule;

 private:
  template <class B, class L>
  B* Fill(B* block, char const* name, unsigned length, L& list) {
    block->mName = name;
    for (unsigned i = 0; i < length; i++) block->Append8(0x90);
    list.push_back(block);
    return block;
  }
};

// Each list caller is a call import per entry and a return.
class TestLinker : public Linker {
 public:
  void GenerateListCaller(string const& name, StringMap<string>& list) override {
    FunctionBlock* block = mSrc->MakeFunctionBlock();
    block->mName = name;
    StringMapIterator<string>* iter = list.NewIterator();
    string function;
    while (iter->Next(function)) {
      block->Append8(0xE8);
      block->MarkImport(Import::kImportCall32, function, 0);
      block->Append32(0);
    }
    delete iter;
    block->Append8(0xC3);
    mSrc->mFunctions.push_back(block);
  }
  using Linker::mEntrypoints;
  using Linker::mLiteralData;
  using Linker::mLiterals;
  using Linker::mOneCode;
  using Linker::mStaticData;
  using Linker::mStaticDataMap;
};

// Keeps every failure and cancels when told to.
class RecordingLinkerDelegate : public LinkerDelegate {
 public:
  bool LinkerProgress() override { return ++mProgressCalls > mCancelAfter; }
  void LinkerFailed(string const& message) override { mFailures.push_back(Std(message)); }
  int mProgressCalls = 0;
  int mCancelAfter = 1 << 30;
  std::vector<std::string> mFailures;
};

inline unsigned long Entry(StringMapCase<unsigned long>& map, char const* name) {
  unsigned long value = ~0UL;
  map.GetEntry(name, value);
  return value;
}

#endif

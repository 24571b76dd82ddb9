// The in-memory link: one copy of the merged code into code memory, the
// branches resolved, the global data image built, every data reference
// patched, and the code sealed.
#include "Compiler/BackEnds/Minilinker/QuorlScriptLinker.h"

#include "Compiler/BackEnds/codegenerator.h"
#include "Compiler/Linker/LinkerAssertion.h"

unsigned long QuorlScriptFunctionFinder::LookupFunctionAddress(
    string const& name) {
  QASSERT_TEXT(mFunctions, "functions");
  void* address = nullptr;
  if (!mFunctions->GetEntry(name, address)) return 0;
  return reinterpret_cast<unsigned long>(address);
}

void QuorlScriptFunctionFinder::LinkerFailed(string const& message) {
  if (mReporter) mReporter->LinkerFailed(message);
}

QuorlScriptLinker::QuorlScriptLinker()
    : mStaticDataOffset(0), mQuorlScriptDelegate(nullptr) {}

// From the copy on, the code has its final address: every displacement to
// an outside address depends on it. The product stays in this object.
Ref<DataBlock> QuorlScriptLinker::FormatLink() {
  QASSERT_TEXT(mOneCode, "mOneCode");
  mCode.BindNewObject(new ExecutableDataBlock(mOneCode->IsBigEndian()));
  mCode->Append(reinterpret_cast<char const*>(mOneCode->Buffer()),
                mOneCode->Length());
  mGlobalData = mSrc->MakeDataBlock();
  PreprocessCodeModule();
  ResolveJumps();
  if (!LinkCancelled()) {
    AllocateGlobalDataBlock();
    RecordGlobalOffsets();
    ResolveDataReferences();
  }
  if (!LinkCancelled()) PostLink();
  mCode->MakeExecutable();
  return Ref<DataBlock>();
}

// What the debug data needs of the data image: where each global landed.
void QuorlScriptLinker::RecordGlobalOffsets() {
  if (!mDebug) return;
  StringMapIterator<unsigned long>* iter = mGlobalMap.NewIterator();
  unsigned long offset = 0;
  while (iter->Next(offset))
    mDebug->mGlobalOffsets.AddEntry(iter->Key(), static_cast<unsigned int>(offset));
  delete iter;
}

// Branches are finished here; the data pass passes over them. The imports
// of one name mostly share the name's text, so a target found once is kept
// by the text's storage and found again without hashing it; the imports,
// which hold the storages, all stay for as long as the index does.
void QuorlScriptLinker::ResolveJumps() {
  SimpleVector<Import>& imports = mOneCode->mImports;
  PointerIndex localTargets;     // name storage -> entry offset
  PointerIndex externalTargets;  // name storage -> address
  for (unsigned long i = 0; i < imports.size(); i++) {
    Import& import = imports[i];
    if (!import.IsRelativeBranch()) continue;
    void const* name = import.mName.GetStringStorage();
    bool ownName = name && import.mSourceLibrary.IsEmpty();
    long known;
    if (ownName && localTargets.Find(name, &known)) {
      ResolveLocalJump(import.mOffset, static_cast<unsigned long>(known));
      continue;
    }
    if (ownName && externalTargets.Find(name, &known)) {
      ResolveExternalJump(import, static_cast<unsigned long>(known));
      continue;
    }
    unsigned long entry;
    if (import.mSourceLibrary.IsEmpty() &&
        mEntrypoints.GetEntry(import.mName, entry)) {
      ResolveLocalJump(import.mOffset, entry);
      if (ownName) localTargets.Add(name, static_cast<long>(entry));
    } else if (unsigned long address = FunctionAddress(import)) {
      ResolveExternalJump(import, address);
      if (ownName) externalTargets.Add(name, static_cast<long>(address));
    }
  }
}

unsigned long QuorlScriptLinker::FunctionAddress(Import const& import) {
  QASSERT_TEXT(mQuorlScriptDelegate, "mQuorlScriptDelegate");
  unsigned long address =
      mQuorlScriptDelegate->LookupFunctionAddress(import.mName);
  if (!address)
    LinkError(kLinkErrorFunctionNotFound,
              string("The function ") + import.mName +
                  string(" could not be found."));
  return address;
}

unsigned long QuorlScriptLinker::CodeBase() const {
  return reinterpret_cast<unsigned long>(mCode->Buffer());
}

unsigned long QuorlScriptLinker::GlobalDataBase() const {
  return reinterpret_cast<unsigned long>(mGlobalData->Buffer());
}

void QuorlScriptLinker::CopyStringLiterals(
    SimpleVector<string>& literals) const {
  for (unsigned long i = 0; i < mStringLiterals.size(); i++)
    literals.push_back(mStringLiterals[i]);
}

bool QuorlScriptLinker::HasMainEntrypoint() const {
  return mEntrypoints.HasEntry(kMainBodyFunctionName);
}

void* QuorlScriptLinker::MainEntrypoint() const {
  unsigned long entrypointOffset = 0;
  QASSERT_TEXT(mEntrypoints.GetEntry(kMainBodyFunctionName, entrypointOffset),
               "mEntrypoints.GetEntry( kMainBodyFunctionName, "
               "entrypointOffset )");
  return mCode->Buffer() + entrypointOffset;
}

// The in-memory linker: turns a CodeModule into machine code, a global data
// image and the string objects the code refers to, all usable in this very
// process. Names the module does not define are answered by a table of
// runtime functions.
#ifndef COMPILER_BACKENDS_MINILINKER_QUORLSCRIPTLINKER_H
#define COMPILER_BACKENDS_MINILINKER_QUORLSCRIPTLINKER_H

#include "Compiler/BackEnds/Minilinker/ExecutableDataBlock.h"
#include "Compiler/Linker/Linker.h"
#include "Universal/PointerIndex.h"
#include "Universal/SimpleVector.h"
#include "Universal/stringmap.h"

// Where functions outside the module are.
class QuorlScriptLinkerDelegate {
 public:
  virtual ~QuorlScriptLinkerDelegate() {}
  // The entry address of the name, or 0.
  virtual unsigned long LookupFunctionAddress(string const& name) = 0;
};

// Answers from a table of names and addresses. Failures go on to an
// optional reporter, so that the one who asked for the link hears of them.
class QuorlScriptFunctionFinder : public QuorlScriptLinkerDelegate,
                                  public LinkerDelegate {
 public:
  explicit QuorlScriptFunctionFinder(StringMap<void*>* functions,
                                     LinkerDelegate* reporter = nullptr)
      : mFunctions(functions), mReporter(reporter) {}
  unsigned long LookupFunctionAddress(string const& name) override;
  void LinkerFailed(string const& message) override;

 private:
  StringMap<void*>* mFunctions;  // not owned
  LinkerDelegate* mReporter;     // not owned; may be null
};

// Link failures the in-memory linker reports.
enum {
  kLinkErrorFunctionNotFound = 1,
};

class QuorlScriptLinker : public Linker {
 public:
  QuorlScriptLinker();

  Ref<DataBlock> FormatLink() override;
  virtual void PreprocessCodeModule() {}
  virtual void PostLink() {}
  // Point the branch field at `site` (an offset in mCode) to `target`.
  virtual void ResolveLocalJump(unsigned long site, unsigned long target) = 0;
  virtual void ResolveExternalJump(Import& import, unsigned long address) = 0;
  // Adds `value` to the field the import names.
  virtual void PatchGlobalReference(Import& import, unsigned long value) = 0;

  void SetQuorlScriptDelegate(QuorlScriptLinkerDelegate* delegate) {
    mQuorlScriptDelegate = delegate;
  }
  Ref<ExecutableDataBlock> GetCode() const { return mCode; }
  Ref<DataBlock> GetGlobalData() const { return mGlobalData; }
  void CopyStringLiterals(SimpleVector<string>& literals) const;
  // The address of `% main` in the final code.
  bool HasMainEntrypoint() const;
  void* MainEntrypoint() const;
  // Offsets of the merged code to source lines, and of the link names.
  CodeOffsetToLineIndex const& LineTable() const { return mOneCode->mLineTable; }
  StringMapCase<unsigned long> const& Entrypoints() const { return mEntrypoints; }
  // The entry points for the ready code to take over; the last use of them
  // here.
  StringMapCase<unsigned long>* HandOverEntrypoints() { return &mEntrypoints; }
  // Where a global lies in the global data; false when the code has none of
  // that name.
  bool GlobalOffset(string const& name, unsigned long* offset) const {
    return mGlobalMap.GetEntry(name, *offset);
  }

  void ResolveJumps();
  void AllocateGlobalDataBlock();
  void RecordGlobalOffsets();
  void ResolveDataReferences();

 protected:
  unsigned long CodeBase() const;
  unsigned long GlobalDataBase() const;
  // The address of a function in the code or from the delegate; 0 is a
  // reported link failure.
  unsigned long FunctionAddress(Import const& import);
  // The storage of the literal's heap copy, made on its first use.
  stringStorage* LiteralStorage(string const& text,
                                StringMapCase<string>& made);
  // One more reference on a literal, for one site that points at it; it
  // lives as long as the kept literals.
  void KeepSiteReference(stringStorage* storage);
  // A function pointer's target, in the code or from the delegate.
  unsigned long CodePointerAddress(Import const& import);
  unsigned long GlobalAddress(Import const& import);
  void ResolveCodeReference(Import& import, StringMapCase<string>& made);
  void ResolveStaticDataReference(Import const& import,
                                  StringMapCase<string>& made);

  StringMapCase<unsigned long> mGlobalMap;  // global -> offset in mGlobalData
  PointerIndex mGlobalOffsetsByName;  // name storage -> offset, once found
  Ref<DataBlock> mGlobalData;
  Ref<ExecutableDataBlock> mCode;
  unsigned long mStaticDataOffset;
  // Each literal once, and one more handle for each site that points at
  // it: holding these keeps the literals alive, dropping them gives back
  // every reference the link took.
  SimpleVector<string> mStringLiterals;
  QuorlScriptLinkerDelegate* mQuorlScriptDelegate;  // not owned
  StringMapCase<unsigned long> mPICBaseAnchorMap;
};

// The IA-32 patching rules and list callers.
class QuorlScriptLinkIA32 : public QuorlScriptLinker {
 public:
  void GenerateListCaller(string const& name,
                          StringMap<string>& list) override;
  void ResolveLocalJump(unsigned long site, unsigned long target) override;
  void ResolveExternalJump(Import& import, unsigned long address) override;
  void PatchGlobalReference(Import& import, unsigned long value) override;
};

#endif

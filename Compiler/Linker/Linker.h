// The target-independent half of linking. A Linker merges the many blocks
// of a CodeModule into one code block, one static data block and one block
// of literal records, remembering where each name landed, and hands over to
// the FormatLink of a derived class, which gives the final form.
//
// Besides, two module-level operations serve the build of whole
// applications: merging modules and stripping what `% main` cannot reach.
#ifndef COMPILER_LINKER_LINKER_H
#define COMPILER_LINKER_LINKER_H

#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/Linker/LinkedDebugSymbols.h"
#include "Compiler/SmartRef.h"
#include "Universal/stringmap.h"
#include "Universal/ustring.h"

// Link names with a fixed meaning (the main body's is kMainBodyFunctionName
// of the code generator).
extern char const* const kInitializeFunctionName;  // "% initialize"
extern char const* const kFinalizeFunctionName;    // "% finalize"
extern char const* const kStubNamePrefix;          // "%__glink."

// Who watches a link. Both answers have harmless defaults.
class LinkerDelegate {
 public:
  virtual ~LinkerDelegate() {}
  // Asked between steps; true cancels the link.
  virtual bool LinkerProgress() { return false; }
  // The first failure of a link, as one composed message.
  virtual void LinkerFailed(string const& message) {}
};

class Linker {
 public:
  Linker();
  virtual ~Linker();

  // The whole run: list callers, merge, FormatLink. Null after a failure
  // or a cancel. With `debug`, the module's debug data is merged into it,
  // with the place of each function and global.
  Ref<DataBlock> Link(Ref<CodeModule> source, Ref<DebuggerSymbols> debug,
                      LinkerDelegate* delegate);
  Ref<DataBlock> Link(Ref<CodeModule> source, LinkerDelegate* delegate) {
    return Link(source, Ref<DebuggerSymbols>(), delegate);
  }

  virtual Ref<DataBlock> FormatLink();
  virtual void PrepareCodeModule() {}
  // Adds to the module a function `name` that calls every value of `list`,
  // in the map's order.
  virtual void GenerateListCaller(string const& name,
                                  StringMap<string>& list) = 0;

  void GenerateStaticInitializerAndFinalizer();
  void MergeModuleFunctions();
  void MergeModuleStaticData();
  void MergeModuleLiterals();
  void MergeOneLiteral(string const& text);
  // The debug data's part of the merge; nothing without debug data.
  void RecordFunctionDebugData(FunctionBlock* function, unsigned long offset);
  void MergeDebugData();
  // Gives the globals of the debug tables their offsets (from
  // mDebug->mGlobalOffsets, which FormatLink fills) and drops those the
  // link left out.
  void AdjustStaticSymbols();

  // A string table: the offset of the string, appended with a terminating
  // zero the first time.
  static unsigned long AddStringToBlock(string const& text,
                                        Ref<DataBlock> block,
                                        StringMapCase<unsigned long>* offsets);
  // "%__glink." and the name, in UTF-8.
  static string StubName(string const& linkName);

  // Reports "Linker failed with error #<code> <text>" once; the link
  // fails either way.
  void LinkError(int code, string const& text);
  // Lets the delegate cancel.
  void DelegateIdle();
  bool LinkCancelled() const { return mFailed; }

  // Adds source's blocks (as copies) and tables to dest.
  static void Merge(Ref<CodeModule> dest, Ref<CodeModule> source);
  // Deletes the functions, static data and globals that `% main` cannot
  // reach. A cancel through the delegate leaves the module untouched.
  static void StripDeadCode(Ref<CodeModule> code, LinkerDelegate* delegate);

 protected:
  FunctionBlock* mOneCode;                     // all functions, owned
  StringMapCase<unsigned long> mEntrypoints;   // link name -> offset
  Ref<DataBlock> mLiteralData;                 // literal records
  StringMapCase<unsigned long> mLiterals;      // text -> record offset
  StaticDataBlock* mStaticData;                // all static data, owned
  StringMapCase<unsigned long> mStaticDataMap; // block name -> offset
  Ref<CodeModule> mSrc;
  Ref<DebuggerSymbols> mDebug;                 // may be nil
  LinkerDelegate* mDelegate;                   // not owned; may be null
  bool mFailed;

 private:
  Linker(Linker const&) = delete;
  Linker& operator=(Linker const&) = delete;
};

// Layout of a literal record in the literal block: an image of a string
// storage whose buffer pointer is left for the final link to fill, followed
// by the text's bytes.
enum {
  kLiteralRefCountOffset = 0,
  kLiteralBufferOffset = 4,
  kLiteralCapacityOffset = 8,
  kLiteralLengthOffset = 12,
  kLiteralEncodingOffset = 16,
  kLiteralTextOffset = 20,
};

#endif

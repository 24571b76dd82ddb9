// Linked, ready-to-run code in memory, and the one call that makes it.
#ifndef COMPILER_BACKENDS_MINILINKER_MINILINKER_H
#define COMPILER_BACKENDS_MINILINKER_MINILINKER_H

#include <stdint.h>

#include <vector>

#include "Compiler/BackEnds/Minilinker/ExecutableDataBlock.h"
#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/Linker/LinkedDebugSymbols.h"
#include "Compiler/SmartRef.h"
#include "Universal/SimpleVector.h"
#include "Universal/stringmap.h"
#include "Universal/ustring.h"

class LinkerDelegate;
class QuorlScriptCorrespondent;

typedef void (*ScriptEntrypoint)();

// The product of linking one compiled script: the code, the global data and
// the literals, owned together.
class RunReadyCode {
 public:
  RunReadyCode(Ref<DataBlock> globals, Ref<ExecutableDataBlock> code,
               SimpleVector<string> const& stringLiterals,
               ScriptEntrypoint entrypoint);
  virtual ~RunReadyCode();

  // Runs the main body on this thread, reporting to `correspondent`. Every
  // run starts from the global data as linked.
  void Run(QuorlScriptCorrespondent* correspondent);

  // The arguments of a call from the host, as the machine code takes them:
  // 32-bit words, pushed last to first. Room for the most words a call may
  // have; the words not used are pushed too, and ignored.
  enum { kMostArgumentWords = 32 };
  struct ArgumentWords {
    unsigned long mWords[kMostArgumentWords];
  };
  // Where the result of a call comes back.
  enum ResultKind { kResultInRegisters, kResultOnFloatStack };
  // Calls one function of the code, with the global data as linked and
  // the runtime set up as for a run; an exception it does not catch is
  // reported as a run's is, and the answer is false. The result's bits:
  // EDX:EAX, or the double.
  bool Call(QuorlScriptCorrespondent* correspondent, void* entry,
            ArgumentWords const& arguments, ResultKind kind,
            unsigned long long* registers, double* floating);

  // The lines of the code and the offsets of its functions by link name,
  // given by the linker.
  void SetLineTable(CodeOffsetToLineIndex const& lines) { mLines = lines; }
  // Takes the entries of `entrypoints` (link name to offset), which is left
  // empty.
  void TakeEntrypoints(StringMapCase<unsigned long>* entrypoints);
  // Whether the address lies in this code; the 1-based source line of the
  // instruction that starts at `address` (0 when unknown).
  bool Contains(void const* address) const;
  unsigned long LineAt(void const* address) const;
  // Where the function holding `address` ends: the next function's start,
  // or the end of the code. Null when the address is not in this code.
  unsigned char* FunctionEndAt(void const* address) const;
  // The entry of the function with that link name, or null.
  void* FunctionEntry(string const& linkName) const;
  // Every function's offset in the code, by link name.
  StringMapCase<unsigned long> const& Entrypoints() const { return mEntrypoints; }

  // The global word the code counts its loop passes down in, at `offset`
  // in the global data; code without loops has none.
  void SetYieldCountdown(unsigned long offset);
  // Has the running code call the host at its next loop pass, so that a
  // stop or a time limit is not late behind passes that each run long in
  // the library. Any thread may call it while this object lives.
  void BringYieldForward();

  Ref<DataBlock> Globals() const { return mGlobals; }
  Ref<ExecutableDataBlock> Code() const { return mCode; }
  ScriptEntrypoint Entrypoint() const { return mEntrypoint; }

 private:
  RunReadyCode(RunReadyCode const&) = delete;
  RunReadyCode& operator=(RunReadyCode const&) = delete;

  Ref<DataBlock> mGlobals;
  Ref<ExecutableDataBlock> mCode;
  // The literals and a handle for each of their sites in the code: the
  // sites' references end with this object.
  SimpleVector<string> mStringLiterals;
  ScriptEntrypoint mEntrypoint;
  CodeOffsetToLineIndex mLines;
  StringMapCase<unsigned long> mEntrypoints;
  std::vector<unsigned long> mFunctionStarts;  // ascending offsets
  volatile int32_t* mYieldCountdown = nullptr;
};

// Links `code` against the module itself and `functions`. The caller owns
// the result. A name found in neither fails the link: the answer is null,
// and `failures`, when given, hears why. With `debug`, the module's debug
// data is merged into it.
RunReadyCode* MiniLink(Ref<CodeModule> code, StringMap<void*>* functions,
                       LinkerDelegate* failures = nullptr,
                       Ref<DebuggerSymbols> debug = Ref<DebuggerSymbols>());

#endif

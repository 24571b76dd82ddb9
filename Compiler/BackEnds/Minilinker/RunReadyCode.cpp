// Running linked code, and the link that makes it.
#include "Compiler/BackEnds/Minilinker/minilinker.h"

#include <string.h>

#include <algorithm>

#include "Common/ObjectModel/FrameChainEntry.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptLinker.h"
#include "Compiler/BackEnds/IA-32/CGIA32.h"
#include "Compiler/BackEnds/Minilinker/ScriptCallEntry.h"
#include "Universal/Assertion.h"

namespace {

// What the exception walk learns of a return address: whether it lies in
// the code running on this thread, and where its function ends.
bool RunningCodeBounds(unsigned char const* code, unsigned char** functionEnd) {
  RunReadyCode const* running = GetRuntimeCode();
  if (!running || !running->Contains(code)) return false;
  *functionEnd = running->FunctionEndAt(code);
  return true;
}

}  // namespace

RunReadyCode::RunReadyCode(Ref<DataBlock> globals,
                           Ref<ExecutableDataBlock> code,
                           SimpleVector<string> const& stringLiterals,
                           ScriptEntrypoint entrypoint)
    : mGlobals(globals), mCode(code), mStringLiterals(stringLiterals),
      mEntrypoint(entrypoint) {}

RunReadyCode::~RunReadyCode() {}

void RunReadyCode::SetYieldCountdown(unsigned long offset) {
  mYieldCountdown =
      reinterpret_cast<volatile int32_t*>(mGlobals->Buffer() + offset);
}

// The countdown then ends at the next pass's decrement. A decrement racing
// with this store may undo it; the next request then lands.
void RunReadyCode::BringYieldForward() {
  if (mYieldCountdown) *mYieldCountdown = 0;
}

bool RunReadyCode::Contains(void const* address) const {
  unsigned char const* at = static_cast<unsigned char const*>(address);
  return at >= mCode->Buffer() && at < mCode->Buffer() + mCode->Length();
}

unsigned long RunReadyCode::LineAt(void const* address) const {
  if (!Contains(address)) return 0;
  unsigned int offset = static_cast<unsigned int>(
      static_cast<unsigned char const*>(address) - mCode->Buffer());
  int line = 0;
  if (!mLines.LookupLine(offset, &line)) return 0;
  return static_cast<unsigned long>(line) + 1;
}

void RunReadyCode::TakeEntrypoints(StringMapCase<unsigned long>* entrypoints) {
  mEntrypoints.DeleteAll();
  mEntrypoints.Swap(*entrypoints);
  mFunctionStarts.clear();
  StringMapIterator<unsigned long>* iter = mEntrypoints.NewIterator();
  unsigned long offset = 0;
  while (iter->Next(offset)) mFunctionStarts.push_back(offset);
  delete iter;
  std::sort(mFunctionStarts.begin(), mFunctionStarts.end());
}

unsigned char* RunReadyCode::FunctionEndAt(void const* address) const {
  if (!Contains(address)) return nullptr;
  unsigned long offset = static_cast<unsigned long>(
      static_cast<unsigned char const*>(address) - mCode->Buffer());
  auto next = std::upper_bound(mFunctionStarts.begin(), mFunctionStarts.end(),
                               offset);
  unsigned long end = next == mFunctionStarts.end() ? mCode->Length() : *next;
  return mCode->Buffer() + end;
}

void* RunReadyCode::FunctionEntry(string const& linkName) const {
  unsigned long offset = 0;
  if (!mEntrypoints.GetEntry(linkName, offset)) return nullptr;
  return mCode->Buffer() + offset;
}

// The globals are copied aside before and back after, so that a second run
// needs no relink. Nothing else is reset: the literals' counts stay where
// the run left them, which is why each site holds its own reference.
void RunReadyCode::Run(QuorlScriptCorrespondent* correspondent) {
  QASSERT_TEXT(mCode, "mCode");
  QASSERT_TEXT(mGlobals, "mGlobals");
  Ref<DataBlock> backup;
  if (mGlobals->Length()) {
    backup = mGlobals->Get(0, mGlobals->Length());
    QASSERT_TEXT(backup, "backupGlobals");
  }
  InitQuorlScriptRuntime();
  SetRuntimeCorrespondent(correspondent);
  SetRuntimeCode(this);
  SetScriptCodeBounds(RunningCodeBounds);
  // The main body is where the raiser's walk up the frames stops.
  ScriptEntrypoint entrypoint = mEntrypoint;
  RuntimeObject* runaway = CallEndingRunaways(
      [](void* main) {
        CallAtFrameChainEnd(reinterpret_cast<ScriptEntrypoint>(main));
      },
      reinterpret_cast<void*>(entrypoint));
  if (runaway) {
    UnhandledException(runaway);
    RuntimeUnlockObject(runaway);
  }
  ExitQuorlScriptRuntime();
  if (backup) memcpy(mGlobals->Buffer(), backup->Buffer(), backup->Length());
}

// The function's item initialisers and finalisers run around it, as
// around the main body; an exception it lets out is reported as a run's
// uncaught exception is, and the answer is false.
bool RunReadyCode::Call(QuorlScriptCorrespondent* correspondent, void* entry,
                        ArgumentWords const& arguments, ResultKind kind,
                        unsigned long long* registers, double* floating) {
  QASSERT_TEXT(entry, "entry");
  Ref<DataBlock> backup;
  if (mGlobals->Length()) backup = mGlobals->Get(0, mGlobals->Length());
  InitQuorlScriptRuntime();
  SetRuntimeCorrespondent(correspondent);
  SetRuntimeCode(this);
  SetScriptCodeBounds(RunningCodeBounds);
  RuntimeInit();
  struct HostCall {
    void* initialize;
    void* entry;
    void* finalize;
    ArgumentWords const* arguments;
    bool onFloatStack;
    RuntimeObject* raised = nullptr;
    RuntimeObject* raisedLater = nullptr;
    double floatResult = 0;
    unsigned long long result = 0;
  } call = {FunctionEntry(string("% initialize")), entry,
            FunctionEntry(string("% finalize")), &arguments,
            kind == kResultOnFloatStack};
  RuntimeObject* runaway = CallEndingRunaways(
      [](void* data) {
        HostCall& c = *static_cast<HostCall*>(data);
        unsigned long const* words = c.arguments->mWords;
        if (c.initialize)
          CallScriptEntry(c.initialize, words, 0, nullptr, &c.raised);
        if (!c.raised)
          c.result = CallScriptEntry(c.entry, words, c.onFloatStack,
                                     &c.floatResult, &c.raised);
        if (c.finalize)
          CallScriptEntry(c.finalize, words, 0, nullptr, &c.raisedLater);
      },
      &call);
  if (runaway && !call.raised) call.raised = runaway;
  else if (runaway) RuntimeUnlockObject(runaway);
  RuntimeObject* raised = call.raised;
  RuntimeObject* raisedLater = call.raisedLater;
  unsigned long long result = call.result;
  double floatResult = call.floatResult;
  if (raised) {
    UnhandledException(raised);
    RuntimeUnlockObject(raised);
  }
  if (raisedLater) RuntimeUnlockObject(raisedLater);
  ExitQuorlScriptRuntime();
  if (backup) memcpy(mGlobals->Buffer(), backup->Buffer(), backup->Length());
  if (registers) *registers = result;
  if (floating) *floating = floatResult;
  return !raised;
}

RunReadyCode* MiniLink(Ref<CodeModule> code, StringMap<void*>* functions,
                       LinkerDelegate* failures, Ref<DebuggerSymbols> debug) {
  QuorlScriptLinkIA32* linker = new QuorlScriptLinkIA32;
  QuorlScriptFunctionFinder finder(functions, failures);
  linker->SetQuorlScriptDelegate(&finder);
  linker->Link(code, debug, &finder);
  RunReadyCode* result = nullptr;
  // A module without a main body has nothing to run.
  if (!linker->LinkCancelled() && linker->HasMainEntrypoint()) {
    SimpleVector<string> literals;
    linker->CopyStringLiterals(literals);
    result = new RunReadyCode(
        linker->GetGlobalData(), linker->GetCode(), literals,
        reinterpret_cast<ScriptEntrypoint>(linker->MainEntrypoint()));
    result->SetLineTable(linker->LineTable());
    result->TakeEntrypoints(linker->HandOverEntrypoints());
    unsigned long countdown = 0;
    if (linker->GlobalOffset(kYieldCountdownWord, &countdown))
      result->SetYieldCountdown(countdown);
  }
  delete linker;
  return result;
}

// The single live compile path: from the source text to ready code.
//
// The runtime's declarations and the host's callbacks are put in place
// between the compiler's steps, which is why this path drives the steps
// itself. They are rebuilt for each compilation: nothing of them survives in
// the interface. The source is read twice, once by the declaration scanner
// and once by the full grammar.
#include <new>

#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Compiler/BackEnds/Minilinker/DebugSymbolListing.h"
#include "Compiler/BackEnds/Minilinker/RuntimeDeclarations.h"
#include "Compiler/BackEnds/Minilinker/minilinker.h"
#include "Compiler/Linker/Linker.h"
#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/Miner/Miner.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/compiler.h"
#include "Plugin/CompileModes.h"
#include "Plugin/CompileLock.h"
#include "Plugin/HostCalls.h"
#include "Plugin/QuorlScriptInterface.h"
#include "Plugin/RuntimeLibraryTable.h"
#include "Universal/ByteHelpers.h"
#include "Plugin/ScriptFunctions.h"
#include "Plugin/ScriptRuntime.h"

// The conditional-compilation constants a script sees: every target false,
// then this one's true (the later entries overwrite the earlier ones).
static void SetTargetConstants(StringMap<bool>& constants, bool powerPC) {
  static char const* const kTargets[] = {
      "TargetMacOS", "TargetMacOSClassic", "TargetPPC",   "Target68K",
      "TargetCarbon", "TargetCocoa",       "TargetWin32", "TargetX86",
      "TargetMachO", "TargetPowerPC",      "TargetLinux", "TargetHasGUI"};
  for (char const* target : kTargets) constants.AddEntry(string(target), false);
  constants.AddEntry(string(powerPC ? "TargetPowerPC" : "TargetX86"), true);
  if (powerPC) constants.AddEntry(string("TargetPPC"), true);
  constants.AddEntry(string("TargetLinux"), true);
}

// Reads the source's own declarations into `symbols` and resolves the whole
// tree; false after a fatal declaration error (already reported).
static bool DeclareSource(GlobalSymbolTable* symbols, string const& source,
                          CompilerDelegate* delegate) {
  UnitSymbolTable* unit = ParseDeclarations(string(""), source, delegate);
  if (!unit) return false;
  symbols->MergeUnitSymbols(unit, string(""));
  delete unit;
  ResolveDeclarations(symbols);
  return true;
}

// The listing names what changes from run to run: the correspondent and the
// context, whose addresses calls pass silently, and the host's methods,
// whose link names are made from their addresses.
static void NameBakedAddresses(QuorlScriptCorrespondent* correspondent,
                               void const* context, ModuleSymbol* symbols,
                               TacListingStandIns* standIns) {
  standIns->mAddresses.AddEntry((long)correspondent, string("correspondent"));
  if (context) standIns->mAddresses.AddEntry((long)context, string("context"));
  MethodSymbolIterator methods = symbols->IterateMethods();
  while (methods.Next()) {
    MethodSymbol* method = methods.Value();
    if (IsHostLinkName(method->GetLinkID()))
      standIns->mLinkNames.AddEntry(method->GetLinkID(),
                                    string("host ") + method->Name());
  }
}

Ref<CodeModule> QuorlScriptInterface::CompileSource(
    StringMap<void*>* functionTable, string* listing,
    StringMapCase<string>* powerPCShapes, bool debug) {
  Compiler compiler;
  compiler.mDebug = debug ? 1 : 0;
  compiler.mIntrinsicNames = IntrinsicFunctionNames();
  SetTargetConstants(compiler.mConditionalConstants, powerPCShapes);
  compiler.mCodeType = powerPCShapes ? kCodeTypePowerPC : kCodeTypeIA32;
  // The loader patches every address into the code, and bridges calls
  // through pointers to its C code.
  compiler.mPPCOptions.mCodeModel = kCodeModelAbsolute;
  compiler.mPPCOptions.mCallPointersThroughGlue = true;
  compiler.mCallShapes = powerPCShapes;
  // The system's C and C++ code on this platform assumes a 16-byte aligned
  // stack at every call, and the runtime and the host are such code.
  compiler.mIA32Options.mAlignStack16 = true;
  compiler.mTacListing = listing;
  compiler.mOptimize = VELDOptimizeScripts() != 0;
  compiler.mStaticClassData = ClassRecordsAsStaticData() ? 1 : 0;
  compiler.mGenerateAsParsed = GenerateAsParsed();
  GlobalSymbolTable* symbols = MakeQuorlScriptRuntimeDeclarations(this);
  EncodeHostCallbacks(symbols, functionTable);
  if (listing)
    NameBakedAddresses(this, mContext, symbols, &compiler.mTacListingStandIns);
  string source(mSourceText);
  Ref<CodeModule> module;
  try {
    if (DeclareSource(symbols, source, this)) {
      compiler.SetDelegate(this);
      compiler.mScriptMode = 1;
      module = compiler.Compile(source, string(""), symbols);
    }
  } catch (std::bad_alloc const&) {
    // Reading the declarations ran out of memory; the compile itself
    // reports that on its own.
    CompilerError(kErrorCompilerOutOfMemory, 0);
  }
  mScriptFunctions.deleteAll();
  if (module) CollectScriptFunctions(symbols, &mScriptFunctions);
  delete symbols;
  return module;
}

// Hears whether the link failed: a function the script needs that neither
// the script nor the host has.
class LinkFailureWitness : public LinkerDelegate {
 public:
  void LinkerFailed(string const& message) override { mFailed = true; }
  bool mFailed = false;
};

// A script that compiles but calls what the host does not serve can't run.
// The host hears of it as of an unknown name, since that is what it is; the
// linker knows no source line.
// The whole of it holds the compile lock: the tables the compiler and the
// linker share (intrinsic names, shared operands) are made on first use.
void QuorlScriptInterface::Precompile() {
  if (!mSourceText || mReadyCode) return;
  std::lock_guard<std::mutex> compiling(CompileLock());
  StringMap<void*>* functionTable = MakeQuorlScriptRuntimeFunctionTable(&Resolver);
  Ref<CodeModule> module = CompileSource(functionTable, nullptr);
  if (module) {
    LinkFailureWitness witness;
    try {
      mReadyCode = MiniLink(module, functionTable, &witness);
      if (witness.mFailed) CompilerError(kErrorUnknownName, 0);
    } catch (std::bad_alloc const&) {
      CompilerError(kErrorCompilerOutOfMemory, 0);
    }
  }
  delete functionTable;
}

Ref<CodeModule> QuorlScriptInterface::CompileToModule() {
  if (!mSourceText) return Ref<CodeModule>();
  std::lock_guard<std::mutex> compiling(CompileLock());
  StringMap<void*>* functionTable = MakeQuorlScriptRuntimeFunctionTable(&Resolver);
  Ref<CodeModule> module = CompileSource(functionTable, nullptr);
  delete functionTable;
  return module;
}

bool QuorlScriptInterface::CompileToTacListing(string* listing) {
  if (!mSourceText) return false;
  std::lock_guard<std::mutex> compiling(CompileLock());
  StringMap<void*>* functionTable = MakeQuorlScriptRuntimeFunctionTable(&Resolver);
  Ref<CodeModule> module = CompileSource(functionTable, listing);
  delete functionTable;
  return module;
}

Ref<DebuggerSymbols> QuorlScriptInterface::CompileDebugSymbols() {
  Ref<DebuggerSymbols> symbols;
  if (!mSourceText) return symbols;
  std::lock_guard<std::mutex> compiling(CompileLock());
  StringMap<void*>* functionTable = MakeQuorlScriptRuntimeFunctionTable(&Resolver);
  Ref<CodeModule> module = CompileSource(functionTable, nullptr, nullptr, true);
  if (module) {
    LinkFailureWitness witness;
    symbols = DebuggerSymbols::New();
    delete MiniLink(module, functionTable, &witness, symbols);
    if (witness.mFailed) {
      symbols = Ref<DebuggerSymbols>();
      CompilerError(kErrorUnknownName, 0);
    }
  }
  delete functionTable;
  return symbols;
}

bool QuorlScriptInterface::CompileToDebugSymbolListing(string* listing) {
  Ref<DebuggerSymbols> symbols = CompileDebugSymbols();
  if (symbols) *listing = ListDebuggerSymbols(*symbols);
  return symbols;
}

// Library functions are linked by their address in this process ("_" and
// the address in hex); another process knows them by their runtime names.
static void NameLibraryFunctions(CodeModule* module,
                                 StringMapCase<string>* callShapes) {
  StringMapCase<string> names;
  unsigned long count = 0;
  RuntimeLibraryEntry const* entries = RuntimeLibraryEntries(&count);
  for (unsigned long i = 0; i < count; i++)
    if (void* address = LibraryFunctionAddress(entries[i].mRuntimeName))
      names.AddEntry(string("_") + ultohexa((unsigned long)address),
                     string(entries[i].mRuntimeName));
  string name;
  for (unsigned long f = 0; f < module->mFunctions.size(); f++) {
    SimpleVector<Import>& imports = module->mFunctions[f]->mImports;
    for (unsigned long i = 0; i < imports.size(); i++)
      if (names.GetEntry(imports[i].mName, name)) imports[i].mName = name;
  }
  StringMapCase<string> renamed;
  StringMapIterator<string>* iter = callShapes->NewIterator();
  string shape;
  while (iter->Next(shape))
    renamed.AddEntry(names.GetEntry(iter->Key(), name) ? name : iter->Key(), shape);
  delete iter;
  *callShapes = renamed;
}

Ref<CodeModule> QuorlScriptInterface::CompileForPowerPC(
    StringMapCase<string>* callShapes) {
  if (!mSourceText) return Ref<CodeModule>();
  StringMap<void*>* functionTable = MakeQuorlScriptRuntimeFunctionTable(&Resolver);
  Ref<CodeModule> module;
  {
    std::lock_guard<std::mutex> compiling(CompileLock());
    module = CompileSource(functionTable, nullptr, callShapes);
  }
  delete functionTable;
  if (module) NameLibraryFunctions(&*module, callShapes);
  return module;
}

// A call from the host is a short run of its own: no call while the script
// runs, and a stop the host asks for meanwhile ends it like a run.
int32_t QuorlScriptInterface::CallFunction(char const* name,
                                           QuorlValue const* arguments,
                                           int32_t count, QuorlValue* result) {
  if (mRunning) return kQuorlBusy;
  if (!name || (count && !arguments)) return kQuorlBadArguments;
  if (!mReadyCode) Precompile();
  if (!mReadyCode) return kQuorlNotCompiled;
  mRunning = 1;
  SetRuntimeStackLimit(GetStackLimit());
  SetRuntimeStopWord(&mStopWord);
  int32_t status = CallScriptFunction(mReadyCode, this, mScriptFunctions, name,
                                      arguments, count, result);
  SetRuntimeStopWord(nullptr);
  mRunning = 0;
  if (status == kQuorlRaised && mStopWord == kStopUnwinding) status = kQuorlStopped;
  mStopWord = kStopNone;
  return status;
}

// The host-independent half of a script object: it owns the source text, the
// list of callable host methods and properties, and the ready-to-run code,
// and runs the compile-on-demand cycle. It never calls the host itself; the
// leaf class QuorlInterpreter delivers its reports to the host.
#ifndef PLUGIN_QUORLSCRIPTINTERFACE_H
#define PLUGIN_QUORLSCRIPTINTERFACE_H

#include "Compiler/BackEnds/Minilinker/QuorlScriptCorrespondent.h"
#include "Compiler/Linker/LinkedDebugSymbols.h"
#include "Compiler/SmartRef.h"
#include "Compiler/compiler.h"
#include "Plugin/ScriptFunctions.h"
#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

class CodeModule;
class ModuleSymbol;
class RunReadyCode;
template <class T> class StringMap;

// A host function callable from scripts, known by its declaration text.
struct HostMethod {
  void* mEntry = nullptr;
  bool mWantsContext = false;
  string mDeclaration;
};

// A host function that needs no context object: it gets its data word
// silently as its first argument.
struct HostFunction {
  void* mEntry = nullptr;
  void* mData = nullptr;
  string mDeclaration;
};

// A host property callable from scripts through its getter and setter.
struct HostProperty {
  void* mGetter = nullptr;
  void* mSetter = nullptr;
  long mParameter = 0;
  string mDeclaration;
};

typedef void* RuntimeEntry;

// The detail of the compile error being reported, for hosts that take more
// than the number and the line. Lines and columns count from 1; 0 unknown.
struct CompileErrorDetail {
  bool mValid = false;
  int mNumber = 0;
  string mMessage;
  unsigned long mLine = 0;
  unsigned long mColumn = 0;
};

struct QuorlSignature;

// Reads a host function's declaration as a compilation will, and gives the
// types of its result and parameters; kQuorlBadDeclaration when it does not
// read.
int32_t DescribeHostDeclaration(char const* declaration, QuorlSignature* signature);

class QuorlScriptInterface : public QuorlScriptCorrespondent,
                             public CompilerDelegate {
 public:
  QuorlScriptInterface();
  virtual ~QuorlScriptInterface();

  // Replaces the source; the text is copied up to `length` bytes or the
  // first NUL, and a line feed is appended.
  virtual void SetSource(char const* source, unsigned long length);
  virtual void SetContext(void const* context);
  virtual void RegisterHostMethod(void* entry, bool wantsContext,
                                  char const* declaration);
  virtual void RegisterHostProperty(void* getter, void* setter, long parameter,
                                    char const* declaration);
  virtual void ClearHostCallbacks();
  // Host functions stay when the context changes; these are the host's own.
  void RegisterHostFunction(void* entry, void* data, char const* declaration);
  // Compiles the source into ready code, if there is a source and no ready
  // code yet. Errors go out as CompilerError reports.
  virtual void Precompile();
  // Compiles the source without linking or keeping anything and gives the
  // listing of the program's three-address code; false after compile
  // errors, which are reported as usual. The developer's view of a compile.
  bool CompileToTacListing(string* listing);
  // Compiles the source into its module, unlinked, and keeps nothing; nil
  // after compile errors, which are reported as usual. For tests that look
  // at the generated code itself.
  Ref<CodeModule> CompileToModule();
  // Compiles and links the source with debug data, without running it, and
  // gives that data in readable form; false after compile or link errors,
  // which are reported as usual.
  bool CompileToDebugSymbolListing(string* listing);
  // The debug data itself; nil after compile or link errors.
  Ref<DebuggerSymbols> CompileDebugSymbols();
  // Compiles the source for 32-bit PowerPC, for a loader on that machine,
  // with the argument shapes of its calls by name; nil after compile
  // errors, which are reported as usual. The engine itself never runs it.
  Ref<CodeModule> CompileForPowerPC(StringMapCase<string>* callShapes);
  // Compiles if needed, then runs the ready code, if any, on this thread.
  virtual void Run();
  virtual void CompilerError(CompileErrorCode code, unsigned long line) {}
  virtual void RuntimeError(RuntimeErrorCode code, unsigned long line) {}
  virtual void YieldToOtherThreads() {}
  virtual unsigned long GetStackLimit() { return 0; }
  virtual void SetStackLimit(unsigned long limit) {}
  virtual void InitStackChecker(unsigned long base) {}
  // The delegate's report: passes the number and the start line on.
  int CompilerError(CompileError error) override;

  void ScriptError(RuntimeErrorCode code, unsigned long line) override;
  void ScriptYield() override;

  // Calls the script's Sub or Function of that name with the arguments,
  // compiling first if needed; a QuorlCallStatus. Not while running.
  int32_t CallFunction(char const* name, QuorlValue const* arguments,
                       int32_t count, QuorlValue* result);

  // Asks the run in progress to stop at its next yield; nothing when no
  // run is in progress. Safe from any thread while this object lives.
  void RequestStop();
  // Has the run in progress call the host at its next loop pass; nothing
  // when no run is in progress. Safe from any thread while this object
  // lives.
  void RequestYield();

  // Drops the ready code, so that the next run compiles again. Every
  // operation that can change what the code means calls it first.
  void ForceCompile();

  char const* SourceText() const { return mSourceText; }
  bool HasReadyCode() const { return mReadyCode != nullptr; }
  void const* Context() const { return mContext; }
  SimpleVector<HostMethod> const& HostMethods() const { return mHostMethods; }
  SimpleVector<HostProperty> const& HostProperties() const { return mHostProperties; }
  // The detail of the compile error now being reported; mValid is false
  // for a report that came without one.
  CompileErrorDetail const& PendingCompileError() const { return mPendingError; }

  // The runtime's fourteen entry words, filled when the runtime is installed.
  RuntimeEntry mRuntimeStringCompare = nullptr;
  RuntimeEntry mRuntimeAddString = nullptr;
  RuntimeEntry mRuntimeLockString = nullptr;
  RuntimeEntry mRuntimeUnlockString = nullptr;
  RuntimeEntry mRuntimeLockUnlockStrings = nullptr;
  RuntimeEntry mRuntimeNewObject = nullptr;
  RuntimeEntry mRuntimeLockObject = nullptr;
  RuntimeEntry mRuntimeUnlockObject = nullptr;
  RuntimeEntry mRuntimeLockUnlockObjects = nullptr;
  RuntimeEntry mCreateArray = nullptr;
  RuntimeEntry mRuntimeCreateArrayCastWrapper = nullptr;
  RuntimeEntry mRuntimeLockArray = nullptr;
  RuntimeEntry mRuntimeUnlockArray = nullptr;
  RuntimeEntry mRuntimeLockUnlockArrays = nullptr;

 private:
  QuorlScriptInterface(QuorlScriptInterface const&) = delete;
  // Adds every registered host method and property to `symbols` and its
  // entry to `table`; a declaration that does not read, or whose types
  // can't cross to the host, is left out.
  void EncodeHostCallbacks(ModuleSymbol* symbols, StringMap<void*>* table);
  // Declarations, scan, merge, resolve and compile: a module, or nil after
  // errors. The listing, when asked for, is taken after the front end.
  // With `powerPCShapes` the code is PowerPC's, and the shapes of its calls
  // go there.
  // With `debug` the module carries the debug data of its symbols.
  Ref<CodeModule> CompileSource(StringMap<void*>* functionTable, string* listing,
                                StringMapCase<string>* powerPCShapes = nullptr,
                                bool debug = false);
  void EncodeHostMethods(ModuleSymbol* symbols, StringMap<void*>* table);
  void EncodeHostProperties(ModuleSymbol* symbols, StringMap<void*>* table);
  void EncodeHostFunctions(ModuleSymbol* symbols, StringMap<void*>* table);
  QuorlScriptInterface& operator=(QuorlScriptInterface const&) = delete;

  char* mSourceText = nullptr;
  long mRunning = 0;
  RunReadyCode* mReadyCode = nullptr;
  void const* mContext = nullptr;
  SimpleVector<HostMethod> mHostMethods;
  SimpleVector<HostProperty> mHostProperties;
  SimpleVector<HostFunction> mHostFunctions;
  // The script's own functions, known with the ready code.
  SimpleVector<ScriptFunction> mScriptFunctions;
  CompileErrorDetail mPendingError;
  // A ScriptStopState; written by other threads.
  volatile long mStopWord = 0;
};

// Whether a link name is one that the host callbacks made from an entry's
// address.
bool IsHostLinkName(string const& name);

#endif

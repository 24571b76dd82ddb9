// The host-independent half of a script object: it owns the source text, the
// list of callable host methods and properties, and the ready-to-run code,
// and runs the compile-on-demand cycle. It never calls the host itself; the
// leaf class QuorlInterpreter delivers its reports to the host.
#ifndef PLUGIN_QUORLSCRIPTINTERFACE_H
#define PLUGIN_QUORLSCRIPTINTERFACE_H

#include "Compiler/BackEnds/Minilinker/QuorlScriptCorrespondent.h"
#include "Compiler/SmartRef.h"
#include "Compiler/compiler.h"
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

// A host property callable from scripts through its getter and setter.
struct HostProperty {
  void* mGetter = nullptr;
  void* mSetter = nullptr;
  long mParameter = 0;
  string mDeclaration;
};

typedef void* RuntimeEntry;

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
  // Compiles the source into ready code, if there is a source and no ready
  // code yet. Errors go out as CompilerError reports.
  virtual void Precompile();
  // Compiles the source without linking or keeping anything and gives the
  // listing of the program's three-address code; false after compile
  // errors, which are reported as usual. The developer's view of a compile.
  bool CompileToTacListing(string* listing);
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

  // Drops the ready code, so that the next run compiles again. Every
  // operation that can change what the code means calls it first.
  void ForceCompile();

  char const* SourceText() const { return mSourceText; }
  bool HasReadyCode() const { return mReadyCode != nullptr; }
  void const* Context() const { return mContext; }
  SimpleVector<HostMethod> const& HostMethods() const { return mHostMethods; }
  SimpleVector<HostProperty> const& HostProperties() const { return mHostProperties; }

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
  Ref<CodeModule> CompileSource(StringMap<void*>* functionTable, string* listing);
  void EncodeHostMethods(ModuleSymbol* symbols, StringMap<void*>* table);
  void EncodeHostProperties(ModuleSymbol* symbols, StringMap<void*>* table);
  QuorlScriptInterface& operator=(QuorlScriptInterface const&) = delete;

  char* mSourceText = nullptr;
  long mRunning = 0;
  RunReadyCode* mReadyCode = nullptr;
  void const* mContext = nullptr;
  SimpleVector<HostMethod> mHostMethods;
  SimpleVector<HostProperty> mHostProperties;
};

#endif

// The host-specific leaf of a script object: it delivers output, input and
// error reports to the host as events of the QuorlScript instance, and passes
// the yield and the stack limit through to the host.
#ifndef PLUGIN_QUORLINTERPRETER_H
#define PLUGIN_QUORLINTERPRETER_H

#include "Compiler/BackEnds/Minilinker/ScriptCallStack.h"
#include "Plugin/PluginBoundary.h"
#include "Plugin/QuorlScriptClass.h"
#include "Plugin/QuorlScriptInterface.h"

class QuorlInterpreter : public QuorlScriptInterface {
 public:
  // `hostObject` is a weak back pointer: the instance owns this object.
  explicit QuorlInterpreter(VELDObject hostObject) : mHostObject(hostObject) {}
  ~QuorlInterpreter() override {}

  void Print(char const* text, unsigned long length) override;
  char* Input(char const* prompt, unsigned long promptLength,
              unsigned long* resultLength) override;
  using QuorlScriptInterface::CompilerError;
  void CompilerError(CompileErrorCode code, unsigned long line) override;
  void RuntimeError(RuntimeErrorCode code, unsigned long line) override;
  void YieldToOtherThreads() override;
  unsigned long GetStackLimit() override;
  void SetStackLimit(unsigned long limit) override;
  void InitStackChecker(unsigned long base) override;

  VELDObject HostObject() const { return mHostObject; }

 private:
  // The host's handler of one of the instance's events, or null.
  void* EventHandler(QuorlScriptEventIndex event) const;
  void MarkAborted();
  void ReportCompileErrorDetail(CompileErrorCode code, unsigned long line);
  void ReportRuntimeErrorDetail(RuntimeErrorCode code);
  void ReportCallStack(ScriptCallStack const& stack);

  VELDObject mHostObject;
};

#endif

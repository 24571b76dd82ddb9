// The one table of names the resolver serves. New host functions, such as
// the runtime library the engine links scripts against, join it through
// RegisterHostFunction.
#include <map>
#include <string>

#include "StandInHost/HostOperations.h"
#include "StandInHost/HostState.h"
#include "StandInHost/ScriptEvents.h"
#include "StandInHost/RuntimeLibrary/RuntimeLibrary.h"

namespace quorl {
namespace {

// The cast to the boundary's typedef makes the compiler check each
// signature against the contract.
template <class Proc>
void* Entry(Proc proc) {
  return reinterpret_cast<void*>(proc);
}

std::map<std::string, void*> BuiltInOperations() {
  using namespace standin;
  return {
      {"RegisterPluginVersion",
       Entry<VELDRegisterPluginVersionProc>(&RegisterPluginVersion)},
      {"VELDRegisterClass", Entry<VELDRegisterClassProc>(&VELDRegisterClass)},
      {"VELDGetQuorlVersion",
       Entry<VELDGetQuorlVersionProc>(&VELDGetQuorlVersion)},
      {"VELDinRuntime", Entry<VELDinRuntimeProc>(&VELDinRuntime)},
      {"VELDOptimizeScripts",
       Entry<VELDOptimizeScriptsProc>(&VELDOptimizeScripts)},
      {"VELDGetClassData", Entry<VELDGetClassDataProc>(&VELDGetClassData)},
      {"VELDGetEventInstance",
       Entry<VELDGetEventInstanceProc>(&VELDGetEventInstance)},
      {"VELDBuildString", Entry<VELDBuildStringProc>(&VELDBuildString)},
      {"VELDSetStringEncoding",
       Entry<VELDSetStringEncodingProc>(&VELDSetStringEncoding)},
      {"VELDConvertString", Entry<VELDConvertStringProc>(&VELDConvertString)},
      {"VELDGetStringEncoding",
       Entry<VELDGetStringEncodingProc>(&VELDGetStringEncoding)},
      {"VELDLockString", Entry<VELDLockStringProc>(&VELDLockString)},
      {"VELDUnlockString", Entry<VELDUnlockStringProc>(&VELDUnlockString)},
      {"VELDLockObject", Entry<VELDLockObjectProc>(&VELDLockObject)},
      {"VELDUnlockObject", Entry<VELDUnlockObjectProc>(&VELDUnlockObject)},
      {"VELDnewInstance", Entry<VELDnewInstanceProc>(&VELDnewInstance)},
      {"VELDRaiseException", Entry<VELDRaiseExceptionProc>(&VELDRaiseException)},
      {"VELDYieldToQuorl", Entry<VELDYieldToQuorlProc>(&VELDYieldToQuorl)},
      {"VELDCountClassMethods",
       Entry<VELDCountClassMethodsProc>(&VELDCountClassMethods)},
      {"VELDGetClassMethod", Entry<VELDGetClassMethodProc>(&VELDGetClassMethod)},
      {"VELDCountClassProperties",
       Entry<VELDCountClassPropertiesProc>(&VELDCountClassProperties)},
      {"VELDGetClassProperty",
       Entry<VELDGetClassPropertyProc>(&VELDGetClassProperty)},
      {"VELDGetStackLimit", Entry<VELDGetStackLimitProc>(&VELDGetStackLimit)},
      {"VELDSetStackLimit", Entry<VELDSetStackLimitProc>(&VELDSetStackLimit)},
      {"VELDInitStackChecker",
       Entry<VELDInitStackCheckerProc>(&VELDInitStackChecker)},
      {"QuorlCompileErrorDetail",
       Entry<QuorlCompileErrorDetailProc>(&QuorlCompileErrorDetail)},
      {"QuorlRuntimeErrorDetail",
       Entry<QuorlRuntimeErrorDetailProc>(&QuorlRuntimeErrorDetail)},
      {"QuorlRuntimeCallStack",
       Entry<QuorlRuntimeCallStackProc>(&QuorlRuntimeCallStack)},
      {"QuorlScriptStopped", Entry<QuorlScriptStoppedProc>(&QuorlScriptStopped)},
      {"QuorlTakeEngineOperations",
       Entry<QuorlTakeEngineOperationsProc>(&QuorlTakeEngineOperations)},
  };
}

std::map<std::string, void*>& FunctionTable() {
  static std::map<std::string, void*> table = BuiltInOperations();
  static bool sLibraryJoined = false;
  if (!sLibraryJoined) {
    sLibraryJoined = true;  // registering comes back through here
    standin::RegisterRuntimeLibrary();
  }
  return table;
}

}  // namespace

void RegisterHostFunction(std::string const& name, void* address) {
  FunctionTable()[name] = address;
}

// Names are C symbols and compare with case. A withheld name is one the
// host pretends never to have heard of.
void* ResolveHostName(char const* name) {
  if (!name || standin::Host().options.withheld.count(name)) return nullptr;
  auto found = FunctionTable().find(name);
  return found == FunctionTable().end() ? nullptr : found->second;
}

}  // namespace quorl

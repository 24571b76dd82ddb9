// Finding, loading and attaching the plug-in.
#include <dlfcn.h>
#include <stdlib.h>
#include <unistd.h>

#include "StandInHost/HostClasses.h"
#include "StandInHost/HostState.h"
#include "StandInHost/PluginCalls.h"

namespace quorl {
namespace {

constexpr char kPluginFileName[] = "QuorlScriptPlugin.so";

std::string ExecutableDirectory() {
  char path[4096];
  ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
  if (length <= 0) return ".";
  std::string exe(path, static_cast<size_t>(length));
  size_t slash = exe.rfind('/');
  return slash == std::string::npos ? "." : exe.substr(0, slash);
}

std::string DlError() {
  char const* text = dlerror();
  return text ? text : "unknown error";
}

}  // namespace

// The environment's choice first, then the plug-in beside the program, the
// one built with this library, and the one installed with it.
std::string DefaultPluginPath() {
  char const* fromEnvironment = getenv("QUORL_PLUGIN");
  if (fromEnvironment && *fromEnvironment) return fromEnvironment;
  std::string beside = ExecutableDirectory() + "/" + kPluginFileName;
  if (access(beside.c_str(), F_OK) == 0) return beside;
  for (char const* candidate : {QUORL_BUILT_PLUGIN, QUORL_INSTALLED_PLUGIN})
    if (access(candidate, F_OK) == 0) return candidate;
  return beside;
}

// The plug-in stays loaded for the rest of the process: the engine's code
// and records are referenced from host objects and cached addresses.
void LoadPlugin(std::string const& path, HostOptions const& options) {
  std::string file = path.empty() ? DefaultPluginPath() : path;
  void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library)
    throw LoadError("cannot load plug-in: " + DlError());
  void* entry = dlsym(library, "VELDPluginMain");
  if (!entry)
    throw LoadError("plug-in " + file + " has no entry VELDPluginMain");
  Attach(reinterpret_cast<VELDPluginMainProc>(entry), options);
}

void Attach(VELDPluginMainProc pluginMain, HostOptions const& options) {
  if (!pluginMain) throw LoadError("no plug-in entry to attach");
  standin::Host().options = options;
  standin::Host().pluginVersion = 0;
  standin::Host().engine = nullptr;
  standin::ResetClassRegistry();
  standin::CallIntoPlugin([&] { pluginMain(&ResolveHostName); });
}

void SetYieldHook(std::function<void()> hook) {
  standin::Host().options.yieldHook = std::move(hook);
}

bool IsClassRegistered(std::string const& name) {
  return standin::FindClass(name.c_str()) != nullptr;
}

int RegisteredPluginVersion() { return standin::Host().pluginVersion; }

}  // namespace quorl

// The embedding API of QuorlScript.
//
// A C++ program that wants to run scripts loads the plug-in (or attaches an
// engine linked into the program), creates Script objects, gives them source
// text and event handlers, and runs them. Underneath stands a small host
// runtime that serves the plug-in's host operations by name; the program
// never has to touch them, but the raw records stay reachable for tests.
//
// Failures of the host side surface as C++ exceptions derived from
// quorl::Error. Faults in a user's script do not: they arrive as
// CompilerError and RuntimeError events, and the script's State becomes
// Aborted.
#ifndef QUORL_QUORLHOST_H
#define QUORL_QUORLHOST_H

#include <cstddef>
#include <functional>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Plugin/PluginBoundary.h"

namespace quorl {

// ---------------------------------------------------------------- failures

// The root of everything the embedding API throws.
class Error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The plug-in could not be loaded, has no entry, or is attached wrongly.
class LoadError : public Error {
 public:
  using Error::Error;
};

// No class of that name is registered with the host.
class UnknownClass : public Error {
 public:
  explicit UnknownClass(std::string const& className);
  std::string const& ClassName() const { return mClassName; }

 private:
  std::string mClassName;
};

// The engine raised a host exception (VELDRaiseException) during the call.
class HostException : public Error {
 public:
  explicit HostException(std::string const& className);
  std::string const& ClassName() const { return mClassName; }

 private:
  std::string mClassName;
};

// Source or Context was set while the script was running.
class ScriptAlreadyRunning : public HostException {
 public:
  explicit ScriptAlreadyRunning(std::string const& className);
};

// ---------------------------------------------------------------- the host

// How the stand-in host presents itself to the plug-in.
struct HostOptions {
  // What "VELDGetQuorlVersion" reports.
  double version = 2007.04;
  // What "VELDinRuntime" reports: a built program, not a design environment.
  bool inRuntime = true;
  // What "VELDOptimizeScripts" reports: whether the engine may optimize
  // the code it compiles.
  bool optimize = true;
  // Host operations the resolver pretends not to know.
  std::set<std::string> withheld;
  // What "VELDGetStackLimit" reports until the plug-in sets another: the
  // lowest stack address script code may reach. 0 lets the host compute it
  // from the calling thread's stack (its low end plus a margin for the
  // raise and the handlers).
  unsigned long stackLimit = 0;
  // Run on every "VELDYieldToQuorl". An exception it throws ends up thrown
  // from the Run() or Precompile() that was running.
  std::function<void()> yieldHook;
};

// The plug-in beside the running executable, unless QUORL_PLUGIN names one.
std::string DefaultPluginPath();

// Loads the plug-in (an empty path means DefaultPluginPath()) and calls its
// VELDPluginMain with the host's resolver. Throws LoadError. Attaching again
// starts over with a fresh class registry.
void LoadPlugin(std::string const& path = std::string(),
                HostOptions const& options = HostOptions());

// As LoadPlugin, for an engine linked into the program.
void Attach(VELDPluginMainProc pluginMain,
            HostOptions const& options = HostOptions());

// Replaces the yield hook of the current options.
void SetYieldHook(std::function<void()> hook);

// True when a class of that name (any case) is registered.
bool IsClassRegistered(std::string const& name);

// The version the plug-in gave to "RegisterPluginVersion"; 0 if none.
int RegisteredPluginVersion();

// Adds a name to the resolver's table, or replaces its address. This is how
// the runtime library functions that the host serves are made known.
void RegisterHostFunction(std::string const& name, void* address);

// The resolver handed to VELDPluginMain.
void* ResolveHostName(char const* name);

// ------------------------------------------------- host classes and objects

// A class the embedding program defines, such as a script's context. Its
// methods are called as entry(object, arguments...); its properties follow
// the engine's getter(object, parameter) and setter(object, parameter, value)
// convention.
class HostClass {
 public:
  struct Method {
    void* entry;
    std::string declaration;  // as the script sees it: "Sub Beep()"
  };
  struct Property {
    void* getter;
    void* setter;
    long parameter;
    std::string declaration;  // "Count As Integer"
  };

  explicit HostClass(std::string name, std::size_t dataSize = 0,
                     std::string superName = std::string());

  HostClass& AddMethod(void* entry, std::string declaration);
  HostClass& AddProperty(void* getter, void* setter, long parameter,
                         std::string declaration);
  HostClass& SetConstructor(VELDInstanceProc constructor);
  HostClass& SetDestructor(VELDInstanceProc destructor);

  template <class R, class... A>
  HostClass& AddMethod(R (*entry)(A...), std::string declaration) {
    return AddMethod(reinterpret_cast<void*>(entry), std::move(declaration));
  }

  std::string const& Name() const { return mName; }
  std::string const& SuperName() const { return mSuperName; }
  std::size_t DataSize() const { return mDataSize; }
  VELDInstanceProc Constructor() const { return mConstructor; }
  VELDInstanceProc Destructor() const { return mDestructor; }
  std::vector<Method> const& Methods() const { return mMethods; }
  std::vector<Property> const& Properties() const { return mProperties; }

 private:
  std::string mName;
  std::string mSuperName;
  std::size_t mDataSize;
  VELDInstanceProc mConstructor = nullptr;
  VELDInstanceProc mDestructor = nullptr;
  std::vector<Method> mMethods;
  std::vector<Property> mProperties;
};

// Registers the class with the host (replacing one of the same name).
VELDClassRef DefineClass(HostClass const& cls);

// One reference to a host object; copying adds a reference.
class Object {
 public:
  Object() = default;
  // A new instance of the named class; throws UnknownClass.
  static Object New(std::string const& className);
  // Takes over a reference the caller owns.
  static Object Adopt(VELDObject object);
  // Adds a reference of its own.
  static Object Share(VELDObject object);

  Object(Object const& other);
  Object(Object&& other) noexcept;
  Object& operator=(Object other) noexcept;
  ~Object();

  VELDObject Get() const { return mObject; }
  explicit operator bool() const { return mObject != nullptr; }
  std::string ClassName() const;
  // The instance data of the object's own class.
  void* Data() const;
  long References() const;

 private:
  explicit Object(VELDObject object) : mObject(object) {}
  VELDObject mObject = nullptr;
};

// The class name of any host object; "" for nil.
std::string ClassNameOf(VELDObject object);
// True when the object's class is, or derives from, the named class.
bool IsInstanceOf(VELDObject object, std::string const& className);
// The instance data of the object's own class, for host method bodies.
void* InstanceData(VELDObject object);
// Host objects alive now, of all classes.
long LiveObjectCount();

// ---------------------------------------------------------------- scripts

enum class ScriptState : int {
  Idle = 0,
  Running = 1,
  Complete = 2,
  Aborted = 3,
};

// One instance of the plug-in's "QuorlScript" class. Every call goes through
// the class record the plug-in registered, as any host would. A handler may
// call back into the same script; an exception a handler throws is held back
// while engine code is on the stack and rethrown by the outermost Run() or
// Precompile(), and later events of that call are not delivered.
class Script {
 public:
  using PrintHandler = std::function<void(std::string const& message)>;
  using InputHandler = std::function<std::string(std::string const& prompt)>;
  using CompilerErrorHandler =
      std::function<void(int line, int number, std::string const& message)>;
  using RuntimeErrorHandler =
      std::function<void(int line, std::string const& exceptionClass)>;

  // Throws UnknownClass when the plug-in registered no "QuorlScript".
  Script();
  ~Script();
  Script(Script&& other) noexcept;
  Script& operator=(Script&& other) noexcept;
  Script(Script const&) = delete;
  Script& operator=(Script const&) = delete;

  // Setters throw ScriptAlreadyRunning while the script runs.
  void SetSource(std::string const& source);
  std::string Source() const;
  void SetContext(Object const& context);
  void SetContext(std::nullptr_t);

  void Run();
  void Precompile();
  void Reset();
  ScriptState State() const;

  // An empty function removes the handler: the engine then sees none.
  void OnPrint(PrintHandler handler);
  void OnInput(InputHandler handler);
  void OnCompilerError(CompilerErrorHandler handler);
  void OnRuntimeError(RuntimeErrorHandler handler);

  // The host object behind the script, for white-box tests.
  VELDObject Instance() const;

  struct Impl;

 private:
  std::unique_ptr<Impl> mImpl;
};

}  // namespace quorl

#endif

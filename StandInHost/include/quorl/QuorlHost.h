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
#include "quorl/QuorlBindings.h"

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

// A binding refused at registration: its declaration does not read, or does
// not fit the C++ function.
class BindingError : public Error {
 public:
  using Error::Error;
};

// A call into a script's function failed: no such function, arguments
// that do not fit, compile errors, an uncaught exception or a stop (the
// detail of the last two is in Errors()).
class CallError : public Error {
 public:
  using Error::Error;
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

// The plug-in QUORL_PLUGIN names; else the one beside the running
// executable; else the one built with this library (a program built beside
// the engine); else the installed one.
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

  // Checked forms: the C++ function takes the object first, then what the
  // declaration declares, in the types the script passes (int32_t, int64_t,
  // double, float, bool, VELDString; a Boolean result as int32_t). A
  // property's getter is T getter(object, parameter), its setter
  // setter(object, parameter, T), either may be null. DefineClass checks
  // each declaration against its function when an engine is loaded, and
  // throws BindingError when one does not read or does not fit.
  template <class R, class... A>
  HostClass& AddMethod(R (*entry)(VELDObject, A...), std::string declaration) {
    mChecks.push_back({false, mMethods.size(), detail::RawSignature<R, A...>()});
    return AddMethod(reinterpret_cast<void*>(entry), std::move(declaration));
  }
  template <class T>
  HostClass& AddProperty(T (*getter)(VELDObject, long),
                         void (*setter)(VELDObject, long, T), long parameter,
                         std::string declaration) {
    mChecks.push_back({true, mProperties.size(), detail::RawSignature<T>()});
    return AddProperty(reinterpret_cast<void*>(getter),
                       reinterpret_cast<void*>(setter), parameter,
                       std::move(declaration));
  }

  // What the checked forms recorded: a member and its C++ signature.
  struct Check {
    bool property;
    std::size_t index;
    detail::CppSignature signature;
  };
  std::vector<Check> const& Checks() const { return mChecks; }

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
  std::vector<Check> mChecks;
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
  Aborted = 3,  // a compile error, an uncaught exception, or a stop
};

// One frame of a script's call stack: the function as the source names it
// ("Leaf", "Shape.Area"; "<main>" for the main body) and the line, from 1.
struct StackFrame {
  std::string function;
  int line = 0;
};

// One error of a Run() or Precompile(), in full. Lines and columns count
// from 1 here (0 when unknown); the classic CompilerError event counts
// lines from 0.
struct ScriptError {
  enum class Kind {
    Compile,  // a compile error: number, summary, message, line, column
    Runtime,  // an exception no handler caught: class, message, number, line
    Stopped,  // the host stopped the run (Script::Stop or a yield hook)
  };
  Kind kind = Kind::Compile;
  int number = 0;              // the compile error's number; an
                               // exception's ErrorNumber
  std::string summary;         // the number's text: "unknown name"
  std::string message;         // "unknown name: Foo"; an exception's message
  std::string exceptionClass;  // "OutOfBoundsException"
  int line = 0;
  int column = 0;
  // A runtime error's call stack where the exception was raised, innermost
  // first: the raise, then each call that led there. Very deep stacks keep
  // their innermost frames only, and callStackComplete is then false.
  std::vector<StackFrame> callStack;
  bool callStackComplete = true;
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
  using ErrorHandler = std::function<void(ScriptError const& error)>;

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

  // Both give the state after the call: Complete, or Aborted with the
  // reasons in Errors().
  ScriptState Run();
  ScriptState Precompile();
  void Reset();
  ScriptState State() const;

  // The errors of the last Run() or Precompile(), in the order they came.
  std::vector<ScriptError> const& Errors() const;

  // Asks the running script to stop at its next yield (every loop
  // iteration, every GoTo and every call yields). The script can't catch
  // the stop; each frame's cleanup runs, Run() returns with the state
  // Aborted and a Stopped error, and the script can run again. Safe from
  // any thread, and from a handler or the yield hook; does nothing when
  // the script is not running. An exception thrown by the yield hook stops
  // the script the same way, and Run() then rethrows it.
  void Stop();

  // An empty function removes the handler: the engine then sees none.
  void OnPrint(PrintHandler handler);
  void OnInput(InputHandler handler);
  void OnCompilerError(CompilerErrorHandler handler);
  void OnRuntimeError(RuntimeErrorHandler handler);
  // Every error in full, as it happens (see ScriptError).
  void OnError(ErrorHandler handler);

  // Makes a C++ function (a plain function, a lambda, any callable) callable
  // from this script's code, as a global Sub or Function; it stays when the
  // context changes. `nameOrDeclaration` is a name ("Twice"), from which the
  // declaration is derived ("Function Twice(p1 As Integer) As Integer"), or
  // a whole declaration, which is checked against the C++ signature. Throws
  // BindingError when the declaration does not read or does not fit. The
  // types that cross are listed in quorl/QuorlBindings.h. The callable is
  // kept (copied) as long as this Script lives.
  template <class F>
  void AddFunction(std::string const& nameOrDeclaration, F function) {
    using Bound = typename detail::Callable<std::decay_t<F>>::Bound;
    auto held = std::make_shared<typename Bound::Function>(std::move(function));
    AddBoundFunction(nameOrDeclaration, Bound::Signature(),
                     reinterpret_cast<void*>(&Bound::Entry), held);
  }

  // Calls the script's Sub or Function of that name with the arguments
  // (types as for bindings; the first overload whose parameters match them
  // exactly) and gives its result as R. The script is compiled first if it
  // needs to be; with R void a result is dropped. The call starts from the script's globals as declared:
  // the top-level statements do not run, each call starts afresh. Throws
  // CallError; not while the script runs.
  template <class R = void, class... A>
  R Call(std::string const& name, A const&... arguments) {
    std::vector<detail::CallValue> values = {detail::ToCallValue(arguments)...};
    detail::CallValue result = CallFunction(name, values, detail::ResultType<R>());
    return detail::FromCallValue<R>(result);
  }

  // The host object behind the script, for white-box tests.
  VELDObject Instance() const;

  struct Impl;

 private:
  detail::CallValue CallFunction(std::string const& name,
                                 std::vector<detail::CallValue> const& arguments,
                                 detail::ValueType resultType);
  void AddBoundFunction(std::string const& nameOrDeclaration,
                        detail::CppSignature const& signature, void* entry,
                        std::shared_ptr<void> function);

  std::unique_ptr<Impl> mImpl;
};

}  // namespace quorl

#endif

// The script object of the embedding API: a "QuorlScript" instance driven
// through its class record.
#include "StandInHost/HostObjects.h"
#include "StandInHost/HostState.h"
#include "StandInHost/HostStrings.h"
#include "StandInHost/PluginCalls.h"
#include "StandInHost/ScriptEvents.h"
#include "StandInHost/ScriptRecords.h"
#include "StandInHost/YieldTicker.h"

namespace quorl {

using namespace standin;

struct Script::Impl {
  VELDObject instance = nullptr;
  VELDClassDefinition* definition = nullptr;
  ScriptCallbacks callbacks;
  // The callables of the bindings, which compiled code points at.
  std::vector<std::shared_ptr<void>> boundFunctions;

  void CallMethod(char const* declaration) {
    auto method = reinterpret_cast<VELDInstanceProc>(
        FindMethod(definition, declaration).mFunction);
    CallIntoPlugin([&] { method(instance); });
  }

  // Run and Precompile: the errors start afresh, and a failing yield hook
  // knows which script to stop.
  void CallReporting(char const* declaration) {
    callbacks.errors.clear();
    VELDObject outer = CurrentScriptInstance();
    SetCurrentScriptInstance(instance);
    YieldTicks ticks(instance);
    try {
      CallMethod(declaration);
    } catch (...) {
      SetCurrentScriptInstance(outer);
      throw;
    }
    SetCurrentScriptInstance(outer);
  }

  VELDProperty const& Property(char const* name) const {
    return FindProperty(definition, name);
  }

  void Bind() { BindEvents(instance, &callbacks); }
};

namespace {

constexpr char kScriptClass[] = "QuorlScript";

typedef int (*IntegerGetterProc)(VELDObject instance, long parameter);
typedef VELDString (*StringGetterProc)(VELDObject instance, long parameter);

}  // namespace

Script::Script() : mImpl(std::make_unique<Impl>()) {
  VELDClassRef cls = FindClass(kScriptClass);
  if (!cls || !cls->mDefinition) throw UnknownClass(kScriptClass);
  CallIntoPlugin([&] { mImpl->instance = NewObject(cls); });
  mImpl->definition = cls->mDefinition;
  mImpl->Bind();
}

// The instance may outlive this object if someone else holds it, so it is
// cut off from the callables first.
Script::~Script() {
  if (!mImpl || !mImpl->instance) return;
  UnbindEvents(mImpl->instance);
  try {
    CallIntoPlugin([&] { UnlockObject(mImpl->instance); });
  } catch (...) {
  }
}

Script::Script(Script&& other) noexcept = default;
Script& Script::operator=(Script&& other) noexcept = default;

void Script::SetSource(std::string const& source) {
  VELDProperty const& property = mImpl->Property("Source");
  auto setter = reinterpret_cast<VELDStringSetterProc>(property.mSetter);
  VELDString text = NewHostString(source);
  CallIntoPlugin([&] {
    setter(mImpl->instance, property.mParameter, text);
    UnlockStringStorage(text);
  });
}

std::string Script::Source() const {
  VELDProperty const& property = mImpl->Property("Source");
  if (property.mGetter == kVELDDirectAccess) {
    return ToStdString(*static_cast<VELDString*>(
        DirectField(mImpl->instance, mImpl->definition, property)));
  }
  auto getter = reinterpret_cast<StringGetterProc>(property.mGetter);
  VELDString text = getter(mImpl->instance, property.mParameter);
  std::string result = ToStdString(text);
  UnlockStringStorage(text);
  return result;
}

void Script::SetContext(Object const& context) {
  VELDProperty const& property = mImpl->Property("Context");
  auto setter = reinterpret_cast<VELDObjectSetterProc>(property.mSetter);
  CallIntoPlugin(
      [&] { setter(mImpl->instance, property.mParameter, context.Get()); });
}

void Script::SetContext(std::nullptr_t) { SetContext(Object()); }

ScriptState Script::Run() {
  mImpl->CallReporting("Run()");
  return State();
}

ScriptState Script::Precompile() {
  mImpl->CallReporting("Precompile()");
  return State();
}

std::vector<ScriptError> const& Script::Errors() const {
  return mImpl->callbacks.errors;
}

void Script::Stop() {
  QuorlEngineOperations const* engine = Host().engine;
  if (engine && engine->mRequestStop) engine->mRequestStop(mImpl->instance);
}

void Script::Reset() { mImpl->CallMethod("Reset()"); }

ScriptState Script::State() const {
  VELDProperty const& property = mImpl->Property("State");
  if (property.mGetter == kVELDDirectAccess) {
    return static_cast<ScriptState>(*static_cast<int32_t*>(
        DirectField(mImpl->instance, mImpl->definition, property)));
  }
  auto getter = reinterpret_cast<IntegerGetterProc>(property.mGetter);
  return static_cast<ScriptState>(getter(mImpl->instance, property.mParameter));
}

void Script::OnPrint(PrintHandler handler) {
  mImpl->callbacks.print = std::move(handler);
  mImpl->Bind();
}

void Script::OnInput(InputHandler handler) {
  mImpl->callbacks.input = std::move(handler);
  mImpl->Bind();
}

void Script::OnCompilerError(CompilerErrorHandler handler) {
  mImpl->callbacks.compilerError = std::move(handler);
  mImpl->Bind();
}

void Script::OnError(ErrorHandler handler) {
  mImpl->callbacks.error = std::move(handler);
}

void Script::OnRuntimeError(RuntimeErrorHandler handler) {
  mImpl->callbacks.runtimeError = std::move(handler);
  mImpl->Bind();
}

void Script::AddBoundFunction(std::string const& nameOrDeclaration,
                              detail::CppSignature const& signature,
                              void* entry, std::shared_ptr<void> function) {
  std::string declaration = detail::CheckedDeclaration(nameOrDeclaration, signature);
  int32_t status = Host().engine->mAddHostFunction(mImpl->instance, entry,
                                                   function.get(), declaration.c_str());
  if (status != kQuorlCallDone)
    throw BindingError("the engine refused \"" + declaration + "\"");
  mImpl->boundFunctions.push_back(std::move(function));
}

namespace {

QuorlValue ToEngineValue(detail::CallValue const& value) {
  QuorlValue v;
  v.mType = value.type;
  switch (value.type) {
    case detail::kInt64: v.mInt64 = value.integer; break;
    case detail::kDouble: v.mDouble = value.real; break;
    case detail::kSingle: v.mSingle = static_cast<float>(value.real); break;
    case detail::kString: v.mString = value.text.empty() ? nullptr : NewHostString(value.text); break;
    default: v.mInteger = static_cast<int32_t>(value.integer); break;
  }
  return v;
}

// A string result comes with a reference, which is dropped here.
detail::CallValue FromEngineValue(QuorlValue const& value) {
  detail::CallValue v;
  v.type = static_cast<detail::ValueType>(value.mType);
  switch (value.mType) {
    case kQuorlInt64: v.integer = value.mInt64; break;
    case kQuorlDouble: v.real = value.mDouble; break;
    case kQuorlSingle: v.real = value.mSingle; break;
    case kQuorlString:
      v.text = ToStdString(value.mString);
      UnlockStringStorage(value.mString);
      break;
    default: v.integer = value.mInteger; break;
  }
  return v;
}

char const* CallFailure(int32_t status) {
  switch (status) {
    case kQuorlNoSuchFunction: return "the script has no Sub or Function of that name";
    case kQuorlBadArguments: return "the arguments do not fit the function's parameters";
    case kQuorlNotCompiled: return "the script does not compile";
    case kQuorlRaised: return "the function ended in an uncaught exception";
    case kQuorlStopped: return "the call was stopped";
    case kQuorlBusy: return "the script is running";
    default: return "the engine cannot call into scripts";
  }
}

}  // namespace

detail::CallValue Script::CallFunction(std::string const& name,
                                       std::vector<detail::CallValue> const& arguments,
                                       detail::ValueType resultType) {
  QuorlEngineOperations const* engine = Host().engine;
  std::vector<QuorlValue> values;
  for (detail::CallValue const& argument : arguments)
    values.push_back(ToEngineValue(argument));
  QuorlValue result;
  result.mType = kQuorlNoValue;
  int32_t const kNoEngine = -1;
  int32_t status = kNoEngine;
  mImpl->callbacks.errors.clear();
  VELDObject outer = CurrentScriptInstance();
  SetCurrentScriptInstance(mImpl->instance);
  YieldTicks ticks(mImpl->instance);
  try {
    CallIntoPlugin([&] {
      if (engine && engine->mCallFunction)
        status = engine->mCallFunction(mImpl->instance, name.c_str(), values.data(),
                                       static_cast<int32_t>(values.size()), &result);
    });
  } catch (...) {
    SetCurrentScriptInstance(outer);
    for (QuorlValue const& v : values)
      if (v.mType == kQuorlString) UnlockStringStorage(v.mString);
    throw;
  }
  SetCurrentScriptInstance(outer);
  for (QuorlValue const& v : values)
    if (v.mType == kQuorlString) UnlockStringStorage(v.mString);
  detail::CallValue answer = status == kQuorlCallDone ? FromEngineValue(result)
                                                      : detail::CallValue();
  if (status != kQuorlCallDone)
    throw CallError(name + ": " + CallFailure(status));
  if (resultType != detail::kNoValue && answer.type != resultType)
    throw CallError(name + ": the function's result is no " +
                    (resultType == detail::kNoValue ? "nothing" : "such type"));
  return answer;
}

VELDObject Script::Instance() const { return mImpl->instance; }

}  // namespace quorl

// Checked bindings: the declaration a C++ signature stands for, the check
// of a hand-written one, and the strings and exceptions that cross.
#include <strings.h>

#include <cstddef>
#include <sstream>

#include "StandInHost/HostState.h"
#include "StandInHost/HostStrings.h"
#include "quorl/QuorlHost.h"

namespace quorl {
namespace detail {
namespace {

char const* TypeName(int type) {
  switch (type) {
    case kInteger: return "Integer";
    case kInt64: return "Int64";
    case kDouble: return "Double";
    case kSingle: return "Single";
    case kBoolean: return "Boolean";
    case kString: return "String";
    case kNoValue: return "nothing";
    default: return "a type no binding maps";
  }
}

QuorlEngineOperations const& Engine() {
  QuorlEngineOperations const* engine = standin::Host().engine;
  if (!engine || !engine->mDescribeDeclaration || !engine->mAddHostFunction)
    throw Error("no script engine is loaded that takes bindings");
  return *engine;
}

// A bare name has no parentheses and no spaces; "Function" alone is a
// declaration that lacks its name, not a name.
bool IsDeclaration(std::string const& text) {
  return text.find_first_of("( \t") != std::string::npos ||
         strcasecmp(text.c_str(), "Function") == 0 ||
         strcasecmp(text.c_str(), "Sub") == 0;
}

std::string DerivedDeclaration(std::string const& name, CppSignature const& cpp) {
  std::ostringstream text;
  text << (cpp.result == kNoValue ? "Sub " : "Function ") << name << "(";
  for (size_t i = 0; i < cpp.parameters.size(); i++)
    text << (i ? ", " : "") << "p" << i + 1 << " As " << TypeName(cpp.parameters[i]);
  text << ")";
  if (cpp.result != kNoValue) text << " As " << TypeName(cpp.result);
  return text.str();
}

// The first difference between what the declaration says and what the C++
// function is, or "".
std::string Mismatch(QuorlSignature const& declared, CppSignature const& cpp) {
  std::ostringstream why;
  if (declared.mReturnType != cpp.result) {
    why << "it returns " << TypeName(declared.mReturnType)
        << ", the C++ function " << TypeName(cpp.result);
  } else if (size_t(declared.mParameterCount) != cpp.parameters.size()) {
    why << "it has " << declared.mParameterCount
        << " parameters, the C++ function " << cpp.parameters.size();
  } else {
    for (size_t i = 0; i < cpp.parameters.size(); i++) {
      if (declared.mParameterTypes[i] == cpp.parameters[i]) continue;
      why << "parameter " << i + 1 << " is " << TypeName(declared.mParameterTypes[i])
          << ", in the C++ function " << TypeName(cpp.parameters[i]);
      break;
    }
  }
  return why.str();
}

}  // namespace

std::string StringFromScript(void* text) {
  return standin::ToStdString(static_cast<VELDString>(text));
}

void* StringToScript(std::string const& text) {
  return text.empty() ? nullptr : standin::NewHostString(text);
}

namespace {

struct PendingRaise {
  bool stop = false;
  std::string className;
  std::string message;
};

// Lives as long as its thread: nothing of it is left to destroy when a
// raise leaves the frames that set it.
thread_local PendingRaise tPending;

}  // namespace

void SetPendingRaise(char const* className, char const* message) {
  tPending.stop = false;
  tPending.className = className;
  tPending.message = message;
}

void SetPendingStop() { tPending.stop = true; }

void RaiseInScript(char const* className, char const* message) {
  QuorlEngineOperations const* engine = standin::Host().engine;
  if (engine && engine->mRaiseScriptException)
    engine->mRaiseScriptException(className, message);
}

void RaisePending() {
  QuorlEngineOperations const* engine = standin::Host().engine;
  if (!tPending.stop) {
    RaiseInScript(tPending.className.c_str(), tPending.message.c_str());
    return;
  }
  tPending.stop = false;
  bool offered = engine && engine->mSize > offsetof(QuorlEngineOperations, mStopNow) &&
                 engine->mStopNow;
  if (offered) engine->mStopNow();
}

void CheckReadable(std::string const& declaration) {
  QuorlSignature declared;
  if (Engine().mDescribeDeclaration(declaration.c_str(), &declared) != kQuorlCallDone)
    throw BindingError("the declaration \"" + declaration + "\" does not read");
}

std::string CheckedDeclaration(std::string const& nameOrDeclaration,
                               CppSignature const& cpp) {
  QuorlEngineOperations const& engine = Engine();
  std::string declaration = IsDeclaration(nameOrDeclaration)
                                ? nameOrDeclaration
                                : DerivedDeclaration(nameOrDeclaration, cpp);
  CheckReadable(declaration);
  QuorlSignature declared;
  engine.mDescribeDeclaration(declaration.c_str(), &declared);
  std::string why = Mismatch(declared, cpp);
  if (!why.empty())
    throw BindingError("the declaration \"" + declaration +
                       "\" does not fit the C++ function: " + why);
  return declaration;
}

}  // namespace detail
}  // namespace quorl

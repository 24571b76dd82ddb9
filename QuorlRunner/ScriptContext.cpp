#include "QuorlRunner/ScriptContext.h"

#include <cstdlib>

namespace quorl {
namespace runner {
namespace {

char const kContextClassName[] = "QuorlCommandLine";

ContextState& StateOf(VELDObject self) {
  return **static_cast<ContextState**>(InstanceData(self));
}

int32_t ArgCount(VELDObject self, long) {
  return static_cast<int32_t>(StateOf(self).arguments.size());
}

std::string Args(VELDObject self, int32_t index) {
  std::vector<std::string> const& arguments = StateOf(self).arguments;
  if (index < 0 || static_cast<size_t>(index) >= arguments.size())
    throw ScriptException("there is no argument " + std::to_string(index),
                          "OutOfBoundsException");
  return arguments[index];
}

std::string Environment(VELDObject, std::string name) {
  char const* value = std::getenv(name.c_str());
  return value ? value : "";
}

void Quit(VELDObject self, int32_t status) {
  StateOf(self).quit = true;
  StateOf(self).exitStatus = status;
  throw ScriptStop();
}

}  // namespace

void GiveContext(Script& script, ContextState& state) {
  HostClass context(kContextClassName, sizeof(ContextState*));
  context.AddProperty<&ArgCount>(0, "ArgCount As Integer")
      .AddMethod<&Args>("Function Args(index As Integer) As String")
      .AddMethod<&Environment>("Function Environment(name As String) As String")
      .AddMethod<&Quit>("Sub Quit(status As Integer)");
  DefineClass(context);
  Object object = Object::New(kContextClassName);
  *static_cast<ContextState**>(object.Data()) = &state;
  script.SetContext(object);
}

}  // namespace runner
}  // namespace quorl

#include "tests/StandInHost/ScriptedInterpreter.h"


std::string ScriptedInterpreter::Ask(std::string const& prompt) {
  unsigned long length = 12345;
  char* answer = Input(prompt.data(), prompt.size(), &length);
  if (!answer) return length == 0 ? "<null>" : "<null with a length>";
  std::string result(answer, length);
  delete[] answer;
  return result;
}

void AttachLinkedEngine(quorl::HostOptions const& options) {
  quorl::Attach(&VELDPluginMain, options);
}

ScriptedInterpreter* InstallProgram(quorl::Script& script, ScriptedInterpreter::Program program) {
  QuorlScriptData* data = DataOf(script);
  delete data->mInterface;
  auto* interpreter = new ScriptedInterpreter(script.Instance(), std::move(program));
  data->mInterface = interpreter;
  return interpreter;
}

QuorlScriptData* DataOf(quorl::Script const& script) { return QuorlScriptDataOf(script.Instance()); }
